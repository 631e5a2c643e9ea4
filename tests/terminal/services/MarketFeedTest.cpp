#include "host/RecordFields.h"
#include "terminal/Markets.h"
#include "terminal/services/MarketRecorder.h"
#include "terminal/services/Services.h"
#include "terminal/trading/OrderDesk.h"
#include "terminal/windows/SkippedLines.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

using namespace std::chrono_literals;

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

class TMarketFeedTest : public testing::Test {
protected:
  TMarketFeedTest() {
    QObject::connect(&Feed, &TMarketFeed::Started,
                     [this](const QString& symbol) { Started.append(symbol); });
  }

  QString File(const char* name) const { return Folder.filePath(QLatin1String(name)); }

  void Play(const QByteArray& lines) {
    QFile file(File("market.jsonl"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(lines);
    file.close();
    ASSERT_FALSE(Markets::Open(Player, file.fileName()));
  }

  const TRecord& Record() const { return *Services.Subscriptions.Find("700"); }

  /// All that views can show: every record, and the trades that are shown of it.
  std::string Screens() {
    std::string text;
    for (const auto& record : Feed.Present()) {
      text += "\n" + record.Symbol + " " + std::to_string(record.State.value_or(-1)) + " " +
              record.Status.value_or("");
      for (const auto& [field, value] : record.Fields)
        text += " " + std::to_string(field) + "=" + value.value_or("(none)");
      for (int i = 0; i < 5; ++i)
        text += TradeText(record.Symbol, i);
    }
    return text;
  }

  std::string TradeText(const std::string& symbol, int index) {
    const auto* trades = Services.TradeSides.GetSymbolMarketTrade(symbol);
    const auto* trade = trades ? trades->GetTrade(index) : nullptr;
    if (!trade)
      return {};
    return " " + trade->Time + trade->Side + trade->Quantity + "@" + std::to_string(trade->Price);
  }

  std::vector<std::string> AHundredScreens() {
    std::vector<std::string> screens;
    for (int i = 0; i < 100; ++i) {
      Player.Step(100);
      screens.push_back(Screens());
    }
    return screens;
  }

  QTemporaryDir Folder;
  TServices Services;
  TMarketPlayer Player;
  TMarketFeed Feed{Services, Player};
  QStringList Started;
};

TEST_F(TMarketFeedTest, HandsTheMarketToTheServices) {
  Play(market);
  EXPECT_FALSE(Feed.Age());
  Player.Step(6000);
  ASSERT_TRUE(Feed.Age());
  EXPECT_EQ(Services.Market.GetInstrument("700")->Currency(), "HKD");
  EXPECT_DOUBLE_EQ(Services.Market.GetSpreadTable("01")->PriceStep(5), 0.01);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_EQ(Record().GetText(Field::BestAsk), "6");
}

TEST_F(TMarketFeedTest, NamesInstrumentsInEveryLanguageThatTheHeaderHas) {
  Play("{\"quorprice\":1,\"instruments\":[{\"symbol\":\"5\",\"name\":\"BANK\","
       "\"name1\":\"銀行\",\"name2\":\"银行\",\"currency\":\"HKD\"},"
       "{\"symbol\":\"6\",\"name\":\"OLD\",\"currency\":\"HKD\"}]}\n");
  Player.Step(0);
  const auto& entries = Services.Symbols.Entries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].Names, (std::array<QString, 3>{"銀行", "银行", "BANK"}));
  EXPECT_EQ(entries[1].NameIn(Constdef::Language_TraditionalChinese), QStringLiteral("OLD"));
}

TEST_F(TMarketFeedTest, ForgetsTheMarketOnAJump) {
  Play(market);
  Player.Step(6000);
  Player.Seek(Player.Start());
  Player.Step(0);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_FALSE(Record().HasValue(Field::BestAsk));
  EXPECT_EQ(Record().GetState(), Constdef::RecordState_Ready);
}

TEST_F(TMarketFeedTest, TellsTheFirstSymbolOnce) {
  Play(market);
  Player.Step(6000);
  EXPECT_EQ(Started, QStringList{"700"});
}

TEST_F(TMarketFeedTest, TakesTheFirstSymbolFromTheDataWhereNoHeaderNamesOne) {
  Play("{\"t\":\"09:30:00\",\"s\":\"ABC\",\"f\":{\"1\":\"5\"}}\n");
  Player.Step(0);
  EXPECT_EQ(Started, QStringList{"ABC"});
}

