// What a quantity button's caption means, and what a click on the button copies.

#include "view/QtyCaption.h"
#include "view/ViewFixture.h"

#include <QPushButton>

using namespace Quorpriceview;

namespace {

struct TCaption {
  const char* caption;
  int quantity; ///< 0: a click copies nothing
};

constexpr TCaption Captions[] = {
    {"1000", 1'000},
    {"1,000", 1'000},
    {"1,2,3", 123},
    {"2K", 2'000},
    {"2k", 2'000},
    {"1,5K", 15'000},
    {"3m", 3'000'000},
    {"3M", 3'000'000},
    {"2,K", 2'000},
    {"2147483647", 2'147'483'647},
    {"2147M", 2'147'000'000},
    {"1.5K", 0},
    {"ABC", 0},
    {"0", 0},
    {"0K", 0},
    {"K", 0},
    {"M", 0},
    {"KK", 0},
    {"2KM", 0},
    {"2K sh", 0},
    {",", 0},
    {" ", 0},
    {"-5K", 0},
    {"-1", 0},
    {"2147483648", 0},
    {"\u4E00\u5343", 0},
    {"1&0", 0},
    // 32 bits hold what is left of a larger product.
    {"3000M", 0},
    {"5000M", 705'032'704},
};

class TQtyCaptionTest : public TViewTest, public testing::WithParamInterface<TCaption> {};

TEST_P(TQtyCaptionTest, StandsForAQuantity) {
  EXPECT_EQ(std::max(QuantityOfCaption(GetParam().caption), 0), GetParam().quantity);
}

TEST_P(TQtyCaptionTest, AClickCopiesIt) {
  host.config.Set("QuorPrcBtnCaption", "Btn3", GetParam().caption);
  Open();
  Type("700");
  Find<QPushButton>("btnQty3").click();
  const auto& orders = host.channels.sentOrders;
  ASSERT_EQ(orders.size(), GetParam().quantity > 0 ? 1u : 0u);
  if (orders.empty())
    return;
  EXPECT_EQ(orders[0].symbol, "700");
  EXPECT_EQ(orders[0].quantity, GetParam().quantity);
  EXPECT_EQ(orders[0].price, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Configured, TQtyCaptionTest, testing::ValuesIn(Captions));

TEST(TQtyCaptionSignTest, ANegativeCaptionIsNegative) {
  EXPECT_EQ(QuantityOfCaption("-5K"), -5'000);
  EXPECT_EQ(QuantityOfCaption("3000M"), -1'294'967'296);
  EXPECT_EQ(QuantityOfCaption(""), 0);
}

} // namespace
