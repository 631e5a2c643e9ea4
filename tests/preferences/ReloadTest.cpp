#include "preferences/PreferenceFixture.h"

namespace {

TEST_F(TPreferenceTest, ANewPageShowsWhatIsStored) {
  host.config.SetCurrent("CopyPriceStyle", "L");
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("100,200", "$000000FF");
  Open();
  EXPECT_EQ(StyleBox().currentIndex(), 2);
  EXPECT_TRUE(Highlight().isChecked());
  EXPECT_TRUE(IsGridEnabled());
  EXPECT_EQ(Rows(), (TRows{"100 ff", "200 -"}));
  EXPECT_TRUE(host.config.writes.empty());
}

class TReloadTest : public TPreferenceTest {
protected:
  /// A stored state, and edits away from it that are not saved.
  void OpenAndEdit() {
    host.config.SetCurrent("CopyPriceStyle", "L");
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store("100,200", "$000000FF,$00FF0000");
    Open();
    ChooseStyle(3);
    EnterID(0, "999");
    EnterColour(1, Red);
    Press("btnAdd");
    Check(false);
    ASSERT_EQ(Rows(), (TRows{"999 ff", "200 ff", "- -"}));
  }

  void ExpectStored() {
    EXPECT_EQ(StyleBox().currentIndex(), 2);
    EXPECT_TRUE(Highlight().isChecked());
    EXPECT_TRUE(IsGridEnabled());
    EXPECT_EQ(Rows(), (TRows{"100 ff", "200 ff0000"}));
    EXPECT_TRUE(host.config.writes.empty());
  }
};

TEST_F(TReloadTest, ResetShowsWhatIsStored) {
  OpenAndEdit();
  EXPECT_TRUE(page->Reset());
  ExpectStored();
}

TEST_F(TReloadTest, ResetFactoryShowsWhatIsStoredToo) {
  OpenAndEdit();
  EXPECT_TRUE(page->ResetFactory());
  ExpectStored();
}

TEST_F(TReloadTest, AnyConfigurationChangeDropsWhatWasNotSaved) {
  OpenAndEdit();
  host.config.WriteString("TARN_TRADEPLATFORM", "ScaleSize", "115", true);
  host.config.writes.clear();
  ExpectStored();
}

TEST_F(TReloadTest, AReloadDropsWhatIsInTheOpenEditor) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("100", "$000000FF");
  Open();
  TypeID(0, "999");
  page->Reset();
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBroker"), "100");
  EXPECT_EQ(Rows(), TRows{"100 ff"});
}

TEST_F(TReloadTest, AReloadLeavesTheFocusInItsCell) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("100,200,300", "$00000001,$00000002,$00000003");
  Open();
  TypeID(1, "999");
  Store("101,201", "$00000001,$00000002");
  host.config.Announce();
  EXPECT_EQ(Grid().currentIndex(), Cell(1, 45));
  const auto* editor = qobject_cast<QLineEdit*>(Grid().indexWidget(Cell(1, 45)));
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->text(), "201");
}

TEST_F(TReloadTest, TheFocusedRowMayGoInAReload) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Store("100,200,300", "$00000001,$00000002,$00000003");
  Open();
  TypeID(2, "999");
  Store("101", "$00000001");
  host.config.Announce();
  EXPECT_EQ(Rows(), TRows{"101 1"});
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBroker"), "101");
}

TEST_F(TReloadTest, AMessageChangesNothing) {
  OpenAndEdit();
  EXPECT_TRUE(page->SendMessage(109, 1));
  EXPECT_EQ(Rows(), (TRows{"999 ff", "200 ff", "- -"}));
  EXPECT_EQ(StyleBox().currentIndex(), 3);
  EXPECT_FALSE(Highlight().isChecked());
}

TEST_F(TReloadTest, RowsStayWhenNoneAreStored) {
  Store("", "$00FF0000");
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Open();
  Press("btnAdd");
  EnterID(0, "55");
  EnterColour(0, Red);
  Press("btnAdd");
  ChooseStyle(1);
  EXPECT_TRUE(page->Reset());
  EXPECT_EQ(Rows(), (TRows{"55 ff", "- -"}));
  EXPECT_EQ(StyleBox().currentIndex(), 0) << "the rest is reloaded";
  page->ResetFactory();
  host.config.Announce();
  EXPECT_EQ(Rows(), (TRows{"55 ff", "- -"}));
}

TEST_F(TReloadTest, TheNumberOfRowsFollowsTheStoredList) {
  Store("1,2,3", "$00000001,$00000002,$00000003");
  Open();
  Store("4", "$00000004");
  host.config.Announce();
  EXPECT_EQ(Rows(), TRows{"4 4"});
  Store("5,6", "$00000005");
  host.config.Announce();
  EXPECT_EQ(Rows(), (TRows{"5 5", "6 -"}));
}

TEST_F(TReloadTest, AStoredHighlightDecidesOverTheGrid) {
  Open();
  EXPECT_FALSE(IsGridEnabled());
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  host.config.Announce();
  EXPECT_TRUE(IsGridEnabled());
  host.config.SetCurrent("SpecBrokerChecked", "N");
  host.config.Announce();
  EXPECT_FALSE(IsGridEnabled());
}

TEST_F(TReloadTest, WhatIsSavedComesBackInANewPage) {
  Open();
  Check(true);
  ChooseStyle(3);
  for (int row = 0; row < 2; ++row)
    Press("btnAdd");
  OpenEditor<QLineEdit>(0, 45).insert("8088");
  EnterColour(0, Blue);
  EnterID(1, "0012");
  EnterColour(1, Red);
  page->Execute();
  Open();
  EXPECT_EQ(StyleBox().currentIndex(), 3);
  EXPECT_TRUE(Highlight().isChecked());
  EXPECT_EQ(Rows(), (TRows{"8088 ff0000", "0012 ff"}));
}

TEST_F(TReloadTest, ThePageListensFromItsCreationToItsEnd) {
  EXPECT_EQ(host.config.ListenerCount(), 0);
  Open();
  EXPECT_EQ(host.config.ListenerCount(), 1);
  page.reset();
  EXPECT_EQ(host.config.ListenerCount(), 0);
  host.config.Announce();
}

} // namespace
