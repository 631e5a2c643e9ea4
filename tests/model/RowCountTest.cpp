#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// How many rows each layout has, and when its owner is told of another number.

namespace Quorpricedatacontrol {

class TRowCountTest : public TDepthControlTest {
protected:
  void LoseRecord() { Record().SetState(Constdef::RecordState_None); }

  void ShowIn(TQuorMode mode) {
    control.SetDisplayMode(mode);
    ShowSymbol();
    events = {};
  }
};

// A record that is not ready

TEST_F(TRowCountTest, ALayoutOfAnUnreadyRecordHasARowForEachHeaderRow) {
  FillOptionalHeader(Record());
  ShowIn(qm5Full);
  LoseRecord();
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCount(), 16);
  control.SetDisplayMode(qm10Full);
  EXPECT_EQ(control.GetCount(), 18);
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetCount(), 16);
  EXPECT_EQ(events.count, 0);
  EXPECT_EQ(events.change, 3);
}

TEST_F(TRowCountTest, ALayoutOfAnUnreadyRecordHasThirteenRowsAtLeast) {
  ShowIn(qm10Full);
  LoseRecord();
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetCount(), 13);
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCount(), 13);
  EXPECT_EQ(events.count, 0);
}

TEST_F(TRowCountTest, DetailRowsOfAnUnreadyRecordAreCountedToo) {
  FillStock(Record());
  ShowIn(qm10Full);
  LoseRecord();
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetCount(), 15);
  EXPECT_EQ(events.count, 0);
}

// Leaving the layout with detail rows

TEST_F(TRowCountTest, LeavingTheDetailRowsIsToldWhereThereWereAny) {
  FillOptionalHeader(Record());
  FillStock(Record());
  ShowIn(qm10Full);
  int countWhenTold = 0;
  control.OnCountChange = [&](System::TObject*) {
    ++events.count;
    countWhenTold = control.GetCount();
  };
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(control.GetCount(), 16);
  EXPECT_EQ(events.count, 1); // sixteen and two detail rows before
  EXPECT_EQ(countWhenTold, 16);
}

TEST_F(TRowCountTest, LeavingTheDetailRowsIsToldWhereTheRestFitsThirteenRows) {
  FillStock(Record());
  ShowIn(qm10Full);
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCount(), 13);
  EXPECT_EQ(events.count, 1); // eleven and four detail rows before
}

TEST_F(TRowCountTest, TheSameHeaderRowsAreNotToldWhenTheLayoutChanges) {
  FillOptionalHeader(Record());
  ShowIn(qm10Full);
  for (const auto& [mode, count] :
       {std::pair{qm5Full, 16}, {qm10Simple, 16}, {qm10Full, 18}, {qm10Simple, 16}}) {
    control.SetDisplayMode(mode);
    EXPECT_EQ(control.GetCount(), count);
  }
  EXPECT_EQ(events.count, 0);
  EXPECT_EQ(events.change, 4);
}

TEST_F(TRowCountTest, NewHeaderRowsAreToldWhenTheLayoutChanges) {
  ShowIn(qm5Full);
  FillOptionalHeader(Record());
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCount(), 16);
  EXPECT_EQ(events.count, 1);
}

TEST_F(TRowCountTest, TheEighteenRowsNeverChange) {
  ShowIn(qm10Full);
  FillOptionalHeader(Record());
  control.BODDataUpdate(nullptr, nullptr);
  EXPECT_EQ(control.GetCellHeader(15), "Res_Low_52wks");
  EXPECT_EQ(control.GetCount(), 18);
  EXPECT_EQ(events.count, 0);
}

// All header rows

TEST_F(TRowCountTest, EveryLayoutShowsEveryHeaderRowThatThereCanBe) {
  FillOptionalHeader(Record());
  ShowSymbol();
  for (const TQuorMode mode : {qm5Full, qm10Simple, qm10Full}) {
    control.SetDisplayMode(mode);
    EXPECT_GE(control.GetCount(), THeaderRows::MostOwn) << mode;
    for (int row = 0; row < THeaderRows::MostOwn; ++row)
      EXPECT_NE(control.GetDisplayValue(row, Column::HeaderCaption), "") << mode << ' ' << row;
  }
}

// More rows than levels

TEST_F(TRowCountTest, TheSimpleLayoutHasNoLevelsBelowTheTenth) {
  FillDepth(Record());
  FillOptionalHeader(Record());
  ShowIn(qm10Simple);
  ASSERT_EQ(control.GetCount(), 16);
  EXPECT_EQ(control.GetDisplayValue(12, Column::BidPrice), "90.000");
  EXPECT_EQ(control.GetDisplayValue(12, Column::AskSize), "10,100");
  for (int row = 13; row < 16; ++row) {
    for (const int column : PriceAndSizeColumns)
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << row << ' ' << column;
    for (const int side : {Side::Bid, Side::Ask}) {
      EXPECT_EQ(control.GetPriceValue(row, side), "") << row;
      EXPECT_EQ(control.GetSizeValue(row, side), "") << row;
    }
  }
  EXPECT_EQ(control.GetDisplayValue(13, Column::HeaderCaption), "Res_Currency");
  EXPECT_EQ(control.GetDisplayValue(15, Column::HeaderValue), "80.000");
}

} // namespace Quorpricedatacontrol
