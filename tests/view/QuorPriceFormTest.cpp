// The component tree of the price view, as designed.

#include "view/QuorPriceForm.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace Platform;

namespace {

class TQuorPriceFormTest : public testing::Test {
protected:
  template <typename TComponent> TComponent& Find(const char* name) {
    auto* found = form.findChild<TComponent*>(QLatin1String(name));
    if (!found)
      throw std::runtime_error(std::string("no component ") + name);
    return *found;
  }

  Quorpriceview::TQuorPriceForm form;
};

/// Name of the component that holds another one.
struct THolder {
  const char* name;
  const char* holder;
};

class TTreeTest : public TQuorPriceFormTest, public testing::WithParamInterface<THolder> {};

TEST_P(TTreeTest, EveryComponentStandsInItsGroup) {
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

TEST_F(TQuorPriceFormTest, TheRootStandsFromTopToBottomInOrder) {
  constexpr const char* order[] = {"lgSymbol", "lgGrid",  "lgPerclick",   "lgInfo", "lgPOS",
                                   "lgVCMCAS", "liDelay", "liUpdateTime", "lgBtn"};
  for (const char* name : order)
    Find<QWidget>(name).show();
  form.resize(700, form.lcGrid->ContentHeight(700));
  form.show();
  int bottom = 0;
  for (const char* name : order) {
    EXPECT_GE(Find<QWidget>(name).y(), bottom) << name;
    bottom = Find<QWidget>(name).geometry().bottom();
  }
}

class TRowTest : public TQuorPriceFormTest,
                 public testing::WithParamInterface<std::vector<const char*>> {};

TEST_P(TRowTest, StandsFromLeftToRightInOrder) {
  for (auto* element : form.findChildren<TdxLayoutElement*>())
    element->show();
  form.resize(2000, form.lcGrid->ContentHeight(700));
  form.show();
  int right = -1;
  for (const char* name : GetParam()) {
    const auto& widget = Find<QWidget>(name);
    const int left = widget.mapTo(&form, QPoint()).x();
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

TEST_F(TQuorPriceFormTest, SizesAndHintsOfTheForm) {
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

TEST_F(TQuorPriceFormTest, TheMenuListsDetailThenBrokerName) {
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

TEST_F(TQuorPriceFormTest, WhatOnlySomeSymbolsHaveStartsHidden) {
  for (const char* name : {"liLiqProvider", "liWarrant", "liRelated", "lgInfo", "lgVCMCAS", "lgPOS",
                           "liVCM", "liCAS", "liPOS"})
    EXPECT_TRUE(Find<QWidget>(name).isHidden()) << name;
  for (const char* name : {"lgSymbol", "liSymbol", "liGrid", "lgPerclick", "liDelay", "lgBtn"})
    EXPECT_FALSE(Find<QWidget>(name).isHidden()) << name;
}

TEST_F(TQuorPriceFormTest, CaptionsStandUntilTheFirstLanguage) {
  const std::pair<const char*, const char*> captions[] = {{"liPOSCaption", "POS:"},
                                                          {"liPOSRefPrice", "Ref Px"},
                                                          {"liPOSUpperPrice", "Upper Px"},
                                                          {"liPOSLowerPrice", "Lower Px"},
                                                          {"liPOSUpperLimit", "Buy Up Limit"},
                                                          {"liPOSLowerLimit", "Sell Low Limit"},
                                                          {"liVCMCAS", "VCM:"},
                                                          {"liRefPrice", "Ref Px"},
                                                          {"liUpperPrice", "Upper Px"},
                                                          {"liLowerPrice", "Lower Px"},
                                                          {"liPOSColor", ""},
                                                          {"liVCM", ""}};
  for (const auto& [item, caption] : captions)
    EXPECT_EQ(Find<TdxLayoutItem>(item).Caption().toStdString(), caption) << item;
  EXPECT_EQ(form.lblDelay->text(), "Delay");
  EXPECT_EQ(form.edtSymbol->placeholderText(), "Symbol");
  EXPECT_EQ(form.mDetail->text(), "Detail");
  EXPECT_EQ(form.mBrokerName->text(), "Show Broker Name");
}

TEST_F(TQuorPriceFormTest, MembersAreTheComponentsOfTheirNames) {
  EXPECT_EQ(form.PriceGridView, Find<TcxGrid>("PriceGrid").View());
  EXPECT_EQ(form.GridViews(), (std::array{Find<TcxGrid>("PriceGrid").View(),
                                          Find<TcxGrid>("PerclickPriceGrid").View(),
                                          Find<TcxGrid>("PerclickInfoGrid").View()}));
  for (const auto* name : {"PriceGridView", "PriceGridLv", "PerclickInfoGridView",
                           "PerclickInfoGridLv", "BarMgr", "imgList", "HintCtrl"})
    EXPECT_NE(form.findChild<QObject*>(QLatin1String(name)), nullptr) << name;
  for (std::size_t i = 0; i < form.btnQty.size(); ++i)
    EXPECT_EQ(form.btnQty[i], &Find<TcxButton>(("btnQty" + std::to_string(i + 1)).c_str()));
  EXPECT_EQ(form.HintCtrl->CaptionFont, QFont("Tahoma", 8));
  EXPECT_EQ(form.imgList->Count(), 12);
}

TEST_F(TQuorPriceFormTest, GridsAreOfTheSizeTheyWereDesigned) {
  EXPECT_EQ(form.PriceGrid->size(), QSize(585, 200));
  EXPECT_EQ(form.PerclickPriceGrid->size(), QSize(250, 200));
  EXPECT_EQ(form.PerclickInfoGrid->size(), QSize(250, 238));
}

} // namespace
