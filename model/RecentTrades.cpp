#include "model/RecentTrades.h"

#include "host/BaseFormatter.h"
#include "host/MarketTradeSideDetector.h"
#include "model/RecordText.h"
#include "text/Strings.h"

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Markettradesidedetector::TMarketTradeSideDetector;

namespace {

constexpr int FirstTradeRow = 1;
constexpr int LastTradeRow = 5;

/// A time in digits gets the side mark; a blank in its place keeps the column aligned.
std::string MarkedTime(std::string_view time, std::string_view sideMark) {
  std::string marked(time);
  if (marked.back() >= '0' && marked.back() <= '9')
    marked += sideMark.empty() ? std::string_view(" ") : sideMark;
  return marked;
}

} // namespace

TTradeInfo TradeInfoAt(std::string_view symbol, int row) {
  if (row < FirstTradeRow || row > LastTradeRow)
    return {};
  const auto* trades = TMarketTradeSideDetector::GetInstance()->GetSymbolMarketTrade(symbol);
  const auto* trade = trades ? trades->GetTrade(row - FirstTradeRow) : nullptr;
  if (!trade)
    return {};
  const std::string_view time = Text::Trim(trade->Time);
  if (time.empty())
    return {};
  return {true, MarkedTime(time, trade->Side), trade->Quantity,
          TCustomFormatter::GetInstance()->FormatPrice(symbol, 0, trade->Price)};
}

} // namespace Quorpricedatacontrol
