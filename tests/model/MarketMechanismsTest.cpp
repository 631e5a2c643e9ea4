#include "model/MarketMechanisms.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

// A symbol's message lines, the exchanges that are concealed, and the state of the exchange's
// mechanisms.

namespace Quorpricedatacontrol {

// Message lines

class TSymbolLinesTest : public TRecordTest {
protected:
  bool Update() { return messages.Update(&Record(), concealed); }

  TConcealedExchanges concealed;
  TSymbolMessages messages;
};

TEST_F(TSymbolLinesTest, MessagesAreTheRecords) {
  Record().Set({{Field::FirstMessage, "halted"},
                {Field::SecondMessage, "until noon"},
                {Field::OtherMessage, "other"}});
  EXPECT_TRUE(Update());
  EXPECT_EQ(messages.FreeText1, "halted");
  EXPECT_EQ(messages.FreeText2, "until noon");
  EXPECT_FALSE(Update());
}

TEST_F(TSymbolLinesTest, TheOtherMessageStandsInForBoth) {
  Record().Set(Field::OtherMessage, "other");
  EXPECT_TRUE(Update());
  EXPECT_EQ(messages.FreeText1, "other");
  EXPECT_EQ(messages.FreeText2, "");
  Record().Set(Field::SecondMessage, "second");
  Update();
  EXPECT_EQ(messages.FreeText1, "");
  EXPECT_EQ(messages.FreeText2, "second");
}

TEST_F(TSymbolLinesTest, AnUnreadyRecordShowsItsStatusText) {
  Record()
      .Set({{Field::FirstMessage, "halted"}, {Field::SecondMessage, "soon"}})
      .SetState(Constdef::RecordState_Invalid);
  Record().SetStatusText("unknown symbol");
  EXPECT_TRUE(Update());
  EXPECT_EQ(messages.FreeText1, "unknown symbol");
  EXPECT_EQ(messages.FreeText2, "");
  Record().SetState(Constdef::RecordState_Ready);
  Update();
  EXPECT_EQ(messages.FreeText1, "halted");
}

TEST_F(TSymbolLinesTest, ThereAreNoLinesWithoutARecord) {
  EXPECT_FALSE(messages.Update(nullptr, {"", "HKG"}));
  EXPECT_EQ(messages, TSymbolMessages());
}

// Concealed exchanges

class TConcealedExchangesTest : public TSymbolLinesTest {
protected:
  /// The lines of a symbol of the exchange under the configuration.
  void Show(const char* configured, const char* exchange) {
    concealed = ParseConcealedExchanges(configured);
    Record().Set({{Field::Exchange, exchange},
                  {Field::FirstMessage, "message"},
                  {Field::SecondMessage, "second"}});
    EXPECT_TRUE(Update());
  }
};

TEST_F(TConcealedExchangesTest, CodesStandBetweenCommas) {
  EXPECT_EQ(ParseConcealedExchanges(""), TConcealedExchanges());
  EXPECT_EQ(ParseConcealedExchanges("hkg, Sse"), (TConcealedExchanges{"HKG", " SSE"}));
  EXPECT_EQ(ParseConcealedExchanges("A,,A,"), (TConcealedExchanges{"A", ""}));
}

TEST_F(TConcealedExchangesTest, AConcealedExchangesSymbolIsInvalidUntilForgotten) {
  Show("SSE,HKG", "HKG");
  EXPECT_EQ(messages.FreeText1, "Res_InvalidSymbol");
  EXPECT_EQ(messages.FreeText2, "second");
  EXPECT_TRUE(messages.Concealed);
  Record().Set(Field::Exchange, "SZA");
  EXPECT_TRUE(Update());
  EXPECT_EQ(messages.FreeText1, "message");
  EXPECT_TRUE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, AnotherExchangesSymbolIsNot) {
  Show("SSE,HKG", "SZA");
  EXPECT_EQ(messages.FreeText1, "message");
  EXPECT_FALSE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, ConfiguredCodesAreTakenInUpperCase) {
  Show("hkg", "HKG");
  EXPECT_TRUE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, ALowerCaseCodeOfARecordNeverMatches) {
  Show("hkg", "hkg");
  EXPECT_FALSE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, ConfiguredCodesAreNotTrimmed) {
  Show("SSE, HKG", "HKG");
  EXPECT_FALSE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, AnEmptyItemConcealsRecordsWithoutExchange) {
  Show("SSE,,HKG", "");
  EXPECT_TRUE(messages.Concealed);
}

TEST_F(TConcealedExchangesTest, AnEmptyConfigurationConcealsNothing) {
  Show("", "");
  EXPECT_FALSE(messages.Concealed);
}

// Pre-opening session

class TMarketMechanismsTest : public TRecordTest {
protected:
  bool Update() { return state.Update(&Record()); }

