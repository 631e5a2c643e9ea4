#pragma once

#include "terminal/market/UserOrders.h"

#include <QString>

namespace Terminal {

class TServices;

/// The text of a language key in the terminal's current language.
QString WindowText(const char* key);

/// `text` with a key to press together with Alt: the letter itself where the text has it, or else
/// behind the text, as in "確定(&O)".
QString WithMnemonic(const QString& text, QChar letter);

/// A symbol and, where it has one, its name.
QString InstrumentText(const TServices& services, const QString& symbol);

/// Language key of an order's status.
const char* StatusKey(Market::TOrderStatus status);

} // namespace Terminal
