#include "model/QuorPriceDataControl.h"

#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// Creation, symbol, record and notifications of the depth control.

namespace Quorpricedatacontrol {

using Fakes::TFakeChangedKeys;
using Fakes::TRegistrations;

TEST_F(TDepthControlTest, StartsEmpty) {
  EXPECT_EQ(control.Symbol(), "");
  EXPECT_EQ(control.DisplayMode(), qm5Full);
  EXPECT_EQ(control.GetCount(), 13);
  EXPECT_EQ(control.GetState(), 0);
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_FALSE(control.ShowBrokerName());
  EXPECT_TRUE(control.ShowBrokerQueue());
  EXPECT_FALSE(control.Concealed());
  EXPECT_EQ(control.Mechanisms(), TMarketMechanisms());
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  EXPECT_EQ(control.CopyPriceQtyMode(), cpqmDefault);
  EXPECT_EQ(control.DenominatorMode(), 0);
}

TEST_F(TDepthControlTest, RegistersOnceForEachNotificationAndTakesAnOrder) {
  TRegistrations expected;
  expected.configuration = expected.channels = expected.brokers = expected.spreads =
      expected.orders = 1;
  EXPECT_EQ(host.Registrations(), expected);
  EXPECT_EQ(host.channels.ChannelCount(Constdef::Channel_BeginningOfDay), 1);
}

TEST(TDepthControlEndTest, LeavesNoRegistrationBehind) {
  Fakes::THostFakes host;
  {
    TCustomQuorMarketDataControl control(nullptr);
    control.SetSymbol("700");
    EXPECT_EQ(host.Registrations().records, 1);
    EXPECT_EQ(host.Registrations().listeners, 1);
    EXPECT_EQ(host.Registrations().tradeSides, 1);
  }
  EXPECT_EQ(host.Registrations(), TRegistrations());
  EXPECT_EQ(host.subscriptions.abandonedListeners, 0);
}

TEST_F(TDepthControlTest, SubscribesTheSymbolInThePriceDataSet) {
  ShowSymbol();
  EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"700"});
  EXPECT_EQ(host.subscriptions.sources, std::vector<std::string>{"PRCDDS"});
  EXPECT_EQ(host.subscriptions.flags, std::vector<bool>{true});
  EXPECT_EQ(control.Symbol(), "700");
  EXPECT_TRUE(host.trades.followed.contains("700"));
  EXPECT_EQ(events.change, 1);
}

TEST_F(TDepthControlTest, TheSameSymbolAgainDoesNothing) {
  ShowSymbol();
  ShowSymbol();
  EXPECT_EQ(host.subscriptions.subscribed.size(), 1u);
  EXPECT_EQ(events.change, 1);
}

TEST_F(TDepthControlTest, AnotherSymbolReplacesRecordListenerAndTrades) {
  ShowSymbol();
  control.SetSymbol("5");
  EXPECT_EQ(host.subscriptions.released, std::vector<std::string>{"700"});
  EXPECT_EQ(host.Record("700").ListenerCount(), 0);
  EXPECT_EQ(host.Record("5").ListenerCount(), 1);
  EXPECT_EQ(host.trades.followed, (std::multiset<std::string, std::less<>>{"5"}));
  EXPECT_EQ(host.subscriptions.abandonedListeners, 0);
}

TEST_F(TDepthControlTest, NoSymbolLetsTheRecordGo) {
  ShowSymbol();
  control.SetSymbol("");
  EXPECT_EQ(host.Registrations().records, 0);
  EXPECT_EQ(host.Registrations().tradeSides, 0);
  EXPECT_EQ(control.GetState(), 0);
  EXPECT_EQ(control.GetBestPrice(Side::Bid), "");
  EXPECT_EQ(events.change, 2);
}

