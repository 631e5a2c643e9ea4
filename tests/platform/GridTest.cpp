#include "platform/GridFixture.h"
#include "platform/LookAndFeel.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace Platform;

namespace {

constexpr unsigned OneLine = DT_VCENTER | DT_SINGLELINE;

} // namespace

TEST_F(TGridTest, LevelAndViewAreFoundByName) {
  EXPECT_EQ(Grid.objectName(), "Grid");
  EXPECT_EQ(Grid.findChild<TcxGridTableView*>("View"), View);
  EXPECT_EQ(Grid.findChild<TcxGridLevel*>("Lv")->GridView(), View);
  EXPECT_EQ(Grid.View(), View);
}

TEST_F(TGridTest, CellsAreKnownBeforeTheGridIsShown) {
  EXPECT_EQ(View->RecordCount(), 4);
  EXPECT_EQ(Text(0, 0), "a0");
  EXPECT_EQ(Text(3, 2), "c3");
  Source.Rows[3][2] = "new";
  EXPECT_EQ(Text(3, 2), "c3");
  View->Refresh();
  EXPECT_EQ(Text(3, 2), "new");
  EXPECT_FALSE(Grid.isVisible());
}

TEST_F(TGridTest, ACellStartsFromThePaletteAndTheGridsFont) {
  QFont font;
  font.setPointSize(13);
  Grid.setFont(font);
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(1, 2, 3));
  palette.setColor(QPalette::Text, QColor(4, 5, 6));
  Grid.setPalette(palette);
  EXPECT_EQ(*View->Cell(1, Columns[0]),
            (TCellDescription{"a1", qRgb(1, 2, 3), qRgb(4, 5, 6), 13, false, OneLine, false}));
  EXPECT_EQ(View->Cell(1, Columns[1])->Flags, OneLine | DT_RIGHT);
}

TEST_F(TGridTest, AFontInPixelsHasItsSizeInPoints) {
  QFont font;
  font.setPixelSize(16); // 12 points at 96 dots per inch
  Grid.setFont(font);
  EXPECT_EQ(View->Cell(0, Columns[0])->Size, 12);
}

TEST_F(TGridTest, ASkinPainterGivesTheStartingColoursAtOnce) {
  TcxRootLookAndFeel::Instance().SetSkinPainter(TSkinPainter{QColor(7, 8, 9), QColor(9, 8, 7)});
  EXPECT_EQ(View->Cell(2, Columns[2])->Fill, qRgb(7, 8, 9));
  EXPECT_EQ(View->Cell(2, Columns[2])->Color, qRgb(9, 8, 7));
  TcxRootLookAndFeel::Instance().SetSkinPainter(std::nullopt);
  EXPECT_EQ(View->Cell(2, Columns[2])->Fill, Grid.palette().color(QPalette::Base).rgb());
}

TEST_F(TGridTest, TheHandlerIsAskedForEveryVisibleCell) {
  std::vector<std::pair<int, int>> asked;
  View->SetColumnVisible(Columns[1], false);
  View->OnCustomDrawCell = [&](TcxCanvas& canvas, const TcxCellViewInfo& cell, bool& done) {
    asked.emplace_back(cell.Record, cell.Column->Tag);
    if (cell.Record == 2) {
      canvas.BrushColor = 0xFF112233;
      canvas.FillRect();
      canvas.DrawText("own", DT_CENTER | DT_VCENTER);
      done = true;
    }
  };
  Source.Reads = 0;
  View->Repaint();
  EXPECT_EQ(asked, (std::vector<std::pair<int, int>>{
                       {0, 0}, {0, 2}, {1, 0}, {1, 2}, {2, 0}, {2, 2}, {3, 0}, {3, 2}}));
  EXPECT_EQ(Source.Reads, 6); // not for what the handler drew itself
  EXPECT_EQ(Text(2, 2), "own");
  EXPECT_TRUE(View->Cell(2, Columns[2])->DrawnByOwner);
  EXPECT_EQ(View->Cell(2, Columns[2])->Fill, 0xFF112233u);
  EXPECT_EQ(Text(1, 2), "c1");
}

TEST_F(TGridTest, WithoutSourceThereAreNoCells) {
  View->SetDataSource(nullptr);
  EXPECT_EQ(View->RecordCount(), 0);
  EXPECT_EQ(View->Cell(0, Columns[0]), nullptr);
  Source.Rows[0][0] = "later";
  Source.DataChanged();
  EXPECT_EQ(View->RecordCount(), 0);
}

TEST_F(TGridTest, AViewThatGoesLetsItsSourceGo) {
  delete View;
  Source.DataChanged();
  EXPECT_FALSE(Source.OnDataChanged);
  EXPECT_EQ(Grid.View(), nullptr);
}

