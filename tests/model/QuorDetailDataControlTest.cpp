#include "model/QuorDetailDataControl.h"
#include "fakes/HostFakes.h"
#include "host/ConstDef.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

// The detail list of warrants, CBBCs and stocks.

namespace Quorpricedatacontrol {

using Rows = std::vector<std::pair<std::string, std::string>>;

class TDetailControlTest : public testing::Test {
protected:
  TDetailControlTest() {
    control.OnChange = [this](System::TObject*) { ++changes; };
  }

  Fakes::TFakeRecord& Record() { return host.Record("13001"); }

  /// A call on 700 at 20: price 2, underlying price 25, ten for one.
  void FillWarrant() {
    Record().Set({{Field::ProductType, "4"},
                  {Field::Name, "JPJDCOM@EC2101B"},
                  {Field::Underlying, "700"},
                  {Field::ExpiryDate, "2027-01-15"}});
    Record().Set({{Field::StrikePrice, "20"},
                  {Field::CallPut, "C"},
                  {Field::OptionStyle, "1"},
                  {Field::ConversionRatio, "0.1"},
                  {Field::IssueSize, "5000000"},
                  {Field::Nominal, "2"}});
    host.Record("700").Set(Field::Nominal, "25");
  }
  void FillCBBC() {
    FillWarrant();
    Record().Set({{Field::Name, "HT#HSI  RP2101Z"}, {Field::CallPrice, "19.5"}});
  }
  void FillStock() {
    Record().Set({{Field::ProductType, "1"},
                  {Field::IssueSize, "2000"},
                  {Field::Nominal, "10"},
                  {Field::PriceEarnings, "15.50"},
                  {Field::DividendYield, "3.2%"}});
  }

  void ShowSymbol() { control.SetSymbol("13001"); }

  Rows AllRows() const {
    Rows rows;
    for (int row = 0; row < control.GetCount(); ++row)
      rows.emplace_back(control.GetDisplayValue(row, DetailColumn::Label),
                        control.GetDisplayValue(row, DetailColumn::Value));
    return rows;
  }

  Fakes::THostFakes host;
  TCustomQuorDetailDataControl control{nullptr};
  int changes = 0;
};

// Which rows there are

TEST_F(TDetailControlTest, AWarrantHasItsRows) {
  FillWarrant();
  ShowSymbol();
  EXPECT_EQ(AllRows(), (Rows{{"Res_Underlyer", "700"},
                             {"Res_ExpiryDate", "2027-01-15"},
                             {"Res_StrikePrice", "13001@20/8"},
                             {"Res_CallPut", "Res_Call"},
                             {"Res_OptionStyle", "Res_OptionStyle_EU"},
                             {"Res_Conversion_Ratio", "13001@0.1/6"},
                             {"Res_IssueSize", "5,000,000"},
                             {"Res_Premium", "60.00"},
                             {"Res_Gearing", "1.25"}}));
}

TEST_F(TDetailControlTest, ACBBCHasItsRows) {
  FillCBBC();
  ShowSymbol();
  EXPECT_EQ(AllRows(), (Rows{{"Res_Underlyer", "700"},
                             {"Res_ExpiryDate", "2027-01-15"},
                             {"Res_StrikePrice", "13001@20/8"},
                             {"Res_Call_Price", "13001@19.5/8"},
                             {"Res_CallPut", "Res_Call"},
                             {"Res_Category", "R"},
                             {"Res_OptionStyle", "Res_OptionStyle_EU"},
                             {"Res_Conversion_Ratio", "13001@0.1/6"},
                             {"Res_IssueSize", "5,000,000"},
                             {"Res_Premium", "60.00"},
                             {"Res_Gearing", "1.25"}}));
}

TEST_F(TDetailControlTest, AStockHasItsRows) {
  FillStock();
  ShowSymbol();
  EXPECT_EQ(AllRows(), (Rows{{"Res_IssuedShares", "2,000"},
                             {"Res_MarketCap", "13001 $20,000"},
                             {"Res_PE", "15.50"},
                             {"Res_Yield", "3.2%"}}));
}

TEST_F(TDetailControlTest, OtherInstrumentsHaveNoRows) {
  FillStock();
  for (const char* type : {"0", "2", "3", "5", "", "stock"}) {
    control.SetSymbol("");
    Record().Set(Field::ProductType, type);
    ShowSymbol();
    EXPECT_EQ(control.GetCount(), 0) << type;
  }
}

TEST_F(TDetailControlTest, ARecordThatWasNotReadyHasNoRowsUntilTheNextSymbol) {
  FillStock();
  Record().SetState(Constdef::RecordState_None);
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 0);
  changes = 0;
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.GetCount(), 0);
  EXPECT_EQ(changes, 1);
  control.SetSymbol("5");
  ShowSymbol();
  EXPECT_EQ(control.GetCount(), 4);
}

