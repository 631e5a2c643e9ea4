#include "preferences/PreferenceFixture.h"

#include "host/BaseConfigManager.h"

namespace {

using Fakes::TWrite;

TEST_F(TPreferenceTest, SavesTheRowsThatHaveAnID) {
  Open();
  Check(true);
  for (int row = 0; row < 3; ++row)
    Press("btnAdd");
  EnterID(0, "1234");
  EnterColour(0, Red);
  EnterID(1, " ");
  EnterColour(1, Blue);
  EnterID(2, " 5678 ");
  EXPECT_EQ(Rows(), (TRows{"1234 ff", "  ff0000", " 5678  -"}));

  EXPECT_TRUE(page->Execute());
  EXPECT_EQ(Stored("DetailSpecialBroker"), "1234,5678");
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$000000FF,");
  Open();
  EXPECT_EQ(Rows(), (TRows{"1234 ff", "5678 ff000005"})) << "an empty colour is not a number";
}

TEST_F(TPreferenceTest, SavesWhatIsStillInTheOpenEditor) {
  Open();
  Check(true);
  Press("btnAdd");
  TypeID(0, "42");
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBroker"), "42");

  EnterColour(0, Blue);
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$00FF0000");
}

TEST_F(TPreferenceTest, WritesEachValueOnceInTheCurrentSectionToBeKept) {
  Open();
  Check(true);
  ChooseStyle(2);
  Press("btnAdd");
  EnterID(0, "7");
  EnterColour(0, Red);
  page->Execute();
  EXPECT_EQ(host.config.writes,
            (std::vector<TWrite>{{"USER", "CopyPriceStyle", "L", true},
                                 {"USER", "SpecBrokerChecked", "Y", true},
                                 {"USER", "DetailSpecialBroker", "7", true},
                                 {"USER", "DetailSpecialBrokerColor", "$000000FF", true}}));
}

TEST_F(TPreferenceTest, TheListsAreWrittenEvenWhenUnchanged) {
  host.config.SetCurrent("CopyPriceStyle", "N");
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("7,8", "$000000FF,$00FF0000");
  Open().Execute();
  EXPECT_EQ(host.config.writes, (std::vector<TWrite>{{"USER", "DetailSpecialBroker", "7,8", true},
                                                     {"USER", "DetailSpecialBrokerColor",
                                                      "$000000FF,$00FF0000", true}}));
}

// Between the two lists the page is loaded with the new IDs and the colours of before.
TEST_F(TPreferenceTest, SavingGivesNoColourOfBeforeToARowWithoutOne) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("1,2", "$00000001,$00000002");
  Open();
  Press("btnClear");
  Press("btnAdd");
  EnterID(0, "9");
  for (int time = 0; time < 2; ++time) {
    page->Execute();
    EXPECT_EQ(Stored("DetailSpecialBroker"), "9");
    EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "");
    EXPECT_EQ(Rows(), TRows{"9 -"});
  }
}

TEST_F(TPreferenceTest, AnEmptyListIsWrittenAsTwoEmptyTexts) {
  Store("7", "$000000FF");
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Open();
  Press("btnClear");
  EXPECT_EQ(Rows(), TRows());
  page->Execute();
  EXPECT_EQ(Written("DetailSpecialBroker"), TRows{""});
  EXPECT_EQ(Written("DetailSpecialBrokerColor"), TRows{""});
  EXPECT_EQ(Rows(), TRows());
}

struct THighlight {
  const char* stored;
  bool checked;
  std::vector<std::string> written;
};

class THighlightTest : public TPreferenceTest, public testing::WithParamInterface<THighlight> {};

TEST_P(THighlightTest, IsWrittenOnlyWhenItDiffers) {
  host.config.SetCurrent("SpecBrokerChecked", GetParam().stored);
  Open();
  Check(GetParam().checked);
  page->Execute();
  EXPECT_EQ(Written("SpecBrokerChecked"), GetParam().written) << GetParam().stored;
  EXPECT_EQ(Highlight().isChecked(), GetParam().checked);
}

