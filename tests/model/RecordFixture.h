#pragma once

#include "fakes/HostFakes.h"
#include "model/QuorTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace Quorpricedatacontrol {

/// A field that nothing is made of.
inline constexpr int UnknownField = 99999;

/// Columns of the book in the depth grid.
inline constexpr int PriceAndSizeColumns[] = {Column::BidPrice, Column::AskPrice, Column::BidSize,
                                              Column::AskSize};

/// A host, and a symbol's record that is ready and has no field.
class TRecordTest : public testing::Test {
protected:
  Fakes::TFakeRecord& Record() { return host.Record("700"); }

  Fakes::THostFakes host;
};

/// Ten priced levels a side: bids 99, 98, ..., asks 101, 102, ...; sizes 1000, 2000, ... and
/// 1100, 2100, ...; order counts 1, 2, ... and 11, 12, ...
inline void FillDepth(Fakes::TFakeRecord& record) {
  for (int level = 0; level < Field::DepthLevels; ++level) {
    const auto at = static_cast<std::size_t>(level);
    record.Set(Field::Bid.Price[at], std::to_string(99 - level));
    record.Set(Field::Ask.Price[at], std::to_string(101 + level));
    record.Set(Field::Bid.Size[at], std::to_string(1000 * (level + 1)));
    record.Set(Field::Ask.Size[at], std::to_string(1000 * (level + 1) + 100));
    record.Set(Field::Bid.Count[at], std::to_string(1 + level));
    record.Set(Field::Ask.Count[at], std::to_string(11 + level));
  }
}

/// The same levels as an order-count feed gives them: no prices beyond the best.
inline void FillOrderCountDepth(Fakes::TFakeRecord& record) {
  FillDepth(record);
  for (std::size_t level = 1; level < Field::DepthLevels; ++level)
    record.Remove(Field::Bid.Price[level]).Remove(Field::Ask.Price[level]);
}

/// Values for the header rows that only some symbols have.
inline void FillOptionalHeader(Fakes::TFakeRecord& record) {
  record.Set({{Field::UpperLimit, "110"},
              {Field::LowerLimit, "90"},
              {Field::AccruedInterest, "1"},
              {Field::High52Weeks, "120"},
              {Field::Low52Weeks, "80"},
              {Field::Open, "100"}});
}

/// A stock with four detail rows.
inline void FillStock(Fakes::TFakeRecord& record) {
  record.Set({{Field::ProductType, "1"},
              {Field::Nominal, "10"},
              {Field::IssueSize, "2000"},
              {Field::PriceEarnings, "15.50"},
              {Field::DividendYield, "3.2%"}});
}

} // namespace Quorpricedatacontrol
