// Column widths, grid heights and the size that a view asks its host for.

#include "view/ViewFixture.h"
#include "view/ViewMeasures.h"

#include <QCoreApplication>
#include <QResizeEvent>

using namespace Platform;

namespace {

class TSizingTest : public TViewTest {
protected:
  int QueueWidth() { return MeasuredWidth(0, "8888", 9) + 5; }
  int Height(const char* name) { return Find<QWidget>(name).height(); }
  int RowHeight(const char* grid) { return Find<TcxGrid>(grid).View()->DataRowHeight(); }

  int VisibleWidths(const char* grid) {
    int sum = 0;
    for (const auto& column : Find<TcxGrid>(grid).View()->Columns())
      sum += column->Visible ? column->Width : 0;
    return sum;
  }

  /// As the grid tells its view when the host gave it another size.
  void ResizeGrid() {
    auto& grid = Find<TcxGrid>("PriceGrid");
    QResizeEvent event(grid.size(), QSize(1, 1));
    QCoreApplication::sendEvent(&grid, &event);
  }

  void SetRowHeight(int height) {
    for (const char* grid : {"PriceGrid", "PerclickPriceGrid", "PerclickInfoGrid"})
      Find<TcxGrid>(grid).View()->SetDataRowHeight(height);
  }
};

// Widths.

struct TWidth {
  int tag;
  const char* sample;
  int minimum;
  int extra;
};

constexpr TWidth DepthWidths[] = {
    {21, "MMMMMMMM", 65, 0}, {3, "99999999", 70, 0},  {1, "99999999", 70, 0},
    {2, "99999999", 70, 0},  {16, "99999999", 50, 0}, {19, "99999999", 50, 0},
    {55, "8888", 0, 5},      {56, "8888", 0, 5},      {57, "8888", 0, 5},
    {58, "8888", 0, 5},      {65, "8888", 0, 5},      {66, "8888", 0, 5},
    {67, "8888", 0, 5},      {68, "8888", 0, 5}};

class TWidthTest : public TSizingTest, public testing::WithParamInterface<TWidth> {};

TEST_P(TWidthTest, IsMeasuredWithTheGridsFont) {
  const auto& width = GetParam();
  const auto expected = [&] { return MeasuredWidth(width.minimum, width.sample, 9) + width.extra; };
  Open();
  EXPECT_EQ(ColumnOf("PriceGrid", width.tag)->Width, expected());
  frame->SetFont("DejaVu Sans Mono", 40, Baseview::TIBaseView::FontBold);
  frame->GetWidth();
  EXPECT_EQ(ColumnOf("PriceGrid", width.tag)->Width, expected());
}

TEST_P(TWidthTest, IsNeverBelowItsMinimum) {
  Open();
  QFont narrow = frame->font();
  narrow.setStretch(1);
  frame->setFont(narrow);
  frame->GetWidth();
  EXPECT_GE(ColumnOf("PriceGrid", GetParam().tag)->Width, GetParam().minimum + GetParam().extra);
  EXPECT_EQ(ColumnOf("PriceGrid", GetParam().tag)->Width,
            MeasuredWidth(GetParam().minimum, GetParam().sample, 9) + GetParam().extra);
}

INSTANTIATE_TEST_SUITE_P(Depth, TWidthTest, testing::ValuesIn(DepthWidths));

TEST_F(TSizingTest, NamesTakeTheRoomOfTwoIDs) {
  Open();
  Find<QAction>("mBrokerName").trigger();
  for (const int tag : {55, 56, 65, 66}) {
    EXPECT_EQ(ColumnOf("PriceGrid", tag)->Width, 2 * QueueWidth()) << tag;
    EXPECT_TRUE(ColumnOf("PriceGrid", tag)->Visible) << tag;
  }
  for (const int tag : {57, 58, 67, 68})
    EXPECT_FALSE(ColumnOf("PriceGrid", tag)->Visible) << tag;
  const int width = Find<TcxGrid>("PriceGrid").width();
  EXPECT_EQ(frame->GetWidth(), width) << "the frame is as wide as before";
  EXPECT_EQ(ColumnOf("PriceGrid", 56)->Width, 2 * QueueWidth());

  Find<QAction>("mBrokerName").trigger();
  for (const int tag : {55, 56, 57, 58, 65, 66, 67, 68}) {
    EXPECT_EQ(ColumnOf("PriceGrid", tag)->Width, QueueWidth()) << tag;
    EXPECT_TRUE(ColumnOf("PriceGrid", tag)->Visible) << tag;
  }
}

TEST_F(TSizingTest, WithDigitsOfEightPixelsAnIDTakesFortyOneAndANameEightyTwo) {
  Open();
  auto& grid = Find<TcxGrid>("PriceGrid");
  QFont font = grid.font();
  font.setPointSize(9);
  const int digits = QFontMetrics(font, &grid).horizontalAdvance(QStringLiteral("8888"));
  font.setLetterSpacing(QFont::AbsoluteSpacing, (32 - digits) / 4.0);
  ASSERT_EQ(QFontMetrics(font, &grid).horizontalAdvance(QStringLiteral("8888")), 32);
  grid.setFont(font);
  auto* names = &Find<QAction>("mBrokerName");
  names->trigger();
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, 82);
  EXPECT_FALSE(ColumnOf("PriceGrid", 57)->Visible);
  names->trigger();
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, 41);
  EXPECT_TRUE(ColumnOf("PriceGrid", 57)->Visible);
}

