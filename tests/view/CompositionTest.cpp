// The component tree of the price view, its columns and what stands in which form.

#include "view/ViewFixture.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>

using namespace Platform;

namespace {

using TCompositionTest = TViewTest;

const std::vector<int> PriceColumns = {21, 3, 16, 1, 19, 2};
const std::vector<int> AllColumns = {21, 3, 16, 1, 19, 2, 55, 56, 57, 58, 65, 66, 67, 68};

/// Name of the component that holds another one.
struct THolder {
  const char* name;
  const char* holder;
};

class TTreeTest : public TViewTest, public testing::WithParamInterface<THolder> {};

TEST_P(TTreeTest, EveryComponentStandsInItsGroup) {
  Open();
  const auto& component = Find<QWidget>(GetParam().name);
  for (const auto* parent = component.parentWidget(); parent; parent = parent->parentWidget())
    if (!parent->objectName().isEmpty()) {
      EXPECT_EQ(parent->objectName().toStdString(), GetParam().holder);
      return;
    }
  FAIL() << "nothing holds " << GetParam().name;
}

constexpr THolder Tree[] = {
    {"lcGrid", "QuorPriceFrame"},
    {"lcGridGroup_Root", "lcGrid"},
    {"lgSymbol", "lcGridGroup_Root"},
    {"lgGrid", "lcGridGroup_Root"},
    {"lgPerclick", "lcGridGroup_Root"},
    {"lgInfo", "lcGridGroup_Root"},
    {"lgPOS", "lcGridGroup_Root"},
    {"lgVCMCAS", "lcGridGroup_Root"},
    {"liDelay", "lcGridGroup_Root"},
    {"liUpdateTime", "lcGridGroup_Root"},
    {"lgBtn", "lcGridGroup_Root"},
    {"liPOS", "lgSymbol"},
    {"lblPOS", "liPOS"},
    {"liVCM", "lgSymbol"},
    {"lblVCM", "liVCM"},
    {"liCAS", "lgSymbol"},
    {"lblCAS", "liCAS"},
    {"liSymbol", "lgSymbol"},
    {"edtSymbol", "liSymbol"},
    {"liLiqProvider", "lgSymbol"},
    {"cmbLiqProvider", "liLiqProvider"},
    {"liWarrant", "lgSymbol"},
    {"cmbWarrant", "liWarrant"},
    {"liRelated", "lgSymbol"},
    {"cmbRelated", "liRelated"},
    {"liGrid", "lgGrid"},
    {"PriceGrid", "liGrid"},
    {"lgPrice", "lgPerclick"},
    {"liLast", "lgPrice"},
    {"lblLast", "liLast"},
    {"liChange", "lgPrice"},
    {"lblChange", "liChange"},
    {"liPerclickPriceGrid", "lgPrice"},
    {"PerclickPriceGrid", "liPerclickPriceGrid"},
    {"liPerclickInfoGrid", "lgPerclick"},
    {"PerclickInfoGrid", "liPerclickInfoGrid"},
    {"liLeftText", "lgInfo"},
    {"lblLeftText", "liLeftText"},
    {"liRightText", "lgInfo"},
    {"lblRightText", "liRightText"},
    {"lblPOSColor", "liPOSColor"},
    {"lblPOSCaption", "liPOSCaption"},
    {"lblPOSRefPrice", "liPOSRefPrice"},
    {"lblPOSUpperPrice", "liPOSUpperPrice"},
    {"lblPOSLowerPrice", "liPOSLowerPrice"},
    {"lblPOSUpperLimit", "liPOSUpperLimit"},
    {"lblPOSLowerLimit", "liPOSLowerLimit"},
    {"lblVCMCASColor", "liVCMCASColor"},
    {"lblVCMCAS", "liVCMCAS"},
    {"lblRefPrice", "liRefPrice"},
    {"lblUpperPrice", "liUpperPrice"},
    {"lblLowerPrice", "liLowerPrice"},
    {"lblDelay", "liDelay"},
    {"lblUpdateTime", "liUpdateTime"},
    {"lgBtnTop", "lgBtn"},
    {"lgBtnbottom", "lgBtn"},
    {"liBtn1", "lgBtnTop"},
    {"btnQty1", "liBtn1"},
    {"btnQty5", "liBtn5"},
    {"liBtn5", "lgBtnTop"},
    {"liBtn6", "lgBtnbottom"},
    {"liBtn10", "lgBtnbottom"},
    {"btnQty10", "liBtn10"},
};

INSTANTIATE_TEST_SUITE_P(Form, TTreeTest, testing::ValuesIn(Tree),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(TCompositionTest, TheRootStandsFromTopToBottomInOrder) {
  Open();
  constexpr const char* order[] = {"lgSymbol", "lgGrid",  "lgPerclick",   "lgInfo", "lgPOS",
                                   "lgVCMCAS", "liDelay", "liUpdateTime", "lgBtn"};
  for (const char* name : order)
    Find<QWidget>(name).show();
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  int bottom = 0;
  for (const char* name : order) {
    EXPECT_GE(Find<QWidget>(name).y(), bottom) << name;
    bottom = Find<QWidget>(name).geometry().bottom();
  }
}

class TRowTest : public TViewTest, public testing::WithParamInterface<std::vector<const char*>> {};

TEST_P(TRowTest, StandsFromLeftToRightInOrder) {
  Open();
  for (auto* element : frame->findChildren<TdxLayoutElement*>())
    element->show();
  frame->resize(2000, frame->GetHeight());
  frame->show();
  int right = -1;
  for (const char* name : GetParam()) {
    const auto& widget = Find<QWidget>(name);
    const int left = widget.mapTo(frame.get(), QPoint()).x();
    EXPECT_GT(left, right) << name;
    right = left + widget.width() - 1;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Form, TRowTest,
    testing::Values(
        std::vector{"lblPOS", "lblVCM", "lblCAS", "edtSymbol", "cmbLiqProvider", "cmbWarrant",
                    "cmbRelated"},
        std::vector{"lgPrice", "PerclickInfoGrid"}, std::vector{"lblLeftText", "lblRightText"},
        std::vector{"lblPOSColor", "lblPOSCaption", "lblPOSRefPrice", "lblPOSUpperPrice",
                    "lblPOSLowerPrice", "lblPOSUpperLimit", "lblPOSLowerLimit"},
        std::vector{"lblVCMCASColor", "lblVCMCAS", "lblRefPrice", "lblUpperPrice", "lblLowerPrice"},
        std::vector{"btnQty1", "btnQty2", "btnQty3", "btnQty4", "btnQty5"},
        std::vector{"btnQty6", "btnQty7", "btnQty8", "btnQty9", "btnQty10"}));

TEST_F(TCompositionTest, SizesAndHintsOfTheForm) {
  Open();
  EXPECT_EQ(Find<TcxPopupEdit>("edtSymbol").minimumWidth(), 200);
  for (const char* combo : {"cmbLiqProvider", "cmbWarrant", "cmbRelated"})
    EXPECT_EQ(Find<QComboBox>(combo).width(), 100) << combo;
  for (const char* swatch : {"lblPOSColor", "lblVCMCASColor"})
    EXPECT_EQ(Find<QWidget>(swatch).size(), QSize(20, 17)) << swatch;
  for (const char* button : {"btnQty1", "btnQty10"})
    EXPECT_EQ(Find<QWidget>(button).size(), QSize(65, 25)) << button;
  EXPECT_EQ(Find<TcxLabel>("lblVCM").text(), " V ");
  EXPECT_EQ(Find<TcxLabel>("lblCAS").text(), " C ");
  EXPECT_EQ(Find<TcxLabel>("lblPOS").text(), " P ");
}

TEST_F(TCompositionTest, TheMenuListsDetailThenBrokerName) {
  Open();
  const auto actions = Find<QMenu>("PopUpMenu").actions();
  ASSERT_EQ(actions.size(), 2);
  EXPECT_EQ(actions[0]->objectName(), "mDetail");
  EXPECT_EQ(actions[1]->objectName(), "mBrokerName");
  EXPECT_EQ(actions[0]->toolTip(), "Detail");
  EXPECT_EQ(actions[1]->toolTip(), "Show Broker Name");
  EXPECT_TRUE(actions[1]->isCheckable());
  EXPECT_FALSE(actions[0]->isVisible());
  EXPECT_TRUE(actions[1]->isVisible());
}

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
