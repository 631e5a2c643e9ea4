#include "preferences/PreferenceFixture.h"

#include <QAbstractItemView>

namespace {

class TBrokerColourTest : public TPreferenceTest {
protected:
  void OpenWithRows(const char* ids, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store(ids, colours);
    Open();
  }

  /// The list of colours that is dropped down; null when none is.
  QAbstractItemView* List() {
    auto* popup = QApplication::activePopupWidget();
    return popup ? popup->findChild<QAbstractItemView*>() : nullptr;
  }

  std::string Proposed() {
    return List() ? List()->currentIndex().data().toString().toStdString() : "no list";
  }

  std::string Shown(int row) { return Cell(row, 200).data().toString().toStdString(); }
};

TEST_F(TBrokerColourTest, TheFirstClickDropsTheColoursDown) {
  OpenWithRows("1,2", "$000000FF,$00FF0000");
  ClickCell(1, 200);
  ASSERT_NE(List(), nullptr);
  EXPECT_EQ(Proposed(), "Res_ColorBlue") << "the colour that the row has";
  QTest::keyClick(List(), Qt::Key_Up);
  QTest::keyClick(List(), Qt::Key_Return);
  EXPECT_EQ(List(), nullptr);
  EXPECT_EQ(Rows(), (TRows{"1 ff", "2 ff9030"}));
}

TEST_F(TBrokerColourTest, ARowWithoutColourIsProposedTheNextThatIsUnused) {
  OpenWithRows("1,2,3", "$000000FF,$0000D7FF");
  ClickCell(2, 200);
  EXPECT_EQ(Proposed(), "Res_ColorOrange");
  QTest::keyClick(List(), Qt::Key_Return);
  EXPECT_EQ(Rows().back(), "3 80ff");
  Press("btnAdd");
  ClickCell(3, 200);
  EXPECT_EQ(Proposed(), "Res_ColorGreen");
}

TEST_F(TBrokerColourTest, TheBackgroundIsAsGoodAsNone) {
  OpenWithRows("1,2", "$000000FF,$FF000005");
  ClickCell(1, 200);
  EXPECT_EQ(Proposed(), "Res_ColorOrange");
}

TEST_F(TBrokerColourTest, WhenAllAreUsedTheFirstIsProposedAgain) {
  OpenWithRows("1,2,3,4,5,6,7,8,9,10,11,12,13",
               "$0000FF,$0080FF,$00D7FF,$00C000,$A0A000,$FF9030,$FF0000,$FF40A0,$B469FF,$404080,"
               "$808080,$FFFFFF");
  Grid().scrollToBottom();
  ClickCell(12, 200);
  EXPECT_EQ(Proposed(), "Res_ColorRed");
}

TEST_F(TBrokerColourTest, ColoursAreNamedInTheListInTheUsersLanguage) {
  host.language.SetText("Res_ColorRed", "紅色");
  OpenWithRows("1", "$00123456");
  const auto& box = OpenEditor<QComboBox>(0, 200);
  EXPECT_EQ(box.itemText(0).toStdString(), "紅色");
  EXPECT_EQ(box.itemText(1).toStdString(), "Res_ColorOrange");
  EXPECT_EQ(box.itemText(11).toStdString(), "Res_ColorWhite");
  EXPECT_EQ(box.itemText(12).toStdString(), "Res_ColorOther #563412");
  EXPECT_EQ(box.itemText(13).toStdString(), "Res_ColorMore");
  EXPECT_EQ(box.currentIndex(), 12);
}

TEST_F(TBrokerColourTest, TheCellNamesItsColour) {
  OpenWithRows("1,2,3,4", "$000000FF,$00FF0000,");
  EXPECT_EQ(Shown(0), "Res_ColorRed");
  EXPECT_EQ(Shown(1), "Res_ColorBlue");
  EXPECT_EQ(Shown(2), "Res_ColorBackground");
  EXPECT_EQ(Shown(3), "Res_ColorNone");
  Grid().model()->setData(Cell(3, 200), QColor(0x12, 0x34, 0x56), Qt::EditRole);
  EXPECT_EQ(Shown(3), "Res_ColorOther #123456");
}

TEST_F(TBrokerColourTest, TheNameStandsBesideTheSwatch) {
  OpenWithRows("1", "$000000FF");
  const QRect cell = Grid().visualRect(Cell(0, 200));
  const auto picture = Grid().viewport()->grab(cell).toImage();
  const auto base = Grid().palette().color(QPalette::Base);
  int text = 0;
  for (int y = 4; y < picture.height() - 4; ++y)
    for (int x = 30; x < picture.width() - 20; ++x)
      text +=
          picture.pixelColor(x, y) == base || picture.pixelColor(x, y) == QColor(Qt::red) ? 0 : 1;
  EXPECT_GT(text, 20);
}

} // namespace