TEST_F(TGridTest, TheSourceRefreshesTheGrid) {
  Source.Rows[1][1] = "99";
  Source.DataChanged();
  EXPECT_EQ(Text(1, 1), "99");
}

TEST_F(TGridTest, BetweenBeginAndEndNothingIsDescribed) {
  Source.Reads = 0;
  View->BeginUpdate();
  View->BeginUpdate();
  View->SetColumnWidth(Columns[0], 45);
  View->SetColumnVisible(Columns[2], false);
  View->SetDataRowHeight(25);
  Source.DataChanged();
  View->EndUpdate();
  EXPECT_EQ(Source.Reads, 0);
  EXPECT_EQ(View->CellBounds(1, Columns[1]), QRect(40, 20, 60, 20));
  View->EndUpdate();
  EXPECT_EQ(Source.Reads, 8);
  EXPECT_EQ(View->CellBounds(1, Columns[1]), QRect(45, 25, 60, 25));
}

TEST_F(TGridTest, AnUpdateThatChangedNothingDescribesNothing) {
  Source.Reads = 0;
  View->BeginUpdate();
  View->SetColumnWidth(Columns[0], 40);
  View->SetColumnVisible(Columns[0], true);
  View->SetDataRowHeight(RowHeight);
  View->EndUpdate();
  EXPECT_EQ(Source.Reads, 0);
}

TEST_F(TGridTest, ColumnsCanBeBuiltAnew) {
  View->BeginUpdate();
  View->ClearColumns();
  auto* only = View->CreateColumn(2, 70, true);
  View->EndUpdate();
  ASSERT_EQ(View->Columns().size(), 1u);
  EXPECT_EQ(View->Columns()[0].get(), only);
  EXPECT_EQ(View->Cell(1, only)->Text, "c1");
  EXPECT_EQ(View->CellBounds(1, only), QRect(0, 20, 70, 20));
}

TEST_F(TGridTest, AHiddenColumnHasNoCellsAndTakesNoRoom) {
  View->SetColumnVisible(Columns[1], false);
  EXPECT_EQ(View->Cell(0, Columns[1]), nullptr);
  EXPECT_TRUE(View->CellBounds(0, Columns[1]).isEmpty());
  EXPECT_EQ(View->CellBounds(0, Columns[2]), QRect(40, 0, 50, 20));
  EXPECT_EQ(Text(0, 2), "c0");
  EXPECT_EQ(View->HitTest({41, 5}).Column, Columns[2]);
  View->SetColumnVisible(Columns[1], true);
  EXPECT_EQ(Text(0, 1), "10");
  EXPECT_EQ(View->CellBounds(0, Columns[2]), QRect(100, 0, 50, 20));
}

TEST_F(TGridTest, CellsOutOfRangeAreNone) {
  EXPECT_EQ(View->Cell(-1, Columns[0]), nullptr);
  EXPECT_EQ(View->Cell(4, Columns[0]), nullptr);
  EXPECT_EQ(View->Cell(0, nullptr), nullptr);
  EXPECT_EQ(View->CellBounds(4, Columns[0]), QRect());
}

TEST_F(TGridTest, HitTestAtTheBorders) {
  const auto at = [this](int x, int y) { return View->HitTest({x, y}); };
  EXPECT_EQ(at(0, 0).Record, 0);
  EXPECT_EQ(at(0, 0).Column, Columns[0]);
  EXPECT_EQ(at(39, 19).Column, Columns[0]);
  EXPECT_EQ(at(40, 19).Column, Columns[1]);
  EXPECT_EQ(at(40, 19).Record, 0);
  EXPECT_EQ(at(99, 20).Record, 1);
  EXPECT_EQ(at(149, 79).Column, Columns[2]);
  EXPECT_EQ(at(149, 79).Record, 3);
  EXPECT_EQ(at(150, 79).Record, 3);
  EXPECT_EQ(at(150, 79).Column, nullptr);
  EXPECT_EQ(at(10, 80).Record, -1);
  EXPECT_EQ(at(10, 80).Column, nullptr);
  EXPECT_EQ(at(-1, 10).Record, -1);
  EXPECT_EQ(at(10, -1).Record, -1);
}

