#include "host/ConstDef.h"
#include "model/ControlFixture.h"

#include <limits>

// The cells of the broker queue: where its entries stand in the grid, and in which form.

namespace Quorpricedatacontrol {

namespace {

/// "1,2,...,count".
std::string NumberedQueue(int count) {
  std::string text = "1";
  for (int number = 2; number <= count; ++number)
    text += ',' + std::to_string(number);
  return text;
}

/// The four-digit ID of entry `index` of a numbered queue.
std::string NumberedID(int index) {
  const std::string number = std::to_string(index + 1);
  return std::string(4 - number.size(), '0') + number;
}

constexpr int BidColumns[] = {Column::BidQueue1, Column::BidQueue2, Column::BidQueue3,
                              Column::BidQueue4};
constexpr int AskColumns[] = {Column::AskQueue1, Column::AskQueue2, Column::AskQueue3,
                              Column::AskQueue4};

} // namespace

TEST_F(TDepthControlTest, TheQueueFollowsTheRecord) {
  Record().Set({{Field::BidQueue, "1"}, {Field::AskQueue, "2"}});
  ShowSymbol();
  Record().Set(Field::BidQueue, "3,4").Update();
  EXPECT_EQ(control.GetQueueBroker(1, Side::Bid), "0004");
  EXPECT_EQ(control.GetQueueBroker(0, Side::Ask), "0002");
  Record().Remove(Field::AskQueue).Update();
  EXPECT_EQ(control.GetQueueBroker(0, Side::Ask), "");
  Record().SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "");
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "0003");
}

// Places in the grid

class TQueueLayoutTest : public TDepthControlTest {
protected:
  void Show(int entries) {
    Record().Set(
        {{Field::BidQueue, NumberedQueue(entries)}, {Field::AskQueue, NumberedQueue(entries)}});
    ShowSymbol();
  }

  /// Entry k stands in column k / (rows - 1), row 1 + k % (rows - 1); later entries do not show.
  void ExpectLayout(int rowCount, int entries) {
    ASSERT_EQ(control.GetCount(), rowCount);
    const int perColumn = rowCount - 1;
    for (const auto& columns : {BidColumns, AskColumns})
      for (int place = 0; place < 4; ++place)
        for (int row = 1; row < rowCount; ++row) {
          const int index = row - 1 + place * perColumn;
          EXPECT_EQ(control.GetDisplayValue(row, columns[place]),
                    index < entries ? NumberedID(index) : "")
              << row << ' ' << columns[place];
        }
  }
};

TEST_F(TQueueLayoutTest, ThirteenRowsShowFortyEightEntries) {
  Show(60);
  ExpectLayout(13, 60);
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue2), NumberedID(12));
  EXPECT_EQ(control.GetDisplayValue(12, Column::AskQueue4), NumberedID(47));
  EXPECT_EQ(control.GetQueueBroker(48, Side::Bid), NumberedID(48)); // kept, but not shown
}

TEST_F(TQueueLayoutTest, EighteenRowsShowSixtyEightEntries) {
  control.SetDisplayMode(qm10Full);
  Show(80);
  ExpectLayout(18, 80);
  EXPECT_EQ(control.GetDisplayValue(17, Column::BidQueue4), NumberedID(67));
}

TEST_F(TQueueLayoutTest, TheLayoutFollowsEveryOtherNumberOfRows) {
  Record().Set({{Field::UpperLimit, "110"},
                {Field::LowerLimit, "90"},
                {Field::High52Weeks, "120"},
                {Field::Low52Weeks, "80"}});
  Show(70);
  ExpectLayout(15, 70);
  Record().Set(Field::AccruedInterest, "1");
  control.SetDisplayMode(qm10Simple);
  ExpectLayout(16, 70);
}

TEST_F(TQueueLayoutTest, AShortQueueLeavesTheRestEmpty) {
  Show(3);
  ExpectLayout(13, 3);
}

