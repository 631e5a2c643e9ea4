#include "host/RecordFields.h"
#include "terminal/services/Formatters.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

namespace Field = Host::Field;

using Data::TRecordChange;
using Terminal::TFormatter;
using Terminal::TMarketDataFormatter;

/// Of which no rule says anything.
constexpr int AnyField = 5000;

class TFormatsTest : public testing::Test {
protected:
  TFormatsTest() {
    Market.DefineSpreadTables({{"01", 1, {{0, 0.25, 0.001}, {0.25, 100, 0.05}, {100, 500, 0.2}}},
                               {"02", 0, {{0, 500, 0.001}}}});
  }

  const Terminal::TRecord& Record(std::vector<std::pair<int, std::optional<std::string>>> fields) {
    Data::TRecordChange change;
    change.Symbol = "S" + std::to_string(++made_);
    change.Fields = std::move(fields);
    Adapter.Apply(change);
    return *Adapter.Find(change.Symbol);
  }

  /// "refused" when the formatter refuses.
  std::string Price(const Terminal::TRecord& record, int field) {
    std::string text = "left over";
    const bool given = MarketData.FormatPrice(record, field, text);
    EXPECT_EQ(given, !text.empty());
    return given ? text : "refused";
  }
  std::string PriceOf(const std::string& text) {
    return Price(Record({{AnyField, text}}), AnyField);
  }
  std::string PriceOf(const std::string& text, const std::string& table,
                      const std::string& nominal) {
    return Price(Record({{AnyField, text}, {Field::SpreadCode, table}, {Field::Nominal, nominal}}),
                 AnyField);
  }
  std::string VolumeOf(const std::string& given) {
    std::string text = "left over";
    const bool shown =
        MarketData.FormatVolume(Record({{Field::Volume, given}}), Field::Volume, text);
    EXPECT_EQ(shown, !text.empty());
    return shown ? text : "refused";
  }
  std::string Change(const Terminal::TRecord& record) {
    std::string text = "left over";
    const bool given = MarketData.FormatChange(record, text);
    EXPECT_EQ(given, !text.empty());
    return given ? text : "refused";
  }
  std::string ChangePercent(const Terminal::TRecord& record) {
    std::string text = "left over";
    const bool given = MarketData.FormatChangePercent(record, text);
    EXPECT_EQ(given, !text.empty());
    return given ? text : "refused";
  }

  Terminal::TSymbolDirectory Symbols;
  Terminal::TTradeSideDetector Trades;
  Terminal::TMarketAdapter Market{Symbols};
  Terminal::TSubscribeAdapter Adapter{Symbols, Trades};
  Terminal::TLanguageTexts Languages;
  TFormatter Formatter{Market, Adapter, Languages};
  TMarketDataFormatter MarketData{Market};

private:
  int made_ = 0;
};

TEST_F(TFormatsTest, AWholeNumberIsGroupedAndTwoDecimalsAreOnDemand) {
  EXPECT_EQ(Formatter.FormatNumber(0, 0), "0");
  EXPECT_EQ(Formatter.FormatNumber(999, 0), "999");
  EXPECT_EQ(Formatter.FormatNumber(1000, 0), "1,000");
  EXPECT_EQ(Formatter.FormatNumber(1234567.6, 0), "1,234,568");
  EXPECT_EQ(Formatter.FormatNumber(-12000, 0), "-12,000");
  EXPECT_EQ(Formatter.FormatNumber(-123, 0), "-123");
  EXPECT_EQ(Formatter.FormatNumber(0, 1), "0.00");
  EXPECT_EQ(Formatter.FormatNumber(1234.5, 1), "1,234.50");
  EXPECT_EQ(Formatter.FormatNumber(-0.001, 1), "0.00");
  EXPECT_EQ(Formatter.FormatNumber(12.346, 1), "12.35");
  EXPECT_EQ(Formatter.FormatNumber(std::nan(""), 1), "");
}