TEST_F(TDepthControlTest, AnotherSymbolForgetsWhatWasKnownOfTheFirst) {
  FillDepth(Record());
  Record().Set({{Field::ProductType, "4"},
                {Field::BidQueue, "1234"},
                {Field::AskQueue, "5678"},
                {Field::WarrantList, "13001"},
                {Field::RelatedList, "5"},
                {Field::LiquidityProviderList, "7"}});
  Record().Set({{Field::FirstMessage, "halted"},
                {Field::SecondMessage, "soon"},
                {Field::PosMarker, "1"},
                {Field::PosReferencePrice, "100"}});
  ShowSymbol();
  ASSERT_EQ(control.MarketDataType(), mdtPriced);
  ASSERT_EQ(control.GetQueueBroker(0, Side::Bid), "1234");
  ASSERT_EQ(control.FreeText1(), "halted");
  ASSERT_TRUE(control.Mechanisms().PosInForce);
  ASSERT_EQ(control.WarrantList(), "13001");

  host.Record("5").SetState(Constdef::RecordState_None);
  control.SetSymbol("5");
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "");
  EXPECT_EQ(control.GetQueueBroker(0, Side::Ask), "");
  EXPECT_EQ(control.FreeText1() + control.FreeText2(), "");
  EXPECT_EQ(control.Mechanisms(), TMarketMechanisms());
  EXPECT_EQ(control.WarrantList() + control.RelatedList() + control.LiquidityProviderList(), "");
}

TEST_F(TDepthControlTest, ForgetsEvenWhereNobodyListensForTheTexts) {
  Record().Set(
      {{Field::FirstMessage, "halted"}, {Field::PosMarker, "1"}, {Field::WarrantList, "13001"}});
  ShowSymbol();
  control.OnFreeTextChange = nullptr;
  control.OnRelatedChange = nullptr;
  control.SetSymbol("5");
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.Mechanisms(), TMarketMechanisms());
  EXPECT_EQ(control.WarrantList(), "");
}

TEST_F(TDepthControlTest, AReadyRecordIsReadAtOnce) {
  FillDepth(Record());
  Record().Set({{Field::ProductType, "1"}, {Field::BidQueue, "1234"}, {Field::Open, "100"}});
  ShowSymbol();
  EXPECT_EQ(control.GetState(), 1);
  EXPECT_EQ(control.ProductType(), 1);
  EXPECT_EQ(events.field22, 0); // the owner of the control reads it itself after SetSymbol
  EXPECT_EQ(control.MarketDataType(), mdtPriced);
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "1234");
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
}

TEST_F(TDepthControlTest, ARecordThatIsNotReadyIsReadWhenItArrives) {
  FillDepth(Record().SetState(Constdef::RecordState_None));
  Record().Set({{Field::ProductType, "4"}, {Field::BidQueue, "1234"}, {Field::Open, "100"}});
  ShowSymbol();
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  EXPECT_EQ(control.GetCellHeader(0), "");
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "");

  events = {};
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.ProductType(), 4);
  EXPECT_EQ(control.MarketDataType(), mdtPriced);
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "1234");
  EXPECT_EQ(events.change, 1);
  EXPECT_EQ(events.field22, 1);
}

TEST_F(TDepthControlTest, AnUpdateTellsHowEvenAnUnreadyRecordPublishesItsLevels) {
  Record().SetState(Constdef::RecordState_None).Set(Field::Bid.Size[1], "2000");
  ShowSymbol();
  EXPECT_EQ(control.MarketDataType(), mdtUnknown);
  Record().Update();
  EXPECT_EQ(control.MarketDataType(), mdtOrderCount);
  Record().Set(Field::Bid.Price[1], "98").SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.MarketDataType(), mdtOrderCount); // once known, kept
}

TEST_F(TDepthControlTest, TheProductTypeIsAnnouncedOnlyWhileItWasUnknown) {
  ShowSymbol();
  Record().Set(Field::ProductType, "stock").Update();
  EXPECT_EQ(control.ProductType(), -1);
  Record().Set(Field::ProductType, " 4 ").Update();
  EXPECT_EQ(control.ProductType(), 4);
  EXPECT_EQ(events.field22, 2);
  Record().Set(Field::ProductType, "1").Update();
  EXPECT_EQ(control.ProductType(), 4);
  EXPECT_EQ(events.field22, 2);
}

