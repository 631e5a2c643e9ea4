// What layout data keeps of a view: the typed values, and how they are written and read.

#include "view/ViewState.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Quorpriceview;
using namespace Quorpricedatacontrol;

namespace {

TViewState WithAllButtons() {
  TViewState state;
  state.HasQueueButton = true;
  state.HasQtyButtons = true;
  return state;
}

std::string Written(const TViewState& state) {
  TLayoutData layout;
  state.Write(layout);
  return layout.CommaText();
}

TEST(TSwitchTest, AnyNumberButZeroIsOnAndAClickClearsIt) {
  for (const int number : {1, -2, 5, 2147483647}) {
    TSwitch value{number};
    EXPECT_TRUE(value.IsOn()) << number;
    value.Toggle();
    EXPECT_EQ(value.Number, 0) << number;
    EXPECT_FALSE(value.IsOn());
    value.Toggle();
    EXPECT_EQ(value.Number, 1);
  }
}

TEST(TViewStateTest, ANewViewHasFiveLevelsAndNothingHidden) {
  EXPECT_EQ(Written(WithAllButtons()),
            "DisplayMode=0,ShowHideState=0,ShowBrokerName=0,LockState=0,BrokerQueueState=0,"
            "QtyButtonState=0");
}

TEST(TViewStateTest, EveryItemHasAValueOfItsOwn) {
  auto state = WithAllButtons();
  state.DisplayMode = qm10Full;
  state.ShowBrokerName = true;
  state.SymbolLineHidden.Number = 3;
  state.Lock.Number = 4;
  state.QueueHidden.Number = 5;
  state.QtyButtonsHidden.Number = 6;
  EXPECT_EQ(Written(state), "DisplayMode=2,ShowHideState=3,ShowBrokerName=-1,LockState=4,"
                            "BrokerQueueState=5,QtyButtonState=6");
}

TEST(TViewStateTest, ASwitchWithoutButtonIsNeitherWrittenNorRead) {
  const TLayoutData layout("ShowHideState=1,LockState=1,BrokerQueueState=1,QtyButtonState=1");
  TViewState state;
  state.ReadSwitches(layout);
  EXPECT_EQ(Written(state), "DisplayMode=0,ShowHideState=1,ShowBrokerName=0,LockState=1");
  EXPECT_FALSE(state.QueueHidden.IsOn());
  EXPECT_FALSE(state.QtyButtonsHidden.IsOn());

  state.HasQueueButton = true;
  state.ReadSwitches(layout);
  EXPECT_TRUE(state.QueueHidden.IsOn());
  EXPECT_FALSE(state.QtyButtonsHidden.IsOn());
}

TEST(TViewStateTest, TheNumberOneAloneLocks) {
  TViewState state;
  for (const auto& [number, locked] : {std::pair{0, false}, {1, true}, {2, false}, {-1, false}}) {
    state.Lock.Number = number;
    EXPECT_EQ(state.IsLocked(), locked) << number;
  }
}

TEST(TViewStateTest, AClickLeadsFromFiveLevelsToTenAndFromAnyOtherModeToFive) {
  TViewState state;
  for (const auto& [mode, next] :
       {std::pair{qm5Full, qm10Full}, {qm10Full, qm5Full}, {qm10Simple, qm5Full}}) {
    state.DisplayMode = mode;
    state.SwitchLevels();
    EXPECT_EQ(state.DisplayMode, next) << int(mode);
  }
}

struct TMode {
  const char* text;
  TQuorMode mode;
};

class TReadModeTest : public testing::TestWithParam<TMode> {};

TEST_P(TReadModeTest, WhatNamesNoModeIsFiveLevels) {
  TViewState state;
  state.DisplayMode = qm10Simple;
  state.ReadDisplayMode(TLayoutData(GetParam().text));
  EXPECT_EQ(state.DisplayMode, GetParam().mode);
}

constexpr TMode Modes[] = {{"", qm5Full},
                           {"DisplayMode=0", qm5Full},
                           {"DisplayMode=1", qm10Simple},
                           {"displaymode=2", qm10Full},
                           {"DisplayMode=3", qm5Full},
                           {"DisplayMode=-1", qm5Full},
                           {"DisplayMode=256", qm5Full},
                           {"DisplayMode=258", qm5Full},
                           {"DisplayMode=ten", qm5Full}};

INSTANTIATE_TEST_SUITE_P(Layout, TReadModeTest, testing::ValuesIn(Modes));

TEST(TViewStateTest, TheBrokerNameIsReadWhenItIsThere) {
  const auto read = [](const char* text) {
    return TViewState::ReadShowBrokerName(TLayoutData(text));
  };
  EXPECT_EQ(read(""), std::nullopt);
  EXPECT_EQ(read("ShowBrokerName="), std::nullopt);
  EXPECT_EQ(read("ShowBrokerName=0"), false);
  EXPECT_EQ(read("ShowBrokerName=-1"), true);
  EXPECT_EQ(read("SHOWBROKERNAME=true"), true);
  EXPECT_THROW(read("ShowBrokerName=yes"), std::invalid_argument);
}

TEST(TViewStateTest, SwitchesKeepTheirNumbersAndAreOffWhenTheyAreMissing) {
  auto state = WithAllButtons();
  state.ReadSwitches(
      TLayoutData("ShowHideState=-2,LockState=5,BrokerQueueState=7,QtyButtonState=9"));
  EXPECT_EQ(state.SymbolLineHidden.Number, -2);
  EXPECT_EQ(state.Lock.Number, 5);
  EXPECT_EQ(state.QueueHidden.Number, 7);
  EXPECT_EQ(state.QtyButtonsHidden.Number, 9);
  state.ReadSwitches(TLayoutData("LockState=x"));
  for (const auto& value :
       {state.SymbolLineHidden, state.Lock, state.QueueHidden, state.QtyButtonsHidden})
    EXPECT_EQ(value.Number, 0);
}

TEST(TViewStateTest, EachStepReadsItsOwnItemsOnly) {
  const TLayoutData layout("DisplayMode=2,ShowBrokerName=-1,ShowHideState=1,LockState=1");
  auto state = WithAllButtons();
  state.ReadDisplayMode(layout);
  EXPECT_EQ(Written(state).find("DisplayMode=2,ShowHideState=0,ShowBrokerName=0,LockState=0"), 0u);
  TViewState switches;
  switches.ReadSwitches(layout);
  EXPECT_EQ(Written(switches), "DisplayMode=0,ShowHideState=1,ShowBrokerName=0,LockState=1");
}

} // namespace
