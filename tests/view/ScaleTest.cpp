// What a change of the host's scale does to an open view.

#include "platform/HintController.h"
#include "view/ScaleSteps.h"
#include "view/ViewFixture.h"
#include "view/ViewMeasures.h"

using namespace Platform;
using namespace Quorpriceview;
using ScaleSteps::Steps;
using ScaleSteps::TStep;

namespace {

class TStepTest : public TViewTest, public testing::WithParamInterface<TStep> {};

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

INSTANTIATE_TEST_SUITE_P(Scale, TStepTest, testing::ValuesIn(Steps));

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

TEST_F(TScaleTest, TheLastPriceTakesItsFontFromTheFrame) {
  Open();
  frame->SetFont("DejaVu Sans", 15, 0);
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