TEST_F(TFormatsTest, AQuantityIsGroupedAndKeepsAFraction) {
  EXPECT_EQ(Formatter.FormatQuantity(0), "0");
  EXPECT_EQ(Formatter.FormatQuantity(12000), "12,000");
  EXPECT_EQ(Formatter.FormatQuantity(9556000000), "9,556,000,000");
  EXPECT_EQ(Formatter.FormatQuantity(1234.5), "1,234.5");
}

TEST_F(TFormatsTest, AnAmountHasCentsWhenItHasAFractionAndIsShortenedFromTenMillion) {
  EXPECT_EQ(Formatter.FormatAmount("700", 0), "0");
  EXPECT_EQ(Formatter.FormatAmount("700", 999999), "999,999");
  EXPECT_EQ(Formatter.FormatAmount("700", 1234.5), "1,234.50");
  EXPECT_EQ(Formatter.FormatAmount("700", 1999.999), "2,000");
  EXPECT_EQ(Formatter.FormatAmount("700", 9999999), "9,999,999");
  EXPECT_EQ(Formatter.FormatAmount("700", 10000000), "10.00M");
  EXPECT_EQ(Formatter.FormatAmount("700", 3012345678901), "3.01T");
}

TEST_F(TFormatsTest, AnAbbreviatedAmountIsInThousandsMillionsOrBillions) {
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(0, 2), "0");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(950.255, 2), "950.25");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(1500, 2), "1.50K");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(1000000, 2), "1.00M");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(1234567, 2), "1.23M");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(4560000000, 2), "4.56B");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(3012345678901, 1), "3.0T");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(999999999, 2), "1.00B");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(999994999, 2), "999.99M");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(-1234567, 0), "-1M");
}

TEST_F(TFormatsTest, AmountsHaveTheUnitsOfTheLanguage) {
  Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(9500, 2), "9,500");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(12000, 2), "1.20萬");
  EXPECT_EQ(Formatter.FormatAbbreviatedAmount(99999999, 2), "1.00億");
  EXPECT_EQ(Formatter.FormatAmount("700", 580000000), "5.80億");
  EXPECT_EQ(Formatter.FormatAmount("700", 2927440000000), "2.93萬億");
  Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  EXPECT_EQ(Formatter.FormatAmount("700", 10000000), "1,000.00万");
  EXPECT_EQ(Formatter.FormatAmount("700", 580000000), "5.80亿");
  EXPECT_EQ(Formatter.FormatAmount("700", 2927440000000), "2.93万亿");
}

TEST_F(TFormatsTest, AllPricesOfALadderHaveTheDecimalsThatOneOfThemNeeds) {
  const auto& record = Record({{Field::SpreadCode, "01"},
                               {Field::Nominal, "0.3"},
                               {Field::BestBid, "0.3"},
                               {Field::Bid.Price[1], "0.25"},
                               {Field::Bid.Price[2], "0.249"},
                               {Field::BestAsk, "0.35"},
                               {Field::Ask.Price[1], "0.4"}});
  EXPECT_EQ(Price(record, Field::BestBid), "0.300");
  EXPECT_EQ(Price(record, Field::Bid.Price[1]), "0.250");
  EXPECT_EQ(Price(record, Field::Bid.Price[2]), "0.249");
  EXPECT_EQ(Price(record, Field::Ask.Price[1]), "0.400");
  EXPECT_EQ(Price(record, Field::Nominal), "0.300");
  EXPECT_EQ(Formatter.FormatPrice(record.Symbol(), 0, 0.3), "0.300") << "as the nominal reads";
}

TEST_F(TFormatsTest, APriceHasTheDecimalsOfItsStepAtTheNominalPrice) {
  EXPECT_EQ(PriceOf("318", "01", "318.2"), "318.0");
  EXPECT_EQ(PriceOf("318.2", "01", "318.2"), "318.2");
  EXPECT_EQ(PriceOf("60.1", "01", "60"), "60.10");
  EXPECT_EQ(PriceOf("0.2", "01", "0.21"), "0.200");
  EXPECT_EQ(PriceOf("0", "01", "60"), "0.00");
  EXPECT_EQ(PriceOf("318.200000", "01", "318.2"), "318.2");
}