TEST_F(TSizingTest, WhileTheQueueIsHiddenNamesChangeNoVisibility) {
  Open();
  Press("Res_HideBrokerQueue");
  Find<QAction>("mBrokerName").trigger();
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, 2 * QueueWidth());
  Find<QAction>("mBrokerName").trigger();
  frame->GetWidth();
  for (const int tag : {55, 57, 58, 66, 67, 68})
    EXPECT_FALSE(ColumnOf("PriceGrid", tag)->Visible) << tag;
}

TEST_F(TSizingTest, TheFrameIsAsWideAsItsVisibleColumnsAndAMargin) {
  Open();
  EXPECT_EQ(frame->GetWidth(), VisibleWidths("PriceGrid") + 20);
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), VisibleWidths("PriceGrid") + 20);
  Press("Res_HideBrokerQueue");
  EXPECT_EQ(frame->GetWidth(), VisibleWidths("PriceGrid") + 20);
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), VisibleWidths("PriceGrid") + 20);
}

TEST_F(TSizingTest, TheHostIsToldOnlyOfAWidthThatChanged) {
  Open();
  frame->GetWidth();
  frame->GetWidth();
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  frame->SetFont("DejaVu Sans Mono", 40, Baseview::TIBaseView::FontBold);
  frame->GetWidth();
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_SizeChanged});
  frame->GetWidth();
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TSizingTest, TheFirstWidthRequestSelectsTheSymbol) {
  Open();
  auto& box = Find<TcxPopupEdit>("edtSymbol");
  frame->SetLayoutData("Symbol=700");
  EXPECT_EQ(box.selectedText(), "");
  frame->GetWidth();
  EXPECT_EQ(box.selectedText(), "700");
  box.deselect();
  frame->GetWidth();
  EXPECT_EQ(box.selectedText(), "") << "only the first";
}

TEST_F(TSizingTest, LayoutLoadedAndMainFormShownMeasureWhenTheLayoutIsReady) {
  for (const int message : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown}) {
    Open();
    const int row = RowHeight("PriceGrid");
    const int width = Find<TcxGrid>("PriceGrid").width();
    PriceGridView().SetDataRowHeight(3);
    Find<TcxGrid>("PriceGrid").setFixedWidth(10);
    host.config.layoutReady = false;
    host.channels.Send(message, nullptr, nullptr);
    EXPECT_EQ(RowHeight("PriceGrid"), 3) << message;
    EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), 10) << message;
    host.config.layoutReady = true;
    host.channels.Send(message, nullptr, nullptr);
    EXPECT_EQ(RowHeight("PriceGrid"), row) << message;
    EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), width) << message;
  }
}

TEST_F(TSizingTest, PerClickColumnsAndGroups) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  frame->SetFont("DejaVu Sans Mono", 40, Baseview::TIBaseView::FontBold);
  frame->GetWidth();
  for (const int tag : {1, 2})
    EXPECT_EQ(ColumnOf("PerclickPriceGrid", tag)->Width, MeasuredWidth(70, "99999999", 9)) << tag;
  for (const int tag : {16, 19})
    EXPECT_EQ(ColumnOf("PerclickPriceGrid", tag)->Width, MeasuredWidth(50, "99999999", 9)) << tag;
  for (const int tag : {10000, 10001, 10002, 10003, 10004})
    EXPECT_EQ(ColumnOf("PerclickInfoGrid", tag)->Width, MeasuredWidth(80, "99999999", 9)) << tag;
  EXPECT_EQ(Find<QWidget>("lgPrice").width(), VisibleWidths("PerclickPriceGrid") + 20);
  EXPECT_EQ(Find<QWidget>("PerclickPriceGrid").width(), VisibleWidths("PerclickPriceGrid") + 20);
  EXPECT_EQ(Find<QWidget>("PerclickInfoGrid").width(), VisibleWidths("PerclickInfoGrid") + 20);
}

// Heights.

TEST_F(TSizingTest, RowsAreMeasuredWithTheFramesFont) {
  Open();
  const int row = QFontMetrics(frame->font(), &Find<TcxGrid>("PriceGrid")).height() + 4;
  for (const char* grid : {"PriceGrid", "PerclickPriceGrid", "PerclickInfoGrid"})
    EXPECT_EQ(RowHeight(grid), row) << grid;
}

TEST_F(TSizingTest, HeightsOfTheGridsFollowTheirRows) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  SetRowHeight(31);
  frame->GetHeight();
  EXPECT_EQ(Height("PriceGrid"), 13 * 31 + 6);
  EXPECT_EQ(Height("PerclickPriceGrid"), 3 * 31 + 6);
  EXPECT_EQ(Height("PerclickInfoGrid"), 4 * 31 + 6);
  EXPECT_EQ(Height("lgPerclick"), Find<QWidget>("liPerclickPriceGrid").sizeHint().height() +
                                      Find<QWidget>("liLast").sizeHint().height() +
                                      Find<QWidget>("liChange").sizeHint().height() + 20);
  EXPECT_EQ(Find<QWidget>("liPerclickPriceGrid").sizeHint().height(), 3 * 31 + 6);
}

