#include "terminal/windows/TradeBars.h"

#include "text/Numbers.h"
#include "text/Strings.h"
#include "text/TimeOfDay.h"

#include <algorithm>

namespace Terminal {

using Markettradesidedetector::TTrade;

namespace {

std::optional<int> MinuteOf(const TTrade& trade) {
  const auto time = Text::ParseTimeOfDay(Text::Trim(trade.Time));
  if (!time)
    return {};
  return static_cast<int>(std::chrono::duration_cast<std::chrono::minutes>(*time).count());
}

/// Quantities come as they are shown, in groups of three.
std::optional<double> QuantityOf(const TTrade& trade) {
  std::string digits = trade.Quantity;
  std::erase(digits, ',');
  return Text::ParseNumber(digits);
}

} // namespace

TTradeBars::TTradeBars(TTradeSideDetector& trades) : trades_(trades) {
  trades_.OnTrade = [this](std::string_view symbol, const TTrade* trade) { Apply(symbol, trade); };
}

TTradeBars::~TTradeBars() { trades_.OnTrade = nullptr; }

const std::vector<TTradeBar>& TTradeBars::Of(std::string_view symbol) const {
  static const std::vector<TTradeBar> none;
  const auto found = bars_.find(symbol);
  return found == bars_.end() ? none : found->second;
}

void TTradeBars::Apply(std::string_view symbol, const TTrade* trade) {
  auto& bars = bars_[std::string(symbol)];
  if (trade) {
    Add(bars, *trade);
  } else {
    bars.clear();
    const auto* kept = trades_.GetSymbolMarketTrade(symbol);
    for (int index = TSymbolTrades::Kept; kept && index-- > 0;)
      if (const auto* each = kept->GetTrade(index))
        Add(bars, *each);
  }
  emit Changed(std::string(symbol));
}

void TTradeBars::Add(std::vector<TTradeBar>& bars, const TTrade& trade) {
  const auto minute = MinuteOf(trade);
  const auto quantity = QuantityOf(trade);
  if (!minute || !quantity || trade.Price <= 0)
    return;
  // Nearly always the last one, or the one after it.
  const auto place =
      std::lower_bound(bars.begin(), bars.end(), *minute,
                       [](const TTradeBar& bar, int wanted) { return bar.Minute < wanted; });
  if (place == bars.end() || place->Minute != *minute) {
    bars.insert(place, {*minute, trade.Price, trade.Price, trade.Price, trade.Price, *quantity});
    return;
  }
  place->High = std::max(place->High, trade.Price);
  place->Low = std::min(place->Low, trade.Price);
  place->Close = trade.Price;
  place->Volume += *quantity;
}

} // namespace Terminal