TEST_F(TDepthControlTest, TheProductTypeMayHaveASign) {
  Record().Set(Field::ProductType, "+4");
  ShowSymbol();
  EXPECT_EQ(control.ProductType(), 4);
  host.Record("5").SetState(Constdef::RecordState_None);
  control.SetSymbol("5");
  host.Record("5").Set(Field::ProductType, "+1").SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.ProductType(), 1);
}

TEST_F(TDepthControlTest, TheProductTypeOfAnUnreadyRecordIsNotRead) {
  ShowSymbol();
  Record().Set(Field::ProductType, "4").SetState(Constdef::RecordState_Invalid).Update();
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_EQ(events.field22, 0);
}

TEST_F(TDepthControlTest, EachUpdateIsToldOnce) {
  ShowSymbol();
  events = {};
  Record().Set(Field::BestBid, "99").Update();
  Record().Update();
  EXPECT_EQ(events.change, 2);
}

TEST_F(TDepthControlTest, AnUpdateDoesNothingWhileNobodyListensForChanges) {
  ShowSymbol();
  control.OnChange = nullptr;
  Record()
      .Set({{Field::ProductType, "4"}, {Field::BidQueue, "1234"}, {Field::FirstMessage, "halted"}})
      .Update();
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "");
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(events.freeText, 0);
}

TEST_F(TDepthControlTest, AnUpdateWithoutARecordDoesNothing) {
  control.UpdateSymbolMessage();
  EXPECT_EQ(events.change, 0);
}

TEST_F(TDepthControlTest, ASymbolNotificationCountsOnlyForTheOwnSymbol) {
  ShowSymbol();
  events = {};
  TFakeChangedKeys other({"5"}), own({"5", "700"});
  control.SymbolUpdate(nullptr, nullptr);
  control.SymbolUpdate(nullptr, &other);
  EXPECT_EQ(events.change, 0);
  control.SymbolUpdate(nullptr, &own);
  EXPECT_EQ(events.change, 1);
}

TEST_F(TDepthControlTest, GetStateIsTheRecordsState) {
  ShowSymbol();
  EXPECT_EQ(control.GetState(), 1);
  Record().SetState(Constdef::RecordState_Invalid);
  EXPECT_EQ(control.GetState(), 2);
}

TEST_F(TDepthControlTest, AListenerMayLetTheSymbolGoWhileItIsTold) {
  ShowSymbol();
  Record().Set(Field::ProductType, "4");
  control.OnChange = [this](System::TObject*) { control.SetSymbol(""); };
  Record().Update();
  EXPECT_EQ(control.Symbol(), "");
  EXPECT_EQ(control.ProductType(), -1);
  EXPECT_EQ(host.Registrations().listeners, 0);
}

// Spread tables

TEST_F(TDepthControlTest, ASpreadTableChangeIsToldOnlyForTheRecordsOwnTable) {
  Record().Set(Field::SpreadCode, "01");
  host.market.AnnounceSpreads({"01"});
  EXPECT_EQ(events.change, 0); // no record yet
  ShowSymbol();
  events = {};
  host.market.AnnounceSpreads({"02"});
  control.SpreadUpdate(nullptr, nullptr);
  EXPECT_EQ(events.change, 0);
  host.market.AnnounceSpreads({"01", "02"});
  EXPECT_EQ(events.change, 1);
}

// Beginning of day

TEST_F(TDepthControlTest, BeginningOfDayRebuildsTheHeader) {
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeader(0), "");
  Record().Set(Field::Open, "100").Update();
  ASSERT_EQ(control.GetCellHeader(0), ""); // built once per loaded record
  events = {};
  host.channels.Send(Constdef::Channel_BeginningOfDay, nullptr, nullptr);
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
  EXPECT_EQ(events.change, 1);
}

TEST_F(TDepthControlTest, BeginningOfDayPassesByARecordThatIsNotReady) {
  ShowSymbol();
  Record().SetState(Constdef::RecordState_None);
  events = {};
  host.channels.Send(Constdef::Channel_BeginningOfDay, nullptr, nullptr);
  EXPECT_EQ(events.change, 0);
}

// Configuration

struct TStyleCase {
  const char* text;
  TCopyPriceQtyMode mode;
};

