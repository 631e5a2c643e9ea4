// Scale steps, and the sizes that a form gets by them.

#include "view/ViewMeasures.h"

#include "view/FormFixture.h"
#include "view/ScaleSteps.h"

#include <QFontMetrics>

using namespace Quorpriceview;
using ScaleSteps::Steps;
using ScaleSteps::TStep;

namespace {

struct TSnapped {
  int configured;
  int scale;
};

class TSnappedTest : public testing::TestWithParam<TSnapped> {};

TEST_P(TSnappedTest, ToTheNextStep) {
  EXPECT_EQ(SnappedScale(GetParam().configured), GetParam().scale);
}

constexpr TSnapped Snapped[] = {{-50, 100}, {0, 100},   {99, 100},  {100, 100}, {101, 115},
                                {110, 115}, {115, 115}, {116, 125}, {125, 125}, {126, 135},
                                {135, 135}, {136, 150}, {150, 150}, {200, 150}};

INSTANTIATE_TEST_SUITE_P(Scale, TSnappedTest, testing::ValuesIn(Snapped));

class TScaleStepTest : public testing::TestWithParam<TStep> {};

INSTANTIATE_TEST_SUITE_P(Scale, TScaleStepTest, testing::ValuesIn(Steps));

TEST_P(TScaleStepTest, HasItsFontsAndItsMargin) {
  EXPECT_EQ(ColumnFontSize(GetParam().scale), GetParam().columnFont);
  EXPECT_EQ(HintFontSize(GetParam().scale), GetParam().hintFont);
  EXPECT_EQ(FrameMargin(GetParam().scale), GetParam().margin);
}

TEST(TScaleStepsTest, AnyOtherScaleMeasuresAsAHundred) {
  for (const int scale : {0, 110, 200})
    EXPECT_EQ(ColumnFontSize(scale), 9) << scale;
}

struct TRow {
  int height;
  int scale;
  int scaled;
};

class TRowHeightTest : public testing::TestWithParam<TRow> {};

TEST_P(TRowHeightTest, GrowsByPerCentAndRoundsHalvesToEven) {
  EXPECT_EQ(ScaledRowHeight(GetParam().height, GetParam().scale), GetParam().scaled);
}

constexpr TRow Rows[] = {{16, 0, 16},   {16, 100, 16}, {16, 115, 18}, {16, 125, 20}, {16, 135, 22},
                         {16, 150, 24}, {10, 125, 12}, {14, 125, 18}, {18, 125, 22}, {17, 150, 25},
                         {19, 150, 29}, {21, 150, 31}, {20, 115, 23}, {20, 135, 27}, {0, 150, 0}};

INSTANTIATE_TEST_SUITE_P(Scale, TRowHeightTest, testing::ValuesIn(Rows));

// A form.

constexpr int DepthTags[] = {21, 3, 16, 1, 19, 2, 55, 56, 57, 58, 65, 66, 67, 68};
constexpr int QueueTags[] = {55, 56, 57, 58, 65, 66, 67, 68};

class TViewMeasuresTest : public TFormTest {
protected:
  TViewMeasuresTest() {
    const auto create = [](Platform::TcxGridTableView* view, std::initializer_list<int> tags) {
      for (const int tag : tags)
        view->CreateColumn(tag, 1, false);
    };
    for (const int tag : DepthTags)
      create(form.PriceGridView, {tag});
    create(form.PerclickPriceGridView, {16, 1, 19, 2});
    create(form.PerclickInfoGridView, {10000, 10001, 10002, 10003, 10004});
    measures.DetectRowHeight();
  }

  bool SetScale(int percent) {
    host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", std::to_string(percent));
    return measures.ReadScale();
  }

  /// Width of a text and its margin with the grid's font at a size in points.
  int Measured(const char* sample, int points) const {
    QFont font = form.PriceGrid->font();
    font.setPointSize(points);
    return QFontMetrics(font, form.PriceGrid).horizontalAdvance(QLatin1String(sample)) + 4;
  }
  int UnscaledRow() const { return QFontMetrics(form.font(), form.PriceGrid).height() + 4; }

  static int SumOfWidths(const Platform::TcxGridTableView* view) {
    int sum = 0;
    for (const auto& column : view->Columns())
      sum += column->Visible ? column->Width : 0;
    return sum;
  }
  int Width(int tag) const { return ColumnOf(form.PriceGridView, tag)->Width; }
  void SetRowHeight(int height) {
    for (auto* view : form.GridViews())
      view->SetDataRowHeight(height);
  }