INSTANTIATE_TEST_SUITE_P(Values, THighlightTest,
                         testing::Values(THighlight{"", false, {}}, THighlight{"", true, {"Y"}},
                                         THighlight{"N", false, {}}, THighlight{"N", true, {"Y"}},
                                         THighlight{"Y", true, {}}, THighlight{"Y", false, {"N"}},
                                         THighlight{"1", true, {}}, THighlight{"1", false, {"N"}}));

TEST_F(TPreferenceTest, TheListIsSavedWhileHighlightingIsOff) {
  Store("7", "$000000FF");
  Open();
  ASSERT_FALSE(Highlight().isChecked());
  page->Execute();
  EXPECT_EQ(Written("DetailSpecialBroker"), TRows{"7"});
}

// The fake announces each write at once, and so reloads the page between the writes.
TEST_F(TPreferenceTest, NoEditIsLostWhenEachWriteReloadsThePage) {
  host.config.SetCurrent("CopyPriceStyle", "S");
  Store("1,2,3", "$00000001,$00000002,$00000003");
  Open();
  int reloads = 0;
  host.config.RegisterListener([&](auto*, auto*) { ++reloads; }, &host.editors);
  Check(true);
  ChooseStyle(1);
  EnterID(0, "10");
  EnterColour(0, Red);
  ClickCell(1, 25);
  TypeID(1, "30");
  page->Execute();
  EXPECT_EQ(reloads, 4);
  EXPECT_EQ(Stored("CopyPriceStyle"), "N");
  EXPECT_EQ(Stored("SpecBrokerChecked"), "Y");
  EXPECT_EQ(Stored("DetailSpecialBroker"), "10,30");
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$000000FF,$00000003");
  EXPECT_EQ(StyleBox().currentIndex(), 1);
  EXPECT_TRUE(Highlight().isChecked());
  EXPECT_EQ(Rows(), (TRows{"10 ff", "30 3"}));
}

/// Announces the writes of one user action together.
class TBatchingConfig : public Fakes::TFakeConfigManager {
public:
  void WriteString(std::string_view section, std::string_view key, std::string_view value,
                   bool) override {
    Set(section, key, std::string(value));
  }
};

TEST_F(TPreferenceTest, AHostThatAnnouncesTheWritesTogetherShowsWhatWasSaved) {
  TBatchingConfig config;
  Baseconfigmanager::TCustomConfigManager::Install(&config);
  Open();
  Check(true);
  Press("btnAdd");
  Press("btnAdd");
  EnterID(1, "77");
  EnterColour(1, Blue);
  page->Execute();
  EXPECT_EQ(Rows(), (TRows{"77 ff0000"}));
  config.Announce();
  EXPECT_EQ(Rows(), (TRows{"77 ff0000"}));
  page.reset();
  Baseconfigmanager::TCustomConfigManager::Install(&host.config);
}

TEST_F(TPreferenceTest, TheCurrentSectionIsAskedForAtEachUse) {
  host.config.Set("OTHER", "CopyPriceStyle", "L");
  host.config.Set("OTHER", "SpecBrokerChecked", "Y");
  host.config.Set("OTHER", "DetailSpecialBroker", "9");
  host.config.Set("OTHER", "DetailSpecialBrokerColor", "$000000FF");
  Open();
  EXPECT_EQ(StyleBox().currentIndex(), 0);
  host.config.currentSection = "OTHER";
  host.config.Announce();
  EXPECT_EQ(StyleBox().currentIndex(), 2);
  EXPECT_TRUE(Highlight().isChecked());
  EXPECT_EQ(Rows(), TRows{"9 ff"});
  ChooseStyle(3);
  page->Execute();
  EXPECT_EQ(host.config.writes.front(), (TWrite{"OTHER", "CopyPriceStyle", "S", true}));
  EXPECT_EQ(host.config.writes.back(),
            (TWrite{"OTHER", "DetailSpecialBrokerColor", "$000000FF", true}));
  EXPECT_EQ(Stored("CopyPriceStyle"), "");
}

} // namespace