TEST_F(TFormatsTest, APriceIsNeverCut) {
  EXPECT_EQ(PriceOf("318.25", "01", "318.2"), "318.25");
  EXPECT_EQ(PriceOf("60.1234567", "01", "60"), "60.1234567");
  EXPECT_EQ(PriceOf("60.123450", "01", "60"), "60.12345");
}

TEST_F(TFormatsTest, WithoutASpreadTableThatIsReadyAPriceStaysAsTheFeedGaveIt) {
  EXPECT_EQ(PriceOf("318.20"), "318.20");
  EXPECT_EQ(PriceOf("318"), "318");
  EXPECT_EQ(PriceOf("318.2", "02", "318.2"), "318.2") << "table not ready";
  EXPECT_EQ(PriceOf("318.2", "99", "318.2"), "318.2") << "table unknown";
  EXPECT_EQ(PriceOf("9000.50", "01", "9000"), "9000.50") << "outside the bands";
}

TEST_F(TFormatsTest, TheStepIsThatOfThePreviousCloseOrTheBestPricesUntilThereIsANominal) {
  EXPECT_EQ(
      Price(Record(
                {{Field::SpreadCode, "01"}, {Field::PreviousClose, "60"}, {Field::BestBid, "150"}}),
            Field::PreviousClose),
      "60.00");
  EXPECT_EQ(Price(Record({{Field::SpreadCode, "01"},
                          {Field::Nominal, "0"},
                          {Field::BestBid, "0.2"},
                          {Field::BestAsk, "60"}}),
                  Field::BestBid),
            "0.200");
  EXPECT_EQ(Price(Record({{Field::SpreadCode, "01"}, {Field::BestAsk, "60"}}), Field::BestAsk),
            "60.00");
}

TEST_F(TFormatsTest, APriceTextThatIsNotPlainIsReadAsANumberOrShownAsItStands) {
  EXPECT_EQ(PriceOf(" 318.2 "), "318.2");
  EXPECT_EQ(PriceOf("+5.50"), "5.50");
  EXPECT_EQ(PriceOf("-0.35"), "-0.35");
  EXPECT_EQ(PriceOf("-0.00"), "0.00");
  EXPECT_EQ(PriceOf(".5"), "0.5");
  EXPECT_EQ(PriceOf("1e2"), "100");
  EXPECT_EQ(PriceOf("007.5", "01", "60"), "7.50");
  EXPECT_EQ(PriceOf("N/A"), "N/A");
  EXPECT_EQ(PriceOf("1,234.5"), "1,234.5");
}

TEST_F(TFormatsTest, APriceIsRefusedWithoutAReadyRecordFieldAndText) {
  EXPECT_EQ(Price(Record({{Field::BestBid, ""}}), Field::BestBid), "refused");
  EXPECT_EQ(Price(Record({{Field::BestAsk, "5"}}), Field::BestBid), "refused");
  Data::TRecordChange rejected;
  rejected.Symbol = "X";
  rejected.State = 2;
  rejected.Fields = {{Field::BestBid, "5"}, {Field::Volume, "5"},
                     {Field::Change, "5"},  {Field::ChangePercent, "5"},
                     {Field::Nominal, "5"}, {Field::PreviousClose, "4"}};
  Adapter.Apply(rejected);
  const auto& record = *Adapter.Find("X");
  std::string text;
  EXPECT_EQ(Price(record, Field::BestBid), "refused");
  EXPECT_FALSE(MarketData.FormatVolume(record, Field::Volume, text));
  EXPECT_EQ(Change(record), "refused");
  EXPECT_EQ(ChangePercent(record), "refused");
}