TEST_F(TGridTest, RowsCanHaveTheirOwnHeights) {
  View->OnGetCellHeight = [](int record, int& height) {
    if (record == 1 || record == 3)
      height = height * 3 / 2;
  };
  View->Refresh();
  EXPECT_EQ(View->CellBounds(0, Columns[0]), QRect(0, 0, 40, 20));
  EXPECT_EQ(View->CellBounds(1, Columns[0]), QRect(0, 20, 40, 30));
  EXPECT_EQ(View->CellBounds(2, Columns[0]), QRect(0, 50, 40, 20));
  EXPECT_EQ(View->CellBounds(3, Columns[0]), QRect(0, 70, 40, 30));
  EXPECT_EQ(View->HitTest({5, 49}).Record, 1);
  EXPECT_EQ(View->HitTest({5, 50}).Record, 2);
  EXPECT_EQ(View->HitTest({5, 99}).Record, 3);
}

TEST_F(TGridTest, HigherRowsGiveWayWhereTheGridIsTooLowForThem) {
  View->OnGetCellHeight = [](int record, int& height) {
    if (record == 1 || record == 3)
      height = height * 2;
  };
  const auto heights = [this] {
    std::vector<int> each;
    for (int record = 0; record < 4; ++record)
      each.push_back(View->CellBounds(record, Columns[0]).height());
    return each;
  };
  Show();
  Grid.resize(Grid.width(), 120);
  EXPECT_EQ(heights(), (std::vector{20, 40, 20, 40}));
  Grid.resize(Grid.width(), 110);
  EXPECT_EQ(heights(), (std::vector{20, 35, 20, 35}));
  Grid.resize(Grid.width(), 70);
  EXPECT_EQ(heights(), (std::vector{20, 20, 20, 20}));
}

TEST_F(TGridTest, ACellThatIsTooNarrowForItsTextSaysItInAHint) {
  const auto hover = [this](int record) {
    QToolTip::hideText();
    const QPoint at = View->CellBounds(record, Columns[0]).center();
    QHelpEvent event(QEvent::ToolTip, at, Grid.mapToGlobal(at));
    QApplication::sendEvent(&Grid, &event);
    return QToolTip::text().toStdString();
  };
  Source.Rows[0][0] = "9,412,345,678,901";
  Source.Rows[1][0] = "9";
  View->Refresh();
  EXPECT_EQ(hover(0), "") << "unless they are asked for";
  View->CellHints = true;
  EXPECT_EQ(hover(1), "");
  EXPECT_EQ(hover(0), "<p>9,412,345,678,901</p>");
  QToolTip::hideText();
}

TEST_F(TGridTest, TheFocusMovesUpWhenItsRecordIsGone) {
  EXPECT_EQ(View->FocusedRecordIndex(), -1);
  View->SetFocusedRecordIndex(3);
  Source.Rows.pop_back();
  View->Refresh();
  EXPECT_EQ(View->RecordCount(), 3);
  EXPECT_EQ(View->FocusedRecordIndex(), 2);
  Source.Rows.clear();
  View->Refresh();
  EXPECT_EQ(View->FocusedRecordIndex(), -1);
}

TEST_F(TGridTest, MoreRecordsAreDescribedToo) {
  Source.Rows.push_back({"a4", "14", "c4"});
  View->Refresh();
  EXPECT_EQ(View->RecordCount(), 5);
  EXPECT_EQ(Text(4, 1), "14");
  EXPECT_EQ(Text(0, 0), "a0");
}

TEST_F(TGridTest, ARefreshAskedForWhileDescribingFollows) {
  int described = 0;
  bool first = true;
  View->OnCustomDrawCell = [&](TcxCanvas&, const TcxCellViewInfo& cell, bool&) {
    ++described;
    if (cell.Record == 3 && cell.Column == Columns[2] && std::exchange(first, false)) {
      Source.Rows[0][0] = "late"; // described already
      Source.DataChanged();
    }
  };
  View->Refresh();
  EXPECT_EQ(Text(0, 0), "late");
  EXPECT_EQ(described, 24);
}

TEST_F(TGridTest, AHandlerThatAlwaysRefreshesEnds) {
  int described = 0;
  View->OnCustomDrawCell = [&](TcxCanvas&, const TcxCellViewInfo&, bool&) {
    ++described;
    View->Refresh();
  };
  View->Refresh();
  EXPECT_EQ(described, 24);
  EXPECT_EQ(Text(3, 2), "c3");
}

TEST_F(TGridTest, AHandlerMayChangeRecordsAndColumns) {
  bool first = true;
  View->OnCustomDrawCell = [&](TcxCanvas&, const TcxCellViewInfo& cell, bool&) {
    if (cell.Record != 1 || !std::exchange(first, false))
      return;
    Source.Rows.resize(2);
    View->ClearColumns();
    Columns = {View->CreateColumn(2, 30, false)};
  };
  View->Refresh();
  EXPECT_EQ(View->RecordCount(), 2);
  EXPECT_EQ(Text(0, 0), "c0");
  EXPECT_EQ(Text(1, 0), "c1");
}
