#include "preferences/PreferenceFixture.h"

#include <QHeaderView>

namespace {

class TBrokerGridTest : public TPreferenceTest {
protected:
  void OpenWithRows() {
    host.config.SetCurrent("SpecBrokerChecked", "Y");
    Store("1,2,3", "$00000001,$00000002,$00000003");
    Open();
  }
};

TEST_F(TBrokerGridTest, AddPutsAnEmptyRowAtTheEnd) {
  OpenWithRows();
  Press("btnAdd");
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3", "- -"}));
  EnterID(3, "4");
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3", "4 -"}));
}

TEST_F(TBrokerGridTest, ClearTakesAllRows) {
  OpenWithRows();
  Press("btnClear");
  EXPECT_EQ(Rows(), TRows());
  EXPECT_EQ(Stored("DetailSpecialBroker"), "1,2,3") << "nothing is saved yet";
}

TEST_F(TBrokerGridTest, TheLeftButtonDeletesTheClickedAndSoFocusedRow) {
  OpenWithRows();
  ClickCell(2, 45);
  ClickCell(1, 25);
  EXPECT_EQ(Rows(), (TRows{"1 1", "3 3"}));
}

TEST_F(TBrokerGridTest, OtherButtonsDeleteNothing) {
  OpenWithRows();
  for (const auto button : {Qt::RightButton, Qt::MiddleButton})
    ClickCell(1, 25, button);
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3"}));
  EXPECT_EQ(Grid().currentIndex().row(), 1) << "yet they focus the row";
}

TEST_F(TBrokerGridTest, TheFocusedRowGoesWhereverTheClickWas) {
  OpenWithRows();
  Grid().setCurrentIndex(Cell(2, 45));
  emit Grid().clicked(Cell(0, 25));
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2"}));
}

TEST_F(TBrokerGridTest, ClicksOnOtherCellsDeleteNothing) {
  OpenWithRows();
  ClickCell(1, 45);
  ClickCell(2, 200);
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3"}));
}

TEST_F(TBrokerGridTest, NothingFocusedDeletesNothing) {
  OpenWithRows();
  ASSERT_FALSE(Grid().currentIndex().isValid());
  emit Grid().clicked(Cell(0, 25));
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3"}));
}

TEST_F(TBrokerGridTest, RowsCanBeDeletedOneAfterTheOther) {
  OpenWithRows();
  ClickCell(0, 25);
  EXPECT_EQ(Rows(), (TRows{"2 2", "3 3"}));
  ClickCell(0, 25);
  EXPECT_EQ(Rows(), TRows{"3 3"});
  ClickCell(0, 25);
  EXPECT_EQ(Rows(), TRows());
}

TEST_F(TBrokerGridTest, AnEditIsKeptWhenAnotherRowIsDeleted) {
  OpenWithRows();
  TypeID(0, "10");
  ClickCell(1, 25);
  EXPECT_EQ(Rows(), (TRows{"10 1", "3 3"}));
}

TEST_F(TBrokerGridTest, WhatWasTypedIsKeptWhenTheNextCellIsClicked) {
  OpenWithRows();
  TypeID(0, "10");
  EnterColour(0, Blue);
  TypeID(2, "30");
  EnterColour(1, Red);
  EXPECT_EQ(Rows(), (TRows{"10 ff0000", "2 ff", "30 3"}));
}

TEST_F(TBrokerGridTest, AClickOpensTheEditorOfTheFocusedCellAgain) {
  OpenWithRows();
  EnterID(1, "20");
  ASSERT_EQ(Grid().currentIndex(), Cell(1, 45));
  ASSERT_EQ(Grid().indexWidget(Cell(1, 45)), nullptr);
  EnterID(1, "21");
  EXPECT_EQ(Rows(), (TRows{"1 1", "21 2", "3 3"}));
}

TEST_F(TBrokerGridTest, TheGridsOwnKeysDeleteNoRow) {
  OpenWithRows();
  ClickCell(1, 25, Qt::RightButton);
  QTest::keyClick(&Grid(), Qt::Key_Delete);
  QTest::keyClick(&Grid(), Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3"}));
}

TEST_F(TBrokerGridTest, ColumnsStandInOrderUnderTheirCaptions) {
  OpenWithRows();
  const auto& model = *Grid().model();
  ASSERT_EQ(model.columnCount(), 3);
  TRows columns;
  for (int column = 0; column < 3; ++column) {
    const auto told = [&](int role) { return model.headerData(column, Qt::Horizontal, role); };
    columns.push_back(told(Qt::UserRole).toString().toStdString() + ' ' +
                      told(Qt::DisplayRole).toString().toStdString() + ' ' +
                      told(Qt::UserRole + 1).toString().toStdString());
    EXPECT_EQ(told(Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
  }
  EXPECT_EQ(columns, (TRows{"45 Res_BrokerID 100", "200 Res_Color 100", "25 Res_Delete 50"}));
}

TEST_F(TBrokerGridTest, OnlyTheDeleteColumnIsNotEditable) {
  OpenWithRows();
  EXPECT_TRUE(Cell(0, 45).flags().testFlag(Qt::ItemIsEditable));
  EXPECT_TRUE(Cell(0, 200).flags().testFlag(Qt::ItemIsEditable));
  EXPECT_FALSE(Cell(0, 25).flags().testFlag(Qt::ItemIsEditable));
  for (const int tag : {45, 200, 25}) {
    ClickCell(0, tag, Qt::RightButton);
    EXPECT_EQ(Grid().currentIndex(), Cell(0, tag)) << "every column can be focused";
    EXPECT_EQ(Grid().indexWidget(Cell(0, tag)) != nullptr, tag != 25);
  }
}

TEST_F(TBrokerGridTest, TheDeleteColumnGrowsWithItsCaption) {
  host.language.SetText("Res_Delete", "Delete this broker");
  OpenWithRows();
  EXPECT_GE(Grid().columnWidth(Column(25)),
            Grid().fontMetrics().horizontalAdvance(QStringLiteral("Delete this broker")));
}

TEST_F(TBrokerGridTest, ColumnsAreFittedAroundTheDeleteColumn) {
  host.language.SetText("Res_Delete", "X");
  OpenWithRows();
  const auto& header = *Grid().horizontalHeader();
  for (const int width : {500, 700}) {
    page->resize(width, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(Grid().columnWidth(Column(25)), 50);
    EXPECT_EQ(header.length(), Grid().viewport()->width());
    EXPECT_NEAR(Grid().columnWidth(Column(45)), Grid().columnWidth(Column(200)), 1);
  }
  EXPECT_FALSE(Grid().isSortingEnabled());
}

TEST_F(TBrokerGridTest, TheGridFollowsTheCheckBox) {
  OpenWithRows();
  Check(false);
  EXPECT_FALSE(IsGridEnabled());
  EXPECT_TRUE(Highlight().isEnabled());
  EXPECT_FALSE(Grid().isEnabled());
  ClickCell(0, 25);
  Press("btnAdd");
  Press("btnClear");
  EXPECT_EQ(Rows(), (TRows{"1 1", "2 2", "3 3"}));
  Check(true);
  EXPECT_TRUE(IsGridEnabled());
  ClickCell(0, 25);
  EXPECT_EQ(Rows(), (TRows{"2 2", "3 3"}));
}

} // namespace