class TCopyPriceStyleTest : public testing::TestWithParam<TStyleCase> {};

TEST_P(TCopyPriceStyleTest, FirstLetterDecides) {
  Fakes::THostFakes host;
  host.config.SetCurrent("CopyPriceStyle", GetParam().text);
  const TCustomQuorMarketDataControl opened(nullptr);
  EXPECT_EQ(opened.CopyPriceQtyMode(), GetParam().mode);

  host.config.SetCurrent("CopyPriceStyle", GetParam().mode == cpqmNone ? "L" : "N");
  host.config.Announce();
  host.config.SetCurrent("CopyPriceStyle", GetParam().text);
  host.config.Announce();
  EXPECT_EQ(opened.CopyPriceQtyMode(), GetParam().mode);
}

INSTANTIATE_TEST_SUITE_P(Styles, TCopyPriceStyleTest,
                         testing::Values(TStyleCase{"", cpqmDefault}, TStyleCase{"D", cpqmDefault},
                                         TStyleCase{"x", cpqmDefault}, TStyleCase{"n", cpqmNone},
                                         TStyleCase{"None", cpqmNone}, TStyleCase{"l", cpqmOneLot},
                                         TStyleCase{"Lot", cpqmOneLot},
                                         TStyleCase{"s", cpqmSummary},
                                         TStyleCase{"Sum", cpqmSummary},
                                         TStyleCase{" L", cpqmDefault}));

TEST_F(TDepthControlTest, TheCopyStyleIsTheCurrentUsersOwn) {
  host.config.Set("SOMEONE", "CopyPriceStyle", "N");
  host.config.Announce();
  EXPECT_EQ(control.CopyPriceQtyMode(), cpqmDefault);
  host.config.currentSection = "SOMEONE";
  host.config.Announce();
  EXPECT_EQ(control.CopyPriceQtyMode(), cpqmNone);
}

TEST_F(TDepthControlTest, OnlyAnotherDenominatorModeAsksForARepaint) {
  host.config.SetCurrent("DenominatorModeValue", "2");
  host.config.Announce();
  EXPECT_EQ(control.DenominatorMode(), 2);
  EXPECT_EQ(events.change, 1);
  host.config.SetCurrent("CopyPriceStyle", "N");
  host.config.Announce();
  EXPECT_EQ(events.change, 1);
}

TEST(TDepthControlStartTest, ReadsTheDenominatorMode) {
  Fakes::THostFakes host;
  host.config.SetCurrent("DenominatorModeValue", "3");
  const TCustomQuorMarketDataControl control(nullptr);
  EXPECT_EQ(control.DenominatorMode(), 3);
}

// Display mode

TEST_F(TDepthControlTest, TheSameDisplayModeDoesNothing) {
  control.SetDisplayMode(qm5Full);
  EXPECT_EQ(events.change, 0);
}

TEST_F(TDepthControlTest, ADisplayModeHasItsNumberOfRows) {
  control.SetDisplayMode(qm10Full);
  EXPECT_EQ(control.GetCount(), 18);
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCount(), 13);
  EXPECT_EQ(events.change, 2);
}

TEST_F(TDepthControlTest, ADisplayModeRebuildsTheHeaderOfAReadyRecord) {
  ShowSymbol();
  Record().Set(Field::Open, "100");
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
}

TEST_F(TDepthControlTest, ADisplayModeLeavesTheHeaderOfAnUnreadyRecord) {
  ShowSymbol();
  Record().Set(Field::Open, "100").SetState(Constdef::RecordState_None);
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(control.GetCellHeader(0), "");
}

TEST_F(TDepthControlTest, AnswersAsTheBaseOfAllGridModelsDoes) {
  ShowSymbol();
  Record().Set(Field::BestBid, "99");
  EXPECT_EQ(control.GetValue(6, Column::BidPrice), System::TVariant(std::string("99.000")));
  EXPECT_EQ(control.GetRowValue(6), System::TVariant());
  EXPECT_EQ(control.GetColValue(Column::BidPrice), System::TVariant());
  EXPECT_TRUE(control.GetColList().empty());
}

} // namespace Quorpricedatacontrol
