#pragma once

#include <string>
#include <string_view>

namespace Quorpricedatacontrol {

/// A recent trade as the header rows show it.
struct TTradeInfo {
  bool Found = false; ///< the other members are meaningful only when true
  std::string Time;   ///< with the side mark, or a blank in its place, after a time in digits
  std::string Quantity;
  std::string Price;
};

/// The trade in header row `row`: rows 1 to 5 hold the symbol's first five.
TTradeInfo TradeInfoAt(std::string_view symbol, int row);

} // namespace Quorpricedatacontrol
