#include "host/ConstDef.h"
#include "model/ModelFixture.h"

// Message lines, market mechanisms and lists of related instruments.

namespace Quorpricedatacontrol {

using SymbolMessagesTest = DepthControlTest;

// Message lines

TEST_F(SymbolMessagesTest, MessagesAreTheRecords) {
  Record().Set({{200, "halted"}, {201, "until noon"}, {25, "other"}});
  ShowSymbol();
  EXPECT_EQ(control.FreeText1(), "halted");
  EXPECT_EQ(control.FreeText2(), "until noon");
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(SymbolMessagesTest, TheOtherMessageStandsInForBoth) {
  Record().Set(25, "other");
  ShowSymbol();
  EXPECT_EQ(control.FreeText1(), "other");
  EXPECT_EQ(control.FreeText2(), "");
  Record().Set(201, "second").Update();
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.FreeText2(), "second");
}

TEST_F(SymbolMessagesTest, AnUnreadyRecordShowsItsStatusText) {
  Record().Set({{200, "halted"}, {201, "soon"}}).SetState(Constdef::RecordState_Invalid);
  Record().SetStatusText("unknown symbol");
  ShowSymbol();
  EXPECT_EQ(control.FreeText1(), "unknown symbol");
  EXPECT_EQ(control.FreeText2(), "");
  Record().SetState(Constdef::RecordState_Ready).Update();
  EXPECT_EQ(control.FreeText1(), "halted");
}

TEST_F(SymbolMessagesTest, ARecordThatIsLostWithoutStatusTextLeavesNoMessage) {
  Record().Set({{200, "halted"}, {201, "soon"}});
  ShowSymbol();
  ASSERT_EQ(control.FreeText2(), "soon");
  Record().SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.FreeText2(), "");
  EXPECT_EQ(events.freeText, 2);
}

TEST_F(SymbolMessagesTest, OnlyNewTextsAreTold) {
  Record().Set(200, "halted");
  ShowSymbol();
  Record().Update();
  EXPECT_EQ(events.freeText, 1);
  Record().Set(201, "soon").Update();
  EXPECT_EQ(events.freeText, 2);
  Record().Remove(200).Remove(201).Update();
  EXPECT_EQ(events.freeText, 3);
  EXPECT_EQ(control.FreeText1() + control.FreeText2(), "");
}

TEST_F(SymbolMessagesTest, NothingIsReadWhileNobodyListens) {
  control.OnFreeTextChange = nullptr;
  Record().Set({{200, "halted"}, {3506, "1"}});
  ShowSymbol();
  Record().Update();
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.Mechanisms(), TMarketMechanisms());
}

// Concealed exchanges

class ConcealmentTest : public testing::Test {
protected:
  /// What a control that was made under the configuration shows of a symbol of the exchange.
  void Show(const char* configured, const char* exchange) {
    host.config.SetCurrent("ConcealMktDataByExch", configured);
    control = std::make_unique<TCustomQuorMarketDataControl>(nullptr);
    ListenToAll(*control, events);
    host.Record("700").Set({{20, exchange}, {200, "message"}, {201, "second"}});
    control->SetSymbol("700");
  }

  Fakes::THostFakes host;
  std::unique_ptr<TCustomQuorMarketDataControl> control;
  TEventCounts events;
};

