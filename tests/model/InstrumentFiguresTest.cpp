#include "model/InstrumentFigures.h"

#include "host/ConstDef.h"
#include "model/InstrumentFixture.h"

// What is worked out of an instrument's record and of its underlying's.

namespace Quorpricedatacontrol {

// CBBCs

struct TNameCase {
  const char* name;
  bool isCBBC;
  const char* category;
};

class TCBBCNameTest : public testing::TestWithParam<TNameCase> {};

TEST_P(TCBBCNameTest, TellsTheContractAndItsCategory) {
  Fakes::TFakeRecord record("60001");
  record.Set(Field::Name, GetParam().name);
  EXPECT_EQ(DetectCBBCWarrant(&record), (TCBBCMark{GetParam().isCBBC, GetParam().category}));
  record.SetState(Constdef::RecordState_None);
  EXPECT_EQ(DetectCBBCWarrant(&record), TCBBCMark());
}

INSTANTIATE_TEST_SUITE_P(
    Names, TCBBCNameTest,
    testing::Values(TNameCase{"ABCDE#XYZ", false, ""}, TNameCase{"AB#XXXXXR", true, "R"},
                    TNameCase{"AB#XXXXXQ", true, ""}, TNameCase{"AB#XXXXXn", true, "N"},
                    TNameCase{"AB#XXXXXr", true, "R"}, TNameCase{"AB#XXXXXN123", true, "N"},
                    TNameCase{"AB#XXXXR", true, ""}, TNameCase{"AB#", true, ""},
                    TNameCase{"A##XXXXXR", false, ""}, TNameCase{"#B#XXXXXR", false, ""},
                    TNameCase{"AB", false, ""}, TNameCase{"", false, ""},
                    TNameCase{"\xE6\xBB\x99\xE8\xB1\x90#XXXXXR", true, "R"}));

TEST(TCBBCMarkTest, IsNotReadWithoutARecord) { EXPECT_EQ(DetectCBBCWarrant(nullptr), TCBBCMark()); }

class TInstrumentFiguresTest : public TInstrumentTest {};

// Calls and puts

TEST_F(TInstrumentFiguresTest, CallAndPutAreToldByTheFirstCharacter) {
  for (const char* text : {"1", "6", "C", "Call"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfCall) << text;
  for (const char* text : {"2", "7", "P", "Put"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfPut) << text;
  for (const char* text : {"", "c", "p", "3", " C"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfUnknown) << text;
  EXPECT_EQ(GetCallPutFlag(nullptr), cpfUnknown);
}

// Prices

TEST_F(TInstrumentFiguresTest, APriceIsTheNominalElseTheMiddleElseThePreviousClose) {
  Record().Set({{Field::Nominal, "0"},
                {Field::BestBid, "10"},
                {Field::BestAsk, "10.2"},
                {Field::PreviousClose, "9"}});
  EXPECT_DOUBLE_EQ(GetPrice(&Record()), 10.1);
  Record().Set(Field::Nominal, "12");
  EXPECT_DOUBLE_EQ(GetPrice(&Record()), 12);
  Record().Remove(Field::Nominal).Set(Field::BestAsk, "0");
  EXPECT_DOUBLE_EQ(GetPrice(&Record()), 9);
  Record().Set(Field::BestAsk, "10.2").Remove(Field::BestBid);
  EXPECT_DOUBLE_EQ(GetPrice(&Record()), 9);
  Record().Set(Field::Nominal, "0.00000001");
  EXPECT_DOUBLE_EQ(GetPrice(&Record()), 9);
}

TEST_F(TInstrumentFiguresTest, ARecordMayHaveNoPrice) {
  Record().Set(Field::Nominal, "12");
  EXPECT_EQ(GetPrice(nullptr), 0);
  for (const char* status : {"0", "-1"})
    EXPECT_EQ(GetPrice(&Record().Set(Field::Status, status)), 0) << status;
  for (const char* status : {"", "1", "00", "S"})
    EXPECT_EQ(GetPrice(&Record().Set(Field::Status, status)), 12) << status;
  Record().SetState(Constdef::RecordState_None);
  EXPECT_EQ(GetPrice(&Record()), 0);
}

// Gearing and premium

TEST_F(TInstrumentFiguresTest, GearingIsTheUnderlyingOverWhatStandsForIt) {
  FillWarrant();
  EXPECT_DOUBLE_EQ(GetGearing(&Record(), &Underlying()), 25.0 / 2 * 0.1);
  EXPECT_EQ(GetGearing(nullptr, &Underlying()), 0);
  EXPECT_EQ(GetGearing(&Record(), nullptr), 0);
}

TEST_F(TInstrumentFiguresTest, PremiumOfACallAndOfAPut) {
  FillWarrant();
  auto& underlying = Underlying();
  EXPECT_DOUBLE_EQ(GetPremium(&Record(), &underlying), ((2 / 0.1 + 20) / 25 - 1) * 100);
  Record().Set(Field::CallPut, "P");
  EXPECT_DOUBLE_EQ(GetPremium(&Record(), &underlying), (1 - (20 - 2 / 0.1) / 25) * 100);
  Record().Set({{Field::StrikePrice, "50"}, {Field::CallPut, "7"}});
  EXPECT_DOUBLE_EQ(GetPremium(&Record(), &underlying), (1 - (50 - 2 / 0.1) / 25) * 100);
  for (const char* flag : {"", "X"})
    EXPECT_EQ(GetPremium(&Record().Set(Field::CallPut, flag), &underlying), 0) << flag;
  EXPECT_EQ(GetPremium(nullptr, &underlying), 0);
  EXPECT_EQ(GetPremium(&Record(), nullptr), 0);
}

TEST_F(TInstrumentFiguresTest, GearingAndPremiumNeedEachOfTheirFigures) {
  for (const int field : {Field::Nominal, Field::ConversionRatio, Field::StrikePrice}) {
    FillWarrant();
    Record().Set(field, "0");
    EXPECT_EQ(GetPremium(&Record(), &Underlying()), 0) << field;
    if (field != Field::StrikePrice) {
      EXPECT_EQ(GetGearing(&Record(), &Underlying()), 0) << field;
    }
  }
  FillWarrant();
  Underlying().Set(Field::Nominal, "0");
  EXPECT_EQ(GetPremium(&Record(), &Underlying()), 0);
  EXPECT_EQ(GetGearing(&Record(), &Underlying()), 0);
}

TEST_F(TInstrumentFiguresTest, CapitalisationIsThePriceTimesTheShares) {
  FillStock(Record());
  EXPECT_EQ(GetMarketCap(&Record()), 20000);
  EXPECT_EQ(GetMarketCap(nullptr), 0);
  Record().Remove(Field::IssueSize);
  EXPECT_EQ(GetMarketCap(&Record()), 0);
}

TEST_F(TInstrumentFiguresTest, ANumberTooSmallToDivideByIsZero) {
  for (const double number : {0.0, 0.00000009, -0.00000009})
    EXPECT_TRUE(IsZero(number)) << number;
  for (const double number : {0.0000002, -0.0000002, 1.0})
    EXPECT_FALSE(IsZero(number)) << number;
}

} // namespace Quorpricedatacontrol
