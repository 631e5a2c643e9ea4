#include "terminal/MarketRecorder.h"
#include "terminal/services/Services.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

constexpr const char* market =
    R"({"quorprice":1,"spreads":{"01":{"state":1,"bands":[[0,10,0.01]]}},)"
    R"("instruments":[{"symbol":"700","name":"T","currency":"HKD"}]})"
    "\n"
    R"({"t":"09:30:00","s":"700","f":{"1":"5"}})"
    "\n"
    R"({"t":"09:30:05","s":"700","f":{"2":"6"}})"
    "\n"
    R"({"t":"09:30:08","s":"700","f":{"1":null}})"
    "\n";

class MarketFeed : public testing::Test {
protected:
  MarketFeed() {
    QObject::connect(&Feed, &TMarketFeed::Started,
                     [this](const QString& symbol) { Started.append(symbol); });
  }

  QString File(const char* name) const { return Folder.filePath(QLatin1String(name)); }

  void Play(const QByteArray& lines) {
    QFile file(File("market.jsonl"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(lines);
    file.close();
    ASSERT_EQ(Player.Open(file.fileName()), QString());
  }

  const TRecord& Record() const { return *Services.Subscriptions.Find("700"); }

  QTemporaryDir Folder;
  TServices Services;
  ReplayPlayer Player;
  TMarketFeed Feed{Services, Player};
  QStringList Started;
};

TEST_F(MarketFeed, HandsTheMarketToTheServices) {
  Play(market);
  EXPECT_FALSE(Feed.Age());
  Player.Step(6000);
  ASSERT_TRUE(Feed.Age());
  EXPECT_EQ(Services.Market.GetInstrument("700")->Currency(), "HKD");
  EXPECT_DOUBLE_EQ(Services.Market.GetSpreadTable("01")->PriceStep(5), 0.01);
  EXPECT_EQ(Record().GetText(1), "5");
  EXPECT_EQ(Record().GetText(2), "6");
}

TEST_F(MarketFeed, ForgetsTheMarketOnAJump) {
  Play(market);
  Player.Step(6000);
  Player.Seek(Player.Start());
  Player.Step(0);
  EXPECT_EQ(Record().GetText(1), "5");
  EXPECT_FALSE(Record().HasValue(2));
}

TEST_F(MarketFeed, TellsTheFirstSymbolOnce) {
  Play(market);
  Player.Step(6000);
  EXPECT_EQ(Started, QStringList{"700"});
}

TEST_F(MarketFeed, TakesTheFirstSymbolFromTheDataWhereNoHeaderNamesOne) {
  Play("{\"t\":\"09:30:00\",\"s\":\"ABC\",\"f\":{\"1\":\"5\"}}\n");
  Player.Step(0);
  EXPECT_EQ(Started, QStringList{"ABC"});
}

TEST_F(MarketFeed, StartsOnARecordingThatHoldsNothing) {
  Play("");
  Player.Step(0);
  EXPECT_EQ(Started, QStringList{QString()});
}

TEST_F(MarketFeed, TellsTheLinesThatWereSkipped) {
  Play(QByteArray(market) + "nonsense\n");
  Player.Step(0);
  const auto lines = SkippedLines(*Player.Index());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].find("line 5: "), 0u);
  EXPECT_EQ(lines[1], "lines skipped: 1");
}

TEST_F(MarketFeed, TellsTheFirstOfManySkippedLinesAndTheirNumber) {
  Play(QByteArray("nonsense\n").repeated(25));
  Player.Step(0);
  const auto lines = SkippedLines(*Player.Index());
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_EQ(lines.back(), "lines skipped: 25");
}

TEST_F(MarketFeed, RecordsTheMarketAsItStandsAndEveryChange) {
  Play(market);
  TMarketRecorder recorder(Player, Feed);
  Player.Step(6000);
  ASSERT_EQ(recorder.Start(File("copy.jsonl").toStdString()), "");
  Player.Step(4000);
  ASSERT_EQ(recorder.Stop(), "");
  EXPECT_FALSE(recorder.IsRecording());

  ASSERT_EQ(Player.Open(File("copy.jsonl")), QString());
  Player.Step(0);
  EXPECT_EQ(Record().GetText(1), "5");
  EXPECT_EQ(Record().GetText(2), "6");
  EXPECT_EQ(Player.Index()->Header.Instruments.size(), 1u);
  Player.Step(9000);
  EXPECT_FALSE(Record().HasValue(1));
}

TEST_F(MarketFeed, AJumpEndsTheRecording) {
  Play(market);
  TMarketRecorder recorder(Player, Feed);
  bool ended = false;
  QObject::connect(&recorder, &TMarketRecorder::Ended, [&] { ended = true; });
  Player.Step(0);
  ASSERT_EQ(recorder.Start(File("copy.jsonl").toStdString()), "");
  Player.Seek(Player.End());
  Player.Step(0);
  EXPECT_TRUE(ended);
  EXPECT_FALSE(recorder.IsRecording());
}

TEST_F(MarketFeed, SaysWhyItCannotRecord) {
  TMarketRecorder recorder(Player, Feed);
  EXPECT_NE(recorder.Start("/nowhere/at/all.jsonl"), "");
  EXPECT_FALSE(recorder.IsRecording());
}

} // namespace
} // namespace Terminal