  TMarketMechanisms state;
};

TEST_F(TMarketMechanismsTest, WithoutARecordNothingIsInForce) {
  EXPECT_FALSE(state.Update(nullptr));
  EXPECT_EQ(state, TMarketMechanisms());
  EXPECT_FALSE(state.AnyInForce());
}

TEST_F(TMarketMechanismsTest, OneInForceIsEnough) {
  for (bool TMarketMechanisms::*inForce :
       {&TMarketMechanisms::VcmInForce, &TMarketMechanisms::CasInForce,
        &TMarketMechanisms::PosInForce}) {
    TMarketMechanisms one;
    one.*inForce = true;
    EXPECT_TRUE(one.AnyInForce());
  }
  state.VcmMarker = state.CasMarker = state.PosMarker = true;
  EXPECT_FALSE(state.AnyInForce());
}

struct TImbalanceCase {
  const char* direction;
  const char* text;
};

class TImbalanceTest : public TMarketMechanismsTest,
                       public testing::WithParamInterface<TImbalanceCase> {};

TEST_P(TImbalanceTest, ReadsAsBuyersAgainstSellers) {
  Record().Set({{Field::PosMarker, "1"},
                {Field::ImbalanceDirection, GetParam().direction},
                {Field::ImbalanceQuantity, "12000"}});
  EXPECT_TRUE(Update());
  EXPECT_EQ(state.PosStateText, GetParam().text);

  Record()
      .Remove(Field::PosMarker)
      .Set({{Field::CasMarker, "1"}, {Field::CasReferencePrice, "100"}});
  Update();
  EXPECT_EQ(state.VcmCasStateText, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Directions, TImbalanceTest,
    testing::Values(TImbalanceCase{"1", "Res_Bid_Short=Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"2", "Res_Bid_Short>Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"3", "Res_Bid_Short<Res_Side_Sell_Short: 12,000 sh"},
                    TImbalanceCase{"4", ""}, TImbalanceCase{"", ""}));

TEST_F(TMarketMechanismsTest, ThePreOpeningSessionShowsItsPrices) {
  Record().Set({{Field::PosMarker, "1"},
                {Field::PosReferencePrice, "100"},
                {Field::PosLowerPrice, "85"},
                {Field::PosUpperPrice, "115"},
                {Field::PosSellLowerLimit, "84"}});
  Record().Set(Field::PosBuyUpperLimit, "116");
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.PosMarker);
  EXPECT_TRUE(state.PosInForce);
  EXPECT_EQ(state.PosStateText, "");
  EXPECT_EQ(state.PosRefPrice, "700@100");
  EXPECT_EQ(state.PosLowerPrice, "700@85");
  EXPECT_EQ(state.PosUpperPrice, "700@115");
  EXPECT_EQ(state.PosSellLowerLimit, "700@84");
  EXPECT_EQ(state.PosBuyUpperLimit, "700@116");
  EXPECT_FALSE(state.VcmMarker || state.VcmInForce || state.CasMarker || state.CasInForce);
}

TEST_F(TMarketMechanismsTest, PricesThatThePreOpeningSessionDoesNotGiveAreEmpty) {
  Record().Set({{Field::PosMarker, "1"}, {Field::PosReferencePrice, ""}});
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.PosInForce);
  EXPECT_EQ(state.PosRefPrice, "");
  EXPECT_EQ(state.PosUpperPrice, "");
}

TEST_F(TMarketMechanismsTest, ThePreOpeningSessionsTextsOutliveIt) {
  Record().Set({{Field::PosMarker, "1"}, {Field::PosReferencePrice, "100"}});
  EXPECT_TRUE(Update());
  Record().Set(Field::PosMarker, "0");
  EXPECT_TRUE(Update());
  EXPECT_FALSE(state.PosMarker);
  EXPECT_FALSE(state.PosInForce);
  EXPECT_EQ(state.PosRefPrice, "700@100");
}

// Volatility control

