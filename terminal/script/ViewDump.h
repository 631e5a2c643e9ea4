#pragma once

#include <QColor>
#include <QJsonObject>

namespace Terminal {

class TViewPane;

/// The view as it stands on the screen, read from its live widgets and asking nothing to refresh:
/// caption, symbol, preferred size, caption buttons, grids, components and pop-ups.
QJsonObject DumpView(const TViewPane& pane);

/// "#rrggbb".
QString ColourText(QRgb colour);

} // namespace Terminal
