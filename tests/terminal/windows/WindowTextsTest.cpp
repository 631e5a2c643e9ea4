#include "terminal/windows/WindowTexts.h"

#include "feed/recording/RecordingParser.h"
#include "feed/recording/RecordingWriter.h"
#include "host/ConstDef.h"
#include "terminal/Markets.h"
#include "terminal/services/Services.h"

#include <QTemporaryDir>

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

/// Why a recording cannot be opened.
QString ReasonOf(const QString& recording) {
  TMarketPlayer player;
  return Markets::Open(player, recording);
}

TEST(WindowTexts, SayWhichFileIsOfNoUseAndWhyInEveryLanguage) {
  TServices services;
  const auto file = QStringLiteral("/home/me/market.jsonl");
  const QString reason = ReasonOf(file);
  EXPECT_EQ(FileSentence(file, reason),
            QStringLiteral("/home/me/market.jsonl: The file does not exist."));
  services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  EXPECT_EQ(FileSentence(file, reason), QStringLiteral("/home/me/market.jsonl：檔案不存在。"));
  services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  EXPECT_EQ(FileSentence(file, reason), QStringLiteral("/home/me/market.jsonl：文件不存在。"));
  EXPECT_EQ(FileSentence(file, {}), QString());
}

TEST(WindowTexts, KnowEveryReasonForWhichAFileIsOfNoUse) {
  TServices services;
  services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  Feed::TRecordingWriter writer;
  const QTemporaryDir folder;
  std::vector<std::string> reasons{ReasonOf(QStringLiteral("/nowhere/at/all.jsonl")).toStdString(),
                                   ReasonOf(folder.path()).toStdString(),
                                   writer.Open("/nowhere/at/all.jsonl", {}), writer.Close()};
  Feed::TRecordingParser parser;
  for (std::string line : {"\xff", "{", R"({"s":"5"})", R"({"t":"10:00:00"})"}) {
    const std::size_t length = line.size();
    line.resize(length + Feed::TRecordingParser::Padding);
    const auto parsed = parser.Parse(std::string_view(line).substr(0, length));
    ASSERT_TRUE(std::holds_alternative<Feed::TParseError>(parsed)) << line;
    reasons.push_back(std::get<Feed::TParseError>(parsed).Sentence);
  }
  for (const auto& reason : reasons) {
    EXPECT_NE(reason, "");
    EXPECT_NE(WindowText(reason.c_str()).toStdString(), reason) << "only in English";
  }
}

TEST(WindowTexts, PutAMarkFirstInATitle) {
  EXPECT_EQ(MarkedTitle({}, QStringLiteral("Chart")), QStringLiteral("Chart"));
  EXPECT_EQ(MarkedTitle(QStringLiteral("SIMULATED"), QStringLiteral("Chart")),
            QStringLiteral("SIMULATED – Chart"));
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
