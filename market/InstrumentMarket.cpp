#include "market/InstrumentMarket.h"

#include <algorithm>
#include <vector>

namespace Market {

namespace {

constexpr TPrice FurthestMultiple = 9;
constexpr int OpeningPercent = 15;
constexpr int ClosingPercent = 5;

constexpr bool IsOpeningSession(TPhase phase) {
  return IsOpeningAuction(phase) || phase == TPhase::Blocking;
}
constexpr bool IsClosingSession(TPhase phase) {
  return phase == TPhase::ReferenceFixing || IsClosingAuction(phase);
}

/// Whether a buyer's or seller's `price` goes further into the other side than `other`.
constexpr bool IsBeyond(TSide side, TPrice price, TPrice other) {
  return side == TSide::Bid ? price > other : price < other;
}

/// `price`, or the limit that a buyer or seller meets before it.
TPrice WithinLimits(TSide side, TPrice price, const TPriceLimits& limits) {
  return side == TSide::Bid ? std::min(price, limits.Upper) : std::max(price, limits.Lower);
}

TMatch TradeWith(const TOrderEntry& taker, const TBookOrder& resting, TQuantity quantity) {
  TMatch trade;
  trade.Price = resting.Price;
  trade.Quantity = quantity;
  trade.Aggressor = taker.Side;
  const bool isBuyer = taker.Side == TSide::Bid;
  trade.BuyOrder = isBuyer ? taker.Id : resting.Id;
  trade.SellOrder = isBuyer ? resting.Id : taker.Id;
  trade.Buyer = isBuyer ? taker.Broker : resting.Broker;
  trade.Seller = isBuyer ? resting.Broker : taker.Broker;
  return trade;
}

} // namespace

TMarketListener::~TMarketListener() = default;

void TDayFigures::Add(const TMatch& trade) {
  if (!Open)
    Open = High = Low = trade.Price;
  High = std::max(*High, trade.Price);
  Low = std::min(*Low, trade.Price);
  Last = trade.Price;
  Volume += trade.Quantity;
  Turnover += trade.Price * trade.Quantity;
}

TInstrumentMarket::TInstrumentMarket(TInstrumentSettings settings, const TTickGrid& grid,
                                     const TTradingDay& day, TMarketListener& listener)
    : settings_(std::move(settings)), day_(day), listener_(listener), book_(grid),
      fixing_(day.SpanOf(TPhase::Afternoon).End), span_(&day.At(now_)) {
  if (settings_.VolatilityPercent > 0)
    volatility_.emplace(day, grid, settings_.VolatilityPercent);
}

void TInstrumentMarket::AdvanceTo(TTimeOfDay time) {
  for (;;) {
    // The last price of the fixing is taken at the very end of the afternoon, before it is left.
    const auto sample = fixing_.NextSample();
    const bool isSample = sample && *sample <= span_->End;
    const TTimeOfDay moment = isSample ? *sample : span_->End;
    if (moment > time)
      break;
    now_ = moment;
    if (isSample) {
      fixing_.Observe(NominalPrice());
    } else {
      Leave(Phase());
      span_ = &day_.At(now_);
    }
  }
  now_ = std::max(now_, time);
}

TPhase TInstrumentMarket::Phase() const {
  const bool isAbsent = (!settings_.HasOpeningAuction && IsOpeningSession(span_->Phase)) ||
                        (!settings_.HasClosingAuction && IsClosingSession(span_->Phase));
  return isAbsent ? TPhase::Closed : span_->Phase;
}

// --- orders ---

TEntryResult TInstrumentMarket::Enter(const TOrderEntry& entry) {
  if (const TRejection why = CheckEntry(entry.Quantity); why != TRejection::None)
    return {why};
  if (entry.Kind == TOrderKind::Market) {
    const auto price = FurthestPrice(entry.Side);
    return price ? Place(entry, *price) : TEntryResult{TRejection::NoOppositePrice};
  }
  const TRejection why = CheckPrice(entry.Side, entry.Price);
  return why == TRejection::None ? Place(entry, entry.Price) : TEntryResult{why};
}

TRejection TInstrumentMarket::Cancel(TOrderId id) {
  if (!AcceptsCancels(Phase()))
    return TRejection::PhaseRefuses;
  return book_.Cancel(id) ? TRejection::None : TRejection::UnknownOrder;
}

TEntryResult TInstrumentMarket::Change(TOrderId id, TPrice price, TQuantity quantity) {
  const TBookOrder* found = book_.Find(id);
  if (!found)
    return {TRejection::UnknownOrder};
  if (!AcceptsCancels(Phase()))
    return {TRejection::PhaseRefuses};
  if (const TRejection why = CheckEntry(quantity); why != TRejection::None)
    return {why};
  const TBookOrder order = *found;
  if (price == order.Price && quantity <= order.Quantity) {
    book_.Reduce(id, quantity);
    return {TRejection::None, 0, quantity};
  }
  if (const TRejection why = CheckPrice(order.Side, price); why != TRejection::None)
    return {why};
  book_.Cancel(id);
  return Place({id, order.Side, TOrderKind::Limit, price, quantity, order.Broker}, price);
}

TRejection TInstrumentMarket::CheckEntry(TQuantity quantity) const {
  if (settings_.IsSuspended)
    return TRejection::Suspended;
  if (!AcceptsOrders(Phase()))
    return TRejection::PhaseRefuses;
  if (quantity <= 0 || quantity % settings_.BoardLot != 0)
    return TRejection::QuantityNotInLots;
  if (quantity > LargestOrderInLots * settings_.BoardLot)
    return TRejection::QuantityTooLarge;
  return TRejection::None;
}

TRejection TInstrumentMarket::CheckPrice(TSide side, TPrice price) const {
  if (!book_.Grid().IsValid(price))
    return TRejection::PriceOffTick;
  if (settings_.DailyLimits && !settings_.DailyLimits->Hold(price))
    return TRejection::OutsideLimits;
  if (!IsContinuous(Phase())) {
    const auto limits = AuctionLimits();
    return limits && !limits->Hold(price) ? TRejection::OutsideLimits : TRejection::None;
  }
  const auto nominal = NominalPrice();
  if (nominal && (price >= *nominal * FurthestMultiple || price * FurthestMultiple <= *nominal))
    return TRejection::TooFarFromNominal;
  if (const auto coolingOff = CoolingOff(); coolingOff && !coolingOff->Limits.Hold(price))
    return TRejection::VolatilityControl;
  const auto furthest = FurthestPrice(side);
  return furthest && IsBeyond(side, price, *furthest) ? TRejection::BeyondReach : TRejection::None;
}

/// That an order of the side can have now; empty when there is nothing to tell it by.
std::optional<TPrice> TInstrumentMarket::FurthestPrice(TSide side) const {
  const TTickGrid& grid = book_.Grid();
  if (!IsContinuous(Phase()))
    return grid.PriceAt(side == TSide::Bid ? grid.Count() - 1 : 0);
  const auto opposite = book_.BestPrice(Opposite(side));
  if (!opposite)
    return std::nullopt;
  return grid.Moved(*opposite, side == TSide::Bid ? ReachInTicks : -ReachInTicks);
}

/// The order's price is checked; that a trade may break the volatility control's limits is not.
TEntryResult TInstrumentMarket::Place(const TOrderEntry& entry, TPrice price) {
  TEntryResult result{TRejection::None, 0, entry.Quantity};
  if (IsContinuous(Phase()))
    result = Trade(entry, price);
  if (result.Open > 0)
    book_.Add({entry.Id, entry.Side, price, result.Open, entry.Broker, now_, entry.Kind});
  return result;
}

TEntryResult TInstrumentMarket::Trade(const TOrderEntry& entry, TPrice price) {
  const auto limits = volatility_ ? volatility_->Limits(now_) : std::nullopt;
  const auto best = book_.BestPrice(Opposite(entry.Side));
  TQuantity left = entry.Quantity;
  if (!limits || (best && limits->Hold(*best)))
    left = book_.Match(entry.Side, limits ? WithinLimits(entry.Side, price, *limits) : price, left,
                       [&](const TBookOrder& resting, TQuantity quantity) {
                         Report(TradeWith(entry, resting, quantity));
                       });
  const TQuantity filled = entry.Quantity - left;
  if (left > 0 && book_.Crosses(entry.Side, price)) {
    if (!CoolingOff())
      StartCoolingOff();
    return {TRejection::VolatilityControl, filled, 0};
  }
  return {TRejection::None, filled, entry.Kind == TOrderKind::Limit ? left : 0};
}

/// Nothing may trade beyond its limits, so that nothing is left there to be traded with.
void TInstrumentMarket::StartCoolingOff() {
  volatility_->Trigger(now_);
  LapseIf([limits = CoolingOff()->Limits](const TBookOrder& order) {
    return order.Side == TSide::Bid ? order.Price > limits.Upper : order.Price < limits.Lower;
  });
}

void TInstrumentMarket::Report(const TMatch& trade) {
  TMatch timed = trade;
  timed.Time = now_;
  figures_.Add(timed);
  if (volatility_)
    volatility_->AddTrade(now_, timed.Price);
  listener_.Traded(*this, timed);
}

// --- the day ---

/// What the end of a phase brings, at that moment.
void TInstrumentMarket::Leave(TPhase phase) {
  switch (phase) {
  case TPhase::OpeningInput:
  case TPhase::ClosingInput:
    if (ReferencePrice())
      lateLimits_ = LimitsAfterInput();
    break;
  case TPhase::OpeningMatching:
    if (const auto equilibrium = Equilibrium())
      MatchAuction(equilibrium->Price);
    LapseIf([](const TBookOrder& order) { return order.Kind == TOrderKind::Market; });
    lateLimits_.reset();
    break;
  case TPhase::Afternoon:
    if (!settings_.HasClosingAuction)
      Close(fixing_.Price());
    break;
  case TPhase::ReferenceFixing:
    if (const auto reference = ReferencePrice())
      LapseIf([limits = LimitsAround(*reference, ClosingPercent, book_.Grid())](
                  const TBookOrder& order) { return !limits.Hold(order.Price); });
    break;
  case TPhase::ClosingMatching: {
    const auto equilibrium = Equilibrium();
    const auto price = equilibrium ? equilibrium->Price : ReferencePrice();
    if (price)
      MatchAuction(*price);
    Close(price);
    break;
  }
  default:
    break;
  }
}

/// An auction without limits in its input phase has none later.
TPriceLimits TInstrumentMarket::LimitsAfterInput() const {
  const TPriceLimits former = *AuctionLimits();
  const TPrice ask = BestLimitPrice(book_, TSide::Ask).value_or(former.Lower);
  const TPrice bid = BestLimitPrice(book_, TSide::Bid).value_or(former.Upper);
  return {std::min(ask, bid), std::max(ask, bid)};
}

void TInstrumentMarket::MatchAuction(TPrice price) {
  Uncross(book_, price, [&](const TBookOrder& bid, const TBookOrder& ask, TQuantity quantity) {
    Report({now_, price, quantity, bid.Id, ask.Id, bid.Broker, ask.Broker, std::nullopt});
  });
}

template <class TWhich> void TInstrumentMarket::LapseIf(const TWhich& which) {
  std::vector<TOrderId> lapsed;
  for (const TSide side : {TSide::Bid, TSide::Ask})
    book_.VisitOrders(side, [&](const TBookOrder& order, int) {
      if (which(order))
        lapsed.push_back(order.Id);
      return true;
    });
  for (const TOrderId id : lapsed)
    Lapse(id);
}

void TInstrumentMarket::Close(std::optional<TPrice> price) {
  closingPrice_ = price;
  lateLimits_.reset();
  LapseAll();
}

void TInstrumentMarket::Suspend() {
  settings_.IsSuspended = true;
  LapseAll();
}

void TInstrumentMarket::LapseAll() {
  for (const TSide side : {TSide::Bid, TSide::Ask})
    while (const TBookOrder* order = book_.Front(side))
      Lapse(order->Id);
}

void TInstrumentMarket::Lapse(TOrderId id) { listener_.Lapsed(*this, *book_.Cancel(id)); }

// --- what is published ---

std::optional<TPrice> TInstrumentMarket::NominalPrice() const {
  if (closingPrice_)
    return closingPrice_;
  if (const auto equilibrium = Equilibrium())
    return equilibrium->Price;
  if (const auto reference = ReferencePrice())
    return reference;
  const auto last = figures_.Last ? figures_.Last : settings_.PreviousClose;
  if (!last || !PublishesBook(Phase()))
    return last;
  const TPrice bid = book_.BestPrice(TSide::Bid).value_or(*last);
  const TPrice ask = book_.BestPrice(TSide::Ask).value_or(*last);
  return bid > *last ? bid : std::min(ask, *last);
}

std::optional<TPrice> TInstrumentMarket::ReferencePrice() const {
  if (IsOpeningAuction(Phase()))
    return settings_.PreviousClose;
  return IsClosingSession(Phase()) ? fixing_.Price() : std::nullopt;
}

std::optional<TPriceLimits> TInstrumentMarket::AuctionLimits() const {
  if (lateLimits_)
    return lateLimits_;
  const bool isOpening = IsOpeningAuction(Phase());
  const auto reference = ReferencePrice();
  if (!reference || !(isOpening || IsClosingAuction(Phase())))
    return std::nullopt;
  TPriceLimits limits =
      LimitsAround(*reference, isOpening ? OpeningPercent : ClosingPercent, book_.Grid());
  if (settings_.DailyLimits) {
    limits.Lower = std::max(limits.Lower, settings_.DailyLimits->Lower);
    limits.Upper = std::min(limits.Upper, settings_.DailyLimits->Upper);
  }
  return limits;
}

std::optional<TEquilibrium> TInstrumentMarket::Equilibrium() const {
  if (!IsOpeningAuction(Phase()) && !IsClosingAuction(Phase()))
    return std::nullopt;
  return FindEquilibrium(book_, ReferencePrice());
}

std::optional<TCoolingOff> TInstrumentMarket::CoolingOff() const {
  return volatility_ ? volatility_->CoolingOff(now_) : std::nullopt;
}

} // namespace Market