TEST_F(TMarketMechanismsTest, VolatilityControlShowsItsCoolingOffPeriodAndPrices) {
  Record().Set({{Field::VcmMarker, "1"},
                {Field::VcmStartTime, "10:00"},
                {Field::VcmEndTime, "10:05"},
                {Field::VcmReferencePrice, "0.13"}});
  Record().Set({{Field::VcmLowerPrice, "0.117"}, {Field::VcmUpperPrice, "0.143"}});
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.VcmMarker);
  EXPECT_TRUE(state.VcmInForce);
  EXPECT_EQ(state.VcmCasStateText, "10:00-10:05");
  EXPECT_EQ(state.VcmCasRefPrice, "700@0.13");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@0.117");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@0.143");
  EXPECT_FALSE(state.CasMarker || state.CasInForce || state.PosMarker || state.PosInForce);
}

TEST_F(TMarketMechanismsTest, VolatilityControlIsInForceFromItsReferencePriceToTheEndOfItsMarker) {
  Record().Set(Field::VcmMarker, "1");
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.VcmMarker);
  EXPECT_FALSE(state.VcmInForce);
  Record().Set(Field::VcmReferencePrice, "0.13");
  Update();
  EXPECT_TRUE(state.VcmInForce);
  Record().Remove(Field::VcmReferencePrice);
  Update();
  EXPECT_TRUE(state.VcmInForce);
  EXPECT_EQ(state.VcmCasRefPrice, "700@0.13");
  Record().Set(Field::VcmMarker, "0");
  Update();
  EXPECT_FALSE(state.VcmMarker);
  EXPECT_FALSE(state.VcmInForce);
  EXPECT_EQ(state.VcmCasRefPrice, "700@0.13");
}

// Closing auction

TEST_F(TMarketMechanismsTest, TheClosingAuctionShowsItsImbalanceAndPrices) {
  Record().Set({{Field::CasMarker, "1"},
                {Field::CasReferencePrice, "100"},
                {Field::CasLowerPrice, "95"},
                {Field::CasUpperPrice, "105"},
                {Field::ImbalanceDirection, "2"}});
  Record().Set(Field::ImbalanceQuantity, "500");
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.CasMarker);
  EXPECT_TRUE(state.CasInForce);
  EXPECT_EQ(state.VcmCasStateText, "Res_Bid_Short>Res_Side_Sell_Short: 500 sh");
  EXPECT_EQ(state.VcmCasRefPrice, "700@100");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@95");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@105");
  EXPECT_FALSE(state.VcmMarker || state.VcmInForce || state.PosMarker || state.PosInForce);
}

TEST_F(TMarketMechanismsTest, TheClosingAuctionIsInForceFromItsReferencePriceToTheEndOfItsMarker) {
  Record().Set(Field::CasMarker, "1");
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.CasMarker);
  EXPECT_FALSE(state.CasInForce);
  Record().Set(Field::CasReferencePrice, "100");
  Update();
  EXPECT_TRUE(state.CasInForce);
  Record().Remove(Field::CasReferencePrice);
  Update();
  EXPECT_TRUE(state.CasInForce);
  EXPECT_EQ(state.VcmCasRefPrice, "700@100");
  Record().Remove(Field::CasMarker);
  Update();
  EXPECT_FALSE(state.CasMarker);
  EXPECT_FALSE(state.CasInForce);
}

TEST_F(TMarketMechanismsTest, TheClosingAuctionsTextsAreLeftWhereBothMechanismsAreInForce) {
  Record().Set({{Field::VcmMarker, "1"},
                {Field::VcmStartTime, "a"},
                {Field::VcmEndTime, "b"},
                {Field::VcmReferencePrice, "1"},
                {Field::VcmLowerPrice, "2"},
                {Field::VcmUpperPrice, "3"}});
  Record().Set({{Field::CasMarker, "1"},
                {Field::CasReferencePrice, "4"},
                {Field::CasLowerPrice, "5"},
                {Field::CasUpperPrice, "6"},
                {Field::ImbalanceDirection, "1"}});
  EXPECT_TRUE(Update());
  EXPECT_TRUE(state.VcmInForce && state.CasInForce);
  EXPECT_EQ(state.VcmCasStateText, "Res_Bid_Short=Res_Side_Sell_Short: ");
  EXPECT_EQ(state.VcmCasRefPrice, "700@4");
  EXPECT_EQ(state.VcmCasLowerPrice, "700@5");
  EXPECT_EQ(state.VcmCasUpperPrice, "700@6");
  EXPECT_FALSE(Update());
}

} // namespace Quorpricedatacontrol
