#include "model/BrokerQueue.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

#include <limits>

// The broker queue: its columns, its entries, IDs and names.

namespace Quorpricedatacontrol {

constexpr int Least = std::numeric_limits<int>::min(), Most = std::numeric_limits<int>::max();

// Places

TEST(TQueueColumnTest, EachSideHasFourColumns) {
  EXPECT_EQ(QueueColumnOf(Column::BidQueue1), (TQueueColumn{Side::Bid, 0}));
  EXPECT_EQ(QueueColumnOf(Column::BidQueue2), (TQueueColumn{Side::Bid, 1}));
  EXPECT_EQ(QueueColumnOf(Column::BidQueue3), (TQueueColumn{Side::Bid, 2}));
  EXPECT_EQ(QueueColumnOf(Column::BidQueue4), (TQueueColumn{Side::Bid, 3}));
  EXPECT_EQ(QueueColumnOf(Column::AskQueue1), (TQueueColumn{Side::Ask, 0}));
  EXPECT_EQ(QueueColumnOf(Column::AskQueue4), (TQueueColumn{Side::Ask, 3}));
  for (const int column : {Least, 0, 1, 21, 54, 59, 64, 69, Most})
    EXPECT_EQ(QueueColumnOf(column), std::nullopt) << column;
}

TEST(TQueueColumnTest, TheQueueRunsDownAColumnThenDownTheNext) {
  EXPECT_EQ(QueueIndex({Side::Bid, 0}, 1, 13), 0);
  EXPECT_EQ(QueueIndex({Side::Bid, 0}, 12, 13), 11);
  EXPECT_EQ(QueueIndex({Side::Bid, 1}, 1, 13), 12);
  EXPECT_EQ(QueueIndex({Side::Ask, 3}, 12, 13), 47);
  EXPECT_EQ(QueueIndex({Side::Ask, 3}, 17, 18), 67);
  EXPECT_EQ(QueueIndex({Side::Bid, 2}, 1, 16), 30);
}

TEST(TQueueColumnTest, NoEntryStandsInRowZeroOrAboveIt) {
  for (const int row : {0, -1, Least})
    for (const int place : {0, 3})
      EXPECT_LT(QueueIndex({Side::Bid, place}, row, 13), 0) << row;
  EXPECT_GT(QueueIndex({Side::Bid, 3}, Most, 13), Most);
}

TEST(TBrokerStyleTest, EachStyleIsTheOthersInverse) {
  EXPECT_EQ(Inverse(TBrokerStyle::ID), TBrokerStyle::Name);
  EXPECT_EQ(Inverse(TBrokerStyle::Name), TBrokerStyle::ID);
}

// Entries

class TBrokerQueueTest : public TRecordTest {
protected:
  std::string ID(std::ptrdiff_t index, int side = Side::Bid) const {
    return queue.Text(index, side, TBrokerStyle::ID);
  }
  std::string Name(std::ptrdiff_t index) const {
    return queue.Text(index, Side::Bid, TBrokerStyle::Name);
  }