TEST_F(TMarketFeedTest, StartsOnARecordingThatHoldsNothing) {
  Play("");
  Player.Step(0);
  EXPECT_EQ(Started, QStringList{QString()});
}

TEST_F(TMarketFeedTest, TellsTheLinesThatWereSkipped) {
  Play(QByteArray(market) + "nonsense\n");
  Player.Step(0);
  const auto lines = SkippedLines(*Player.Index());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].find("line 5: "), 0u);
  EXPECT_EQ(lines[1], "Lines skipped: 1");
}

TEST_F(TMarketFeedTest, TellsTheFirstOfManySkippedLinesAndTheirNumber) {
  Play(QByteArray("nonsense\n").repeated(25));
  Player.Step(0);
  const auto lines = SkippedLines(*Player.Index());
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_EQ(lines.back(), "Lines skipped: 25");
}

TEST_F(TMarketFeedTest, RecordsTheMarketAsItStandsAndEveryChange) {
  Play(market);
  TMarketRecorder recorder(Player, Feed);
  Player.Step(6000);
  ASSERT_FALSE(recorder.Start(File("copy.jsonl").toStdString()));
  Player.Step(4000);
  ASSERT_FALSE(recorder.Stop());
  EXPECT_FALSE(recorder.IsRecording());

  ASSERT_FALSE(Markets::Open(Player, File("copy.jsonl")));
  Player.Step(0);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_EQ(Record().GetText(Field::BestAsk), "6");
  EXPECT_EQ(Player.Index()->Header.Instruments.size(), 1u);
  Player.Step(9000);
  EXPECT_FALSE(Record().HasValue(Field::BestBid));
}

TEST_F(TMarketFeedTest, AJumpEndsTheRecording) {
  Play(market);
  TMarketRecorder recorder(Player, Feed);
  bool ended = false;
  QObject::connect(&recorder, &TMarketRecorder::Ended, [&] { ended = true; });
  Player.Step(0);
  ASSERT_FALSE(recorder.Start(File("copy.jsonl").toStdString()));
  Player.Seek(Player.End());
  Player.Step(0);
  EXPECT_TRUE(ended);
  EXPECT_FALSE(recorder.IsRecording());
}

constexpr std::uint64_t seed = 5;
constexpr auto start = 9h + 31min;

TEST_F(TMarketFeedTest, SimulationThatWasRecordedPlaysBackTheSameScreensAtAHundredInstants) {
  const auto file = File("day.jsonl");
  const auto day = Feed::DefaultSource().Read(Markets::Simulation(seed, start));
  ASSERT_FALSE(Feed::WriteRecording(std::get<Feed::TChangeStream>(day), 11s, file.toStdString()));
  Markets::Simulate(Player, seed, start);
  Player.Step(0);
  const auto simulated = AHundredScreens();
  ASSERT_FALSE(Markets::Open(Player, file));
  Player.Step(0);
  EXPECT_EQ(Player.Position(), 9h + 31min);
  const auto played = AHundredScreens();
  for (std::size_t i = 0; i < simulated.size(); ++i)
    ASSERT_EQ(simulated[i], played[i]) << i;
  EXPECT_NE(simulated[0], simulated[99]);
}

TEST_F(TMarketFeedTest, RecorderWritesTheSimulatedMarketAsItIsShown) {
  TMarketRecorder recorder(Player, Feed);
  Markets::Simulate(Player, seed, start);
  Player.Step(0);
  for (const auto& record : Feed.Present())
    Services.TradeSides.ReplaceTrades(record.Symbol, {}); // a recording begins without trades
  ASSERT_FALSE(recorder.Start(File("copy.jsonl").toStdString()));
  const auto simulated = AHundredScreens();
  ASSERT_FALSE(recorder.Stop());
  ASSERT_FALSE(Markets::Open(Player, File("copy.jsonl")));
  Player.Step(0);
  const auto played = AHundredScreens();
  for (std::size_t i = 0; i < simulated.size(); ++i)
    ASSERT_EQ(simulated[i], played[i]) << i;
  EXPECT_NE(simulated[0], simulated[99]);
}

