// The buttons on a view's caption: what they show in each state, and what they show and hide.

#include "view/CaptionButtons.h"
#include "view/FormFixture.h"

using namespace Quorpriceview;
using namespace Quorpricedatacontrol;

namespace {

class TCaptionButtonsTest : public TFormTest {
protected:
  TCaptionButtonsTest() {
    state.HasQueueButton = true;
    state.HasQtyButtons = true;
    for (const auto kind : {TCaptionKind::QtyButtons, TCaptionKind::Refresh,
                            TCaptionKind::BrokerQueue, TCaptionKind::Chart, TCaptionKind::Lock,
                            TCaptionKind::ShowHide, TCaptionKind::DisplayMode})
      buttons.Add(kind, [this, kind](System::TObject*) { clicked.push_back(kind); });
    buttons.Update(state);
  }

  Viewinterface::TCaptionButton& Button(TCaptionKind kind) {
    return *buttons.List()[static_cast<std::size_t>(kind)];
  }

  TViewState state;
  TCaptionButtons buttons{form};
  std::vector<TCaptionKind> clicked;
};

struct TFace {
  TCaptionKind kind;
  TSwitch TViewState::*value;
  int imageOff, imageOn;
  const char *keyOff, *keyOn;
};

constexpr TFace Faces[] = {
    {TCaptionKind::ShowHide, &TViewState::SymbolLineHidden, 0, 1, "Res_Less", "Res_More"},
    {TCaptionKind::Lock, &TViewState::Lock, 4, 5, "Res_Lock", "Res_Unlock"},
    {TCaptionKind::BrokerQueue, &TViewState::QueueHidden, 8, 9, "Res_HideBrokerQueue",
     "Res_ShowBrokerQueue"},
    {TCaptionKind::QtyButtons, &TViewState::QtyButtonsHidden, 10, 11, "Res_HideQtyBtn",
     "Res_ShowQtyBtn"},
};

class TFaceTest : public TCaptionButtonsTest, public testing::WithParamInterface<TFace> {};

TEST_P(TFaceTest, NamesWhatAClickDoesAndCarriesTheNumber) {
  const auto& face = GetParam();
  for (const int number : {0, 1, 5, -2, 0}) {
    (state.*face.value).Number = number;
    buttons.Update(state);
    EXPECT_EQ(Button(face.kind).State, number);
    EXPECT_EQ(Button(face.kind).ImageIndex, number == 0 ? face.imageOff : face.imageOn) << number;
    EXPECT_EQ(Button(face.kind).Hint, number == 0 ? face.keyOff : face.keyOn) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Switches, TFaceTest, testing::ValuesIn(Faces));

TEST_F(TCaptionButtonsTest, ButtonsWithoutSwitchStayAsTheyAre) {
  for (auto* value :
       {&state.SymbolLineHidden, &state.Lock, &state.QueueHidden, &state.QtyButtonsHidden})
    value->Number = 1;
  buttons.Update(state);
  EXPECT_EQ(Button(TCaptionKind::Refresh).Hint, "Res_QuoteRefresh");
  EXPECT_EQ(Button(TCaptionKind::Refresh).ImageIndex, 7);
  EXPECT_EQ(Button(TCaptionKind::Chart).Hint, "Res_ProChart");
  EXPECT_EQ(Button(TCaptionKind::Chart).ImageIndex, 6);
  for (const auto kind : {TCaptionKind::Refresh, TCaptionKind::Chart, TCaptionKind::DisplayMode})
    EXPECT_EQ(Button(kind).State, 0);
}

TEST_F(TCaptionButtonsTest, TheDisplayModeOffersTheOtherNumberOfLevels) {
  const auto expect = [this](const char* key, int image) {
    buttons.Update(state);
    EXPECT_EQ(Button(TCaptionKind::DisplayMode).Hint, key);
    EXPECT_EQ(Button(TCaptionKind::DisplayMode).ImageIndex, image);
  };
  expect("Res_PriceDepth10", 3);
  state.DisplayMode = qm10Full;
  expect("Res_PriceDepth5", 2);
  state.DisplayMode = qm10Simple;
  expect("Res_PriceDepth5", 2); // as it was
  state.DisplayMode = qm5Full;
  expect("Res_PriceDepth10", 3);
  state.DisplayMode = qm10Simple;
  expect("Res_PriceDepth10", 3);
}

TEST_F(TCaptionButtonsTest, StandInTheirOrderAndCallTheirHandlers) {
  using enum TCaptionKind;
  for (auto* button : buttons.List())
    button->OnClick(button);
  EXPECT_EQ(clicked,
            (std::vector{DisplayMode, Refresh, ShowHide, Lock, Chart, BrokerQueue, QtyButtons}));
}

TEST_F(TCaptionButtonsTest, WhatIsHiddenFollowsTheState) {
  const auto expect = [this](bool symbolLine, bool brokerName, bool qtyButtons) {
    buttons.Update(state);
    EXPECT_EQ(form.lgSymbol->IsVisibleFlag(), symbolLine);
    EXPECT_EQ(form.mBrokerName->isVisible(), brokerName);
    EXPECT_EQ(form.lgBtn->IsVisibleFlag(), qtyButtons);
  };
  expect(true, true, true);
  state.SymbolLineHidden.Number = 1;
  expect(false, true, true);
  state.QueueHidden.Number = 1;
  expect(false, false, true);
  state.QtyButtonsHidden.Number = 1;
  expect(false, false, false);
  state = {};
  expect(true, false, false); // a state without these buttons leaves their parts alone
}

TEST_F(TCaptionButtonsTest, TextsFollowTheLanguage) {
  host.language.SetText("Res_Lock", "Sperren");
  EXPECT_EQ(Button(TCaptionKind::Lock).Hint, "Res_Lock") << "not before the next update";
  buttons.Update(state);
  EXPECT_EQ(Button(TCaptionKind::Lock).Hint, "Sperren");
}

TEST_F(TCaptionButtonsTest, AViewHasOnlyTheButtonsThatItAdds) {
  TCaptionButtons few(form);
  few.Add(TCaptionKind::Lock, {});
  few.Update(state);
  ASSERT_EQ(few.List().size(), 1u);
  EXPECT_EQ(few.List().front()->Hint, "Res_Lock");
}

} // namespace
