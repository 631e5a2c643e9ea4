#include "market/LiquidityProvider.h"

#include "market/Mathematics.h"
#include "market/OrderFlow.h"

#include <algorithm>
#include <cmath>

namespace Market {
namespace {

using namespace std::chrono_literals;

/// A year, continuously compounded.
constexpr double InterestRate = 0.03;
/// A year, on the strike.
constexpr double FundingRate = 0.045;
/// Part of the spot price: closer to its call a contract's holder pays less for funding that he may
/// not get.
constexpr double NearCall = 0.04;

// Between two looks at the underlying, in seconds: at least, and on average more.
constexpr double ShortestLook = 0.2;
constexpr double LookPause = 0.3;

// Quotes in lots, at the best price and the parts of it that stand behind.
constexpr int LeastLots = 60;
constexpr int MoreLots = 60;
static_assert(LeastLots + MoreLots <= LargestOrderInLots);
constexpr double Parts[TLiquidityProvider::Levels] = {1, 0.7, 0.5, 0.35, 0.25};

/// A quote of which less than this part is left is filled up.
constexpr double LeastLeft = 0.5;

double YearsUntil(std::chrono::year_month_day expiry, std::chrono::year_month_day date) {
  const auto days = (std::chrono::sys_days(expiry) - std::chrono::sys_days(date)).count();
  return static_cast<double>(std::max<long>(days, 0)) / 365;
}

double WarrantValue(const TTerms& terms, double spot, double years) {
  const double discounted = terms.Strike * Exp(-InterestRate * years);
  const double deviation = terms.Volatility * std::sqrt(years);
  const double sign = terms.Right == TRight::Call ? 1 : -1;
  if (deviation == 0)
    return std::max(sign * (spot - discounted), 0.0);
  const double d1 = Log(spot / discounted) / deviation + deviation / 2;
  const double d2 = d1 - deviation;
  return sign * (spot * NormalDistribution(sign * d1) - discounted * NormalDistribution(sign * d2));
}

double ContractValue(const TTerms& terms, double spot, double years) {
  const double inside = terms.Right == TRight::Call ? spot - terms.Strike : terms.Strike - spot;
  const double untilCall = std::abs(spot - ToUnits(terms.CallLevel)) / spot;
  const double funding = FundingRate * years * terms.Strike * std::min(untilCall / NearCall, 1.0);
  return std::max(inside + funding, 0.0);
}

} // namespace

double FairValue(const TTerms& terms, double spot, std::chrono::year_month_day date) {
  const double years = YearsUntil(terms.Expiry, date);
  const double ofOneUnderlying =
      terms.CallLevel > 0 ? ContractValue(terms, spot, years) : WarrantValue(terms, spot, years);
  return ofOneUnderlying / terms.UnitsPerUnderlying * PriceUnit;
}

bool IsCalled(const TTerms& terms, const TDayFigures& underlying) {
  if (terms.CallLevel == 0)
    return false;
  return terms.Right == TRight::Call ? underlying.Low && *underlying.Low <= terms.CallLevel
                                     : underlying.High && *underlying.High >= terms.CallLevel;
}

TLiquidityProvider::TLiquidityProvider(const TInstrument& instrument,
                                       std::chrono::year_month_day date, const TTradingDay& day,
                                       TRandom random)
    : instrument_(instrument), date_(date), day_(day), random_(random),
      due_(NextLook(TTimeOfDay{})) {}

std::optional<TTimeOfDay> TLiquidityProvider::NextLook(TTimeOfDay time) {
  const double pause = ShortestLook + LookPause * random_.Exponential();
  const auto next = time + TTimeOfDay(static_cast<TTimeOfDay::rep>(pause * 1e6));
  if (IsContinuous(day_.At(next).Phase))
    return next;
  const auto morning = day_.NextStart(TPhase::Morning, next);
  return morning ? morning : day_.NextStart(TPhase::Afternoon, next);
}

void TLiquidityProvider::Act(TInstrumentMarket& market, const TInstrumentMarket& underlying,
                             const std::function<TOrderId()>& newId) {
  due_ = NextLook(*due_);
  const auto bid = underlying.Book().BestPrice(TSide::Bid);
  const auto ask = underlying.Book().BestPrice(TSide::Ask);
  if (!bid || !ask) {
    fair_ = 0;
    Replace(market, {});
    return;
  }
  fair_ = FairValue(*instrument_.Terms, (ToUnits(*bid) + ToUnits(*ask)) / 2, date_);
  const double centre = TickPosition(market.Book().Grid(), fair_);
  if (quotes_.empty() || std::abs(centre - quotedAt_) >= 1) {
    Replace(market, QuotesAround(market.Book().Grid(), centre));
    quotedAt_ = centre;
  }
  for (TQuote& quote : quotes_)
    PutInOrder(market, quote, newId);
}

std::vector<TLiquidityProvider::TQuote> TLiquidityProvider::QuotesAround(const TTickGrid& grid,
                                                                         double centre) {
  const int bid = static_cast<int>(std::floor(centre - (Width() - 1) / 2.0));
  std::vector<TQuote> quotes;
  for (int level = 0; level < Levels; ++level)
    for (const TSide side : {TSide::Bid, TSide::Ask}) {
      const int tick = side == TSide::Bid ? bid - level : bid + Width() + level;
      const double lots = (LeastLots + random_.Below(MoreLots)) * Parts[level];
      if (tick >= 0 && tick < grid.Count())
        quotes.push_back({side, grid.PriceAt(tick), std::lround(lots) * instrument_.BoardLot, 0});
    }
  return quotes;
}

/// An order that stands at one of the new prices already keeps its place in the queue; the others
/// are withdrawn before anything new is entered.
void TLiquidityProvider::Replace(TInstrumentMarket& market, std::vector<TQuote> quotes) {
  for (const TQuote& former : quotes_) {
    const auto kept = std::ranges::find_if(quotes, [&](const TQuote& quote) {
      return quote.Side == former.Side && quote.Price == former.Price;
    });
    if (kept != quotes.end())
      kept->Order = former.Order;
    else if (former.Order != 0)
      market.Cancel(former.Order);
  }
  quotes_ = std::move(quotes);
}

/// Enters a quote that is not in the book, and fills up one of which little is left.
void TLiquidityProvider::PutInOrder(TInstrumentMarket& market, TQuote& quote,
                                    const std::function<TOrderId()>& newId) {
  const TPrice price = WithinReach(market.Book(), quote);
  const TBookOrder* order = market.Book().Find(quote.Order);
  if (!order) {
    quote.Order = newId();
    market.Enter({.Id = quote.Order,
                  .Side = quote.Side,
                  .Price = price,
                  .Quantity = quote.Quantity,
                  .Broker = instrument_.Terms->Provider});
  } else if (order->Price != price || static_cast<double>(order->Quantity) <
                                          LeastLeft * static_cast<double>(quote.Quantity)) {
    market.Change(quote.Order, price, quote.Quantity);
  }
}

/// The quote's price, or the price closest to it that the exchange accepts while somebody else's
/// order stands in the way.
TPrice TLiquidityProvider::WithinReach(const TOrderBook& book, const TQuote& quote) const {
  const auto opposite = book.BestPrice(Opposite(quote.Side));
  if (!opposite)
    return quote.Price;
  return quote.Side == TSide::Bid
             ? std::min(quote.Price, book.Grid().Moved(*opposite, ReachInTicks))
             : std::max(quote.Price, book.Grid().Moved(*opposite, -ReachInTicks));
}

} // namespace Market
