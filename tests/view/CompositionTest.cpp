// What stands in which form of a price view, and its columns.

#include "view/ViewFixture.h"

using namespace Platform;

namespace {

using TCompositionTest = TViewTest;

const std::vector<int> PriceColumns = {21, 3, 16, 1, 19, 2};
const std::vector<int> AllColumns = {21, 3, 16, 1, 19, 2, 55, 56, 57, 58, 65, 66, 67, 68};

TEST_F(TCompositionTest, TwelveCaptionImages) {
  Open();
  EXPECT_EQ(frame->GetViewCaptionButtonImageList()->Count(), 12);
}

TEST_F(TCompositionTest, OptionalPartsStartHidden) {
  Open();
  for (const char* name :
       {"liLiqProvider", "liWarrant", "liRelated", "lgInfo", "lgVCMCAS", "lgPOS", "liVCM", "liCAS",
        "liPOS", "liDelay", "lgPerclick", "liUpdateTime", "lgBtn"})
    EXPECT_FALSE(IsShown(name)) << name;
  EXPECT_TRUE(IsShown("lgSymbol"));
  EXPECT_TRUE(IsShown("liGrid"));
}

TEST_F(TCompositionTest, WithoutVendorModelAllColumnsStandInOrder) {
  Open();
  EXPECT_EQ(ColumnTags("PriceGrid"), AllColumns);
  EXPECT_FALSE(ColumnOf("PriceGrid", 21)->RightAligned);
  for (const int tag : {3, 16, 1, 19, 2})
    EXPECT_TRUE(ColumnOf("PriceGrid", tag)->RightAligned) << tag;
  for (const int tag : {55, 56, 57, 58, 65, 66, 67, 68})
    EXPECT_FALSE(ColumnOf("PriceGrid", tag)->RightAligned) << tag;
}

TEST_F(TCompositionTest, AStreamingFeedHasAllColumns) {
  host.SetFeedType(Constdef::FeedType_Streaming);
  Open();
  EXPECT_EQ(ColumnTags("PriceGrid"), AllColumns);
  EXPECT_FALSE(IsShown("liDelay"));
  EXPECT_TRUE(Find<QAction>("mBrokerName").isVisible());
}

TEST_F(TCompositionTest, ADelayedFeedHasNoQueue) {
  host.SetFeedType(Constdef::FeedType_Delayed);
  Open();
  EXPECT_EQ(ColumnTags("PriceGrid"), PriceColumns);
  EXPECT_FALSE(Find<QAction>("mBrokerName").isVisible());
  EXPECT_TRUE(IsShown("liDelay"));
  EXPECT_TRUE(IsShown("liGrid"));
  EXPECT_FALSE(IsShown("lgPerclick"));
}

TEST_F(TCompositionTest, APerClickFeedShowsItsOwnGrids) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  EXPECT_FALSE(IsShown("liGrid"));
  EXPECT_TRUE(IsShown("lgPerclick"));
  EXPECT_TRUE(IsShown("liUpdateTime"));
  EXPECT_EQ(ColumnTags("PerclickPriceGrid"), (std::vector<int>{16, 1, 19, 2}));
  EXPECT_EQ(ColumnTags("PerclickInfoGrid"), (std::vector<int>{10000, 10001, 10002, 10003, 10004}));
  for (const int tag : {16, 1, 19, 2})
    EXPECT_TRUE(ColumnOf("PerclickPriceGrid", tag)->RightAligned) << tag;
  EXPECT_EQ(Find<TcxGrid>("PerclickPriceGrid").View()->RecordCount(), 3);
  EXPECT_EQ(Find<TcxGrid>("PerclickInfoGrid").View()->RecordCount(), 4);
}

TEST_F(TCompositionTest, APerClickFeedHasARefreshButtonAndNoDisplayMode) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  std::vector<std::string> hints;
  for (const auto* button : frame->GetViewCaptionButtons())
    hints.push_back(button->Hint);
  EXPECT_EQ(hints, (std::vector<std::string>{"Res_QuoteRefresh", "Res_Less", "Res_Lock"}));
}

TEST_F(TCompositionTest, TheFeedTypeIsReadOnceForTheForm) {
  Open();
  host.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_TRUE(IsShown("liGrid"));
  EXPECT_FALSE(IsShown("lgPerclick"));
}

TEST_F(TCompositionTest, FontsOfTheLastPriceFollowTheFrame) {
  Open();
  const int size = frame->font().pointSize();
  EXPECT_EQ(Find<TcxLabel>("lblLast").font().pointSize(), size + 6);
  EXPECT_EQ(Find<TcxLabel>("lblChange").font().pointSize(), size + 2);
}

} // namespace
