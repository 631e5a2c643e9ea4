#include "market/SimulatedMarket.h"

#include "host/ConstDef.h"
#include "host/RecordFields.h"
#include "market/PublishedFields.h"

#include <algorithm>

namespace Market {

namespace {

constexpr const char* NoDataText = "NO MARKET DATA";
constexpr const char* CalledText = "MANDATORY CALL";

Markettradesidedetector::TTrade Published(const TMatch& trade) {
  const char* mark = !trade.Aggressor ? "" : *trade.Aggressor == TSide::Bid ? "B" : "S";
  return {ClockText(trade.Time), mark, std::to_string(trade.Quantity), ToUnits(trade.Price)};
}

} // namespace

TSimulatedMarket::TSimulatedMarket(std::uint64_t seed) : day_(seed) {
  TMarketListener& listener = *this;
  std::vector<TInstrumentMarket*> markets;
  for (const TInstrument& instrument : listing_.Instruments()) {
    positions_[instrument.Symbol] = listed_.size();
    TListed& listed = listed_.emplace_back();
    listed.Instrument = &instrument;
    if (instrument.Standing != TStanding::Unknown) {
      listed.Market = std::make_unique<TInstrumentMarket>(
          SettingsOf(listing_, instrument), listing_.Grid(instrument), day_, listener);
      listed.Shown = SnapshotOf(*listed.Market);
    }
    TFieldList same;
    AddListedFields(same, listing_, instrument);
    listed.Same = std::move(same).Sorted();
    markets.push_back(listed.Market.get());
  }
  crowd_ = std::make_unique<TCrowd>(listing_, day_, markets, seed);
}

TSimulatedMarket::~TSimulatedMarket() = default;

TReferenceData TSimulatedMarket::Header() const {
  TReferenceData header;
  header.Simulated = true;
  for (const auto& table : listing_.SpreadTables())
    header.Spreads.push_back(Published(table));
  header.Brokers = BrokerDirectory();
  for (const TInstrument& instrument : listing_.Instruments())
    header.Instruments.push_back({.Symbol = instrument.Symbol,
                                  .Name = instrument.Name,
                                  .Currency = instrument.Currency,
                                  .Name1 = instrument.TraditionalName,
                                  .Name2 = instrument.SimplifiedName});
  return header;
}

TTimeOfDay TSimulatedMarket::NextMoment() const {
  return std::min(crowd_->NextDue(), NextBoundary());
}

/// The participants look at each other's instruments, so that the whole market passes from phase
/// to phase together and not each instrument when something next happens to it.
void TSimulatedMarket::AdvanceTo(TTimeOfDay time) {
  for (TTimeOfDay moment; (moment = NextMoment()) <= time;) {
    if (NextBoundary() <= moment)
      PassBoundary(moment);
    else
      Note(crowd_->Act(), moment);
    now_ = moment;
  }
  now_ = std::max(now_, time);
}

/// The next moment at which an instrument may change although nobody acts in it.
TTimeOfDay TSimulatedMarket::NextBoundary() const {
  TTimeOfDay next = day_.At(now_).End;
  for (const TListed& listed : listed_)
    if (const auto& end = listed.CoolingOffEnd)
      next = std::min(next, *end > now_ ? *end : *end + CoolingOffFarewell);
  return next;
}

void TSimulatedMarket::PassBoundary(TTimeOfDay time) {
  for (std::size_t position = 0; position < listed_.size(); ++position) {
    TListed& listed = listed_[position];
    if (!listed.Market)
      continue;
    listed.Market->AdvanceTo(time);
    Note(position, time);
    if (listed.CoolingOffEnd && *listed.CoolingOffEnd + CoolingOffFarewell <= time) {
      listed.CoolingOffEnd.reset();
      listed.HasChanged = true;
      listed.Changed = time;
    }
  }
}

/// Something has happened to the instrument; perhaps nothing that shows.
void TSimulatedMarket::Note(std::size_t position, TTimeOfDay time) {
  TListed& listed = listed_[position];
  TSnapshot shown = SnapshotOf(*listed.Market);
  if (shown == listed.Shown)
    return;
  const bool hasTraded = shown.Figures != listed.Shown.Figures;
  if (shown.CoolingOff && shown.CoolingOff != listed.Shown.CoolingOff) {
    coolingOffs_.push_back(listed.Instrument->Symbol);
    listed.CoolingOffEnd = shown.CoolingOff->End;
  }
  listed.Shown = std::move(shown);
  listed.HasChanged = true;
  listed.Changed = time;
  if (hasTraded)
    for (const std::size_t called : crowd_->SuspendCalled(position, time))
      Note(called, time);
}

void TSimulatedMarket::Apply(const TOrderRequest& request) {
  const bool isNew = request.Action == TOrderAction::Submit;
  TListed* listed = Find(isNew ? request.Symbol : account_.SymbolOf(request.Number));
  TInstrumentMarket* market = listed ? listed->Market.get() : nullptr;
  if (market)
    market->AdvanceTo(now_);
  account_.Apply(request, market, isNew ? crowd_->NewOrderId() : 0);
  if (market)
    Note(static_cast<std::size_t>(listed - listed_.data()), now_);
}

std::vector<TRecordChange> TSimulatedMarket::TakeChanges() {
  std::vector<TRecordChange> changes;
  for (TListed& listed : listed_) {
    if (!std::exchange(listed.HasChanged, false))
      continue;
    TRecordChange change = ChangeOf(listed);
    if (!change.Fields.empty() || change.State)
      changes.push_back(std::move(change));
  }
  return changes;
}

void TSimulatedMarket::PublishAnew() {
  for (TListed& listed : listed_) {
    listed.Told.clear();
    listed.HasChanged = true;
  }
}

TRecordChange TSimulatedMarket::ChangeOf(TListed& listed) const {
  TRecordChange change;
  change.Symbol = listed.Instrument->Symbol;
  if (!listed.Market) {
    change.State = Constdef::RecordState_None;
    change.Status = NoDataText;
    return change;
  }
  TFieldTexts fields = FieldsOf(listed);
  change.Fields = Difference(listed.Told, fields);
  listed.Told = std::move(fields);
  for (const TMatch& trade : std::exchange(listed.Trades, {}))
    change.Trades.push_back(Published(trade));
  return change;
}

TFieldTexts TSimulatedMarket::FieldsOf(const TListed& listed) const {
  TFieldList fields;
  AddBookFields(fields, listed.Shown);
  AddDayFields(fields, *listed.Instrument, listed.Shown);
  AddSessionFields(fields, listed.Market->Settings(), listed.Shown,
                   listed.CoolingOffEnd ? TCoolingOffs::Had : TCoolingOffs::None);
  if (listed.Changed > TTimeOfDay{})
    fields.Text(Host::Field::UpdateTime, ClockText(listed.Changed));
  // What traded when the day began and does not any more has been called.
  if (listed.Shown.IsSuspended && listed.Instrument->Standing == TStanding::Trading)
    fields.Text(Host::Field::FirstMessage, CalledText);
  return Merged(listed.Same, std::move(fields).Sorted());
}

void TSimulatedMarket::Traded(const TInstrumentMarket& market, const TMatch& trade) {
  account_.Traded(trade);
  auto& trades = Find(market.Settings().Symbol)->Trades;
  if (trades.size() == MaximumTrades)
    trades.pop_front();
  trades.push_back(trade);
}

void TSimulatedMarket::Lapsed(const TInstrumentMarket&, const TBookOrder& order) {
  account_.Lapsed(order.Id);
}

TSimulatedMarket::TListed* TSimulatedMarket::Find(std::string_view symbol) {
  const auto position = positions_.find(symbol);
  return position == positions_.end() ? nullptr : &listed_[position->second];
}

} // namespace Market
