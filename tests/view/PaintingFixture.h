#pragma once

#include "host/BaseSubscribeData.h"
#include "view/CellPainting.h"
#include "view/ViewFixture.h"

#include <QWindow>

#include <cstring>
#include <ostream>

namespace Quorpriceview {

inline void PrintTo(const TCellStyle& style, std::ostream* out) {
  const auto number = [out](const char* name, const auto& value) {
    *out << name << '=';
    if (value)
      *out << std::hex << *value << std::dec << ' ';
    else
      *out << "none ";
  };
  number("brush", style.Brush);
  number("font", style.Font);
  number("growth", style.FontGrowth);
  *out << "bold=" << style.Bold << " frame=" << style.DrawnByFrame << " flags=" << style.DrawFlags;
}

} // namespace Quorpriceview

/// What the painting tests expect: a skin in which every colour is another one, a symbol with
/// levels and queues, and how each of its cells is painted, as a letter.
namespace PaintingExpectations {

using Quorpriceview::TCellStyle;
using namespace Quorpricedatacontrol;

inline constexpr Quorpriceview::TColourTable Skin = {0x010203, 0x111213, 0x212223, 0x313233,
                                                     0x414243, 0x515253, 0x616263, 0x717273};

inline const Quorpriceview::TBrokerColours Highlighted = {{"1234", 0x0000FF},
                                                          {"5678", System::clWindow}};

inline constexpr TQuorMode Modes[] = {qm5Full, qm10Simple, qm10Full};
inline constexpr int RowsOf(TQuorMode mode) { return mode == qm10Full ? 18 : 13; }

inline constexpr int LabelColumn = 21, ValueColumn = 3;
inline constexpr int SideColumns[] = {16, 1, 19, 2};
inline constexpr int QueueColumns[] = {55, 56, 57, 58, 65, 66, 67, 68};

/// Entries 0 to 18: two level markers and two highlighted brokers stand where a queue of 12 and one
/// of 17 entries a column put them in different places.
inline constexpr const char* BidQueue =
    "1234, +1,0, 56,B5678,-2,1s,7,7,7,7,7,+3,1234,8,8,8,-4,5678";
inline constexpr const char* AskQueue = "5678,1234,-1";

/// By row:
///   .  as the skin gives it    L  label     s  colours of the side    B  the same, bold and larger
///   P  the same, drawn by the frame at the left, bold and larger
///   Q  the same, drawn by the frame in the middle
inline const char* SideCells(TQuorMode mode, bool price) {
  if (mode == qm10Simple)
    return price ? ".BLsssssssssssssss" : ".sLsssssssssssssss";
  return price ? "......PLssssssssss" : "......QLssssssssss";
}

/// By row:
///   h  head of the queue: label, text as the skin gives it    q  text of the side
///   m  level marker: label, text of the side
///   a, b  text of the side, the first and the second highlighted broker
inline const char* QueueCells(TQuorMode mode, int column) {
  const bool full = mode == qm10Full;
  switch (column) {
  case 55:
    return full ? "hamqqbmqqqqqqmaqqq" : "hamqqbmqqqqqq";
  case 56:
    return full ? ".mbqqqqqqqqqqqqqqq" : ".maqqqmbqqqqq";
  case 65:
    return full ? "hbamqqqqqqqqqqqqqq" : "hbamqqqqqqqqq";
  default:
    return full ? ".qqqqqqqqqqqqqqqqq" : ".qqqqqqqqqqqq";
  }
}

inline constexpr bool IsAsk(int column) { return column == 2 || column == 19 || column >= 65; }

/// `highlight`: brokers are highlighted.
inline TCellStyle StyleOf(char kind, int column, bool highlight) {
  const auto text = IsAsk(column) ? Skin.AskText : Skin.BidText;
  const auto label = IsAsk(column) ? Skin.AskLabelColor : Skin.BidLabelColor;
  TCellStyle style;
  style.FontGrowth = 1;
  if (std::strchr("Lhm", kind))
    style.Brush = label;
  if (std::strchr("sBPQ", kind))
    style.Brush = IsAsk(column) ? Skin.AskBackground : Skin.BidBackground;
  if (std::strchr("sBPQqmab", kind))
    style.Font = text;
  if (std::strchr("BP", kind)) {
    style.FontGrowth = 3;
    style.Bold = true;
  }
  if (std::strchr("PQ", kind)) {
    style.DrawnByFrame = true;
    style.DrawFlags = kind == 'P' ? 4 : 5;
  }
  if (highlight && std::strchr("ab", kind)) {
    style.Bold = true;
    style.Font = kind == 'a' ? 0x0000FF : System::clWindow;
  }
  return style;
}

/// A cell of the best-price grid.
inline TCellStyle PerclickPriceStyle(int row, int column) {
  const char* cells = column == 1 || column == 2 ? "PLs" : "QLs";
  return StyleOf(cells[row], column, false);
}

/// A cell of the summary grid: captions keep the grid's font, values are drawn in the middle.
inline TCellStyle PerclickInfoStyle(int row) {
  TCellStyle style;
  if (row == 0 || row == 2) {
    style.Brush = Skin.LabelBackground;
    return style;
  }
  style.FontGrowth = 3;
  style.Bold = true;
  style.DrawnByFrame = true;
  style.DrawFlags = 5;
  return style;
}

inline TCellStyle DefaultStyle() { return StyleOf('.', 0, false); }

/// Of any cell of the depth grid, the symbol being a valid one whose nominal price stands in row
/// `lastPriceRow`.
inline TCellStyle DepthStyle(TQuorMode mode, int row, int column, bool highlight,
                             int lastPriceRow) {
  auto style = DefaultStyle();
  if (column == LabelColumn) {
    style.Brush = Skin.LabelBackground;
    return style;
  }
  if (column == ValueColumn) {
    style.Bold = row == lastPriceRow;
    return style;
  }
  const bool price = column == 1 || column == 2;
  const char* cells = column >= 55 ? QueueCells(mode, column) : SideCells(mode, price);
  return StyleOf(cells[row], column, highlight);
}

/// A row that no symbol has, of price, size and queue fields for every level.
inline Fakes::TFakeRecord& FillBook(Fakes::TFakeRecord& record) {
  constexpr int bids[] = {1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184};
  constexpr int asks[] = {2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194};
  constexpr int bidSizes[] = {16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159};
  constexpr int askSizes[] = {19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169};
  for (int level = 0; level < 10; ++level) {
    record.Set(bids[level], std::to_string(310 - level));
    record.Set(asks[level], std::to_string(311 + level));
    record.Set(bidSizes[level], std::to_string(1000 + level));
    record.Set(askSizes[level], std::to_string(2000 + level));
  }
  return record.Set(
      {{Field::Nominal, "310.5"}, {Field::PreviousClose, "309"}, {120, BidQueue}, {121, AskQueue}});
}

} // namespace PaintingExpectations

