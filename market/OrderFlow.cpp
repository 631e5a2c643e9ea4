#include "market/OrderFlow.h"

#include <algorithm>
#include <cmath>

namespace Market {
namespace {

/// What the participants in an instrument do in continuous trading: likelihoods of the kinds of
/// act, while there are as many orders as there should be; cancellations are as likely as there
/// are orders.
struct THabits {
  double Quote, SendTakingOrder, Cancel;
  int Nearest; ///< a limit order's least distance from the opposite best price, in ticks
};
constexpr THabits Ordinary = {0.50, 0.075, 0.40, 1};
/// Of warrants and contracts: most trade with the liquidity provider.
constexpr THabits Retail = {0.40, 0.25, 0.35, 2};

/// A price far from the fair value is taken this much more.
constexpr double UrgentTake = 0.45;
constexpr double UrgentTicks = 5;
/// Ticks worse than the fair value at which an order that trades at once still may trade: at
/// least, and on average more.
constexpr double LeastTolerance = 0.6;
constexpr double MoreTolerance = 0.7;

// Distances of limit orders from the opposite best price: the scale in ticks, less where a tick is
// a large part of the price.
constexpr double FineScale = 12;
constexpr double CoarseScale = 2;
constexpr double ScaleOfPrice = 0.018;
constexpr double DistanceExponent = 1.8;
constexpr int FurthestDistance = 70;
/// How much sooner orders near the best price are withdrawn than those far from it.
constexpr double Impatience = 0.6;

// Sizes in lots.
constexpr double SizeExponent = 1.6;
constexpr double LargestSize = 400; ///< in multiples of the mean

/// Of the orders that trade at once, those that ask for no more than stands at the best price.
constexpr double ContentWithBest = 0.7;

/// Who trades in an auction. To the closing one come the funds that must deal at the closing
/// price, with orders of another size.
struct TAuctionHabits {
  double AtAuctionPart; ///< of the orders, those that name no price
  double Size;          ///< as a multiple of the ordinary one
};
constexpr TAuctionHabits AtTheOpening = {0.12, 1.5};
constexpr TAuctionHabits AtTheClose = {0.35, 4};
/// How far beyond the fair value an order in an auction may go to be sure to trade, in ticks.
constexpr double AuctionOverlap = 3;

/// Orders in the book of an instrument with this many acts a second.
double UsualOrders(double actsPerSecond) {
  return std::min({15 + 48 * actsPerSecond, 50 + 25 * actsPerSecond, 280.0});
}

const THabits& HabitsIn(const TInstrument& instrument) {
  return instrument.IsStructured() ? Retail : Ordinary;
}

int Outward(TSide side, int ticks) { return side == TSide::Bid ? -ticks : ticks; }

/// While a cooling-off keeps the price from the fair value, orders are placed as though what lies
/// beyond its limits were worth no more than the limit.
double WithinCoolingOff(const TInstrumentMarket& market, double fairTick) {
  const auto coolingOff = market.CoolingOff();
  if (!coolingOff)
    return fairTick;
  const TTickGrid& grid = market.Book().Grid();
  return std::clamp<double>(fairTick, grid.TickAtOrAbove(coolingOff->Limits.Lower),
                            grid.TickAtOrBelow(coolingOff->Limits.Upper));
}

/// How likely somebody who acts is a buyer: even, but while a cooling-off keeps the price from the
/// fair value few trade against it, and the others queue at the limit.
double BuyersPart(const TInstrumentMarket& market, double fairTick) {
  constexpr double Few = 0.2;
  const double reachable = WithinCoolingOff(market, fairTick);
  return fairTick > reachable ? 1 - Few : fairTick < reachable ? Few : 0.5;
}

} // namespace

double TickPosition(const TTickGrid& grid, double price) {
  const int below = grid.TickAtOrBelow(static_cast<TPrice>(price));
  if (below < 0)
    return price / static_cast<double>(grid.PriceAt(0)) - 1;
  const TPrice from = grid.PriceAt(below);
  return below + (price - static_cast<double>(from)) / static_cast<double>(grid.StepAbove(from));
}

TOrderFlow::TOrderFlow(const TInstrument& instrument, const TTradingDay& day,
                       const TBrokerDraw& brokers, TRandom random)
    : instrument_(instrument), brokers_(brokers), random_(random),
      activity_(instrument.Temper.OrdersPerSecond, day),
      due_(activity_.Next(TTimeOfDay{}, 1, random_)) {}

void TOrderFlow::Act(TInstrumentMarket& market, double fair, double liveliness, TOrderId id) {
  ForgetOneThatIsGone(market.Book());
  const TPhase phase = market.Phase();
  if (fair > 0 && AcceptsOrders(phase)) {
    const double fairTick = TickPosition(market.Book().Grid(), fair);
    if (IsContinuous(phase))
      ActInContinuous(market, fairTick, id);
    else
      ActInAuction(market, fairTick, id);
  }
  due_ = activity_.Next(*due_, liveliness, random_);
}

/// The book says nothing when an order is gone, and looking through all of them each time would be
/// dear; one look an act keeps the list close to the book.
void TOrderFlow::ForgetOneThatIsGone(const TOrderBook& book) {
  if (orders_.empty())
    return;
  TOrderId& looked = orders_[std::size_t(random_.Below(int(orders_.size())))];
  if (!book.Find(looked)) {
    looked = orders_.back();
    orders_.pop_back();
  }
}

/// How many orders there are, as a multiple of how many there should be.
double TOrderFlow::Crowding() const {
  return static_cast<double>(orders_.size()) / UsualOrders(instrument_.Temper.OrdersPerSecond);
}

void TOrderFlow::ActInContinuous(TInstrumentMarket& market, double trueFairTick, TOrderId id) {
  const double buyers = BuyersPart(market, trueFairTick);
  const double fairTick = WithinCoolingOff(market, trueFairTick);
  const TOrderBook& book = market.Book();
  const auto bid = book.BestPrice(TSide::Bid);
  const auto ask = book.BestPrice(TSide::Ask);
  const THabits& habits = HabitsIn(instrument_);
  const double cancel = habits.Cancel * Crowding();
  if (!bid || !ask) {
    if (random_.Uniform() * (habits.Quote + cancel) < habits.Quote)
      Quote(market, fairTick, buyers, id);
    else
      CancelOne(market, fairTick);
    return;
  }
  const TTickGrid& grid = book.Grid();
  const double middle = (grid.TickAtOrBelow(*bid) + grid.TickAtOrBelow(*ask)) / 2.0;
  const double gap = fairTick - middle;
  const double urgency = std::min(std::abs(gap) / UrgentTicks, 1.0);
  const double take = habits.SendTakingOrder + UrgentTake * urgency * urgency;
  const double chosen = random_.Uniform() * (habits.Quote + take + cancel);
  if (chosen < take)
    SendTakingOrder(market, fairTick, std::clamp(buyers + 0.16 * gap, 0.03, 0.97), id);
  else if (chosen < take + habits.Quote)
    Quote(market, fairTick, buyers, id);
  else
    CancelOne(market, fairTick);
}

void TOrderFlow::SendTakingOrder(TInstrumentMarket& market, double fairTick, double buyers,
                                 TOrderId id) {
  const TOrderBook& book = market.Book();
  const bool buys = random_.Chance(buyers);
  const TSide against = buys ? TSide::Ask : TSide::Bid;
  const TPrice best = *book.BestPrice(against);
  const int bestTick = book.Grid().TickAtOrBelow(best);
  const double favour = buys ? fairTick - bestTick : bestTick - fairTick;
  if (-favour > LeastTolerance + MoreTolerance * random_.Exponential()) {
    Quote(market, fairTick, buys ? 1 : 0, id); // waits instead
    return;
  }
  TQuantity quantity = Quantity();
  if (random_.Chance(ContentWithBest))
    quantity = std::min(quantity, book.LevelAt(against, best).Quantity);
  const int reach = std::clamp(static_cast<int>(favour), 0, ReachInTicks);
  Enter(market, {Opposite(against), bestTick + Outward(against, reach)}, quantity, id);
}

void TOrderFlow::Quote(TInstrumentMarket& market, double fairTick, double buyers, TOrderId id) {
  const TOrderBook& book = market.Book();
  const TSide side = random_.Chance(buyers) ? TSide::Bid : TSide::Ask;
  const auto opposite = book.BestPrice(Opposite(side));
  const int from = opposite ? book.Grid().TickAtOrBelow(*opposite)
                            : static_cast<int>(std::lround(fairTick)) - Outward(side, 1);
  int tick = from + Outward(side, Distance(book.Grid(), fairTick));
  // Nobody waits at a price that is clearly worse than the fair one.
  if (side == TSide::Bid)
    tick = std::min(tick, static_cast<int>(std::floor(fairTick + LeastTolerance)));
  else
    tick = std::max(tick, static_cast<int>(std::ceil(fairTick - LeastTolerance)));
  Enter(market, {side, tick}, Quantity(), id);
}

int TOrderFlow::Distance(const TTickGrid& grid, double fairTick) {
  const double price = static_cast<double>(grid.PriceAt(std::max(0, static_cast<int>(fairTick))));
  const double step = static_cast<double>(grid.StepAbove(static_cast<TPrice>(price)));
  const double scale = std::clamp(ScaleOfPrice * price / step, CoarseScale, FineScale);
  double distance = 0;
  do
    distance = random_.Lomax(scale, DistanceExponent);
  while (distance >= FurthestDistance);
  return HabitsIn(instrument_).Nearest + static_cast<int>(distance);
}

/// Orders near the best price are withdrawn sooner than those far from it, and first of all those
/// that the fair value has passed.
void TOrderFlow::CancelOne(TInstrumentMarket& market, double fairTick) {
  constexpr int Tries = 6;
  const TOrderBook& book = market.Book();
  const TBookOrder* chosen = nullptr;
  for (int tried = 0; tried < Tries && !orders_.empty(); ++tried) {
    const TBookOrder* order = book.Find(orders_[std::size_t(random_.Below(int(orders_.size())))]);
    if (!order)
      continue;
    chosen = order;
    const int tick = book.Grid().TickAtOrBelow(order->Price);
    const double inside = order->Side == TSide::Bid ? tick - fairTick : fairTick - tick;
    if (inside > LeastTolerance || random_.Chance(1 / (1 + Impatience * std::abs(inside))))
      break;
  }
  if (chosen)
    market.Cancel(chosen->Id);
}

void TOrderFlow::ActInAuction(TInstrumentMarket& market, double fairTick, TOrderId id) {
  if (AcceptsCancels(market.Phase()) &&
      random_.Chance(0.5 * Crowding() / (0.7 + 0.5 * Crowding()))) {
    CancelOne(market, fairTick);
    return;
  }
  const TAuctionHabits& habits = IsOpeningAuction(market.Phase()) ? AtTheOpening : AtTheClose;
  const TSide side = random_.Chance(0.5) ? TSide::Bid : TSide::Ask;
  if (random_.Chance(habits.AtAuctionPart)) {
    Note(market.Enter({.Id = id,
                       .Side = side,
                       .Kind = TOrderKind::Market,
                       .Quantity = Quantity(habits.Size),
                       .Broker = brokers_.Draw(random_)}),
         id);
    return;
  }
  const double inward = random_.Uniform() * AuctionOverlap;
  const int tick = static_cast<int>(
      std::lround(fairTick + Outward(side, Distance(market.Book().Grid(), fairTick)) +
                  (side == TSide::Bid ? inward : -inward)));
  Enter(market, {side, tick}, Quantity(habits.Size), id);
}

/// Enters a limit order at the nearest price that may be asked or offered now.
void TOrderFlow::Enter(TInstrumentMarket& market, TPlace place, TQuantity quantity, TOrderId id) {
  const TTickGrid& grid = market.Book().Grid();
  if (place.Tick < 0 || place.Tick >= grid.Count())
    return;
  TPrice price = grid.PriceAt(place.Tick);
  if (const auto limits = market.AuctionLimits())
    price = std::clamp(price, limits->Lower, limits->Upper);
  if (const auto coolingOff = market.CoolingOff())
    price = std::clamp(price, coolingOff->Limits.Lower, coolingOff->Limits.Upper);
  if (const auto& limits = market.Settings().DailyLimits)
    price = std::clamp(price, limits->Lower, limits->Upper);
  Note(market.Enter({.Id = id,
                     .Side = place.Side,
                     .Price = price,
                     .Quantity = quantity,
                     .Broker = brokers_.Draw(random_)}),
       id);
}

void TOrderFlow::Note(const TEntryResult& result, TOrderId id) {
  if (result.Open > 0)
    orders_.push_back(id);
}

/// `size`: as a multiple of the ordinary one.
TQuantity TOrderFlow::Quantity(double size) {
  const double mean = instrument_.Temper.MeanLots * size;
  const double beyondOne = random_.Lomax((mean - 0.5) * (SizeExponent - 1), SizeExponent);
  auto lots = 1 + static_cast<TQuantity>(std::min(beyondOne, LargestSize * mean));
  if (lots > 10 && random_.Chance(0.5)) // people like round numbers
    lots = (lots + 5) / 10 * 10;
  return std::min(lots, LargestOrderInLots) * instrument_.BoardLot;
}

} // namespace Market
