#include "platform/Grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <map>

// One grid of 18 rows and 14 columns, shown by the grid, drawn plainly with QPainter::drawText, and
// shown by a stock item view. Each program run ends with the ratios to plain drawing.

namespace {

using namespace Platform;

constexpr int Rows = 18;
constexpr int ColumnCount = 14;
constexpr int ColumnWidth = 70;
constexpr int RowHeight = 20;
constexpr int FontSize = 10;
constexpr int OneInTen = 10;
constexpr QSize GridSize(ColumnCount* ColumnWidth, Rows* RowHeight);

enum class TNumbers { SeenBefore, NeverSeen };

int NumberOf(int cell, int step, TNumbers numbers) {
  const int variant = numbers == TNumbers::SeenBefore ? step % 2 : step;
  return 10000 + cell * 7 + variant * 5000;
}

std::string TextOf(int number) {
  std::string text = std::to_string(number);
  return text.insert(text.size() - 2, 1, '.');
}

QRgb FillOf(int column) { return column % 2 == 0 ? qRgb(20, 24, 30) : qRgb(30, 24, 20); }
QRgb ColorOf(int column) { return column % 3 == 0 ? qRgb(230, 230, 230) : qRgb(90, 220, 120); }

/// Numbers by cell; a step changes one cell in `stride`, others each time.
class TNumberSource : public TcxCustomDataSource {
public:
  TNumberSource() {
    for (int cell = 0; cell < Rows * ColumnCount; ++cell)
      Texts.push_back(TextOf(NumberOf(cell, 0, TNumbers::NeverSeen)));
  }

  /// The cells that changed.
  void Step(int stride, TNumbers numbers) {
    ++step_;
    Changed.clear();
    for (int cell = step_ % stride; cell < Rows * ColumnCount; cell += stride) {
      Texts[static_cast<std::size_t>(cell)] = TextOf(NumberOf(cell, step_ / stride + 1, numbers));
      Changed.push_back(cell);
    }
  }

  int GetRecordCount() const override { return Rows; }
  void GetDisplayText(int record, int column, std::string& text) const override {
    text = Texts[static_cast<std::size_t>(record) * ColumnCount + static_cast<std::size_t>(column)];
  }

  std::vector<std::string> Texts;
  std::vector<int> Changed;

private:
  int step_ = 0;
};

/// The grid on a window, settled.
struct TShownGrid {
  TNumberSource Source;
  TcxGrid Grid{"Grid"};
  TcxGridTableView* View = new TcxGridTableView("View", &Grid);

  TShownGrid() {
    new TcxGridLevel("Level", &Grid, View);
    Grid.resize(GridSize);
    View->OnCustomDrawCell = [](TcxCanvas& canvas, const TcxCellViewInfo& cell, bool&) {
      canvas.BrushColor = FillOf(cell.Column->Tag);
      canvas.FontColor = ColorOf(cell.Column->Tag);
      canvas.FontSize = FontSize;
    };
    View->BeginUpdate();
    for (int column = 0; column < ColumnCount; ++column)
      View->CreateColumn(column, ColumnWidth, true);
    View->SetDataRowHeight(RowHeight);
    View->SetDataSource(&Source);
    View->EndUpdate();
    Grid.show();
    QApplication::processEvents();
  }
};

/// The same texts in a stock item view.
struct TShownTable {
  TNumberSource Source;
  QStandardItemModel Model{Rows, ColumnCount};
  QTableView Table;

  TShownTable() {
    for (int cell = 0; cell < Rows * ColumnCount; ++cell)
      Model.setItem(cell / ColumnCount, cell % ColumnCount, NewItem(cell));
    Table.horizontalHeader()->hide();
    Table.verticalHeader()->hide();
    Table.setShowGrid(false);
    Table.setFrameShape(QFrame::NoFrame);
    Table.verticalHeader()->setMinimumSectionSize(RowHeight);
    Table.verticalHeader()->setDefaultSectionSize(RowHeight);
    Table.horizontalHeader()->setDefaultSectionSize(ColumnWidth);
    Table.setModel(&Model);
    Table.resize(GridSize);
    Table.show();
    QApplication::processEvents();
  }