  TViewState state;
  TViewMeasures measures{form, state};
};

TEST_F(TViewMeasuresTest, TheScaleIsTakenOverWhenItIsAnotherStep) {
  EXPECT_EQ(measures.Scale(), 100);
  EXPECT_TRUE(measures.HasHostsScale()) << "none is configured";
  EXPECT_FALSE(measures.ReadScale());
  EXPECT_TRUE(SetScale(120));
  EXPECT_EQ(measures.Scale(), 125);
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", "125");
  EXPECT_TRUE(measures.HasHostsScale()) << "the same step";
  EXPECT_FALSE(measures.ReadScale());
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", "150");
  EXPECT_FALSE(measures.HasHostsScale());
  EXPECT_EQ(measures.Scale(), 125) << "until it is read";
}

class TColumnScaleTest : public TViewMeasuresTest, public testing::WithParamInterface<TStep> {};

INSTANTIATE_TEST_SUITE_P(Scale, TColumnScaleTest, testing::ValuesIn(Steps));

TEST_P(TColumnScaleTest, ColumnsFollowTheirSamplesAndTheFrameItsColumns) {
  SetScale(GetParam().scale);
  measures.ResetSize();
  const int points = GetParam().columnFont;
  const int number = Measured("99999999", points);
  EXPECT_EQ(Width(21), std::max(65, Measured("MMMMMMMM", points)));
  for (const int tag : {3, 1, 2})
    EXPECT_EQ(Width(tag), std::max(70, number)) << tag;
  for (const int tag : {16, 19})
    EXPECT_EQ(Width(tag), std::max(50, number)) << tag;
  for (const int tag : QueueTags)
    EXPECT_EQ(Width(tag), Measured("8888", points) + 5) << tag;
  for (const auto& column : form.PerclickInfoGridView->Columns())
    EXPECT_EQ(column->Width, std::max(80, number));
  for (const auto& column : form.PerclickPriceGridView->Columns())
    EXPECT_EQ(column->Width, measures.ColumnWidth(column->Tag)) << column->Tag;
  EXPECT_EQ(measures.FrameWidth(), SumOfWidths(form.PriceGridView) + GetParam().margin);
  EXPECT_EQ(form.PriceGrid->width(), measures.FrameWidth());
  EXPECT_EQ(form.PerclickPriceGrid->width(), SumOfWidths(form.PerclickPriceGridView) + 20);
  EXPECT_EQ(form.lgPrice->width(), form.PerclickPriceGrid->width());
  EXPECT_EQ(form.PerclickInfoGrid->width(), SumOfWidths(form.PerclickInfoGridView) + 20);
}

TEST_P(TColumnScaleTest, RowsAreMeasuredWithTheFormsFontAndScaledAfterwards) {
  SetScale(GetParam().scale);
  measures.DetectRowHeight();
  for (const auto* view : form.GridViews())
    EXPECT_EQ(view->DataRowHeight(), ScaledRowHeight(UnscaledRow(), GetParam().scale));
}

TEST_F(TViewMeasuresTest, NoColumnIsNarrowerThanItsMinimum) {
  QFont narrow = form.PriceGrid->font();
  narrow.setStretch(1);
  form.PriceGrid->setFont(narrow);
  ASSERT_LT(Measured("MMMMMMMM", 9), 50);
  for (const auto& [tag, width] :
       {std::pair{21, 65}, {3, 70}, {1, 70}, {2, 70}, {16, 50}, {19, 50}, {10000, 80}})
    EXPECT_EQ(measures.ColumnWidth(tag), width) << tag;
  EXPECT_EQ(measures.ColumnWidth(55), Measured("8888", 9) + 5);
}

TEST_F(TViewMeasuresTest, OnlyAnotherWidthOfTheFrameIsAChange) {
  EXPECT_TRUE(measures.ResetSize());
  EXPECT_FALSE(measures.ResetSize());
  form.PriceGridView->SetColumnWidth(ColumnOf(form.PriceGridView, 1), 7);
  EXPECT_FALSE(measures.ResetSize()) << "measured anew it is as wide as before";
  form.PriceGridView->SetColumnVisible(ColumnOf(form.PriceGridView, 2), false);
  EXPECT_TRUE(measures.ResetSize());
}

TEST_F(TViewMeasuresTest, TheRowHeightIsMeasuredOnce) {
  const int row = UnscaledRow();
  QFont larger = form.font();
  larger.setPointSize(30);
  form.setFont(larger);
  ASSERT_GT(UnscaledRow(), row);
  SetScale(150);
  measures.DetectRowHeight();
  EXPECT_EQ(form.PriceGridView->DataRowHeight(), ScaledRowHeight(row, 150));
}

TEST_F(TViewMeasuresTest, NamesTakeTheRoomOfTwoIDs) {
  measures.ResetSize();
  const int width = Width(55);
  const int frame = measures.FrameWidth();
  state.ShowBrokerName = true;
  measures.SetQueueColumnWidth();
  for (const int tag : {55, 56, 65, 66})
    EXPECT_EQ(Width(tag), 2 * width) << tag;
  EXPECT_EQ(VisibleTags(form.PriceGridView), (std::vector{21, 3, 16, 1, 19, 2, 55, 56, 65, 66}));
  EXPECT_FALSE(measures.ResetSize()) << "so the frame is as wide as before";
  EXPECT_EQ(measures.FrameWidth(), frame);
  EXPECT_EQ(Width(56), 2 * width);
  state.ShowBrokerName = false;
  measures.SetQueueColumnWidth();
  EXPECT_EQ(Width(55), width);
  EXPECT_EQ(VisibleTags(form.PriceGridView).size(), 14u);
}

TEST_F(TViewMeasuresTest, AHiddenQueueIsShownByItsButtonAlone) {
  const std::vector others{21, 3, 16, 1, 19, 2};
  state.HasQueueButton = true;
  state.QueueHidden.Number = 5;
  measures.ShowHideBrokerQueue();
  EXPECT_EQ(VisibleTags(form.PriceGridView), others);
  measures.ResetSize();
  state.ShowBrokerName = true;
  measures.SetQueueColumnWidth();
  state.ShowBrokerName = false;
  measures.SetQueueColumnWidth();
  EXPECT_EQ(VisibleTags(form.PriceGridView), others);
  state.QueueHidden.Number = 0;
  measures.ShowHideBrokerQueue();
  EXPECT_EQ(VisibleTags(form.PriceGridView).size(), 14u);
}

TEST_F(TViewMeasuresTest, GridsAreAsHighAsTheirRows) {
  SetRowHeight(31);
  measures.SetGridHeights(17);
  EXPECT_EQ(form.PriceGrid->height(), 17 * 31 + 6);
  EXPECT_EQ(form.PerclickPriceGrid->height(), 3 * 31 + 6);
  EXPECT_EQ(form.PerclickInfoGrid->height(), 4 * 31 + 6);
  EXPECT_EQ(form.liPerclickPriceGrid->sizeHint().height(), 3 * 31 + 6);
  EXPECT_EQ(form.lgPerclick->height(), 3 * 31 + 6 + form.liLast->sizeHint().height() +
                                           form.liChange->sizeHint().height() + 20);
}

TEST_F(TViewMeasuresTest, AModeSetsTheHeightOfTheDepthGridUnlessItIsTheSimpleOne) {
  using namespace Quorpricedatacontrol;
  SetRowHeight(29);
  const int perclick = form.PerclickPriceGrid->height();
  state.DisplayMode = qm10Full;
  measures.SetDisplayModeHeight(18);
  EXPECT_EQ(form.PriceGrid->height(), 18 * 29 + 6);
  state.DisplayMode = qm10Simple;
  measures.SetDisplayModeHeight(13);
  EXPECT_EQ(form.PriceGrid->height(), 18 * 29 + 6);
  state.DisplayMode = qm5Full;
  measures.SetDisplayModeHeight(13);
  EXPECT_EQ(form.PriceGrid->height(), 13 * 29 + 6);
  EXPECT_EQ(form.PerclickPriceGrid->height(), perclick);
}

TEST_F(TViewMeasuresTest, AResizedGridScalesItsRowsAgainAboveAHundred) {
  SetRowHeight(3);
  measures.PriceGridResize(13);
  EXPECT_EQ(form.PriceGridView->DataRowHeight(), 3);
  EXPECT_EQ(form.PriceGrid->height(), 13 * 3 + 6);
  SetScale(125);
  measures.PriceGridResize(13);
  const int scaled = ScaledRowHeight(UnscaledRow(), 125);
  for (const auto* view : form.GridViews())
    EXPECT_EQ(view->DataRowHeight(), scaled);
  EXPECT_EQ(form.PriceGrid->height(), 13 * scaled + 6);
}

TEST_F(TViewMeasuresTest, AFrameIsAsHighAsItsContentAndNeverUnderThreeHundred) {
  form.lgPerclick->SetVisibleFlag(false);
  SetRowHeight(5);
  EXPECT_EQ(measures.FrameHeight(13), 300);
  SetRowHeight(50);
  const int height = measures.FrameHeight(13);
  EXPECT_EQ(height, form.lcGrid->ContentHeight(measures.FrameWidth()));
  EXPECT_GT(height, 13 * 50 + 6);
  EXPECT_EQ(measures.FrameHeight(18), height + 5 * 50);
}

} // namespace
