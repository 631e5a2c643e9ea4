#pragma once

#include "feed/MarketIndex.h"

#include <string>
#include <vector>

namespace Terminal {

/// The lines of a recording that were skipped, each by its number and with what is wrong with it,
/// in the terminal's current language; of very many, the first. The last says how many there are.
std::vector<std::string> SkippedLines(const Feed::TMarketIndex& index);

} // namespace Terminal
