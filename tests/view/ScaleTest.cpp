// Scale steps, and what a change of the host's scale does to an open view.

#include "platform/HintController.h"
#include "view/ScaleSteps.h"
#include "view/ViewFixture.h"

using namespace Platform;
using namespace Quorpriceview;

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

struct TStep {
  int scale;
  int columnFont;
  int hintFont;
  int margin;
};

class TStepTest : public TViewTest, public testing::WithParamInterface<TStep> {};

TEST_P(TStepTest, HasItsFontsAndItsMargin) {
  EXPECT_EQ(ColumnFontSize(GetParam().scale), GetParam().columnFont);
  EXPECT_EQ(HintFontSize(GetParam().scale), GetParam().hintFont);
  EXPECT_EQ(FrameMargin(GetParam().scale), GetParam().margin);
}

TEST_P(TStepTest, ReachesAnOpenViewWithTheConfiguration) {
  Open();
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", std::to_string(GetParam().scale));
  host.config.Announce();
  const int points = GetParam().columnFont;
  const int queue = MeasuredWidth(0, "8888", points) + 5;
  const int columns = MeasuredWidth(65, "MMMMMMMM", points) +
                      3 * MeasuredWidth(70, "99999999", points) +
                      2 * MeasuredWidth(50, "99999999", points) + 8 * queue;
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), columns + GetParam().margin);
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, queue);
  EXPECT_EQ(ColumnOf("PriceGrid", 21)->Width, MeasuredWidth(65, "MMMMMMMM", points));
  const int unscaled = QFontMetrics(frame->font(), &Find<TcxGrid>("PriceGrid")).height() + 4;
  for (const char* grid : {"PriceGrid", "PerclickPriceGrid", "PerclickInfoGrid"})
    EXPECT_EQ(Find<TcxGrid>(grid).View()->DataRowHeight(),
              ScaledRowHeight(unscaled, GetParam().scale))
        << grid;
  EXPECT_EQ(Find<TcxHintStyleController>("HintCtrl").Font.pointSize(), GetParam().hintFont);
  EXPECT_EQ(Find<TcxHintStyleController>("HintCtrl").CaptionFont.pointSize(), GetParam().hintFont);
  EXPECT_EQ(Find<TcxHintStyleController>("HintCtrl").Font.family(), "Tahoma");
}

TEST_P(TStepTest, IsThatOfAViewThatOpensAtIt) {
  host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", std::to_string(GetParam().scale));
  Open();
  EXPECT_EQ(ColumnOf("PriceGrid", 55)->Width, MeasuredWidth(0, "8888", GetParam().columnFont) + 5);
  EXPECT_EQ(Find<TcxHintStyleController>("HintCtrl").Font.pointSize(), GetParam().hintFont);
}

constexpr TStep Steps[] = {
    {100, 9, 8, 20}, {115, 11, 10, 23}, {125, 12, 11, 25}, {135, 13, 12, 27}, {150, 14, 13, 30}};

INSTANTIATE_TEST_SUITE_P(Scale, TStepTest, testing::ValuesIn(Steps));

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

// An open view.

class TScaleTest : public TViewTest {
protected:
  void SetScale(const char* size) { host.config.Set("TARN_TRADEPLATFORM", "ScaleSize", size); }

  void Disturb() {
    for (const auto& column : PriceGridView().Columns())
      PriceGridView().SetColumnWidth(column.get(), 7);
    PriceGridView().SetDataRowHeight(3);
  }

  int UnscaledRow() {
    return QFontMetrics(frame->font(), &Find<TcxGrid>("PriceGrid")).height() + 4;
  }
};

TEST_F(TScaleTest, AConfiguredScaleTellsTheHostOfTheNewWidth) {
  Open();
  const int width = frame->GetWidth();
  SetScale("150");
  host.config.Announce();
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_SizeChanged});
  EXPECT_GT(frame->GetWidth(), width);
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
  SetScale("144");
  host.config.Announce();
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty()) << "the same step";
}

TEST_F(TScaleTest, AConfiguredScaleIsTakenBeforeTheLayoutIsReady) {
  Open();
  const int width = frame->GetWidth();
  host.config.layoutReady = false;
  SetScale("150");
  host.config.Announce();
  EXPECT_GT(frame->GetWidth(), width);
  EXPECT_EQ(PriceGridView().DataRowHeight(), ScaledRowHeight(UnscaledRow(), 150));
}

TEST_F(TScaleTest, TheScaleIsConfiguredForThePlatformNotForTheUser) {
  Open();
  const int width = frame->GetWidth();
  host.config.SetCurrent("ScaleSize", "150");
  host.config.Announce();
  EXPECT_EQ(frame->GetWidth(), width);
}

TEST_F(TScaleTest, TheScaleMessageMeasuresAgainAtTheScaleInUse) {
  SetScale("125");
  Open();
  const int width = frame->GetWidth();
  Disturb();
  SetScale("120"); // of the same step
  host.channels.Send(Constdef::Channel_ScaleChanged, nullptr, nullptr);
  EXPECT_EQ(Find<TcxGrid>("PriceGrid").width(), width);
  EXPECT_EQ(ColumnOf("PriceGrid", 1)->Width, MeasuredWidth(70, "99999999", 12));
  EXPECT_EQ(PriceGridView().DataRowHeight(), ScaledRowHeight(UnscaledRow(), 125));
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty()) << "the width is as before";
}

TEST_F(TScaleTest, TheScaleMessageDoesNothingAtAnotherScale) {
  Open();
  Disturb();
  SetScale("150");
  host.channels.Send(Constdef::Channel_ScaleChanged, nullptr, nullptr);
  EXPECT_EQ(ColumnOf("PriceGrid", 1)->Width, 7);
  EXPECT_EQ(PriceGridView().DataRowHeight(), 3);
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TScaleTest, TheLastPriceTakesItsFontFromTheFrameAtAChangeOfScale) {
  Open();
  frame->SetFont("DejaVu Sans", 15, 0);
  host.config.Announce();
  EXPECT_NE(Find<TcxLabel>("lblLast").font().pointSize(), 21);
  SetScale("115");
  host.config.Announce();
  EXPECT_EQ(Find<TcxLabel>("lblLast").font().pointSize(), 21);
  EXPECT_EQ(Find<TcxLabel>("lblChange").font().pointSize(), 17);
}

TEST_F(TScaleTest, TheRowHeightIsMeasuredOnceAndOnlyScaledLater) {
  Open();
  const int unscaled = UnscaledRow();
  frame->SetFont("DejaVu Sans", 30, 0);
  ASSERT_GT(UnscaledRow(), unscaled);
  for (const auto& [size, scale] : {std::pair{"150", 150}, {"100", 100}}) {
    SetScale(size);
    host.config.Announce();
    host.channels.Send(Constdef::Channel_LayoutLoaded, nullptr, nullptr);
    EXPECT_EQ(PriceGridView().DataRowHeight(), ScaledRowHeight(unscaled, scale)) << size;
  }
}

} // namespace
