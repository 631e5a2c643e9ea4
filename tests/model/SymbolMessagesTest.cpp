#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// When a depth control reads and tells message lines, market mechanisms and related instruments.

namespace Quorpricedatacontrol {

using TSymbolMessagesTest = TDepthControlTest;

// Message lines

TEST_F(TSymbolMessagesTest, ARecordThatIsLostWithoutStatusTextLeavesNoMessage) {
  Record().Set({{Field::FirstMessage, "halted"}, {Field::SecondMessage, "soon"}});
  ShowSymbol();
  ASSERT_EQ(control.FreeText2(), "soon");
  Record().SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.FreeText2(), "");
  EXPECT_EQ(events.freeText, 2);
}

TEST_F(TSymbolMessagesTest, OnlyNewTextsAreTold) {
  Record().Set(Field::FirstMessage, "halted");
  ShowSymbol();
  Record().Update();
  EXPECT_EQ(events.freeText, 1);
  Record().Set(Field::SecondMessage, "soon").Update();
  EXPECT_EQ(events.freeText, 2);
  Record().Remove(Field::FirstMessage).Remove(Field::SecondMessage).Update();
  EXPECT_EQ(events.freeText, 3);
  EXPECT_EQ(control.FreeText1() + control.FreeText2(), "");
}

TEST_F(TSymbolMessagesTest, NothingIsReadWhileNobodyListens) {
  control.OnFreeTextChange = nullptr;
  Record().Set({{Field::FirstMessage, "halted"}, {Field::PosMarker, "1"}});
  ShowSymbol();
  Record().Update();
  EXPECT_EQ(control.FreeText1(), "");
  EXPECT_EQ(control.Mechanisms(), TMarketMechanisms());
}

// Concealed exchanges

class TConcealmentTest : public TRecordTest {
protected:
  /// What a control that was made under the configuration shows of a symbol of the exchange.
  void Show(const char* configured, const char* exchange) {
    host.config.SetCurrent("ConcealMktDataByExch", configured);
    control = std::make_unique<TCustomQuorMarketDataControl>(nullptr);
    ListenToAll(*control, events);
    host.Record("700").Set({{Field::Exchange, exchange},
                            {Field::FirstMessage, "message"},
                            {Field::SecondMessage, "second"}});
    control->SetSymbol("700");
  }

  std::unique_ptr<TCustomQuorMarketDataControl> control;
  TEventCounts events;
};

