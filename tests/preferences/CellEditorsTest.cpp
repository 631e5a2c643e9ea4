#include "preferences/PreferenceFixture.h"

#include <QColorDialog>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

namespace {

class TCellEditorsTest : public TPreferenceTest {
protected:
  void OpenWithRows(const char* ids, const char* colours) {
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store(ids, colours);
    Open();
  }

  /// The dialog that the last entry of the colour editor opens.
  QColorDialog& AskForColour(int row) {
    QTest::keyClick(&OpenEditor<QComboBox>(row, 200), Qt::Key_End);
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    if (!dialog)
      throw std::runtime_error("nothing asks for a colour");
    return *dialog;
  }

  /// A pixel of a cell, a few pixels in from its left.
  QColor PixelIn(int row, int tag, int x) {
    const QRect cell = Grid().visualRect(Cell(row, tag));
    const auto picture = Grid().viewport()->grab(cell).toImage();
    return picture.pixelColor(x, cell.height() / 2);
  }
};

TEST_F(TCellEditorsTest, TheColourIsChosenFromAList) {
  OpenWithRows("1,2", "$000000FF,$00FF0000");
  EXPECT_EQ(OpenEditor<QComboBox>(1, 200).currentData().toUInt(), Blue);
  EnterColour(0, Blue);
  EXPECT_EQ(Rows(), (TRows{"1 ff0000", "2 ff0000"}));
}

TEST_F(TCellEditorsTest, TheColourMayBeGivenAsTheToolkits) {
  OpenWithRows("1", "");
  EXPECT_TRUE(Grid().model()->setData(Cell(0, 200), QColor(0x12, 0x34, 0x56), Qt::EditRole));
  EXPECT_EQ(Rows(), TRows{"1 563412"});
  EXPECT_FALSE(Grid().model()->setData(Cell(0, 25), 1, Qt::EditRole));
}

TEST_F(TCellEditorsTest, FocusingARowWithoutColourGivesItNone) {
  OpenWithRows("1,2", "$000000FF");
  EXPECT_EQ(OpenEditor<QComboBox>(1, 200).currentIndex(), -1);
  ClickCell(0, 45);
  EXPECT_EQ(Rows(), (TRows{"1 ff", "2 -"}));
}

TEST_F(TCellEditorsTest, AColourThatIsNotNamedStaysWhatItIs) {
  OpenWithRows("1,2", "$00123456,unreadable");
  EXPECT_EQ(OpenEditor<QComboBox>(0, 200).currentData().toUInt(), 0x00123456u);
  EXPECT_EQ(OpenEditor<QComboBox>(1, 200).currentData().toUInt(), System::clWindow);
  ClickCell(0, 45);
  EXPECT_EQ(Rows(), (TRows{"1 123456", "2 ff000005"}));
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$00123456,$FF000005");
}

TEST_F(TCellEditorsTest, TheLastEntryAsksForAnyColour) {
  OpenWithRows("1", "$000000FF");
  auto& dialog = AskForColour(0);
  EXPECT_EQ(dialog.currentColor(), QColor(Qt::red)) << "the cell's colour";
  dialog.setCurrentColor(QColor(0x12, 0x34, 0x56));
  dialog.accept();
  EXPECT_EQ(Rows(), TRows{"1 563412"});
  page->Execute();
  EXPECT_EQ(Stored("DetailSpecialBrokerColor"), "$00563412");
}

TEST_F(TCellEditorsTest, ACancelledQuestionKeepsTheColour) {
  OpenWithRows("1", "$00FF0000");
  AskForColour(0).reject();
  EXPECT_EQ(Rows(), TRows{"1 ff0000"});
  const auto* editor = qobject_cast<QComboBox*>(Grid().indexWidget(Cell(0, 200)));
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->currentData().toUInt(), Blue);
}

TEST_F(TCellEditorsTest, AnAnswerForARowThatIsGoneIsTooLate) {
  OpenWithRows("1,2", "$00FF0000,$00FF0000");
  auto& dialog = AskForColour(1);
  Store("5", "$000000FF");
  host.config.Announce();
  dialog.setCurrentColor(Qt::white);
  dialog.accept();
  EXPECT_EQ(Rows(), TRows{"5 ff"});
}

TEST_F(TCellEditorsTest, TheColourCellIsPaintedInItsColour) {
  OpenWithRows("1,2", "$00FF0000");
  EXPECT_EQ(PixelIn(0, 200, 10).name(), "#0000ff");
  EXPECT_EQ(PixelIn(1, 200, 10), Grid().palette().color(QPalette::Base));
}

TEST_F(TCellEditorsTest, TheDropDownButtonIsAlwaysShown) {
  OpenWithRows("1", "");
  const QRect cell = Grid().visualRect(Cell(0, 200));
  const auto picture = Grid().viewport()->grab(cell).toImage();
  const auto base = Grid().palette().color(QPalette::Base);
  int marked = 0;
  for (int y = 2; y < picture.height() - 2; ++y)
    for (int x = picture.width() - 20; x < picture.width() - 2; ++x)
      marked += picture.pixelColor(x, y) == base ? 0 : 1;
  EXPECT_GT(marked, 5);
}

TEST_F(TCellEditorsTest, TheDeleteCellShowsTheHostsImage) {
  for (const auto colour : {Qt::red, Qt::green, Qt::magenta, Qt::cyan}) {
    QPixmap image(16, 16);
    image.fill(colour);
    host.images.images.Add(image);
  }
  OpenWithRows("1", "$000000FF");
  const int middle = Grid().visualRect(Cell(0, 25)).width() / 2;
  EXPECT_EQ(PixelIn(0, 25, middle), QColor(Qt::magenta));
}

TEST_F(TCellEditorsTest, AFocusedCellIsNotInverted) {
  OpenWithRows("1,2", "$000000FF");
  EnterID(0, "12");
  ASSERT_EQ(Grid().currentIndex(), Cell(0, 45));
  ASSERT_EQ(Grid().indexWidget(Cell(0, 45)), nullptr);
  EXPECT_FALSE(Grid().selectionModel()->hasSelection());
  const QRect cell = Grid().visualRect(Cell(0, 45));
  EXPECT_GT(PixelIn(0, 45, cell.width() - 10).lightness(), 200) << "no more than the focus mark";
}

TEST_F(TCellEditorsTest, OnlyATextThatIsCutOffHasAHint) {
  const std::string longID(200, '8');
  OpenWithRows(("1," + longID).c_str(), "$000000FF");
  const auto hover = [this](int row) {
    const QPoint at = Grid().visualRect(Cell(row, 45)).center();
    QHelpEvent event(QEvent::ToolTip, at, Grid().viewport()->mapToGlobal(at));
    QApplication::sendEvent(Grid().viewport(), &event);
  };
  hover(1);
  EXPECT_EQ(QToolTip::text().toStdString(), longID);
  QToolTip::hideText();
  hover(0);
  EXPECT_NE(QToolTip::text().toStdString(), "1");
}

TEST_F(TCellEditorsTest, TextsThatAreCutOffEndInAnEllipsis) {
  OpenWithRows("1", "");
  EXPECT_EQ(Grid().textElideMode(), Qt::ElideRight);
  EXPECT_EQ(Grid().horizontalHeader()->textElideMode(), Qt::ElideRight);
}

} // namespace
