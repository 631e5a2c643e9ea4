#include "fakes/HostFakes.h"
#include "host/ConstDef.h"
#include "model/BrokerQueue.h"
#include "model/DepthLadder.h"
#include "model/HeaderRows.h"
#include "model/QuorPriceDataControl.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

// One real-time update through the depth control, and all cells of a full view, each beside a
// model that keeps nothing.

namespace Quorpricedatacontrol {

namespace {

constexpr int Columns[] = {Column::HeaderCaption, Column::HeaderValue, Column::BidSize,
                           Column::BidPrice,      Column::AskSize,     Column::AskPrice,
                           Column::BidQueue1,     Column::BidQueue2,   Column::BidQueue3,
                           Column::BidQueue4,     Column::AskQueue1,   Column::AskQueue2,
                           Column::AskQueue3,     Column::AskQueue4};

/// A queue of forty entries, every eighth a level marker; the front broker is `front`.
std::string QueueText(int front) {
  std::string text = std::to_string(front);
  for (int entry = 1; entry < 40; ++entry)
    text += entry % 8 == 0 ? ",+" + std::to_string(entry / 8) : ',' + std::to_string(2820 + entry);
  return text;
}

/// A liquid share in the middle of the day, as the control sees it.
struct TMarket {
  TMarket() {
    for (std::size_t level = 0; level < Field::DepthLevels; ++level) {
      record.Set(Field::Bid.Price[level], std::to_string(318 - static_cast<int>(level)));
      record.Set(Field::Ask.Price[level], std::to_string(319 + static_cast<int>(level)));
      record.Set(Field::Bid.Size[level], std::to_string(120000 + level));
      record.Set(Field::Ask.Size[level], std::to_string(130000 + level));
    }
    record.Set({{Field::Nominal, "318.4"},
                {Field::Volume, "12345600"},
                {Field::ProductType, "1"},
                {Field::Currency, "HKD"},
                {Field::BoardLot, "100"}});
    record.Set({{Field::PreviousClose, "317"},
                {Field::Low, "316"},
                {Field::High, "320"},
                {Field::Turnover, "3940000000"},
                {Field::Change, "+1.4"}});
    record.Set({{Field::ChangePercent, "0.44"},
                {Field::High52Weeks, "400"},
                {Field::Low52Weeks, "260"},
                {Field::Open, "317.6"},
                {Field::SpreadCode, "01"}});
    record.Set({{Field::WarrantList, "13001 13002 13003"},
                {Field::RelatedList, "80700"},
                {Field::IssueSize, "9400000000"},
                {Field::PriceEarnings, "22.5"}});
    record.Set({{Field::BidQueue, QueueText(2820)}, {Field::AskQueue, QueueText(5340)}});
    host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{200, 500, 0.2}});
    for (int trade = 0; trade < 5; ++trade)
      trades.push_back({"10:15:0" + std::to_string(trade), "B", "200", 318.4});
    host.trades.SetTrades("700", trades);
    control.OnChange = [this](System::TObject*) { ++events; };
    control.OnFreeTextChange = control.OnRelatedChange = control.OnChange;
    control.SetDisplayMode(qm10Full);
    control.SetSymbol("700");
  }

  /// The next change: nine of ten are one level's size, the tenth is the bid queue.
  void ChangeRecord() {
    const auto step = static_cast<std::size_t>(++changes);
    if (step % 10 == 0)
      record.Set(Field::BidQueue, queueTexts[step / 10 % queueTexts.size()]);
    else
      record.Set(Field::Bid.Size[step % 10], sizeTexts[step % sizeTexts.size()]);
  }

  Fakes::THostFakes host;
  Fakes::TFakeRecord& record = host.Record("700");
  std::vector<Markettradesidedetector::TTrade> trades;
  std::array<std::string, 3> queueTexts = {QueueText(1), QueueText(2), QueueText(3)};
  std::array<std::string, 7> sizeTexts = {"100", "200", "300", "400", "500", "600", "700"};
  TCustomQuorMarketDataControl control{nullptr};
  long changes = 0;
  long events = 0;
};

void UpdateRecord(benchmark::State& state) {
  TMarket market;
  for (auto _ : state) {
    market.ChangeRecord();
    market.record.Update();
  }
  benchmark::DoNotOptimize(market.events);
  state.SetItemsProcessed(state.iterations());
}

/// Everything that is known of the symbol is read again.
void UpdateRecordFromScratch(benchmark::State& state) {
  TMarket market;
  for (auto _ : state) {
    market.ChangeRecord();
    market.control.SetSymbol({});
    market.control.SetSymbol("700");
  }
  benchmark::DoNotOptimize(market.events);
  state.SetItemsProcessed(state.iterations());
}

void ReadAllCells(benchmark::State& state) {
  TMarket market;
  for (auto _ : state)
    for (int row = 0; row < market.control.GetCount(); ++row)
      for (const int column : Columns)
        benchmark::DoNotOptimize(market.control.GetDisplayValue(row, column));
  state.SetItemsProcessed(state.iterations() * market.control.GetCount() * std::ssize(Columns));
}

/// Header rows and queues are worked out of the record for every cell that asks for them.
std::string CellFromScratch(const TMarket& market, int row, int column) {
  if (const auto place = QueueColumnOf(column)) {
    TBrokerQueue queue;
    queue.Update(market.record.GetText(Field::BidQueue), market.record.GetText(Field::AskQueue));
    return queue.Text(QueueIndex(*place, row, 18), place->Side, TBrokerStyle::ID);
  }
  if (column != Column::HeaderCaption && column != Column::HeaderValue)
    return market.control.GetDisplayValue(row, column);
  THeaderRows header;
  header.SetHeaderAttribute(&market.record);
  header.UpdateCaptions(nullptr);
  return column == Column::HeaderCaption ? header.Caption(row)
                                         : HeaderValueText(&market.record, header.Attribute(row));
}

void ReadAllCellsFromScratch(benchmark::State& state) {
  const TMarket market;
  for (auto _ : state)
    for (int row = 0; row < market.control.GetCount(); ++row)
      for (const int column : Columns)
        benchmark::DoNotOptimize(CellFromScratch(market, row, column));
  state.SetItemsProcessed(state.iterations() * market.control.GetCount() * std::ssize(Columns));
}

} // namespace

BENCHMARK(UpdateRecord);
BENCHMARK(UpdateRecordFromScratch);
BENCHMARK(ReadAllCells);
BENCHMARK(ReadAllCellsFromScratch);

} // namespace Quorpricedatacontrol

BENCHMARK_MAIN();
