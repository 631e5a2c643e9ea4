// One refresh of a live view of ten levels, from the record's update to the painted pixels, beside
// the same texts drawn by QPainter::drawText and shown by a stock QTableView in the same run. Each
// measured step changes one level of the book. Run with --benchmark_repetitions=5 and read the
// medians as ratios.

#include "fakes/ViewFakes.h"
#include "platform/Grid.h"
#include "view/QuorPriceView.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>
#include <benchmark/benchmark.h>

namespace {

constexpr const char* Symbol = "700";

/// A record with everything that an equity's record carries, ten levels and full queues.
void FillRecord(Fakes::TFakeRecord& record) {
  const auto level = [&record](int first, double price, double step, int count) {
    for (int i = 0; i < count; ++i)
      record.Set(first + i, std::to_string(price + step * i).substr(0, 7));
  };
  level(1, 318.2, 0, 1);
  level(2, 318.4, 0, 1);
  level(81, 318.0, -0.2, 4);
  level(3180, 317.2, -0.2, 5);
  level(91, 318.6, 0.2, 4);
  level(3190, 319.4, 0.2, 5);
  for (const auto& [first, count] :
       {std::pair{16, 1}, {19, 1}, {51, 4}, {61, 4}, {3155, 5}, {3165, 5}})
    for (int i = 0; i < count; ++i)
      record.Set(first + i, std::to_string(1000 * (i + 3)));
  for (const int field : {3, 31, 32, 37, 48, 130, 131, 132, 133})
    record.Set(field, "318.2");
  record.Set({{17, "12345678"}, {38, "3456789012"}, {24, "100"}, {23, "HKD"}, {22, "1"}});
  std::string queue;
  for (int i = 0; i < 40; ++i)
    queue += std::to_string(2820 + i) + (i % 8 == 7 ? ",+1," : ",");
  record.Set(120, queue);
  record.Set(121, queue);
}

/// A live view on the screen, and its grid.
struct TLiveView {
  TLiveView() {
    host.editors.listed = {Symbol};
    FillRecord(host.Record(Symbol));
    frame.SetLayoutData(std::string("Symbol=") + Symbol + ",DisplayMode=2");
    frame.resize(frame.GetWidth(), frame.GetHeight());
    frame.show();
    grid = frame.findChild<Platform::TcxGrid*>(QStringLiteral("PriceGrid"));
    grid->View()->Refresh();
    QApplication::processEvents();
  }

  /// One level changes.
  void Update() {
    tick = (tick + 1) % 10;
    host.Record(Symbol).Set(51, std::to_string(12000 + 100 * tick)).Update();
  }

  Fakes::TViewFakes host;
  Quorpriceview::TQuorPriceFrame frame{nullptr};
  Platform::TcxGrid* grid = nullptr;
  int tick = 0;
};

struct TText {
  QRect bounds;
  QString text;
};

std::vector<TText> TextsOf(const Platform::TcxGrid& grid) {
  std::vector<TText> texts;
  for (int row = 0; row < grid.View()->RecordCount(); ++row)
    for (const auto& column : grid.View()->Columns())
      if (const auto* cell = grid.View()->Cell(row, column.get()))
        texts.push_back(
            {grid.View()->CellBounds(row, column.get()), QString::fromStdString(cell->Text)});
  return texts;
}

void UpdateAndRefresh(benchmark::State& state) {
  TLiveView live;
  for (auto _ : state) {
    live.Update();
    live.grid->View()->Refresh();
    QApplication::processEvents();
  }
}
BENCHMARK(UpdateAndRefresh)->Unit(benchmark::kMicrosecond);

void RefreshWithoutChange(benchmark::State& state) {
  TLiveView live;
  for (auto _ : state) {
    live.grid->View()->Refresh();
    QApplication::processEvents();
  }
}
BENCHMARK(RefreshWithoutChange)->Unit(benchmark::kMicrosecond);

void FullRepaint(benchmark::State& state) {
  TLiveView live;
  for (auto _ : state)
    live.grid->repaint();
}
BENCHMARK(FullRepaint)->Unit(benchmark::kMicrosecond);

void PlainDrawText(benchmark::State& state) {
  const TLiveView live;
  const auto texts = TextsOf(*live.grid);
  QImage image(live.grid->size(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.setFont(live.grid->font());
    for (const auto& text : texts) {
      painter.fillRect(text.bounds, Qt::white);
      painter.drawText(text.bounds, Qt::AlignRight | Qt::AlignVCenter, text.text);
    }
  }
}
BENCHMARK(PlainDrawText)->Unit(benchmark::kMicrosecond);

/// The same texts in a stock item view; each step rewrites what one level's update rewrites.
void StockTableView(benchmark::State& state) {
  const TLiveView live;
  const auto* view = live.grid->View();
  const int columns = static_cast<int>(view->Columns().size());
  QStandardItemModel model(view->RecordCount(), columns);
  for (int row = 0; row < view->RecordCount(); ++row)
    for (int column = 0; column < columns; ++column)
      if (const auto* cell =
              view->Cell(row, view->Columns()[static_cast<std::size_t>(column)].get()))
        model.setItem(row, column, new QStandardItem(QString::fromStdString(cell->Text)));
  QTableView table;
  table.setModel(&model);
  table.horizontalHeader()->hide();
  table.verticalHeader()->hide();
  table.resize(live.grid->size());
  table.show();
  QApplication::processEvents();
  const bool whole = state.range(0) != 0;
  int tick = 0;
  for (auto _ : state) {
    tick = (tick + 1) % 10;
    model.item(9, 2)->setText(QString::number(12000 + 100 * tick));
    if (whole)
      table.viewport()->repaint();
    QApplication::processEvents();
  }
}
BENCHMARK(StockTableView)->ArgName("whole")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// A hundred live views, each updated and refreshed once: one round of a screen full of books.
void HundredViewsRound(benchmark::State& state) {
  Fakes::TViewFakes host;
  host.editors.listed = {Symbol};
  FillRecord(host.Record(Symbol));
  std::vector<std::unique_ptr<Quorpriceview::TQuorPriceFrame>> frames;
  std::vector<Platform::TcxGrid*> grids;
  for (int i = 0; i < 100; ++i) {
    frames.push_back(std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr));
    auto& frame = *frames.back();
    frame.SetLayoutData(std::string("Symbol=") + Symbol + ",DisplayMode=2");
    frame.resize(frame.GetWidth(), frame.GetHeight());
    frame.show();
    grids.push_back(frame.findChild<Platform::TcxGrid*>(QStringLiteral("PriceGrid")));
  }
  QApplication::processEvents();
  int tick = 0;
  for (auto _ : state) {
    tick = (tick + 1) % 10;
    host.Record(Symbol).Set(51, std::to_string(12000 + 100 * tick)).Update();
    for (auto* grid : grids)
      grid->View()->Refresh();
    QApplication::processEvents();
  }
}
BENCHMARK(HundredViewsRound)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
