#include "terminal/windows/WindowTexts.h"

#include "terminal/services/Services.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

TEST(WindowTexts, MarkTheLetterThatGoesWithAlt) {
  EXPECT_EQ(WithMnemonic(QStringLiteral("Cancel"), u'C'), QStringLiteral("&Cancel"));
  EXPECT_EQ(WithMnemonic(QStringLiteral("Price colours"), u'C'), QStringLiteral("Pri&ce colours"));
  EXPECT_EQ(WithMnemonic(QStringLiteral("確定"), u'O'), QStringLiteral("確定(&O)"));
}

TEST(WindowTexts, NameAnInstrumentBySymbolAndName) {
  TServices services;
  services.Market.DefineInstrument("700", "HKD", "TESTCO");
  services.Symbols.Add("5");
  EXPECT_EQ(InstrumentText(services, QStringLiteral("700")), QStringLiteral("700 TESTCO"));
  EXPECT_EQ(InstrumentText(services, QStringLiteral("5")), QStringLiteral("5"));
  EXPECT_EQ(InstrumentText(services, QStringLiteral("9")), QStringLiteral("9"));
}

TEST(WindowTexts, EveryStatusOfAnOrderHasATextOfItsOwn) {
  TServices services;
  std::set<QString> texts;
  for (const auto status : {Market::TOrderStatus::Working, Market::TOrderStatus::PartlyFilled,
                            Market::TOrderStatus::Filled, Market::TOrderStatus::Cancelled,
                            Market::TOrderStatus::Rejected}) {
    texts.insert(WindowText(StatusKey(status)));
    EXPECT_NE(WindowText(StatusKey(status)), QString());
  }
  EXPECT_EQ(texts.size(), 5u);
}

} // namespace
} // namespace Terminal
