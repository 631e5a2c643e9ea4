#include "model/QuorDetailDataControl.h"

#include "host/ConstDef.h"
#include "model/InstrumentFixture.h"

#include <limits>
#include <vector>

// The detail list: whom it follows, which rows it has and what it tells its owner.

namespace Quorpricedatacontrol {

using TRows = std::vector<std::pair<std::string, std::string>>;

class TDetailControlTest : public TInstrumentTest {
protected:
  TDetailControlTest() {
    control.OnChange = [this](System::TObject*) { ++changes; };
  }

  void ShowSymbol() { control.SetSymbol("13001"); }

  TRows AllRows() const {
    TRows rows;
    for (int row = 0; row < control.GetCount(); ++row)
      rows.emplace_back(control.GetDisplayValue(row, DetailColumn::Label),
                        control.GetDisplayValue(row, DetailColumn::Value));
    return rows;
  }

  TCustomQuorDetailDataControl control{nullptr};
  int changes = 0;
};

// Which rows there are

TEST_F(TDetailControlTest, AWarrantHasItsRows) {
  FillWarrant();
  ShowSymbol();
  EXPECT_EQ(AllRows(), (TRows{{"Res_Underlyer", "700"},
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
  EXPECT_EQ(AllRows(), (TRows{{"Res_Underlyer", "700"},
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
  FillStock(Record());
  ShowSymbol();
  EXPECT_EQ(AllRows(), (TRows{{"Res_IssuedShares", "2,000"},
                              {"Res_MarketCap", "13001 $20,000"},
                              {"Res_PE", "15.50"},
                              {"Res_Yield", "3.2%"}}));
}

TEST_F(TDetailControlTest, OtherInstrumentsHaveNoRows) {
  FillStock(Record());
  for (const char* type : {"0", "2", "3", "5", "", "stock"}) {
    control.SetSymbol("");
    Record().Set(Field::ProductType, type);
    ShowSymbol();
    EXPECT_EQ(control.GetCount(), 0) << type;
  }
}

TEST_F(TDetailControlTest, ARecordThatWasNotReadyHasNoRowsUntilTheNextSymbol) {
  FillStock(Record());
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
  FillStock(Record());
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
  FillStock(Record());
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
  FillStock(Record());
  ShowSymbol();
  changes = 0;
  host.language.SetText("Res_PE", "P/E");
  EXPECT_EQ(control.GetDisplayValue(2, DetailColumn::Label), "Res_PE");
  control.UpdateLanguage();
  EXPECT_EQ(control.GetDisplayValue(2, DetailColumn::Label), "P/E");
  EXPECT_EQ(changes, 1);
}

TEST_F(TDetailControlTest, AWarrantWithoutUnderlyingHasNeitherPremiumNorGearing) {
  FillWarrant();
  Record().Set(Field::Underlying, " ");
  ShowSymbol();
  EXPECT_EQ(control.GetDisplayText(Field::Premium), "");
  EXPECT_EQ(control.GetDisplayText(Field::Gearing), "");
}

// How it is made

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
