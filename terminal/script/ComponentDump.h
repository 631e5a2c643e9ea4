#pragma once

#include <QJsonObject>

class QObject;

namespace Terminal {

/// Every named component below `form`, by name: groups, items, controls, menu items and those
/// that are not on the form's face. A member that a kind of component does not have is left out.
QJsonObject DumpComponents(const QObject& form);

} // namespace Terminal
