#include "terminal/services/ConfigStore.h"
#include "terminal/services/Listeners.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using Terminal::TConfigStore;
using TListenersOfInt = Terminal::TListeners<int>;

class TOwner : public System::TObject {};

TEST(Listeners, AreCalledInTheOrderOfRegistrationWithWhatIsSent) {
  TListenersOfInt listeners;
  TOwner first, second;
  std::vector<int> heard;
  listeners.Set(&first, [&](int value) { heard.push_back(value); });
  listeners.Set(&second, [&](int value) { heard.push_back(10 * value); });
  listeners.Notify(3);
  EXPECT_EQ(heard, (std::vector{3, 30}));
}

TEST(Listeners, ASecondRegistrationOfAnOwnerReplacesTheFirst) {
  TListenersOfInt listeners;
  TOwner owner;
  std::vector<int> heard;
  listeners.Set(&owner, [&](int value) { heard.push_back(value); });
  listeners.Set(&owner, [&](int value) { heard.push_back(-value); });
  EXPECT_EQ(listeners.Count(), 1U);
  listeners.Notify(3);
  EXPECT_EQ(heard, std::vector{-3});
}

TEST(Listeners, WhoLeavesDuringADeliveryIsNotCalledAnyMore) {
  TListenersOfInt listeners;
  auto first = std::make_unique<TOwner>();
  auto second = std::make_unique<TOwner>();
  TOwner third;
  int heardBySecond = 0, heardByThird = 0;
  listeners.Set(first.get(), [&](int) {
    listeners.Remove(first.get());
    first.reset();
    listeners.Remove(second.get());
    second.reset();
  });
  listeners.Set(second.get(), [&](int) { ++heardBySecond; });
  listeners.Set(&third, [&](int) { ++heardByThird; });
  listeners.Notify(0);
  listeners.Notify(0);
  EXPECT_EQ(heardBySecond, 0);
  EXPECT_EQ(heardByThird, 2);
  EXPECT_EQ(listeners.Count(), 1U);
}

TEST(Listeners, WhoJoinsDuringADeliveryIsFirstCalledTheNextTime) {
  TListenersOfInt listeners;
  TOwner first, second;
  int heard = 0;
  listeners.Set(&first, [&](int) { listeners.Set(&second, [&](int) { ++heard; }); });
  listeners.Notify(0);
  EXPECT_EQ(heard, 0);
  listeners.Remove(&first);
  listeners.Notify(0);
  EXPECT_EQ(heard, 1);
}

TEST(Listeners, ADeliveryWithinADeliveryReachesEverybody) {
  TListenersOfInt listeners;
  TOwner first, second;
  std::vector<int> heard;
  listeners.Set(&first, [&](int value) {
    if (value == 1) {
      listeners.Notify(2);
      listeners.Remove(&first);
    }
  });
  listeners.Set(&second, [&](int value) { heard.push_back(value); });
  listeners.Notify(1);
  EXPECT_EQ(heard, (std::vector{2, 1}));
  EXPECT_EQ(listeners.Count(), 1U);
}

TEST(Configuration, AnswersWhatWasWrittenAndNothingForAMissingKey) {
  TConfigStore store;
  store.WriteString("USER", "CopyPriceStyle", "L", true);
  EXPECT_EQ(store.CurrentSection(), "USER");
  EXPECT_EQ(store.ReadString("USER", "CopyPriceStyle"), "L");
  EXPECT_EQ(store.ReadString("USER", "copypricestyle"), "");
  EXPECT_EQ(store.ReadString("OTHER", "CopyPriceStyle"), "");
}

TEST(Configuration, AnIntegerThatIsNoneIsZero) {
  TConfigStore store;
  const std::vector<std::pair<std::string, int>> cases{
      {"115", 115}, {"-1", -1}, {" 20 ", 20}, {"+7", 7},
      {"", 0},      {"12a", 0}, {"1.5", 0},   {"99999999999", 0}};
  for (const auto& [text, value] : cases) {
    store.WriteString("S", "K", text, false);
    EXPECT_EQ(store.ReadInteger("S", "K"), value) << text;
  }
  EXPECT_EQ(store.ReadInteger("S", "Missing"), 0);
}

TEST(Configuration, ABooleanIsTrueForYOneAndTrueOnly) {
  TConfigStore store;
  for (const auto* text : {"Y", "y", "1", "true", "TRUE", "True"}) {
    store.WriteString("S", "K", text, false);
    EXPECT_TRUE(store.ReadBoolean("S", "K")) << text;
  }
  for (const auto* text : {"", "N", "0", "yes", "2", "tru"}) {
    store.WriteString("S", "K", text, false);
    EXPECT_FALSE(store.ReadBoolean("S", "K")) << text;
  }
}

