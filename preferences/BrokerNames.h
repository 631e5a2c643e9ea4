#pragma once

#include <QStringList>

namespace Quorpricepreference {

/// A broker's number with four digits, and its name beside it in the user's language where the
/// host's directory has it. A text that is no number stays as it is.
QString BrokerText(const QString& id);

/// The four-digit numbers, ascending, of the brokers that have `text` in a name of theirs, in
/// whatever language and case; none for an empty text.
QStringList FindBrokers(const QString& text);

} // namespace Quorpricepreference
