#pragma once

#include "terminal/services/LanguageTexts.h"
#include "terminal/services/SubscribeAdapter.h"
#include "terminal/services/SymbolDirectory.h"

namespace Terminal {

/// What an instrument is, in the present language: its listed name and, of a warrant or a CBBC
/// whose record is known, call or put, strike and expiry. Empty when nothing of that is known.
std::string InstrumentDescription(std::string_view symbol, const TSymbolDirectory& symbols,
                                  const TSubscribeAdapter& records, TLanguageTexts& languages);

} // namespace Terminal