TEST_F(TQueueLayoutTest, RowZeroNamesTheSides) {
  Show(60);
  EXPECT_EQ(control.GetDisplayValue(0, Column::BidQueue1), "Res_QuorPrice_Buy");
  EXPECT_EQ(control.GetDisplayValue(0, Column::AskQueue1), "Res_QuorPrice_Sell");
  for (const int column : {Column::BidQueue2, Column::BidQueue3, Column::BidQueue4,
                           Column::AskQueue2, Column::AskQueue3, Column::AskQueue4})
    EXPECT_EQ(control.GetDisplayValue(0, column), "") << column;
}

TEST_F(TQueueLayoutTest, SidesDoNotMix) {
  Record().Set({{Field::BidQueue, "1"}, {Field::AskQueue, "2"}});
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue1), "0001");
  EXPECT_EQ(control.GetDisplayValue(1, Column::AskQueue1), "0002");
}

// Level markers

TEST_F(TDepthControlTest, MarkersAndTheSidesCaptionsAreQueueHeaders) {
  Record().Set({{Field::BidQueue, "+1,1,-2,3,4,5,6,7,8,9,10,11,+12"}, {Field::AskQueue, "1,-1"}});
  ShowSymbol();
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::BidQueue1, 0));
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::AskQueue1, 0));
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::BidQueue2, 0));
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::AskQueue4, 0));
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::BidQueue1, 1));
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::BidQueue1, 2));
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::BidQueue1, 3));
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::BidQueue2, 1)); // entry 12
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::AskQueue1, 1));
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::AskQueue1, 2));
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::AskQueue1, 3));
  for (const int column :
       std::initializer_list<int>{0, Column::BidPrice, Column::HeaderCaption, 54, 59, 64, 69})
    EXPECT_FALSE(control.GetIsBrokerQueueHeader(column, 0)) << column;
  EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::HeaderCaption, 1));
  for (const int row : {-1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    EXPECT_FALSE(control.GetIsBrokerQueueHeader(Column::BidQueue1, row)) << row;
}

TEST_F(TDepthControlTest, HidingTheQueueEmptiesItsCellsButKeepsItsMarkers) {
  Record().Set(Field::BidQueue, "+1,1234");
  ShowSymbol();
  events = {};
  control.SetShowBrokerQueue(false);
  EXPECT_EQ(events.change, 0);
  for (const int column :
       {Column::BidQueue1, Column::BidQueue2, Column::BidQueue3, Column::BidQueue4,
        Column::AskQueue1, Column::AskQueue2, Column::AskQueue3, Column::AskQueue4})
    EXPECT_EQ(ColumnTexts(column), std::vector<std::string>(13)) << column;
  EXPECT_TRUE(control.GetIsBrokerQueueHeader(Column::BidQueue1, 1));
  std::string id;
  EXPECT_TRUE(control.GetBrokerID(2, Column::BidQueue1, id));
  control.SetShowBrokerQueue(true);
  EXPECT_EQ(control.GetDisplayValue(2, Column::BidQueue1), "1234");
}

// Names

class TBrokerNameTest : public TDepthControlTest {
protected:
  TBrokerNameTest() {
    host.market.SetBroker("1234", "Name", "Name 1", "Name 2", "Other");
    host.market.SetBroker("0056", "Short");
    Record().Set({{Field::BidQueue, "1234,56,+1,777,B1234"}, {Field::AskQueue, "56"}});
    ShowSymbol();
    events = {};
  }
};

TEST_F(TBrokerNameTest, NamesTakeThePlaceOfTheIDsOfKnownBrokers) {
  control.SetShowBrokerName(true);
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue1), "Name");
  EXPECT_EQ(control.GetDisplayValue(2, Column::BidQueue1), "Short");
  EXPECT_EQ(control.GetDisplayValue(3, Column::BidQueue1), "+1");
  EXPECT_EQ(control.GetDisplayValue(4, Column::BidQueue1), "0777");
  EXPECT_EQ(control.GetDisplayValue(5, Column::BidQueue1), "Name");
  EXPECT_EQ(control.GetDisplayValue(1, Column::AskQueue1), "Short");
  control.SetShowBrokerName(false);
  EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue1), "1234");
}