TEST_F(TDetailControlTest, CellsThatDoNotExistAreEmpty) {
  FillStock();
  ShowSymbol();
  constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
  for (const int row : {least, -1, 4, most})
    for (const int column : {DetailColumn::Label, DetailColumn::Value})
      EXPECT_EQ(control.GetDisplayValue(row, column), "") << row;
  for (const int column : {least, -1, 2, most})
    EXPECT_EQ(control.GetDisplayValue(0, column), "") << column;
  EXPECT_EQ(control.GetDisplayText(Field::Nominal), "");
  EXPECT_EQ(control.GetHeader(Field::Nominal), "");
}

TEST_F(TDetailControlTest, ThereIsNoValueWithoutARecord) {
  EXPECT_EQ(control.GetCount(), 0);
  EXPECT_EQ(control.GetDisplayValue(0, DetailColumn::Value), "");
  for (const int field :
       {Field::Underlying, Field::StrikePrice, Field::CallPut, Field::Category, Field::OptionStyle,
        Field::ConversionRatio, Field::IssueSize, Field::Premium, Field::Gearing, Field::MarketCap})
    EXPECT_EQ(control.GetDisplayText(field), "") << field;
}

TEST_F(TDetailControlTest, AnswersAsTheBaseOfAllGridModelsDoes) {
  FillStock();
  ShowSymbol();
  EXPECT_EQ(control.GetValue(2, DetailColumn::Value), System::TVariant(std::string("15.50")));
  EXPECT_EQ(control.GetRowValue(0), System::TVariant());
  EXPECT_EQ(control.GetColValue(0), System::TVariant());
}

// Subscriptions

TEST_F(TDetailControlTest, FollowsTheSymbolAndItsUnderlying) {
  FillWarrant();
  Record().Set(Field::Underlying, " 700 ");
  ShowSymbol();
  EXPECT_EQ(host.subscriptions.subscribed, (std::vector<std::string>{"13001", "700"}));
  EXPECT_EQ(host.subscriptions.sources, (std::vector<std::string>{"PRCDDS", "PRCDDS"}));
  EXPECT_EQ(host.subscriptions.flags, (std::vector<bool>{true, true}));
  EXPECT_EQ(changes, 1);
  Record().Update();
  EXPECT_EQ(changes, 2);
  host.Record("700").Update();
  EXPECT_EQ(changes, 3);
}

TEST_F(TDetailControlTest, AnotherRecordsUpdateIsNotTold) {
  FillWarrant();
  ShowSymbol();
  changes = 0;
  control.SymbolUpdate(nullptr, &host.Record("5"));
  control.SymbolUpdate(nullptr, nullptr);
  EXPECT_EQ(changes, 0);
  control.SetSymbol("");
  changes = 0;
  control.SymbolUpdate(nullptr, nullptr);
  EXPECT_EQ(changes, 0);
}

TEST_F(TDetailControlTest, AnUnreadyRecordsUnderlyingIsNotFollowed) {
  FillWarrant();
  Record().SetState(Constdef::RecordState_None);
  ShowSymbol();
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"13001"});
}

TEST_F(TDetailControlTest, TheSameSymbolAgainDoesNothing) {
  FillWarrant();
  ShowSymbol();
  ShowSymbol();
  EXPECT_EQ(host.subscriptions.subscribed.size(), 2u);
  EXPECT_EQ(changes, 1);
}

TEST_F(TDetailControlTest, AnotherSymbolLetsBothRecordsGo) {
  FillCBBC();
  ShowSymbol();
  control.SetSymbol("5");
  EXPECT_EQ(host.subscriptions.released, (std::vector<std::string>{"13001", "700"}));
  EXPECT_EQ(host.Registrations().listeners, 1);
  EXPECT_EQ(control.Symbol(), "5");
  EXPECT_EQ(control.GetDisplayText(Field::Category), "");
  EXPECT_EQ(host.subscriptions.abandonedListeners, 0);
}