TEST_F(TMarketFeedTest, SnapshotsComeOnRequestOnlyAndAreCounted) {
  Feed.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_EQ(Services.Vendor.FeedType(), Constdef::FeedType_PerClick);
  QList<int> counts;
  QObject::connect(&Feed, &TMarketFeed::SnapshotTaken,
                   [&counts](int count) { counts.append(count); });
  Play(market);
  Player.Step(0);
  Services.Subscriptions.Subscribe("700", "PRCDDS", true);
  EXPECT_EQ(Record().GetState(), Constdef::RecordState_None);
  Services.Subscriptions.Refresh("700");
  EXPECT_EQ(Record().GetState(), Constdef::RecordState_Ready);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  Player.Step(6000);
  EXPECT_FALSE(Record().HasValue(Field::BestAsk)) << "nobody asked";
  Services.Subscriptions.Refresh("700");
  EXPECT_EQ(Record().GetText(Field::BestAsk), "6");
  Player.Step(6000);
  EXPECT_TRUE(Record().HasValue(Field::BestBid));
  Services.Subscriptions.Refresh("700");
  EXPECT_FALSE(Record().HasValue(Field::BestBid)) << "the market has taken it away";
  EXPECT_EQ(counts, (QList<int>{1, 2, 3}));
  EXPECT_EQ(Feed.SnapshotCount(), 3);
}

TEST_F(TMarketFeedTest, SaysThatTheDayHasBegunWhenARecordGetsItsOpeningPrice) {
  int begun = 0;
  System::TObject owner;
  Services.Channels.Subscribe(
      Constdef::Channel_BeginningOfDay, [&begun](System::TObject*, System::TObject*) { ++begun; },
      &owner);
  Play(QByteArray(market) + "{\"t\":\"09:30:09\",\"s\":\"700\",\"f\":{\"133\":\"5\"}}\n"
                            "{\"t\":\"09:30:10\",\"s\":\"700\",\"f\":{\"133\":\"6\"}}\n");
  Player.Step(8500);
  EXPECT_EQ(begun, 0);
  Player.Step(1000);
  EXPECT_EQ(begun, 1);
  Player.Step(1000);
  EXPECT_EQ(begun, 1);
  Services.Channels.Unsubscribe(Constdef::Channel_BeginningOfDay, &owner);
}

TEST_F(TMarketFeedTest, StreamsAgainWithAllThatNobodyAskedFor) {
  Play(market);
  Player.Step(0);
  Feed.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_FALSE(Record().HasValue(Field::BestBid)) << "what streamed before is no snapshot";
  Player.Step(6000);
  Feed.SetFeedType(Constdef::FeedType_Streaming);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_EQ(Record().GetText(Field::BestAsk), "6");
  Services.Subscriptions.Refresh("700");
  EXPECT_EQ(Feed.SnapshotCount(), 0);
}

TEST_F(TMarketFeedTest, DelayedQuotesAreAQuarterOfAnHourOldAndHaveNoQueue) {
  Markets::Simulate(Player, seed, 9h + 40min);
  Player.Step(0);
  auto early = Feed.Present();
  for (auto& record : early)
    std::erase_if(record.Fields,
                  [](const auto& field) { return field.first == 120 || field.first == 121; });
  Feed.SetFeedType(Constdef::FeedType_Delayed);
  Markets::Simulate(Player, seed, 9h + 55min);
  Player.Step(0);
  ASSERT_FALSE(early.empty());
  ASSERT_EQ(Feed.Present().size(), early.size());
  for (const auto& record : early) {
    const auto* shown = Services.Subscriptions.Find(record.Symbol);
    for (const auto& [field, value] : record.Fields)
      EXPECT_EQ(shown->GetText(field), *value) << record.Symbol << " " << field;
    EXPECT_FALSE(shown->HasValue(Field::BidQueue)) << record.Symbol;
    EXPECT_FALSE(shown->HasValue(Field::AskQueue)) << record.Symbol;
  }
  EXPECT_EQ(Player.Position(), 9h + 55min);
}

TEST_F(TMarketFeedTest, RecordingShowsItsQueueWhereverQuotesAreNotDelayed) {
  Play("{\"t\":\"09:30:00\",\"s\":\"700\",\"f\":{\"1\":\"5\",\"120\":\"B\",\"121\":\"A\"}}\n");
  Player.Step(0);
  EXPECT_EQ(Record().GetText(Field::BidQueue), "B");
  Feed.SetFeedType(Constdef::FeedType_Delayed);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_FALSE(Record().HasValue(Field::BidQueue));
  EXPECT_FALSE(Record().HasValue(Field::AskQueue));
  Feed.SetFeedType(Constdef::FeedType_Streaming);
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
  EXPECT_EQ(Record().GetText(Field::BidQueue), "B");
  EXPECT_EQ(Record().GetText(Field::AskQueue), "A");
}

