#include "terminal/windows/WindowTexts.h"

#include "host/ConstDef.h"
#include "terminal/Markets.h"
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

TEST(WindowTexts, NameAnInstrumentInTheLanguageOrInTheOneItHas) {
  TServices services;
  services.Market.DefineInstrument("700", "HKD", "TESTCO", "測試科技", "测试科技");
  services.Market.DefineInstrument("5", "HKD", "Bank", "", "银行");
  services.Market.DefineInstrument("18", "HKD", "HARBOUR");
  const auto names = [&services] {
    QStringList texts;
    for (const char* symbol : {"700", "5", "18"})
      texts.append(InstrumentText(services, QLatin1String(symbol)));
    return texts;
  };
  EXPECT_EQ(names(), (QStringList{"700 TESTCO", "5 Bank", "18 HARBOUR"}));
  services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(names(), (QStringList{"700 測試科技", "5 银行", "18 HARBOUR"}));
  services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  EXPECT_EQ(names(), (QStringList{"700 测试科技", "5 银行", "18 HARBOUR"}));
}

TEST(WindowTexts, SayWhichFileIsOfNoUseAndWhyInEveryLanguage) {
  TServices services;
  const auto file = QStringLiteral("/home/me/market.jsonl");
  TMarketPlayer player;
  const auto problem = Markets::Open(player, file);
  EXPECT_EQ(FileSentence(file, problem),
            QStringLiteral("/home/me/market.jsonl: The file does not exist."));
  services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(FileSentence(file, problem), QStringLiteral("/home/me/market.jsonl：檔案不存在。"));
  services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  EXPECT_EQ(FileSentence(file, problem), QStringLiteral("/home/me/market.jsonl：文件不存在。"));
  EXPECT_EQ(FileSentence(file, {}), QString());
}

TEST(WindowTexts, SayInTheCurrentLanguageWhatIsWrong) {
  TServices services;
  const Data::TProblem problem{Data::TProblemCode::OptionValueUnknown, {"--mode", "7"}};
  EXPECT_EQ(ProblemText(problem),
            QStringLiteral("The option --mode does not take the value \"7\"."));
  services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  EXPECT_EQ(ProblemText(problem), QStringLiteral("选项 --mode 不接受“7”。"));
}

TEST(WindowTexts, PutAMarkLastInATitle) {
  EXPECT_EQ(MarkedTitle(QStringLiteral("Chart"), {}), QStringLiteral("Chart"));
  EXPECT_EQ(MarkedTitle(QStringLiteral("Chart"), QStringLiteral("SIMULATED")),
            QStringLiteral("Chart – SIMULATED"));
}

TEST(WindowTexts, EveryStatusOfAnOrderHasATextOfItsOwn) {
  TServices services;
  std::set<QString> texts;
  for (const auto status :
       {Data::TOrderStatus::Working, Data::TOrderStatus::PartlyFilled, Data::TOrderStatus::Filled,
        Data::TOrderStatus::Cancelled, Data::TOrderStatus::Rejected}) {
    texts.insert(WindowText(StatusKey(status)));
    EXPECT_NE(WindowText(StatusKey(status)), QString());
  }
  EXPECT_EQ(texts.size(), 5u);
}

} // namespace
} // namespace Terminal