TEST(TDetailControlEndTest, LetsBothRecordsGo) {
  Fakes::THostFakes host;
  host.Record("13001").Set({{Field::ProductType, "4"}, {Field::Underlying, "700"}});
  {
    TCustomQuorDetailDataControl control(nullptr);
    control.SetSymbol("13001");
    EXPECT_EQ(host.Registrations().records, 2);
  }
  EXPECT_EQ(host.subscriptions.released, (std::vector<std::string>{"13001", "700"}));
  EXPECT_EQ(host.Registrations(), Fakes::TRegistrations());
}

TEST_F(TDetailControlTest, LabelsFollowTheLanguage) {
  FillStock();
  ShowSymbol();
  changes = 0;
  host.language.SetText("Res_PE", "P/E");
  EXPECT_EQ(control.GetDisplayValue(2, DetailColumn::Label), "Res_PE");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetDisplayValue(2, DetailColumn::Label), "P/E");
  EXPECT_EQ(changes, 1);
}

// Labels

TEST_F(TDetailControlTest, TheIssueSizeIsNamedByTheInstrument) {
  EXPECT_EQ(control.GetHeader(Field::IssueSize), "Res_IssuedShares");
  FillWarrant();
  ShowSymbol();
  EXPECT_EQ(control.GetHeader(Field::IssueSize), "Res_IssueSize");
}

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

// Calls and puts

TEST_F(TDetailControlTest, CallAndPutAreToldByTheFirstCharacter) {
  for (const char* text : {"1", "6", "C", "Call"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfCall) << text;
  for (const char* text : {"2", "7", "P", "Put"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfPut) << text;
  for (const char* text : {"", "c", "p", "3", " C"})
    EXPECT_EQ(GetCallPutFlag(&Record().Set(Field::CallPut, text)), cpfUnknown) << text;
  EXPECT_EQ(GetCallPutFlag(nullptr), cpfUnknown);
}

TEST_F(TDetailControlTest, CallAndPutHaveTheirTexts) {
  FillWarrant();
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::CallPut), "Res_Call");
  Record().Set(Field::CallPut, "P");
  EXPECT_EQ(control.GetDisplayText(Field::CallPut), "Res_Put");
  Record().Set(Field::CallPut, "X");
  EXPECT_EQ(control.GetDisplayText(Field::CallPut), "");
}

// Prices

TEST_F(TDetailControlTest, APriceIsTheNominalElseTheMiddleElseThePreviousClose) {
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

TEST_F(TDetailControlTest, ARecordMayHaveNoPrice) {
  Record().Set(Field::Nominal, "12");
  EXPECT_EQ(GetPrice(nullptr), 0);
  for (const char* status : {"0", "-1"})
    EXPECT_EQ(GetPrice(&Record().Set(Field::Status, status)), 0) << status;
  for (const char* status : {"", "1", "00", "S"})
    EXPECT_EQ(GetPrice(&Record().Set(Field::Status, status)), 12) << status;
  Record().SetState(Constdef::RecordState_None);
  EXPECT_EQ(GetPrice(&Record()), 0);
}

TEST_F(TDetailControlTest, ARecordWithoutPriceHasNoFiguresMadeOfIt) {
  FillWarrant();
  ShowSymbol();
  Record().Set(Field::Status, "-1");
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "");
  control.SetSymbol("");
  FillStock();
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::MarketCap), "");
}

// Gearing and premium

TEST_F(TDetailControlTest, GearingIsTheUnderlyingOverWhatStandsForIt) {
  FillWarrant();
  EXPECT_DOUBLE_EQ(GetGearing(&Record(), &host.Record("700")), 25.0 / 2 * 0.1);
  EXPECT_EQ(GetGearing(nullptr, &host.Record("700")), 0);
  EXPECT_EQ(GetGearing(&Record(), nullptr), 0);
}

TEST_F(TDetailControlTest, PremiumOfACallAndOfAPut) {
  FillWarrant();
  auto& underlying = host.Record("700");
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

TEST_F(TDetailControlTest, GearingAndPremiumNeedEachOfTheirFigures) {
  ShowSymbol();
  for (const int field : {Field::Nominal, Field::ConversionRatio, Field::StrikePrice}) {
    FillWarrant();
    Record().Set(field, "0");
    EXPECT_EQ(GetPremium(&Record(), &host.Record("700")), 0) << field;
    if (field != Field::StrikePrice) {
      EXPECT_EQ(GetGearing(&Record(), &host.Record("700")), 0) << field;
    }
  }
  FillWarrant();
  host.Record("700").Set(Field::Nominal, "0");
  EXPECT_EQ(GetPremium(&Record(), &host.Record("700")), 0);
  EXPECT_EQ(GetGearing(&Record(), &host.Record("700")), 0);
}

TEST_F(TDetailControlTest, AWarrantWithoutUnderlyingHasNeitherPremiumNorGearing) {
  FillWarrant();
  Record().Set(Field::Underlying, " ");
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "");
}

