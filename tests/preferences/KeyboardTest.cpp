#include "preferences/PreferenceFixture.h"

namespace {

class TKeyboardTest : public TPreferenceTest {
protected:
  void OpenWithRows(const char* ids = "1,2", const char* colours = "$000000FF,$00FF0000") {
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store(ids, colours);
    Open();
  }

  /// A key for whoever has the focus, or for the pop-up that is open.
  void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) {
    auto* popup = QApplication::activePopupWidget();
    QWidget* receiver = popup ? popup->focusWidget() : nullptr;
    if (!receiver)
      receiver = popup ? popup : QApplication::focusWidget();
    ASSERT_NE(receiver, nullptr);
    QTest::keyClick(receiver, key, held);
    QCoreApplication::processEvents();
  }

  void Keys(const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
  }

  /// Where the focus is: "row tag" within the list, or else the name of the component.
  std::string Focus() {
    const auto* widget = QApplication::focusWidget();
    if (!widget)
      return "nowhere";
    if (widget != &Grid() && !Grid().isAncestorOf(widget))
      return widget->objectName().toStdString();
    const auto cell = Grid().currentIndex();
    const int tag = Grid().model()->headerData(cell.column(), Qt::Horizontal, Qt::UserRole).toInt();
    return std::to_string(cell.row()) + ' ' + std::to_string(tag);
  }

  TRows Walk(int steps, Qt::Key key) {
    TRows places;
    for (int step = 0; step < steps; ++step) {
      Key(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
      places.push_back(Focus());
    }
    return places;
  }
};

TEST_F(TKeyboardTest, TabWalksThroughTheCellsAndOnToTheButtons) {
  OpenWithRows();
  Highlight().setFocus();
  EXPECT_EQ(Walk(8, Qt::Key_Tab),
            (TRows{"0 45", "0 200", "0 25", "1 45", "1 200", "1 25", "btnAdd", "btnClear"}));
}

TEST_F(TKeyboardTest, ShiftTabWalksBackOutOfTheList) {
  OpenWithRows();
  Find<QWidget>("btnAdd").setFocus();
  EXPECT_EQ(Walk(7, Qt::Key_Backtab),
            (TRows{"1 25", "1 200", "1 45", "0 25", "0 200", "0 45", "cbBrokerID"}));
}

TEST_F(TKeyboardTest, TabPassesAnEmptyList) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Open();
  Highlight().setFocus();
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "btnAdd");
}

TEST_F(TKeyboardTest, TabOpensTheEditorOfTheCellThatItComesTo) {
  OpenWithRows();
  Highlight().setFocus();
  Key(Qt::Key_Tab);
  Keys("77");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Rows(), (TRows{"77 ff", "2 ff0000"}));
  EXPECT_NE(qobject_cast<QComboBox*>(Grid().indexWidget(Cell(0, 200))), nullptr);
}

TEST_F(TKeyboardTest, SpaceAndEnterPressTheDeleteButton) {
  OpenWithRows("1,2,3,4", "$1,$2,$3,$4");
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    Highlight().setFocus();
    for (int step = 0; step < 6; ++step)
      Key(Qt::Key_Tab);
    ASSERT_EQ(Focus(), "1 25");
    Key(key);
  }
  EXPECT_EQ(Rows(), (TRows{"1 1"}));
}

TEST_F(TKeyboardTest, TheNextDeleteButtonHasTheFocusAfterADeletion) {
  OpenWithRows("1,2,3", "$1,$2,$3");
  Grid().setFocus();
  Grid().setCurrentIndex(Cell(1, 25));
  Key(Qt::Key_Space);
  EXPECT_EQ(Focus(), "1 25");
  Key(Qt::Key_Space);
  EXPECT_EQ(Focus(), "0 25");
  EXPECT_EQ(Rows(), (TRows{"1 1"}));
  Key(Qt::Key_Space);
  EXPECT_EQ(Rows(), TRows());
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "btnAdd");
}

TEST_F(TKeyboardTest, TheDeleteButtonShowsThatItHasTheFocus) {
  OpenWithRows();
  Grid().setFocus();
  const auto picture = [this] {
    return Grid().viewport()->grab(Grid().visualRect(Cell(0, 25))).toImage();
  };
  Grid().setCurrentIndex(Cell(1, 25));
  const auto without = picture();
  Grid().setCurrentIndex(Cell(0, 25));
  EXPECT_NE(picture(), without);
}

TEST_F(TKeyboardTest, SpaceOpensTheEditorThatEscapeClosed) {
  OpenWithRows();
  Grid().setFocus();
  Grid().setCurrentIndex(Cell(0, 45));
  Key(Qt::Key_Escape);
  ASSERT_EQ(Grid().indexWidget(Cell(0, 45)), nullptr);
  Key(Qt::Key_Space);
  EXPECT_NE(Grid().indexWidget(Cell(0, 45)), nullptr);
  EXPECT_EQ(Rows(), (TRows{"1 ff", "2 ff0000"}));
}

TEST_F(TKeyboardTest, AddTakesTheUserToTheNewRow) {
  OpenWithRows("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15", "");
  Press("btnAdd");
  EXPECT_EQ(Focus(), "15 45");
  EXPECT_TRUE(Grid().viewport()->rect().contains(Grid().visualRect(Cell(15, 45))));
  Keys("1234");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Rows().back(), "1234 -");
}

TEST_F(TKeyboardTest, ARowThatWasAddedAndLeftIsEmpty) {
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  Open();
  Press("btnAdd");
  Press("btnAdd");
  EXPECT_EQ(Rows(), (TRows{"- -", "- -"}));
  EXPECT_TRUE(page->Execute());
  EXPECT_EQ(Stored("DetailSpecialBroker"), "");
}

// Number, Tab, Tab: a broker that is entered by keys has a colour of its own.
TEST_F(TKeyboardTest, TabTakesTheColourThatIsProposed) {
  OpenWithRows();
  Press("btnAdd");
  Keys("1234");
  Key(Qt::Key_Tab);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "the colours drop down";
  Key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(Rows().back(), "1234 80ff") << "the first that no row has";
  EXPECT_EQ(Focus(), "2 25");
}

TEST_F(TKeyboardTest, EnterTakesTheProposedColourAndEscapeLeavesNone) {
  OpenWithRows();
  Press("btnAdd");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(Rows().back(), "- -");
  Press("btnAdd");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Return);
  EXPECT_EQ(Rows().back(), "- 80ff");
}

TEST_F(TKeyboardTest, ShiftTabLeavesTheProposedColour) {
  OpenWithRows();
  Press("btnAdd");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Rows().back(), "- -");
  EXPECT_EQ(Focus(), "2 45");
}

} // namespace