struct TModeHeight {
  const char* data;
  int rows;
};

class TModeHeightTest : public TSizingTest, public testing::WithParamInterface<TModeHeight> {};

TEST_P(TModeHeightTest, TheDepthGridIsAsHighAsItsRows) {
  Open();
  frame->SetLayoutData(GetParam().data);
  frame->GetHeight();
  EXPECT_EQ(Height("PriceGrid"), GetParam().rows * RowHeight("PriceGrid") + 6);
}

INSTANTIATE_TEST_SUITE_P(Mode, TModeHeightTest,
                         testing::Values(TModeHeight{"DisplayMode=0", 13},
                                         TModeHeight{"DisplayMode=1", 13},
                                         TModeHeight{"DisplayMode=2", 18}));

TEST_F(TSizingTest, ADisplayModeSetsTheHeightAtOnceAndTheSimpleOneLeavesIt) {
  Open();
  Press("Res_PriceDepth10");
  const int row = RowHeight("PriceGrid");
  EXPECT_EQ(Height("PriceGrid"), 18 * row + 6);
  frame->SetLayoutData("DisplayMode=1");
  EXPECT_EQ(Height("PriceGrid"), 18 * row + 6);
  frame->SetLayoutData("DisplayMode=0");
  EXPECT_EQ(Height("PriceGrid"), 13 * row + 6);
  frame->SetLayoutData("DisplayMode=1");
  EXPECT_EQ(Height("PriceGrid"), 13 * row + 6);
}

TEST_F(TSizingTest, TheHeightOfAModeGoesByTheRowsThatAreOnTheScreen) {
  Open();
  PriceGridView().SetDataRowHeight(29);
  Press("Res_PriceDepth10");
  EXPECT_EQ(Height("PriceGrid"), 18 * 29 + 6);
  Press("Res_PriceDepth5");
  EXPECT_EQ(Height("PriceGrid"), 13 * 29 + 6);
}

TEST_F(TSizingTest, AResizedGridScalesItsRowsAgainAboveAHundred) {
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", "125");
  Open();
  const int row = QFontMetrics(frame->font(), &Find<TcxGrid>("PriceGrid")).height() + 4;
  SetRowHeight(3);
  ResizeGrid();
  const int scaled = Quorpriceview::ScaledRowHeight(row, 125);
  for (const char* grid : {"PriceGrid", "PerclickPriceGrid", "PerclickInfoGrid"})
    EXPECT_EQ(RowHeight(grid), scaled) << grid;
  EXPECT_EQ(Height("PriceGrid"), 13 * scaled + 6);
  EXPECT_EQ(Height("PerclickPriceGrid"), 3 * scaled + 6);
  EXPECT_EQ(Height("PerclickInfoGrid"), 4 * scaled + 6);
}

TEST_F(TSizingTest, AResizedGridKeepsItsRowsAtAHundred) {
  Open();
  SetRowHeight(3);
  ResizeGrid();
  EXPECT_EQ(RowHeight("PriceGrid"), 3);
  EXPECT_EQ(Height("PriceGrid"), 13 * 3 + 6);
}

TEST_F(TSizingTest, TheHeightRequestDoesNotScaleRows) {
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", "125");
  Open();
  Find<TcxGrid>("PriceGrid").disconnect(frame.get());
  SetRowHeight(3);
  frame->GetHeight();
  EXPECT_EQ(RowHeight("PriceGrid"), 3);
}

TEST_F(TSizingTest, AViewIsAsHighAsItsContentAndNeverUnderThreeHundred) {
  Open();
  auto& content = Find<TdxLayoutControl>("lcGrid");
  SetRowHeight(5);
  ASSERT_LT(content.ContentHeight(content.width()), 300);
  EXPECT_EQ(frame->GetHeight(), 300);
  SetRowHeight(50);
  const int height = frame->GetHeight();
  EXPECT_EQ(height, content.ContentHeight(content.width()));
  EXPECT_GT(height, 13 * 50 + 6);
}

TEST_F(TSizingTest, HidingTheSymbolLineMakesTheViewLower) {
  Open();
  SetRowHeight(50);
  const int height = frame->GetHeight();
  Press("Res_Less");
  EXPECT_LT(frame->GetHeight(), height);
  EXPECT_GE(frame->GetHeight(), 13 * 50 + 6);
  Press("Res_More");
  EXPECT_EQ(frame->GetHeight(), height);
}

TEST_F(TSizingTest, MoreLevelsMakeTheViewHigher) {
  Open();
  SetRowHeight(50);
  const int height = frame->GetHeight();
  Press("Res_PriceDepth10");
  EXPECT_EQ(frame->GetHeight(), height + 5 * 50);
}

} // namespace