/// A view on the screen in that skin.
class TPaintingTest : public TViewTest {
protected:
  TPaintingTest() {
    using PaintingExpectations::Skin;
    host.lookAndFeel.namedColours = {{"coLabelBground", Skin.LabelBackground},
                                     {"coLabelInvalidBground", Skin.LabelInvalidBackground},
                                     {"coBuyColorLabel", Skin.BidLabelColor},
                                     {"coSellColorLabel", Skin.AskLabelColor}};
    host.lookAndFeel.indexedColours = {
        {6, Skin.BidBackground}, {7, Skin.BidText}, {8, Skin.AskBackground}, {9, Skin.AskText}};
    host.config.Set("SKIN", "coLabelInvalidBground", "defined");
  }

  /// Opens and shows the view, with a symbol unless it is empty.
  void Show(const char* symbol = "700") {
    Open();
    if (*symbol)
      Type(symbol);
    FitAndShow();
  }

  void FitAndShow() {
    frame->resize(frame->GetWidth(), frame->GetHeight());
    frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
    QTest::mouseMove(frame->windowHandle(), {0, 0}); // off the grids: a move needs another point
    TickRefresh();
    host.viewHost.notifications.clear();
  }

  void SetMode(Quorpricedatacontrol::TQuorMode mode) {
    frame->SetLayoutData("DisplayMode=" + std::to_string(mode));
    frame->resize(frame->GetWidth(), frame->GetHeight());
    TickRefresh();
  }

  Platform::TcxGrid& Grid(const char* name) { return Find<Platform::TcxGrid>(name); }

  const Platform::TCellDescription& Cell(const char* grid, int row, int tag) {
    const auto* cell = Grid(grid).View()->Cell(row, ColumnOf(grid, tag));
    if (!cell)
      throw std::runtime_error("no such cell");
    return *cell;
  }
  const Platform::TCellDescription& Cell(int row, int tag) { return Cell("PriceGrid", row, tag); }

  QPoint Middle(const char* grid, int row, int tag) {
    const auto bounds = Grid(grid).View()->CellBounds(row, ColumnOf(grid, tag));
    if (bounds.isEmpty())
      throw std::runtime_error("no such cell");
    return bounds.center();
  }

  /// A real move of the mouse over the window, to a point of the depth grid.
  void MoveTo(const QPoint& position) {
    QTest::mouseMove(frame->windowHandle(), Grid("PriceGrid").mapTo(frame.get(), position));
    QCoreApplication::processEvents();
  }
  /// A pixel beside the last time: a move to where the mouse is already would be none.
  void MoveTo(int row, int tag) {
    nudge = 1 - nudge;
    MoveTo(Middle("PriceGrid", row, tag) + QPoint(nudge, 0));
  }

  int nudge = 0;

  static QRgb Rgb(System::TColor colour) { return Platform::ToQColor(colour).rgb(); }
};