  TBrokerQueue queue;
};

TEST_F(TBrokerQueueTest, ABlankOrEmptyPieceIsNoEntry) {
  queue.Update(" 1234, +1,0 ,56,, ", "");
  EXPECT_EQ(queue.Size(Side::Bid), 4);
  EXPECT_EQ(ID(0), "1234");
  EXPECT_EQ(ID(1), "+1");
  EXPECT_EQ(ID(2), "");
  EXPECT_EQ(ID(3), "0056");
  EXPECT_EQ(ID(4), "");
  EXPECT_TRUE(queue.IsLevelMarker(1, Side::Bid));
  EXPECT_FALSE(queue.IsLevelMarker(0, Side::Bid));
  EXPECT_FALSE(queue.IsLevelMarker(2, Side::Bid));
}

TEST_F(TBrokerQueueTest, AreCountedPerSide) {
  queue.Update("1,2,3,,", "4");
  EXPECT_EQ(queue.Size(Side::Bid), 3);
  EXPECT_EQ(queue.Size(Side::Ask), 1);
  EXPECT_EQ(queue.Size(2), 0);
  EXPECT_EQ(queue.Entry(2, Side::Bid), "3");
  EXPECT_EQ(queue.Entry(0, Side::Ask), "4");
  queue.Update("5,6,7,,", "");
  EXPECT_EQ(queue.Entry(2, Side::Bid), "7");
  queue.Update("8", "");
  EXPECT_EQ(queue.Size(Side::Bid), 1);
  EXPECT_EQ(queue.Size(Side::Ask), 0);
}

TEST_F(TBrokerQueueTest, AreParsedAgainOnlyWhenTheirTextChanged) {
  queue.Update("1234,5678", "");
  const char* const parsed = queue.Entry(1, Side::Bid).data();
  std::string sameText = "1234,5678";
  queue.Update(sameText, "4321");
  EXPECT_EQ(queue.Entry(1, Side::Bid).data(), parsed);
  EXPECT_EQ(queue.Entry(0, Side::Ask), "4321");
}

TEST_F(TBrokerQueueTest, EntriesThatDoNotExistAreEmpty) {
  queue.Update("1234", "5678");
  for (const int index : {-1, 1, Least, Most}) {
    EXPECT_EQ(ID(index), "") << index;
    EXPECT_EQ(queue.Entry(index, Side::Bid), "") << index;
    EXPECT_FALSE(queue.IsLevelMarker(index, Side::Bid)) << index;
  }
  for (const int side : {-1, 2}) {
    EXPECT_EQ(ID(0, side), "") << side;
    EXPECT_EQ(queue.Size(side), 0) << side;
  }
  EXPECT_EQ(ID(0), "1234");
  EXPECT_EQ(ID(0, Side::Ask), "5678");
}

struct TEntryCase {
  const char* entry;
  const char* shown;
  bool isMarker = false;
};

class TQueueEntryTest : public testing::TestWithParam<TEntryCase> {};

TEST_P(TQueueEntryTest, ShowsAsItsKindAsks) {
  Fakes::THostFakes host;
  TBrokerQueue queue;
  queue.Update(GetParam().entry, "");
  EXPECT_EQ(queue.Text(0, Side::Bid, TBrokerStyle::ID), GetParam().shown);
  EXPECT_EQ(queue.IsLevelMarker(0, Side::Bid), GetParam().isMarker);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, TQueueEntryTest,
    testing::Values(TEntryCase{"1234", "1234"}, TEntryCase{"123", "0123"}, TEntryCase{"7", "0007"},
                    TEntryCase{"12345", "12345"}, TEntryCase{"00012", "0012"}, TEntryCase{"0", ""},
                    TEntryCase{"00", "0000"}, TEntryCase{"B123", "0123"}, TEntryCase{"B0", "0000"},
                    TEntryCase{"S9", "0009"}, TEntryCase{"1s", "1s"}, TEntryCase{"s123", "s123"},
                    TEntryCase{"B12s", "B12s"}, TEntryCase{"BB1", "BB1"}, TEntryCase{"B", "B"},
                    TEntryCase{"B-12", "B-12"}, TEntryCase{"1 2", "1 2"},
                    TEntryCase{"\xE8\xB2\xB7"
                               "12",
                               "0012"},
                    TEntryCase{"\xE8\xB2\xB7", "\xE8\xB2\xB7"}, TEntryCase{"+1", "+1", true},
                    TEntryCase{"-12", "-12", true}, TEntryCase{"+", "+", true},
                    TEntryCase{"99999999999999999999", "99999999999999999999"}));

// Names

TEST_F(TBrokerQueueTest, ANameIsTheOneInTheUsersLanguage) {
  host.market.SetBroker("1234", "Name", "Name 1", "Name 2", "Other");
  queue.Update("1234", "");
  host.language.language = Constdef::Language_TraditionalChinese;
  EXPECT_EQ(Name(0), "Name 1");
  host.language.language = Constdef::Language_SimplifiedChinese;
  EXPECT_EQ(Name(0), "Name 2");
  for (const int language : {0, 3, 4}) {
    host.language.language = language;
    EXPECT_EQ(Name(0), "Name") << language;
  }
  EXPECT_EQ(ID(0), "1234");
}

TEST_F(TBrokerQueueTest, AMissingNameFallsBackToTheDefaultAndThenToTheOther) {
  host.market.SetBroker("0056", "Short");
  queue.Update("1234,56,777,+1", "");
  host.language.language = Constdef::Language_SimplifiedChinese;
  EXPECT_EQ(Name(1), "Short");
  EXPECT_EQ(Name(2), "0777"); // nobody knows it
  EXPECT_EQ(Name(3), "+1");
  host.market.SetBroker("1234", "", "", "", "Other");
  EXPECT_EQ(Name(0), "Other");
  host.language.language = Constdef::Language_English;
  EXPECT_EQ(Name(0), "Other");
  host.market.SetBroker("1234", "", "Name 1", "Name 2", "Other");
  EXPECT_EQ(Name(0), "Other");
}

} // namespace Quorpricedatacontrol
