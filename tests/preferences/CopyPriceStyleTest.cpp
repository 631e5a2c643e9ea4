#include "preferences/PreferenceFixture.h"

namespace {

struct TStoredStyle {
  const char* stored;
  int index;
};

class TReadStyleTest : public TPreferenceTest, public testing::WithParamInterface<TStoredStyle> {};

TEST_P(TReadStyleTest, FirstLetterSelectsTheEntry) {
  host.config.SetCurrent("CopyPriceStyle", GetParam().stored);
  Open();
  EXPECT_EQ(StyleBox().currentIndex(), GetParam().index) << GetParam().stored;
}

INSTANTIATE_TEST_SUITE_P(Letters, TReadStyleTest,
                         testing::Values(TStoredStyle{"", 0}, TStoredStyle{"D", 0},
                                         TStoredStyle{"d", 0}, TStoredStyle{"X", 0},
                                         TStoredStyle{"N", 1}, TStoredStyle{"n", 1},
                                         TStoredStyle{"none", 1}, TStoredStyle{"L", 2},
                                         TStoredStyle{"l", 2}, TStoredStyle{"lot", 2},
                                         TStoredStyle{"S", 3}, TStoredStyle{"s", 3},
                                         TStoredStyle{"Summary", 3}, TStoredStyle{" L", 0},
                                         TStoredStyle{"XL", 0}, TStoredStyle{"手", 0}));

class TWriteStyleTest : public TPreferenceTest, public testing::WithParamInterface<TStoredStyle> {};

TEST_P(TWriteStyleTest, EntryIsStoredAsItsLetter) {
  host.config.SetCurrent("CopyPriceStyle", GetParam().index == 3 ? "N" : "S");
  Open();
  ChooseStyle(GetParam().index);
  EXPECT_TRUE(page->Execute());
  EXPECT_EQ(Stored("CopyPriceStyle"), GetParam().stored);
  EXPECT_EQ(StyleBox().currentIndex(), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(Entries, TWriteStyleTest,
                         testing::Values(TStoredStyle{"D", 0}, TStoredStyle{"N", 1},
                                         TStoredStyle{"L", 2}, TStoredStyle{"S", 3}));

TEST_F(TPreferenceTest, NoSelectedEntryIsStoredAsDefault) {
  host.config.SetCurrent("CopyPriceStyle", "S");
  Open();
  StyleBox().setCurrentIndex(-1);
  page->Execute();
  EXPECT_EQ(Stored("CopyPriceStyle"), "D");
}

TEST_F(TPreferenceTest, AnUnchangedStyleIsNotWritten) {
  for (const char* stored : {"D", "N", "L", "S"}) {
    host.config.SetCurrent("CopyPriceStyle", stored);
    Open().Execute();
    EXPECT_EQ(Written("CopyPriceStyle"), TRows()) << stored;
  }
}

TEST_F(TPreferenceTest, AStyleIsWrittenWhenItsTextDiffers) {
  for (const auto& [stored, letter] :
       {std::pair{"", "D"}, {"X", "D"}, {"l", "L"}, {"None", "N"}, {"s", "S"}}) {
    host.config.writes.clear();
    host.config.SetCurrent("CopyPriceStyle", stored);
    Open().Execute();
    EXPECT_EQ(Written("CopyPriceStyle"), TRows{letter}) << stored;
  }
}

TEST_F(TPreferenceTest, StylesAreAFixedListInOrder) {
  Open();
  EXPECT_FALSE(StyleBox().isEditable());
  TRows texts;
  for (int i = 0; i < StyleBox().count(); ++i)
    texts.push_back(StyleBox().itemText(i).toStdString());
  EXPECT_EQ(texts, (TRows{"Res_CopyPriceStyle_Default", "Res_CopyPriceStyle_None",
                          "Res_CopyPriceStyle_LotSize", "Res_CopyPriceStyle_Summary"}));
}

} // namespace