  QStandardItem* NewItem(int cell) {
    const int column = cell % ColumnCount;
    auto* item = new QStandardItem(Text(cell));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    item->setBackground(QColor(FillOf(column)));
    item->setForeground(QColor(ColorOf(column)));
    QFont font;
    font.setPointSize(FontSize);
    item->setFont(font);
    return item;
  }

  QString Text(int cell) const {
    return QString::fromStdString(Source.Texts[static_cast<std::size_t>(cell)]);
  }

  void SetChanged() {
    for (const int cell : Source.Changed)
      Model.setData(Model.index(cell / ColumnCount, cell % ColumnCount), Text(cell));
  }
};

void DrawPlainly(const TNumberSource& source, QImage& image) {
  QPainter painter(&image);
  QFont font;
  font.setPointSize(FontSize);
  painter.setFont(font);
  for (int cell = 0; cell < Rows * ColumnCount; ++cell) {
    const int column = cell % ColumnCount;
    const QRect bounds(column * ColumnWidth, cell / ColumnCount * RowHeight, ColumnWidth,
                       RowHeight);
    painter.fillRect(bounds, QColor(FillOf(column)));
    painter.setPen(QColor(ColorOf(column)));
    painter.drawText(bounds.adjusted(2, 0, -2, 0), Qt::AlignRight | Qt::AlignVCenter,
                     QString::fromStdString(source.Texts[static_cast<std::size_t>(cell)]));
  }
}

void PlainFullRepaint(benchmark::State& state) {
  const TNumberSource source;
  QImage image(GridSize, QImage::Format_RGB32);
  while (state.KeepRunning())
    DrawPlainly(source, image);
}

void GridFullRepaint(benchmark::State& state) {
  TShownGrid shown;
  while (state.KeepRunning())
    shown.Grid.repaint();
}

void TableFullRepaint(benchmark::State& state) {
  TShownTable shown;
  while (state.KeepRunning())
    shown.Table.viewport()->repaint();
}

void GridRefresh(benchmark::State& state, TNumbers numbers) {
  TShownGrid shown;
  for (int warm = 0; warm < 2 * OneInTen; ++warm) {
    shown.Source.Step(OneInTen, numbers);
    shown.View->Refresh();
    QApplication::processEvents();
  }
  while (state.KeepRunning()) {
    shown.Source.Step(OneInTen, numbers);
    shown.View->Refresh();
    QApplication::processEvents();
  }
}

void TableRefresh(benchmark::State& state, TNumbers numbers) {
  TShownTable shown;
  while (state.KeepRunning()) {
    shown.Source.Step(OneInTen, numbers);
    shown.SetChanged();
    QApplication::processEvents();
  }
}

void GridUnchangedRefresh(benchmark::State& state) {
  TShownGrid shown;
  while (state.KeepRunning()) {
    shown.View->Refresh();
    QApplication::processEvents();
  }
}

/// Shows each processor time as a part of that of plain drawing, too.
class TRatioReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& reports) override {
    ConsoleReporter::ReportRuns(reports);
    for (const Run& run : reports) {
      if (run.aggregate_name == "median")
        medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    const double plain = medians_["plain/full"];
    for (const auto& [name, time] : medians_)
      GetOutputStream() << name << ": " << time / plain << " of plain/full\n";
  }

private:
  std::map<std::string, double> medians_;
};

void Register(const char* name, void (*measure)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, measure)
      ->Unit(benchmark::kMicrosecond)
      ->Repetitions(7)
      ->ReportAggregatesOnly()
      ->MinWarmUpTime(0.1);
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  Register("plain/full", PlainFullRepaint);
  Register("grid/full", GridFullRepaint);
  Register("table/full", TableFullRepaint);
  Register("grid/one in ten", [](benchmark::State& s) { GridRefresh(s, TNumbers::SeenBefore); });
  Register("grid/one in ten, never seen",
           [](benchmark::State& s) { GridRefresh(s, TNumbers::NeverSeen); });
  Register("table/one in ten", [](benchmark::State& s) { TableRefresh(s, TNumbers::SeenBefore); });
  Register("table/one in ten, never seen",
           [](benchmark::State& s) { TableRefresh(s, TNumbers::NeverSeen); });
  Register("grid/unchanged", GridUnchangedRefresh);
  TRatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