TEST_F(TMarketFeedTest, RealTimeQuotesOfASimulationAreGoneAsSoonAsItIsDelayed) {
  Markets::Simulate(Player, seed, start);
  Player.Step(0);
  const std::string symbol = Feed.Present().at(0).Symbol;
  ASSERT_EQ(Services.Subscriptions.Find(symbol)->GetState(), Constdef::RecordState_Ready);
  Feed.SetFeedType(Constdef::FeedType_Delayed);
  EXPECT_EQ(Services.Subscriptions.Find(symbol)->GetState(), Constdef::RecordState_None);
  EXPECT_TRUE(Feed.Present().empty());
  Player.Step(0);
  EXPECT_EQ(Services.Subscriptions.Find(symbol)->GetState(), Constdef::RecordState_Ready);
}

TEST_F(TMarketFeedTest, AnotherFeedTypeMakesNoDataNew) {
  Feed.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_FALSE(Feed.Age());
}

TEST_F(TMarketFeedTest, UnknownFeedTypeChangesNothing) {
  Play(market);
  Player.Step(0);
  for (const int type : {0, 4, -1}) {
    Feed.SetFeedType(type);
    EXPECT_EQ(Feed.FeedType(), Constdef::FeedType_Streaming);
    EXPECT_EQ(Services.Vendor.FeedType(), Constdef::FeedType_Streaming);
  }
  EXPECT_EQ(Record().GetText(Field::BestBid), "5");
}

TEST_F(TMarketFeedTest, PresentHasNoTradesPerClickEither) {
  Feed.SetFeedType(Constdef::FeedType_PerClick);
  Play("{\"t\":\"09:30:00\",\"s\":\"700\",\"f\":{\"1\":\"5\"},\"trade\":{\"time\":\"09:30:00\","
       "\"side\":\"B\",\"qty\":\"100\",\"price\":\"5\"}}\n");
  int trades = 0;
  QObject::connect(&Player, &TMarketPlayer::Batch, [&trades](const auto& changes) {
    for (const auto& change : changes)
      trades += static_cast<int>(change.Trades.size());
  });
  Player.Step(0);
  EXPECT_EQ(trades, 1);
  ASSERT_EQ(Feed.Present().size(), 1u);
  EXPECT_TRUE(Feed.Present()[0].Trades.empty());
}

TEST_F(TMarketFeedTest, DeskTradesInTheSimulatedMarketAndNotInARecording) {
  TOrderDesk desk;
  desk.Follow(Player);
  EXPECT_FALSE(desk.IsOpen());
  Markets::Simulate(Player, seed, start);
  Player.Step(0);
  ASSERT_TRUE(desk.IsOpen());
  EXPECT_EQ(desk.Submit("700", Data::TSide::Bid, 1, 1), 1);
  Player.Step(0);
  ASSERT_EQ(desk.Orders().size(), 1u);
  EXPECT_EQ(desk.Orders()[0].Status, Data::TOrderStatus::Rejected);
  Play(market);
  Player.Step(0);
  EXPECT_FALSE(desk.IsOpen());
  EXPECT_TRUE(desk.Orders().empty());
  desk.Submit("700", Data::TSide::Bid, 1, 1);
  EXPECT_EQ(desk.Orders().at(0).Reason, Data::Refused_NoMarket);
}

TEST_F(TMarketFeedTest, DeskForgetsTheOrdersWhenTheDayBeginsAnew) {
  TOrderDesk desk;
  desk.Follow(Player);
  Markets::Simulate(Player, seed, start);
  Player.Step(0);
  desk.Submit("nothing", Data::TSide::Bid, 1, 1);
  Player.Step(1000);
  ASSERT_EQ(desk.Orders().size(), 1u);
  int reopened = 0;
  QObject::connect(&desk, &TOrderDesk::Reopened, [&reopened] { ++reopened; });
  Player.Seek(9h);
  Player.Step(0);
  EXPECT_EQ(reopened, 1);
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_TRUE(desk.Orders().empty());
  EXPECT_EQ(desk.Submit("nothing", Data::TSide::Bid, 1, 1), 1);
}

TEST_F(TMarketFeedTest, SaysWhyItCannotRecord) {
  TMarketRecorder recorder(Player, Feed);
  EXPECT_EQ(recorder.Start("/nowhere/at/all.jsonl"),
            Data::TProblem{Data::TProblemCode::FileUnwritable});
  EXPECT_EQ(recorder.File(), "/nowhere/at/all.jsonl");
  EXPECT_FALSE(recorder.IsRecording());
}

} // namespace
} // namespace Terminal
