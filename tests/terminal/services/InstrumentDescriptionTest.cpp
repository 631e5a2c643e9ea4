#include "host/RecordFields.h"
#include "terminal/services/Services.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

class TInstrumentDescriptionTest : public testing::Test {
protected:
  TInstrumentDescriptionTest() {
    Services.Market.DefineInstrument("5", "HKD", "HARBOUR BANK", "港灣銀行", "港湾银行");
    Services.Market.DefineInstrument("13001", "HKD", "HB@EC2712A");
    Data::TRecordChange change;
    change.Symbol = "13001";
    change.Fields = {
        {Field::CallPut, "C"}, {Field::StrikePrice, "320"}, {Field::ExpiryDate, "2027-12-20"}};
    Services.Subscriptions.Apply(change);
  }

  std::string Of(const char* symbol) {
    const auto* instrument = Services.Market.GetInstrument(symbol);
    return instrument ? instrument->Description() : "(none)";
  }

  TServices Services;
};

TEST_F(TInstrumentDescriptionTest, IsTheNameAndWhatADerivativeIsOn) {
  Services.Languages.SetLanguage(Constdef::Language_English);
  EXPECT_EQ(Of("5"), "HARBOUR BANK");
  EXPECT_EQ(Of("13001"), "HB@EC2712A  Call  320  2027-12-20");
  EXPECT_EQ(Of("99999"), "(none)");
}

TEST_F(TInstrumentDescriptionTest, FollowsTheLanguage) {
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(Of("5"), "港灣銀行");
  EXPECT_EQ(Of("13001"), "HB@EC2712A  認購  320  2027-12-20");
}

TEST_F(TInstrumentDescriptionTest, ASubscriptionIsNotMade) {
  const auto before = Services.Registrations().Records;
  Of("13001");
  EXPECT_EQ(Services.Registrations().Records, before);
}

} // namespace
} // namespace Terminal
