#pragma once

#include "fakes/ViewFakes.h"
#include "platform/Grid.h"
#include "platform/Label.h"
#include "platform/Layout.h"
#include "view/QuorPriceView.h"

#include <QAction>
#include <QFontMetrics>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

/// A host with the symbol 700 listed, and a price view to open in it.
class TViewTest : public testing::Test {
protected:
  TViewTest() { host.editors.listed = {"700", "5", "10001"}; }

  /// Opens the view; what its construction sent is forgotten.
  Quorpriceview::TQuorPriceFrame& Open() {
    frame = std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr);
    host.viewHost.notifications.clear();
    return *frame;
  }

  template <typename TComponent> TComponent& Find(const char* name) {
    auto* found = frame->findChild<TComponent*>(QLatin1String(name));
    if (!found)
      throw std::runtime_error(std::string("no component ") + name);
    return *found;
  }

  /// A component's own visible flag.
  bool IsShown(const char* name) { return !Find<QWidget>(name).isHidden(); }

  Platform::TcxGridTableView& PriceGridView() {
    return *Find<Platform::TcxGrid>("PriceGrid").View();
  }

  std::vector<int> ColumnTags(const char* grid) {
    std::vector<int> tags;
    for (const auto& column : Find<Platform::TcxGrid>(grid).View()->Columns())
      tags.push_back(column->Tag);
    return tags;
  }

  const Platform::TcxGridColumn* ColumnOf(const char* grid, int tag) {
    for (const auto& column : Find<Platform::TcxGrid>(grid).View()->Columns())
      if (column->Tag == tag)
        return column.get();
    return nullptr;
  }

  std::string CellText(int row, int tag) {
    const auto* cell = PriceGridView().Cell(row, ColumnOf("PriceGrid", tag));
    return cell ? cell->Text : "(no cell)";
  }

  /// The caption button with this hint; unless a test gives a text, that is its language key.
  Viewinterface::TCaptionButton& CaptionButton(const std::string& hint) {
    for (auto* button : frame->GetViewCaptionButtons())
      if (button->Hint == hint)
        return *button;
    throw std::runtime_error("no caption button " + hint);
  }

  void Press(const std::string& hint) {
    auto& button = CaptionButton(hint);
    button.OnClick(&button);
  }

  /// Width of a column that is measured with the grid's font at a size in points.
  int MeasuredWidth(int minimum, const char* sample, int points) {
    auto& grid = Find<Platform::TcxGrid>("PriceGrid");
    QFont font = grid.font();
    font.setPointSize(points);
    return std::max(minimum,
                    QFontMetrics(font, &grid).horizontalAdvance(QLatin1String(sample)) + 4);
  }

  /// How often the depth grid describes its cells while `change` happens.
  template <typename TChange> int RepaintsDuring(TChange change) {
    int repaints = 0;
    const auto draw = PriceGridView().OnCustomDrawCell;
    PriceGridView().OnCustomDrawCell = [&](Platform::TcxCanvas& canvas,
                                           const Platform::TcxCellViewInfo& cell, bool& done) {
      repaints += cell.Record == 0 && cell.Column->Tag == 21 ? 1 : 0;
      draw(canvas, cell, done);
    };
    change();
    PriceGridView().OnCustomDrawCell = draw;
    return repaints;
  }

  /// As a user types it.
  void Type(const char* text) {
    auto& box = Find<Platform::TcxPopupEdit>("edtSymbol");
    box.selectAll();
    QTest::keyClicks(&box, QLatin1String(text));
    QTest::keyClick(&box, Qt::Key_Return);
  }

  /// Lets a due refresh happen.
  void TickRefresh() { QTest::qWait(frameInterval + 30); }

  int frameInterval = 50;
  Fakes::TViewFakes host;
  std::unique_ptr<Quorpriceview::TQuorPriceFrame> frame;
};
