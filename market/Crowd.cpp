#include "market/Crowd.h"

#include <algorithm>

namespace Market {
namespace {

// Streams of the seed; the fair values' lie below. Each instrument has two: flow and provider.
constexpr std::uint64_t FirstStream = 100;

} // namespace

TInstrumentSettings SettingsOf(const TListing& listing, const TInstrument& instrument) {
  TInstrumentSettings settings;
  settings.Symbol = instrument.Symbol;
  settings.BoardLot = instrument.BoardLot;
  settings.PreviousClose = instrument.PreviousClose;
  // No mechanism of the day is in force for what does not trade.
  const bool trades = instrument.Standing == TStanding::Trading;
  settings.IsSuspended = !trades;
  settings.HasOpeningAuction = trades && instrument.HasAuctions();
  settings.HasClosingAuction = trades && instrument.HasAuctions();
  settings.VolatilityPercent = trades ? instrument.VolatilityPercent() : 0;
  settings.DailyLimits = listing.DailyLimits(instrument);
  return settings;
}

bool TCrowd::TTurn::operator>(const TTurn& other) const {
  return Due != other.Due ? Due > other.Due : Actor > other.Actor;
}

TCrowd::TCrowd(const TListing& listing, const TTradingDay& day,
               std::span<TInstrumentMarket* const> markets, std::uint64_t seed)
    : listing_(listing), markets_(markets.begin(), markets.end()),
      shocks_(PlanShocks(listing, seed)), fairValues_(listing, shocks_, seed),
      flows_(markets.size()), providers_(markets.size()) {
  const auto& instruments = listing.Instruments();
  for (std::size_t position = 0; position < instruments.size(); ++position) {
    const TInstrument& instrument = instruments[position];
    const TInstrument* followed = listing.Find(instrument.Follows());
    references_.push_back(followed ? std::size_t(followed - instruments.data()) : position);
    if (!markets_[position] || instrument.Standing != TStanding::Trading)
      continue;
    const std::uint64_t stream = FirstStream + 2 * position;
    flows_[position].emplace(instrument, day, brokers_, TRandom(seed, stream));
    Schedule(position, flows_[position]->Due());
    if (!instrument.IsStructured())
      continue;
    providers_[position].emplace(instrument, listing.Date(), day, TRandom(seed, stream + 1));
    Schedule(instruments.size() + position, providers_[position]->Due());
  }
}

TTimeOfDay TCrowd::NextDue() const {
  return turns_.empty() ? TTimeOfDay::max() : turns_.front().Due;
}

std::size_t TCrowd::Act() {
  std::ranges::pop_heap(turns_, std::greater());
  const TTurn turn = turns_.back();
  turns_.pop_back();
  const std::size_t position = turn.Actor % flows_.size();
  TInstrumentMarket& market = *markets_[position];
  if (market.Settings().IsSuspended)
    return position;
  market.AdvanceTo(turn.Due);
  fairValues_.AdvanceTo(turn.Due);
  const std::size_t reference = references_[position];
  if (turn.Actor == position) {
    TOrderFlow& flow = *flows_[position];
    flow.Act(market, FairOf(position), fairValues_.Liveliness(reference), NewOrderId());
    Schedule(turn.Actor, flow.Due());
  } else {
    TLiquidityProvider& provider = *providers_[position];
    provider.Act(market, *markets_[reference], [this] { return NewOrderId(); });
    Schedule(turn.Actor, provider.Due());
  }
  return position;
}

void TCrowd::Schedule(std::size_t actor, std::optional<TTimeOfDay> due) {
  if (!due)
    return;
  turns_.push_back({*due, actor});
  std::ranges::push_heap(turns_, std::greater());
}

/// 0 when nobody can say.
double TCrowd::FairOf(std::size_t instrument) const {
  if (providers_[instrument])
    return providers_[instrument]->Fair();
  const std::size_t reference = references_[instrument];
  if (reference == instrument)
    return fairValues_.Of(instrument);
  const TOrderBook& book = markets_[reference]->Book();
  const auto bid = book.BestPrice(TSide::Bid);
  const auto ask = book.BestPrice(TSide::Ask);
  if (!bid || !ask || *bid >= *ask)
    return fairValues_.Of(reference) * RenminbiPerDollar;
  return static_cast<double>(*bid + *ask) / 2 * RenminbiPerDollar;
}

std::vector<std::size_t> TCrowd::SuspendCalled(std::size_t underlying, TTimeOfDay now) {
  std::vector<std::size_t> called;
  for (std::size_t position = 0; position < markets_.size(); ++position) {
    const auto& terms = listing_.Instruments()[position].Terms;
    if (references_[position] != underlying || !terms ||
        markets_[position]->Settings().IsSuspended ||
        !IsCalled(*terms, markets_[underlying]->Figures()))
      continue;
    markets_[position]->AdvanceTo(now);
    markets_[position]->Suspend();
    called.push_back(position);
  }
  return called;
}

} // namespace Market
