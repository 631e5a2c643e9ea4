#include "model/QuorTypes.h"

#include <gtest/gtest.h>

#include <array>

// The numbers that others keep: layouts are saved by ordinal, columns ask by identifier, and
// records, recorded ones too, are filled by field number.

namespace Quorpricedatacontrol {

using TLevels = std::array<int, Field::DepthLevels>;

TEST(TQuorTypesTest, LayoutsAreSavedByTheirOrdinals) {
  EXPECT_EQ(qm5Full, 0);
  EXPECT_EQ(qm10Simple, 1);
  EXPECT_EQ(qm10Full, 2);
}

TEST(TQuorTypesTest, ColumnsAskByTheirIdentifiers) {
  EXPECT_EQ(Column::BidPrice, 1);
  EXPECT_EQ(Column::AskPrice, 2);
  EXPECT_EQ(Column::HeaderValue, 3);
  EXPECT_EQ(Column::BidSize, 16);
  EXPECT_EQ(Column::AskSize, 19);
  EXPECT_EQ(Column::HeaderCaption, 21);
  EXPECT_EQ(Column::BidQueue1, 55);
  EXPECT_EQ(Column::BidQueue4, 58);
  EXPECT_EQ(Column::AskQueue1, 65);
  EXPECT_EQ(Column::AskQueue4, 68);
  EXPECT_EQ(Column::InfoOpen, 10000);
  EXPECT_EQ(Column::InfoHigh, 10001);
  EXPECT_EQ(Column::InfoLow, 10002);
  EXPECT_EQ(Column::InfoPreviousClose, 10003);
  EXPECT_EQ(Column::InfoCurrency, 10004);
}

TEST(TQuorTypesTest, TheBooksFieldsHaveTheirNumbers) {
  EXPECT_EQ(Field::Bid.Price, (TLevels{1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184}));
  EXPECT_EQ(Field::Bid.Size, (TLevels{16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159}));
  EXPECT_EQ(Field::Bid.Count, (TLevels{55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140}));
  EXPECT_EQ(Field::Ask.Price, (TLevels{2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194}));
  EXPECT_EQ(Field::Ask.Size, (TLevels{19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169}));
  EXPECT_EQ(Field::Ask.Count, (TLevels{65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150}));
  EXPECT_EQ(Field::Bid.Queue, 120);
  EXPECT_EQ(Field::Ask.Queue, 121);
}

TEST(TQuorTypesTest, OtherFieldsHaveTheirNumbers) {
  constexpr std::pair<int, int> fields[] = {{Field::BestBid, 1},
                                            {Field::BestAsk, 2},
                                            {Field::BestBidSize, 16},
                                            {Field::BestAskSize, 19},
                                            {Field::BidQueue, 120},
                                            {Field::AskQueue, 121},
                                            {Field::Nominal, 3},
                                            {Field::Status, 5},
                                            {Field::Volume, 17},
                                            {Field::PreviousClose, 31},
                                            {Field::Low, 32},
                                            {Field::UpdateTime, 33},
                                            {Field::High, 37},
                                            {Field::Turnover, 38},
                                            {Field::Change, 48},
                                            {Field::ChangePercent, 130},
                                            {Field::High52Weeks, 131},
                                            {Field::Low52Weeks, 132},
                                            {Field::Open, 133},
                                            {Field::Name, 10},
                                            {Field::IssueSize, 18},
                                            {Field::Exchange, 20},
                                            {Field::ProductType, 22},
                                            {Field::Currency, 23},
                                            {Field::BoardLot, 24},
                                            {Field::SpreadCode, 73},
                                            {Field::PriceEarnings, 49},
                                            {Field::DividendYield, 102},
                                            {Field::UpperLimit, 116},
                                            {Field::LowerLimit, 117},
                                            {Field::AccruedInterest, 118},
                                            {Field::MarketCap, 506},
                                            {Field::Underlying, 26},
                                            {Field::StrikePrice, 27},
                                            {Field::CallPut, 28},
                                            {Field::ExpiryDate, 29},
                                            {Field::Premium, 103},
                                            {Field::ConversionRatio, 104},
                                            {Field::Gearing, 106},
                                            {Field::OptionStyle, 170},
                                            {Field::CallPrice, 172},
                                            {Field::WarrantList, 135},
                                            {Field::RelatedList, 136},
                                            {Field::LiquidityProviderList, 3200},
                                            {Field::FirstMessage, 200},
                                            {Field::SecondMessage, 201},
                                            {Field::OtherMessage, 25},
                                            {Field::VcmMarker, 3500},
                                            {Field::VcmStartTime, 3501},
                                            {Field::VcmEndTime, 3502},
                                            {Field::VcmReferencePrice, 3503},
                                            {Field::VcmLowerPrice, 3504},
                                            {Field::VcmUpperPrice, 3505},
                                            {Field::PosMarker, 3506},
                                            {Field::PosReferencePrice, 3507},
                                            {Field::PosLowerPrice, 3508},
                                            {Field::PosUpperPrice, 3509},
                                            {Field::PosSellLowerLimit, 3551},
                                            {Field::PosBuyUpperLimit, 3552},
                                            {Field::CasMarker, 3510},
                                            {Field::CasReferencePrice, 3511},
                                            {Field::CasLowerPrice, 3512},
                                            {Field::CasUpperPrice, 3513},
                                            {Field::ImbalanceDirection, 3514},
                                            {Field::ImbalanceQuantity, 3515},
                                            {Field::Category, 3000},
                                            {Field::None, -1}};
  for (const auto& [field, number] : fields)
    EXPECT_EQ(field, number);
}

} // namespace Quorpricedatacontrol