TEST(Configuration, TellsItsListenersAfterEachWrite) {
  TConfigStore store;
  TOwner owner;
  std::vector<std::string> seen;
  store.RegisterListener(
      [&](System::TObject* sender, System::TObject* data) {
        EXPECT_EQ(sender, &store);
        EXPECT_EQ(data, nullptr);
        seen.push_back(store.ReadString("S", "K"));
      },
      &owner);
  EXPECT_EQ(store.ListenerCount(), 1U);
  store.WriteString("S", "K", "a", true);
  store.WriteString("S", "K", "a", true);
  EXPECT_EQ(seen, (std::vector<std::string>{"a", "a"}));
  store.UnregisterListener(&owner);
  store.WriteString("S", "K", "b", true);
  EXPECT_EQ(seen.size(), 2U);
  EXPECT_EQ(store.ListenerCount(), 0U);
}

TEST(Configuration, AnnouncesTheWritesOfOneUserActionTogetherAfterIt) {
  TConfigStore store;
  TOwner owner;
  int told = 0;
  store.RegisterListener([&](System::TObject*, System::TObject*) { ++told; }, &owner);
  {
    TConfigStore::TUserAction outer(store);
    store.WriteString("S", "A", "1", true);
    {
      TConfigStore::TUserAction inner(store);
      store.WriteString("S", "B", "2", true);
    }
    EXPECT_EQ(told, 0);
  }
  EXPECT_EQ(told, 1);
  { TConfigStore::TUserAction nothingWritten(store); }
  EXPECT_EQ(told, 1);
}

TEST(Configuration, HandsOnWhatIsToBeKeptAndTakesItBackInSilence) {
  TConfigStore store;
  TOwner owner;
  int told = 0;
  std::vector<std::string> kept;
  store.OnStore = [&](const std::vector<Terminal::TConfigValue>& values) {
    for (const auto& value : values)
      kept.push_back(value.Section + "/" + value.Key + "=" + value.Value);
  };
  store.RegisterListener([&](System::TObject*, System::TObject*) { ++told; }, &owner);
  store.WriteString("S", "K", "kept", true);
  store.WriteString("S", "K", "of this run", false);
  EXPECT_EQ(kept, std::vector<std::string>{"S/K=kept"});
  EXPECT_EQ(told, 2);
  store.Load("S", "K", "loaded");
  EXPECT_EQ(store.ReadString("S", "K"), "loaded");
  EXPECT_EQ(kept.size(), 1U);
  EXPECT_EQ(told, 2);
}

TEST(Configuration, HandsOnWhatOneUserActionWroteTogetherBeforeAnybodyHearsOfIt) {
  TConfigStore store;
  TOwner owner;
  std::vector<std::string> events;
  store.OnStore = [&](const std::vector<Terminal::TConfigValue>& values) {
    std::string event = "stored";
    for (const auto& value : values)
      event += " " + value.Key + "=" + value.Value;
    events.push_back(event);
  };
  store.RegisterListener([&](System::TObject*, System::TObject*) { events.push_back("told"); },
                         &owner);
  {
    TConfigStore::TUserAction action(store);
    store.WriteString("S", "A", "1", true);
    store.WriteString("S", "B", "2", false);
    store.WriteString("S", "A", "3", true);
    EXPECT_TRUE(events.empty());
  }
  EXPECT_EQ(events, (std::vector<std::string>{"stored A=1 A=3", "told"}));
  store.WriteString("S", "B", "4", false);
  EXPECT_EQ(events, (std::vector<std::string>{"stored A=1 A=3", "told", "told"}));
}

TEST(Configuration, AReplacedSectionHoldsOnlyItsNewValues) {
  TConfigStore store;
  store.Load("S", "Old", "1");
  store.ReplaceSection("S", {{"New", "2"}});
  EXPECT_EQ(store.ReadString("S", "Old"), "");
  EXPECT_EQ(store.ReadString("S", "New"), "2");
}

TEST(Configuration, SaysWhetherTheLayoutIsReady) {
  TConfigStore store;
  EXPECT_FALSE(store.IsLayoutReady());
  store.SetLayoutReady(true);
  EXPECT_TRUE(store.IsLayoutReady());
}

} // namespace