TEST_F(TBrokerNameTest, TheHintGivesTheFormThatTheGridDoesNotShow) {
  EXPECT_EQ(control.GetBrokerName(1, Column::BidQueue1), "Name");
  EXPECT_EQ(control.GetBrokerName(1, Column::AskQueue1), "Short");
  control.SetShowBrokerName(true);
  EXPECT_EQ(control.GetBrokerName(1, Column::BidQueue1), "1234");
  EXPECT_EQ(control.GetBrokerName(2, Column::BidQueue1), "0056");
}

TEST_F(TBrokerNameTest, TheHintLeavesTheGridAsItWas) {
  for (const bool shown : {false, true}) {
    control.SetShowBrokerName(shown);
    const auto before = ColumnTexts(Column::BidQueue1);
    events = {};
    control.GetBrokerName(1, Column::BidQueue1);
    EXPECT_EQ(control.ShowBrokerName(), shown);
    EXPECT_EQ(ColumnTexts(Column::BidQueue1), before);
    EXPECT_EQ(events.change, 0);
  }
}

TEST_F(TBrokerNameTest, TheIDIsNeverAName) {
  for (const bool shown : {false, true}) {
    control.SetShowBrokerName(shown);
    std::string id = "old";
    EXPECT_TRUE(control.GetBrokerID(1, Column::BidQueue1, id));
    EXPECT_EQ(id, "1234");
    EXPECT_TRUE(control.GetBrokerID(2, Column::BidQueue1, id));
    EXPECT_EQ(id, "0056");
    EXPECT_FALSE(control.GetBrokerID(6, Column::BidQueue1, id));
    EXPECT_EQ(id, "");
  }
}

TEST_F(TBrokerNameTest, CellsOutsideTheQueueHaveNoBroker) {
  Record().Set(Field::BidQueue, NumberedQueue(60)).Update();
  std::string id;
  for (const int column :
       std::initializer_list<int>{Column::BidPrice, Column::HeaderCaption, 54, 59, 64, 69}) {
    EXPECT_EQ(control.GetBrokerName(1, column), "") << column;
    EXPECT_FALSE(control.GetBrokerID(1, column, id)) << column;
  }
  for (const int column : BidColumns)
    for (const int row : {0, -1, std::numeric_limits<int>::min()}) {
      EXPECT_EQ(control.GetBrokerName(row, column), "") << row << ' ' << column;
      EXPECT_FALSE(control.GetBrokerID(row, column, id)) << row << ' ' << column;
    }
  EXPECT_EQ(control.GetBrokerName(std::numeric_limits<int>::max(), 58), "");
  EXPECT_EQ(control.GetBrokerName(1, Column::BidQueue2), NumberedID(12));
}

/// A queue entry in each of the forms that a cell may have.
struct TFormCase {
  const char* entry;
  const char* id;
  const char* name;
  bool isMarker = false;
};

constexpr TFormCase Forms[] = {{"1234", "1234", "Name"},
                               {"B56", "0056", "Short"},
                               {"777", "0777", "0777"},
                               {"9s", "9s", "9s"},
                               {"+1", "+1", "+1", true},
                               {"-2", "-2", "-2", true},
                               {"0", "", ""}};

TEST_F(TBrokerNameTest, EachFormHasItsTextNameAndID) {
  // Not even a directory that knows them gives these a name.
  for (const char* text : {"+1", "-2", "0", "0000"})
    host.market.SetBroker(text, "Wrong");
  for (const TFormCase& form : Forms) {
    Record().Set(Field::BidQueue, form.entry).Update();
    for (const bool shown : {false, true}) {
      control.SetShowBrokerName(shown);
      EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue1), shown ? form.name : form.id)
          << form.entry;
      EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), shown ? form.name : form.id) << form.entry;
      EXPECT_EQ(control.GetBrokerName(1, Column::BidQueue1), shown ? form.id : form.name)
          << form.entry;
      std::string id = "old";
      EXPECT_EQ(control.GetBrokerID(1, Column::BidQueue1, id), *form.id != 0) << form.entry;
      EXPECT_EQ(id, form.id) << form.entry;
      EXPECT_EQ(control.GetIsBrokerQueueHeader(Column::BidQueue1, 1), form.isMarker) << form.entry;
    }
  }
}

