#include "host/ConstDef.h"
#include "model/ModelFixture.h"

// What a click on a header row that describes the instrument copies to order entry.

namespace Quorpricedatacontrol {

using Fakes::TSentOrder;

class CopyDetailRowsTest : public DepthControlTest {
protected:
  CopyDetailRowsTest() {
    control.SetDisplayMode(qm10Full);
    Record().Set({{22, "4"}, {10, "AB#XXXXXR"}, {26, "5"}, {27, "20"}, {172, "19.5"}});
    Record().Set({{3000, "7"}, {104, "0.1"}, {18, "5000"}, {24, "500"}});
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

TEST_F(CopyDetailRowsTest, TheStrikePriceIsCopiedWithoutQuantity) {
  for (const char* style : {"D", "N", "S"}) {
    SetStyle(style);
    const TSentOrder order = ClickCaption("Res_StrikePrice");
    EXPECT_EQ(order.symbol, "700") << style;
    EXPECT_EQ(order.price, 20) << style;
    EXPECT_FALSE(order.quantity.has_value()) << style;
    EXPECT_TRUE(order.values.empty()) << style;
  }
}

TEST_F(CopyDetailRowsTest, TheStrikePriceIsCopiedWithOneLotInTheOneLotStyle) {
  SetStyle("L");
  const TSentOrder order = ClickCaption("Res_StrikePrice");
  EXPECT_EQ(order.price, 20);
  EXPECT_EQ(order.quantity, 500);
}

TEST_F(CopyDetailRowsTest, OtherRowsCopyTheSymbolAlone) {
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

TEST_F(CopyDetailRowsTest, AStocksRowsCopyTheSymbolAlone) {
  host.Record("1").Set({{22, "1"}, {3, "10"}, {18, "2000"}, {506, "9"}, {49, "15"}, {102, "3"}});
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
