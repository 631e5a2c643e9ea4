#include "host/ConstDef.h"
#include "model/ControlFixture.h"

// What a click on a header row that describes the instrument copies to order entry.

namespace Quorpricedatacontrol {

using Fakes::TSentOrder;

class TCopyDetailRowsTest : public TDepthControlTest {
protected:
  TCopyDetailRowsTest() {
    control.SetDisplayMode(qm10Full);
    Record().Set({{Field::ProductType, "4"},
                  {Field::Name, "AB#XXXXXR"},
                  {Field::Underlying, "5"},
                  {Field::StrikePrice, "20"},
                  {Field::CallPrice, "19.5"}});
    Record().Set({{Field::Category, "7"},
                  {Field::ConversionRatio, "0.1"},
                  {Field::IssueSize, "5000"},
                  {Field::BoardLot, "500"}});
    ShowSymbol();
  }

  void SetStyle(const char* style) {
    host.config.SetCurrent("CopyPriceStyle", style);
    host.config.Announce();
  }

  /// The order that a click on the row with the caption sends.
  TSentOrder ClickCaption(const std::string& caption) {
    host.channels.sentOrders.clear();
    for (int row = 11; row < control.GetCount(); ++row)
      if (control.GetCellHeader(row) == caption)
        control.CopyPrice(row, Column::HeaderValue);
    EXPECT_EQ(host.channels.sentOrders.size(), 1u) << caption;
    return host.channels.sentOrders.empty() ? TSentOrder() : host.channels.sentOrders.front();
  }
};

TEST_F(TCopyDetailRowsTest, TheStrikePriceIsCopiedWithoutQuantity) {
  for (const char* style : {"D", "N", "S"}) {
    SetStyle(style);
    const TSentOrder order = ClickCaption("Res_StrikePrice");
    EXPECT_EQ(order.symbol, "700") << style;
    EXPECT_EQ(order.price, 20) << style;
    EXPECT_FALSE(order.quantity.has_value()) << style;
    EXPECT_TRUE(order.values.empty()) << style;
  }
}

TEST_F(TCopyDetailRowsTest, TheStrikePriceIsCopiedWithOneLotInTheOneLotStyle) {
  SetStyle("L");
  const TSentOrder order = ClickCaption("Res_StrikePrice");
  EXPECT_EQ(order.price, 20);
  EXPECT_EQ(order.quantity, 500);
}

TEST_F(TCopyDetailRowsTest, OtherRowsCopyTheSymbolAlone) {
  for (const char* style : {"D", "L", "N", "S"}) {
    SetStyle(style);
    for (const char* caption : {"Res_Underlyer", "Res_Call_Price", "Res_Category",
                                "Res_Conversion_Ratio", "Res_IssueSize"}) {
      const TSentOrder order = ClickCaption(caption);
      EXPECT_EQ(order.symbol, "700") << caption << style;
      EXPECT_FALSE(order.price.has_value()) << caption << style;
      EXPECT_FALSE(order.quantity.has_value()) << caption << style;
      EXPECT_TRUE(order.values.empty()) << caption << style;
    }
  }
}

TEST_F(TCopyDetailRowsTest, AStocksRowsCopyTheSymbolAlone) {
  host.Record("1").Set({{Field::ProductType, "1"},
                        {Field::Nominal, "10"},
                        {Field::IssueSize, "2000"},
                        {Field::MarketCap, "9"},
                        {Field::PriceEarnings, "15"},
                        {Field::DividendYield, "3"}});
  control.SetSymbol("1");
  SetStyle("L");
  for (const char* caption : {"Res_IssuedShares", "Res_MarketCap", "Res_PE", "Res_Yield"}) {
    const TSentOrder order = ClickCaption(caption);
    EXPECT_EQ(order.symbol, "1") << caption;
    EXPECT_FALSE(order.price.has_value()) << caption;
    EXPECT_FALSE(order.quantity.has_value()) << caption;
  }
}

} // namespace Quorpricedatacontrol