TEST_F(ConcealmentTest, AConcealedExchangesSymbolIsInvalid) {
  Show("SSE,HKG", "HKG");
  EXPECT_EQ(control->FreeText1(), "Res_InvalidSymbol");
  EXPECT_EQ(control->FreeText2(), "second");
  EXPECT_TRUE(control->Concealed());
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(ConcealmentTest, AnotherExchangesSymbolIsNot) {
  Show("SSE,HKG", "SZA");
  EXPECT_EQ(control->FreeText1(), "message");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(ConcealmentTest, ConfiguredCodesAreTakenInUpperCase) {
  Show("hkg", "HKG");
  EXPECT_TRUE(control->Concealed());
}

TEST_F(ConcealmentTest, ALowerCaseCodeOfARecordNeverMatches) {
  Show("hkg", "hkg");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(ConcealmentTest, ConfiguredCodesAreNotTrimmed) {
  Show("SSE, HKG", "HKG");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(ConcealmentTest, AnEmptyItemConcealsRecordsWithoutExchange) {
  Show("SSE,,HKG", "");
  EXPECT_TRUE(control->Concealed());
}

TEST_F(ConcealmentTest, AnEmptyConfigurationConcealsNothing) {
  Show("", "");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(ConcealmentTest, ConcealmentLastsUntilTheNextSymbol) {
  Show("HKG", "HKG");
  host.Record("700").Set(20, "SSE").Update();
  EXPECT_TRUE(control->Concealed());
  EXPECT_EQ(control->FreeText1(), "message");
  control->SetSymbol("5");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(ConcealmentTest, AnUnreadyRecordsExchangeIsConcealedToo) {
  host.Record("700").SetState(Constdef::RecordState_Invalid).SetStatusText("loading");
  Show("HKG", "HKG");
  EXPECT_EQ(control->FreeText1(), "Res_InvalidSymbol");
  EXPECT_EQ(control->FreeText2(), "");
  EXPECT_TRUE(control->Concealed());
}

TEST_F(ConcealmentTest, TheListIsReadOnceAtCreation) {
  Show("", "HKG");
  host.config.SetCurrent("ConcealMktDataByExch", "HKG");
  host.config.Announce();
  host.Record("700").Update();
  EXPECT_FALSE(control->Concealed());
}

// Pre-opening session

struct TImbalanceCase {
  const char* direction;
  const char* text;
};

class ImbalanceTest : public DepthControlTest,
                      public testing::WithParamInterface<TImbalanceCase> {};

TEST_P(ImbalanceTest, ReadsAsBuyersAgainstSellers) {
  Record().Set({{3506, "1"}, {3514, GetParam().direction}, {3515, "12000"}});
  ShowSymbol();
  EXPECT_EQ(control.Mechanisms().PosStateText, GetParam().text);

  Record().Remove(3506).Set({{3510, "1"}, {3511, "100"}}).Update();
  EXPECT_EQ(control.Mechanisms().VcmCasStateText, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Directions, ImbalanceTest,
    testing::Values(TImbalanceCase{"1", "Res_Bid_Short=Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"2", "Res_Bid_Short>Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"3", "Res_Bid_Short<Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"4", ""}, TImbalanceCase{"", ""}));

TEST_F(SymbolMessagesTest, ThePreOpeningSessionShowsItsPrices) {
  Record().Set({{3506, "1"}, {3507, "100"}, {3508, "85"}, {3509, "115"}, {3551, "84"}});
  Record().Set(3552, "116");
  ShowSymbol();
  const TMarketMechanisms& state = control.Mechanisms();
  EXPECT_TRUE(state.PosMarker);
  EXPECT_TRUE(state.PosInForce);
  EXPECT_EQ(state.PosStateText, "");
  EXPECT_EQ(state.PosRefPrice, "700@100");
  EXPECT_EQ(state.PosLowerPrice, "700@85");
  EXPECT_EQ(state.PosUpperPrice, "700@115");
  EXPECT_EQ(state.PosSellLowerLimit, "700@84");
  EXPECT_EQ(state.PosBuyUpperLimit, "700@116");
  EXPECT_FALSE(state.VcmMarker || state.VcmInForce || state.CasMarker || state.CasInForce);
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(SymbolMessagesTest, PricesThatThePreOpeningSessionDoesNotGiveAreEmpty) {
  Record().Set({{3506, "1"}, {3507, ""}});
  ShowSymbol();
  EXPECT_TRUE(control.Mechanisms().PosInForce);
  EXPECT_EQ(control.Mechanisms().PosRefPrice, "");
  EXPECT_EQ(control.Mechanisms().PosUpperPrice, "");
}

TEST_F(SymbolMessagesTest, ThePreOpeningSessionsTextsOutliveIt) {
  Record().Set({{3506, "1"}, {3507, "100"}});
  ShowSymbol();
  Record().Set(3506, "0").Update();
  EXPECT_FALSE(control.Mechanisms().PosMarker);
  EXPECT_FALSE(control.Mechanisms().PosInForce);
  EXPECT_EQ(control.Mechanisms().PosRefPrice, "700@100");
  EXPECT_EQ(events.freeText, 2);
}

// Volatility control

TEST_F(SymbolMessagesTest, VolatilityControlShowsItsCoolingOffPeriodAndPrices) {
  Record().Set({{3500, "1"}, {3501, "10:00"}, {3502, "10:05"}, {3503, "0.13"}});
  Record().Set({{3504, "0.117"}, {3505, "0.143"}});
  ShowSymbol();
  const TMarketMechanisms& state = control.Mechanisms();
  EXPECT_TRUE(state.VcmMarker);
  EXPECT_TRUE(state.VcmInForce);
  EXPECT_EQ(state.VcmCasStateText, "10:00-10:05");
  EXPECT_EQ(state.VcmCasRefPrice, "700@0.13");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@0.117");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@0.143");
  EXPECT_FALSE(state.CasMarker || state.CasInForce || state.PosMarker || state.PosInForce);
}

TEST_F(SymbolMessagesTest, VolatilityControlIsInForceFromItsReferencePriceToTheEndOfItsMarker) {
  Record().Set(3500, "1");
  ShowSymbol();
  EXPECT_TRUE(control.Mechanisms().VcmMarker);
  EXPECT_FALSE(control.Mechanisms().VcmInForce);
  Record().Set(3503, "0.13").Update();
  EXPECT_TRUE(control.Mechanisms().VcmInForce);
  Record().Remove(3503).Update();
  EXPECT_TRUE(control.Mechanisms().VcmInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@0.13");
  Record().Set(3500, "0").Update();
  EXPECT_FALSE(control.Mechanisms().VcmMarker);
  EXPECT_FALSE(control.Mechanisms().VcmInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@0.13");
}

// Closing auction

TEST_F(SymbolMessagesTest, TheClosingAuctionShowsItsImbalanceAndPrices) {
  Record().Set({{3510, "1"}, {3511, "100"}, {3512, "95"}, {3513, "105"}, {3514, "2"}});
  Record().Set(3515, "500");
  ShowSymbol();
  const TMarketMechanisms& state = control.Mechanisms();
  EXPECT_TRUE(state.CasMarker);
  EXPECT_TRUE(state.CasInForce);
  EXPECT_EQ(state.VcmCasStateText, "Res_Bid_Short>Res_Side_Sell_Short: 500 sh");
  EXPECT_EQ(state.VcmCasRefPrice, "700@100");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@95");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@105");
  EXPECT_FALSE(state.VcmMarker || state.VcmInForce || state.PosMarker || state.PosInForce);
}

TEST_F(SymbolMessagesTest, TheClosingAuctionIsInForceFromItsReferencePriceToTheEndOfItsMarker) {
  Record().Set(3510, "1");
  ShowSymbol();
  EXPECT_TRUE(control.Mechanisms().CasMarker);
  EXPECT_FALSE(control.Mechanisms().CasInForce);
  Record().Set(3511, "100").Update();
  EXPECT_TRUE(control.Mechanisms().CasInForce);
  Record().Remove(3511).Update();
  EXPECT_TRUE(control.Mechanisms().CasInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@100");
  Record().Remove(3510).Update();
  EXPECT_FALSE(control.Mechanisms().CasMarker);
  EXPECT_FALSE(control.Mechanisms().CasInForce);
}

TEST_F(SymbolMessagesTest, TheClosingAuctionsTextsAreLeftWhereBothMechanismsAreInForce) {
  Record().Set({{3500, "1"}, {3501, "a"}, {3502, "b"}, {3503, "1"}, {3504, "2"}, {3505, "3"}});
  Record().Set({{3510, "1"}, {3511, "4"}, {3512, "5"}, {3513, "6"}, {3514, "1"}});
  ShowSymbol();
  const TMarketMechanisms& state = control.Mechanisms();
  EXPECT_TRUE(state.VcmInForce && state.CasInForce);
  EXPECT_EQ(state.VcmCasStateText, "Res_Bid_Short=Res_Side_Sell_Short: ");
  EXPECT_EQ(state.VcmCasRefPrice, "700@4");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@5");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@6");
  Record().Update();
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(SymbolMessagesTest, EachNewStateOfAMechanismIsTold) {
  ShowSymbol();
  int told = events.freeText;
  const auto expectTold = [&](int field, const char* text) {
    Record().Set(field, text).Update();
    EXPECT_EQ(events.freeText, ++told) << field;
    Record().Update();
    EXPECT_EQ(events.freeText, told) << field;
  };
  for (const int field : {3506, 3507, 3508, 3509, 3551, 3552, 3514, 3515})
    expectTold(field, "1");
  for (const int field : {3500, 3503, 3501, 3502, 3504, 3505})
    expectTold(field, "1");
  expectTold(3510, "1");
  for (const int field : {3511, 3512, 3513})
    expectTold(field, "2");
}

TEST_F(SymbolMessagesTest, MechanismsOfAnUnreadyRecordAreReadToo) {
  Record().SetState(Constdef::RecordState_Invalid);
  ShowSymbol();
  Record().Set({{3506, "1"}, {3507, "100"}, {3500, "1"}, {3503, "0.13"}}).Update();
  EXPECT_TRUE(control.Mechanisms().PosInForce);
  EXPECT_EQ(control.Mechanisms().PosRefPrice, "700@100");
  EXPECT_TRUE(control.Mechanisms().VcmInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@0.13");
  EXPECT_FALSE(control.Mechanisms().CasInForce);
  Record().Set({{3510, "1"}, {3511, "4"}}).Update();
  EXPECT_TRUE(control.Mechanisms().CasInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@4");
  EXPECT_EQ(events.freeText, 2);
}

// Rebuilding what depends on language and spreads

class RebuildTest : public DepthControlTest {
protected:
  RebuildTest() {
    Record().Set({{73, "01"}, {3510, "1"}, {3511, "100"}, {3514, "2"}, {3515, "500"}});
    ShowSymbol();
    // What a later update would no longer write.
    Record().Remove(3511).Update();
    events = {};
  }
};

TEST_F(RebuildTest, AnotherLanguageRebuildsTheMechanismsInForce) {
  ASSERT_TRUE(control.Mechanisms().CasInForce);
  control.UpdateLanguage();
  TMarketMechanisms markedOnly;
  markedOnly.CasMarker = true;
  EXPECT_EQ(control.Mechanisms(), markedOnly);
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(RebuildTest, AnotherLanguageGivesTheTextsInIt) {
  Record().Set(3511, "100").Update();
  host.language.SetText("Res_Bid_Short", "B");
  host.language.SetText("Res_Side_Sell_Short", "S");
  control.UpdateLanguage();
  EXPECT_EQ(control.Mechanisms().VcmCasStateText, "B>S: 500 sh");
}

TEST_F(RebuildTest, AnotherSpreadTableRebuildsTheMechanismsInForce) {
  host.market.AnnounceSpreads({"01"});
  EXPECT_FALSE(control.Mechanisms().CasInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "");
  EXPECT_EQ(events.change, 1);
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(RebuildTest, ASpreadTableOfOtherSymbolsRebuildsNothing) {
  const TMarketMechanisms before = control.Mechanisms();
  ASSERT_TRUE(before.CasInForce);
  host.market.AnnounceSpreads({"02", "03"});
  EXPECT_EQ(control.Mechanisms(), before);
  EXPECT_EQ(events.freeText, 0);
  EXPECT_EQ(events.change, 0);
}

TEST_F(RebuildTest, MechanismsThatAreNotInForceKeepTheirTexts) {
  Record().Set(3510, "0").Update();
  ASSERT_FALSE(control.Mechanisms().AnyInForce());
  events = {};
  control.UpdateLanguage();
  host.market.AnnounceSpreads({"01"});
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@100");
  EXPECT_EQ(events.freeText, 0);
}

TEST_F(SymbolMessagesTest, EachMechanismInForceCountsForARebuild) {
  for (const auto& [marker, reference] : {std::pair{3500, 3503}, {3506, 3507}, {3510, 3511}}) {
    control.SetSymbol("");
    Record().Clear().Set({{marker, "1"}, {reference, "1"}});
    ShowSymbol();
    ASSERT_TRUE(control.Mechanisms().AnyInForce()) << marker;
    Record().Remove(marker);
    control.UpdateLanguage();
    EXPECT_EQ(control.Mechanisms(), TMarketMechanisms()) << marker;
  }
}

// Related instruments

TEST_F(SymbolMessagesTest, ListsOfRelatedInstrumentsAreTheRecords) {
  Record().Set({{135, "13001 13002"}, {136, "80700"}, {3200, "9001 9002"}});
  ShowSymbol();
  EXPECT_EQ(control.WarrantList(), "13001 13002");
  EXPECT_EQ(control.RelatedList(), "80700");
  EXPECT_EQ(control.LiquidityProviderList(), "9001 9002");
  EXPECT_EQ(events.related, 1);
}

TEST_F(SymbolMessagesTest, EachNewListOfRelatedInstrumentsIsTold) {
  ShowSymbol();
  EXPECT_EQ(events.related, 0);
  int told = 0;
  for (const int field : {135, 136, 3200}) {
    Record().Set(field, "1").Update();
    EXPECT_EQ(events.related, ++told) << field;
    Record().Update();
    EXPECT_EQ(events.related, told) << field;
  }
}

TEST_F(SymbolMessagesTest, AnUnreadyRecordHasNoRelatedInstruments) {
  Record().Set({{135, "13001"}, {136, "80700"}, {3200, "9001"}});
  ShowSymbol();
  Record().SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(control.WarrantList() + control.RelatedList() + control.LiquidityProviderList(), "");
  EXPECT_EQ(events.related, 2);
}

TEST_F(SymbolMessagesTest, RelatedInstrumentsAreNotReadWhileNobodyListens) {
  control.OnRelatedChange = nullptr;
  Record().Set(135, "13001");
  ShowSymbol();
  EXPECT_EQ(control.WarrantList(), "");
}

} // namespace Quorpricedatacontrol
