#include "terminal/services/MarketFeed.h"

#include "host/RecordFields.h"
#include "terminal/services/Services.h"

namespace Terminal {

namespace {

Data::TRecordChange WithoutQueue(Data::TRecordChange change) {
  std::erase_if(change.Fields, [](const auto& field) {
    return field.first == Host::Field::BidQueue || field.first == Host::Field::AskQueue;
  });
  return change;
}

Data::TRecordChange WithoutTrades(Data::TRecordChange change) {
  change.Trades.clear();
  return change;
}

} // namespace

TMarketFeed::TMarketFeed(TServices& services, TMarketPlayer& player)
    : services_(services), player_(player) {
  connect(&player, &TMarketPlayer::HeaderRead, this, &TMarketFeed::ApplyHeader);
  connect(&player, &TMarketPlayer::Reset, this, &TMarketFeed::ForgetRecords);
  connect(&player, &TMarketPlayer::Batch, this, &TMarketFeed::ApplyChanges);
  services_.Subscriptions.OnRefresh = [this](std::string_view symbol) { ApplySnapshot(symbol); };
  SetFeedType(Constdef::FeedType_Streaming);
}

TMarketFeed::~TMarketFeed() { services_.Subscriptions.OnRefresh = nullptr; }

void TMarketFeed::SetFeedType(int type) {
  const bool isType = type == Constdef::FeedType_Streaming || type == Constdef::FeedType_PerClick ||
                      type == Constdef::FeedType_Delayed;
  if (!isType || feedType_ == type)
    return;
  const bool isDelayChanged =
      feedType_ == Constdef::FeedType_Delayed || type == Constdef::FeedType_Delayed;
  const auto present = Present();
  if (isDelayChanged)
    player_.SetDelay(type == Constdef::FeedType_Delayed ? Text::TTimeOfDay(Delay)
                                                        : Text::TTimeOfDay{});
  feedType_ = type;
  services_.Vendor.SetFeedType(type);
  ForgetRecords();
  if (isDelayChanged && player_.Traits().Delayable)
    return; // the market of the other moment comes by itself
  for (const auto& change : present)
    Apply(change);
}

std::optional<double> TMarketFeed::Age() const {
  if (!lastData_.isValid())
    return {};
  return static_cast<double>(lastData_.elapsed()) / 1000;
}

std::vector<Data::TRecordChange> TMarketFeed::Present() const {
  if (feedType_ != Constdef::FeedType_Streaming)
    return market_.Changes();
  std::vector<Data::TRecordChange> records;
  for (const auto& [symbol, fields] : given_) {
    const auto* record = services_.Subscriptions.Find(symbol);
    Data::TRecordChange& change = records.emplace_back();
    change.Symbol = symbol;
    change.State = record->GetState();
    change.Status = record->StatusText();
    for (const int field : fields)
      if (record->HasValue(field))
        change.Fields.emplace_back(field, std::string(record->GetText(field)));
  }
  return records;
}

void TMarketFeed::ApplyHeader(const Data::TReferenceData& header) {
  simulated_ = header.Simulated;
  mark_ = simulated_ ? Feed::Mark_Invented : player_.Traits().Mark;
  started_ = false;
  services_.Market.DefineSpreadTables(header.Spreads);
  std::vector<TBrokerDefinition> brokers;
  for (const auto& broker : header.Brokers)
    brokers.push_back({broker.Id, broker.Name, broker.Name1, broker.Name2, broker.Other});
  services_.Market.ReplaceBrokers(brokers);
  for (const auto& instrument : header.Instruments)
    services_.Market.DefineInstrument(instrument.Symbol, instrument.Currency, instrument.Name,
                                      instrument.Name1, instrument.Name2);
  if (!header.Instruments.empty())
    TellStart(header.Instruments.front().Symbol);
  else if (player_.Index() && player_.Index()->Events == 0)
    TellStart({});
}

void TMarketFeed::ApplyChanges(const std::vector<Data::TRecordChange>& changes) {
  for (const auto& change : changes)
    Apply(change);
  lastData_.start();
  if (!changes.empty())
    TellStart(changes.front().Symbol);
}

void TMarketFeed::Apply(const Data::TRecordChange& change) {
  if (feedType_ != Constdef::FeedType_Streaming)
    market_.Merge(WithoutTrades(change));
  if (feedType_ != Constdef::FeedType_PerClick)
    TellRecord(change);
}

void TMarketFeed::TellRecord(const Data::TRecordChange& change) {
  const bool isFirst = !given_.contains(change.Symbol);
  auto& fields = given_[change.Symbol];
  const bool hadNoOpening = !fields.empty() && !fields.contains(Host::Field::Open);
  for (const auto& [number, text] : change.Fields)
    fields.insert(number);
  Data::TRecordChange told =
      feedType_ == Constdef::FeedType_Delayed ? WithoutQueue(change) : change;
  if (isFirst && !told.State)
    told.State = Constdef::RecordState_Ready; // the record may be one that was forgotten
  services_.Subscriptions.Apply(told);
  // Views list the rows of a record once a day.
  if (hadNoOpening && fields.contains(Host::Field::Open))
    services_.Channels.Send(Constdef::Channel_BeginningOfDay, nullptr, nullptr);
}

void TMarketFeed::ApplySnapshot(std::string_view symbol) {
  if (feedType_ != Constdef::FeedType_PerClick)
    return;
  emit SnapshotTaken(++snapshots_);
  for (const auto& record : market_.Changes())
    if (record.Symbol == symbol)
      return TellRecord(Data::TRecordChange(record));
}

void TMarketFeed::ForgetRecords() {
  market_.Clear();
  for (const auto& [symbol, fields] : std::exchange(given_, {})) {
    Data::TRecordChange nothing;
    nothing.Symbol = symbol;
    nothing.State = Constdef::RecordState_None;
    nothing.Status = std::string();
    for (const int field : fields)
      nothing.Fields.emplace_back(field, std::nullopt);
    services_.TradeSides.ReplaceTrades(symbol, {});
    services_.Subscriptions.Apply(nothing);
  }
}

void TMarketFeed::TellStart(const std::string& symbol) {
  if (std::exchange(started_, true))
    return;
  emit Started(QString::fromStdString(symbol));
}

} // namespace Terminal