TEST_F(TFormatsTest, APriceOfASymbolFollowsItsSpreadTableOrThePrecisionAskedFor) {
  Data::TRecordChange change;
  change.Symbol = "700";
  change.Fields = {{Field::SpreadCode, "01"}, {Field::Nominal, "60"}};
  Adapter.Apply(change);
  EXPECT_EQ(Formatter.FormatPrice("700", 0, 318), "318.00");
  EXPECT_EQ(Formatter.FormatPrice("700", 0, 0.001), "0.001");
  EXPECT_EQ(Formatter.FormatPrice("700", 0, 0.1 + 0.2), "0.30");
  EXPECT_EQ(Formatter.FormatPrice("700", 8, 318), "318");
  EXPECT_EQ(Formatter.FormatPrice("700", 6, 0.1234567), "0.123457");
  EXPECT_EQ(Formatter.FormatPrice("700", 8, 12.5), "12.5");
  EXPECT_EQ(Formatter.FormatPrice("5", 0, 60.125), "60.125") << "no spread table";
  EXPECT_EQ(Formatter.FormatPrice("5", 0, 0), "0");
}

TEST_F(TFormatsTest, AVolumeIsGrouped) {
  EXPECT_EQ(VolumeOf("0"), "0");
  EXPECT_EQ(VolumeOf("12000"), "12,000");
  EXPECT_EQ(VolumeOf(" 123 "), "123");
  EXPECT_EQ(VolumeOf("1234567"), "1,234,567");
  EXPECT_EQ(VolumeOf("12000.0"), "12,000");
  EXPECT_EQ(VolumeOf("1234.56"), "1,234.56");
  EXPECT_EQ(VolumeOf("-1200"), "-1,200");
  EXPECT_EQ(VolumeOf("00500"), "500");
  EXPECT_EQ(VolumeOf("n/a"), "n/a");
  EXPECT_EQ(VolumeOf(""), "refused");
}

TEST_F(TFormatsTest, AChangeHasItsSignAndTheDecimalsOfThePrice) {
  EXPECT_EQ(
      Change(Record({{Field::Change, "1.2"}, {Field::SpreadCode, "01"}, {Field::Nominal, "60"}})),
      "+1.20");
  EXPECT_EQ(
      Change(Record({{Field::Change, "-0.35"}, {Field::SpreadCode, "01"}, {Field::Nominal, "60"}})),
      "-0.35");
  EXPECT_EQ(
      Change(Record({{Field::Change, "0"}, {Field::SpreadCode, "01"}, {Field::Nominal, "60"}})),
      "0.00");
  EXPECT_EQ(Change(Record({{Field::Change, "+1.20"}})), "+1.20");
  EXPECT_EQ(Change(Record({{Field::Change, "-0.00"}})), "0.00");
  EXPECT_EQ(Change(Record({{Field::Change, "unch"}})), "unch");
}

TEST_F(TFormatsTest, WithoutItsFieldTheChangeIsTheNominalLessThePreviousClose) {
  EXPECT_EQ(
      Change(Record(
          {{Field::Nominal, "318.2"}, {Field::PreviousClose, "317.0"}, {Field::SpreadCode, "01"}})),
      "+1.2");
  EXPECT_EQ(Change(Record(
                {{Field::Nominal, "60.15"}, {Field::PreviousClose, "60.5"}, {Field::Change, ""}})),
            "-0.35");
  EXPECT_EQ(Change(Record({{Field::Nominal, "60.50"}, {Field::PreviousClose, "60.5"}})), "0.00");
  EXPECT_EQ(Change(Record({{Field::Nominal, "60"}})), "refused");
  EXPECT_EQ(Change(Record({{Field::PreviousClose, "60"}, {Field::Nominal, "0"}})), "refused")
      << "nothing traded yet";
}

TEST_F(TFormatsTest, AChangePercentHasItsSignAndTwoDecimals) {
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "0.379"}})), "+0.38%");
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "-1.5%"}})), "-1.50%");
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "0"}})), "0.00%");
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "-0.001"}})), "0.00%");
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "0.001"}})), "0.00%");
  EXPECT_EQ(ChangePercent(Record({{Field::ChangePercent, "n/a"}})), "n/a");
  EXPECT_EQ(ChangePercent(Record({{Field::Nominal, "318.2"}, {Field::PreviousClose, "317"}})),
            "+0.38%");
  EXPECT_EQ(ChangePercent(Record({{Field::Nominal, "318.2"}})), "refused");
}

} // namespace