TEST_F(TConcealmentTest, AConcealedExchangesSymbolIsInvalid) {
  Show("SSE,HKG", "HKG");
  EXPECT_EQ(control->FreeText1(), "Res_InvalidSymbol");
  EXPECT_EQ(control->FreeText2(), "second");
  EXPECT_TRUE(control->Concealed());
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(TConcealmentTest, ConcealmentLastsUntilTheNextSymbol) {
  Show("HKG", "HKG");
  host.Record("700").Set(Field::Exchange, "SSE").Update();
  EXPECT_TRUE(control->Concealed());
  EXPECT_EQ(control->FreeText1(), "message");
  control->SetSymbol("5");
  EXPECT_FALSE(control->Concealed());
}

TEST_F(TConcealmentTest, AnUnreadyRecordsExchangeIsConcealedToo) {
  host.Record("700").SetState(Constdef::RecordState_Invalid).SetStatusText("loading");
  Show("HKG", "HKG");
  EXPECT_EQ(control->FreeText1(), "Res_InvalidSymbol");
  EXPECT_EQ(control->FreeText2(), "");
  EXPECT_TRUE(control->Concealed());
}

TEST_F(TConcealmentTest, TheListIsReadOnceAtCreation) {
  Show("", "HKG");
  host.config.SetCurrent("ConcealMktDataByExch", "HKG");
  host.config.Announce();
  host.Record("700").Update();
  EXPECT_FALSE(control->Concealed());
}

// Market mechanisms

TEST_F(TSymbolMessagesTest, EachNewStateOfAMechanismIsTold) {
  ShowSymbol();
  int told = events.freeText;
  const auto expectTold = [&](int field, const char* text) {
    Record().Set(field, text).Update();
    EXPECT_EQ(events.freeText, ++told) << field;
    Record().Update();
    EXPECT_EQ(events.freeText, told) << field;
  };
  for (const int field : {Field::PosMarker, Field::PosReferencePrice, Field::PosLowerPrice,
                          Field::PosUpperPrice, Field::PosSellLowerLimit, Field::PosBuyUpperLimit,
                          Field::ImbalanceDirection, Field::ImbalanceQuantity})
    expectTold(field, "1");
  for (const int field : {Field::VcmMarker, Field::VcmReferencePrice, Field::VcmStartTime,
                          Field::VcmEndTime, Field::VcmLowerPrice, Field::VcmUpperPrice})
    expectTold(field, "1");
  expectTold(Field::CasMarker, "1");
  for (const int field : {Field::CasReferencePrice, Field::CasLowerPrice, Field::CasUpperPrice})
    expectTold(field, "2");
}

TEST_F(TSymbolMessagesTest, MechanismsOfAnUnreadyRecordAreReadToo) {
  Record().SetState(Constdef::RecordState_Invalid);
  ShowSymbol();
  Record()
      .Set({{Field::PosMarker, "1"},
            {Field::PosReferencePrice, "100"},
            {Field::VcmMarker, "1"},
            {Field::VcmReferencePrice, "0.13"}})
      .Update();
  EXPECT_TRUE(control.Mechanisms().PosInForce);
  EXPECT_EQ(control.Mechanisms().PosRefPrice, "700@100");
  EXPECT_TRUE(control.Mechanisms().VcmInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@0.13");
  EXPECT_FALSE(control.Mechanisms().CasInForce);
  Record().Set({{Field::CasMarker, "1"}, {Field::CasReferencePrice, "4"}}).Update();
  EXPECT_TRUE(control.Mechanisms().CasInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@4");
  EXPECT_EQ(events.freeText, 2);
}

// Rebuilding what depends on language and spreads

class TRebuildTest : public TDepthControlTest {
protected:
  TRebuildTest() {
    Record().Set({{Field::SpreadCode, "01"},
                  {Field::CasMarker, "1"},
                  {Field::CasReferencePrice, "100"},
                  {Field::ImbalanceDirection, "2"},
                  {Field::ImbalanceQuantity, "500"}});
    ShowSymbol();
    // What a later update would no longer write.
    Record().Remove(Field::CasReferencePrice).Update();
    events = {};
  }
};

TEST_F(TRebuildTest, AnotherLanguageRebuildsTheMechanismsInForce) {
  ASSERT_TRUE(control.Mechanisms().CasInForce);
  control.UpdateLanguage();
  TMarketMechanisms markedOnly;
  markedOnly.CasMarker = true;
  EXPECT_EQ(control.Mechanisms(), markedOnly);
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(TRebuildTest, AnotherLanguageGivesTheTextsInIt) {
  Record().Set(Field::CasReferencePrice, "100").Update();
  host.language.SetText("Res_Bid_Short", "B");
  host.language.SetText("Res_Side_Sell_Short", "S");
  control.UpdateLanguage();
  EXPECT_EQ(control.Mechanisms().VcmCasStateText, "B>S: 500 sh");
}

TEST_F(TRebuildTest, AnotherSpreadTableRebuildsTheMechanismsInForce) {
  host.market.AnnounceSpreads({"01"});
  EXPECT_FALSE(control.Mechanisms().CasInForce);
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "");
  EXPECT_EQ(events.change, 1);
  EXPECT_EQ(events.freeText, 1);
}

TEST_F(TRebuildTest, ASpreadTableOfOtherSymbolsRebuildsNothing) {
  const TMarketMechanisms before = control.Mechanisms();
  ASSERT_TRUE(before.CasInForce);
  host.market.AnnounceSpreads({"02", "03"});
  EXPECT_EQ(control.Mechanisms(), before);
  EXPECT_EQ(events.freeText, 0);
  EXPECT_EQ(events.change, 0);
}

TEST_F(TRebuildTest, MechanismsThatAreNotInForceKeepTheirTexts) {
  Record().Set(Field::CasMarker, "0").Update();
  ASSERT_FALSE(control.Mechanisms().AnyInForce());
  events = {};
  control.UpdateLanguage();
  host.market.AnnounceSpreads({"01"});
  EXPECT_EQ(control.Mechanisms().VcmCasRefPrice, "700@100");
  EXPECT_EQ(events.freeText, 0);
}

TEST_F(TSymbolMessagesTest, EachMechanismInForceCountsForARebuild) {
  for (const auto& [marker, reference] : {std::pair{Field::VcmMarker, Field::VcmReferencePrice},
                                          {Field::PosMarker, Field::PosReferencePrice},
                                          {Field::CasMarker, Field::CasReferencePrice}}) {
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

TEST_F(TSymbolMessagesTest, ListsOfRelatedInstrumentsAreTheRecords) {
  Record().Set({{Field::WarrantList, "13001 13002"},
                {Field::RelatedList, "80700"},
                {Field::LiquidityProviderList, "9001 9002"}});
  ShowSymbol();
  EXPECT_EQ(control.WarrantList(), "13001 13002");
  EXPECT_EQ(control.RelatedList(), "80700");
  EXPECT_EQ(control.LiquidityProviderList(), "9001 9002");
  EXPECT_EQ(events.related, 1);
}

TEST_F(TSymbolMessagesTest, EachNewListOfRelatedInstrumentsIsTold) {
  ShowSymbol();
  EXPECT_EQ(events.related, 0);
  int told = 0;
  for (const int field : {Field::WarrantList, Field::RelatedList, Field::LiquidityProviderList}) {
    Record().Set(field, "1").Update();
    EXPECT_EQ(events.related, ++told) << field;
    Record().Update();
    EXPECT_EQ(events.related, told) << field;
  }
}

TEST_F(TSymbolMessagesTest, AnUnreadyRecordHasNoRelatedInstruments) {
  Record().Set({{Field::WarrantList, "13001"},
                {Field::RelatedList, "80700"},
                {Field::LiquidityProviderList, "9001"}});
  ShowSymbol();
  Record().SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(control.WarrantList() + control.RelatedList() + control.LiquidityProviderList(), "");
  EXPECT_EQ(events.related, 2);
}

TEST_F(TSymbolMessagesTest, RelatedInstrumentsAreNotReadWhileNobodyListens) {
  control.OnRelatedChange = nullptr;
  Record().Set(Field::WarrantList, "13001");
  ShowSymbol();
  EXPECT_EQ(control.WarrantList(), "");
}

} // namespace Quorpricedatacontrol