/// A cell of the bid queue in eighteen rows, and the entry that it shows.
struct TPlaceCase {
  int column, row;
  std::size_t index;
};

class TQueuePlaceTest : public TBrokerNameTest, public testing::WithParamInterface<TPlaceCase> {
protected:
  static constexpr int RowCount = 18;
  static constexpr int AskOffset = 10; ///< from a bid column to its counterpart

  TQueuePlaceTest() { control.SetDisplayMode(qm10Full); }

  /// A full queue of a broker that is unknown but for one entry.
  static std::string QueueWith(std::size_t index, const char* entry) {
    std::string text;
    for (std::size_t at = 0; at < 68; ++at)
      text.append(at == index ? entry : "8").append(",");
    return text;
  }

  int HeaderCells(int firstColumn) const {
    int count = 0;
    for (int column = firstColumn; column < firstColumn + 4; ++column)
      for (int row = 0; row < RowCount; ++row)
        count += control.GetIsBrokerQueueHeader(column, row);
    return count;
  }
};

TEST_P(TQueuePlaceTest, EveryQueryFindsTheCellsEntry) {
  const auto& [bidColumn, row, index] = GetParam();
  ASSERT_EQ(control.GetCount(), RowCount);
  for (const int side : {Side::Bid, Side::Ask}) {
    const int column = side == Side::Bid ? bidColumn : bidColumn + AskOffset;
    for (const TFormCase& form : Forms) {
      Record().Set(side == Side::Bid ? Field::BidQueue : Field::AskQueue,
                   QueueWith(index, form.entry));
      Record()
          .Set(side == Side::Bid ? Field::AskQueue : Field::BidQueue, QueueWith(68, ""))
          .Update();
      EXPECT_EQ(control.GetDisplayValue(row, column), form.id) << column << form.entry;
      EXPECT_EQ(control.GetBrokerName(row, column), form.name) << column << form.entry;
      std::string id = "old";
      EXPECT_EQ(control.GetBrokerID(row, column, id), *form.id != 0) << column << form.entry;
      EXPECT_EQ(id, form.id) << column << form.entry;
      EXPECT_EQ(control.GetIsBrokerQueueHeader(column, row), form.isMarker) << column << form.entry;
      // No other cell but the side's caption heads anything.
      EXPECT_EQ(HeaderCells(side == Side::Bid ? Column::BidQueue1 : Column::AskQueue1),
                1 + form.isMarker)
          << form.entry;
      EXPECT_EQ(HeaderCells(side == Side::Bid ? Column::AskQueue1 : Column::BidQueue1), 1)
          << form.entry;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Places, TQueuePlaceTest,
    testing::Values(TPlaceCase{Column::BidQueue1, 1, 0}, TPlaceCase{Column::BidQueue1, 9, 8},
                    TPlaceCase{Column::BidQueue1, 17, 16}, TPlaceCase{Column::BidQueue2, 1, 17},
                    TPlaceCase{Column::BidQueue2, 17, 33}, TPlaceCase{Column::BidQueue3, 1, 34},
                    TPlaceCase{Column::BidQueue3, 17, 50}, TPlaceCase{Column::BidQueue4, 1, 51},
                    TPlaceCase{Column::BidQueue4, 17, 67}));

TEST_F(TBrokerNameTest, NoBrokerIsTheUsersOwn) {
  EXPECT_FALSE(control.GetIsMyBrokerID(1, Column::BidQueue1));
}

TEST_F(TBrokerNameTest, OnlyAnotherChoiceOfNamesIsTold) {
  control.SetShowBrokerName(false);
  EXPECT_EQ(events.change, 0);
  control.SetShowBrokerName(true);
  EXPECT_EQ(events.change, 1);
  control.SetShowBrokerName(true);
  EXPECT_EQ(events.change, 1);
}

TEST_F(TBrokerNameTest, AChangedDirectoryIsToldOnlyWhileNamesShow) {
  host.market.AnnounceBrokers();
  EXPECT_EQ(events.change, 0);
  control.SetShowBrokerName(true);
  events = {};
  host.market.AnnounceBrokers();
  EXPECT_EQ(events.change, 1);
}

} // namespace Quorpricedatacontrol
