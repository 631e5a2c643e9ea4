#pragma once

#include "model/RecordFixture.h"

namespace Quorpricedatacontrol {

/// A host, and the records of an instrument and of its underlying.
class TInstrumentTest : public testing::Test {
protected:
  Fakes::TFakeRecord& Record() { return host.Record("13001"); }
  Fakes::TFakeRecord& Underlying() { return host.Record("700"); }

  /// A call on 700 at 20: price 2, underlying price 25, ten for one.
  void FillWarrant() {
    Record().Set({{Field::ProductType, "4"},
                  {Field::Name, "JPJDCOM@EC2101B"},
                  {Field::Underlying, "700"},
                  {Field::ExpiryDate, "2027-01-15"},
                  {Field::StrikePrice, "20"},
                  {Field::CallPut, "C"},
                  {Field::OptionStyle, "1"},
                  {Field::ConversionRatio, "0.1"},
                  {Field::IssueSize, "5000000"},
                  {Field::Nominal, "2"}});
    Underlying().Set(Field::Nominal, "25");
  }
  void FillCBBC() {
    FillWarrant();
    Record().Set({{Field::Name, "HT#HSI  RP2101Z"}, {Field::CallPrice, "19.5"}});
  }

  Fakes::THostFakes host;
};

} // namespace Quorpricedatacontrol