TEST_F(TDetailControlTest, OtherInstrumentsShowTheFeedsPremiumAndGearing) {
  FillStock();
  Record().Set({{Field::Premium, "0.125"}, {Field::Gearing, "3.5"}});
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "12.50"); // a fraction
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "3.50");
  Record().Set({{Field::Premium, "0"}, {Field::Gearing, "0"}});
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "0.00");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "0.00");
  Record().Remove(Field::Premium).Remove(Field::Gearing);
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "");
}

TEST_F(TDetailControlTest, AWarrantIgnoresTheFeedsPremiumAndGearing) {
  FillWarrant();
  Record().Set({{Field::Premium, "0.125"}, {Field::Gearing, "3.5"}});
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "60.00");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "1.25");
}

// Market capitalisation

TEST_F(TDetailControlTest, AStocksCapitalisationIsItsPriceTimesItsShares) {
  FillStock();
  ShowSymbol();
  Record().Set(Field::MarketCap, "777");
  EXPECT_EQ(GetMarketCap(&Record()), 20000);
  EXPECT_EQ(GetMarketCap(nullptr), 0);
  EXPECT_EQ(control.GetDisplayText(Field::MarketCap), "13001 $20,000");
  Record().Remove(Field::IssueSize);
  EXPECT_EQ(control.GetDisplayText(Field::MarketCap), "");
}

TEST_F(TDetailControlTest, OtherInstrumentsShowTheFeedsCapitalisation) {
  FillWarrant();
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::MarketCap), "");
  Record().Set(Field::MarketCap, "777000");
  EXPECT_EQ(control.GetDisplayText(Field::MarketCap), "777,000");
}

// Other texts

TEST_F(TDetailControlTest, AConversionRatioReadsAsAFractionBelowATwentieth) {
  ShowSymbol();
  for (const auto& [ratio, text] : {std::pair{"0.1", "13001@0.1/6"},
                                    {"0.05", "13001@0.05/6"},
                                    {"0.01", "1/100"},
                                    {"0.049", "1/20"},
                                    {"0.0003", "1/3333"},
                                    {"2", "13001@2/6"},
                                    {"0", ""},
                                    {"", ""},
                                    {"none", ""}}) {
    Record().Set(Field::ConversionRatio, ratio);
    EXPECT_EQ(control.GetDisplayText(Field::ConversionRatio), text) << ratio;
  }
}

TEST_F(TDetailControlTest, AnOptionStyleThatHasNoTextShowsAsItStands) {
  ShowSymbol();
  for (const auto& [style, text] : {std::pair{"1", "Res_OptionStyle_EU"},
                                    {"2", "Res_OptionStyle_US"},
                                    {"Asian", "Asian"},
                                    {"", ""}}) {
    Record().Set(Field::OptionStyle, style);
    EXPECT_EQ(control.GetDisplayText(Field::OptionStyle), text);
  }
}

TEST_F(TDetailControlTest, PricesOfZeroAreEmpty) {
  FillCBBC();
  ShowSymbol();
  for (const int field : {Field::StrikePrice, Field::CallPrice}) {
    Record().Set(field, "0");
    EXPECT_EQ(control.GetDisplayText(field), "") << field;
    Record().Remove(field);
    EXPECT_EQ(control.GetDisplayText(field), "") << field;
  }
}

TEST_F(TDetailControlTest, TheIssueSizeReadsInItsStyle) {
  FillWarrant();
  ShowSymbol();
  TCustomQuorDetailDataControl amounts(nullptr, TIssueSizeStyle::Amount);
  amounts.SetSymbol("13001");
  EXPECT_EQ(control.GetDisplayText(Field::IssueSize), "5,000,000");
  EXPECT_EQ(amounts.GetDisplayText(Field::IssueSize), "13001 $5,000,000");
  Record().Set(Field::IssueSize, "");
  EXPECT_EQ(control.GetDisplayText(Field::IssueSize), "");
  EXPECT_EQ(amounts.GetDisplayText(Field::IssueSize), "");
}

} // namespace Quorpricedatacontrol
