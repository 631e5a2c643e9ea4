#include "terminal/services/MarketPlayer.h"
#include "feed/QuietSource.h"
#include "feed/recording/Files.h"
#include "host/RecordFields.h"
#include "terminal/Markets.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <map>

namespace {

namespace Field = Host::Field;

using namespace Terminal;
using namespace RecordingTest;
using namespace std::chrono_literals;

QString PathOf(const TTemporaryFile& file) { return QString::fromStdString(file.Path().string()); }

/// Notes everything that a player tells, in order, and the market that results.
class TListener {
public:
  explicit TListener(TMarketPlayer& player) {
    QObject::connect(&player, &TMarketPlayer::HeaderRead,
                     [this](const Data::TReferenceData& header) {
                       Told += "header ";
                       Header = header;
                     });
    QObject::connect(&player, &TMarketPlayer::Reset, [this] {
      Told += "reset ";
      Market.clear();
    });
    QObject::connect(&player, &TMarketPlayer::Batch,
                     [this](const std::vector<Data::TRecordChange>& batch) {
                       Told += "batch ";
                       for (const auto& change : batch)
                         for (const auto& [field, value] : change.Fields)
                           Market[change.Symbol][field] = value.value_or("(none)");
                     });
    QObject::connect(&player, &TMarketPlayer::CoolingOffReached, [this](const QString& symbol) {
      Told += "cooling-off ";
      CoolingOff = symbol.toStdString();
    });
    QObject::connect(&player, &TMarketPlayer::Finished, [this] { Told += "finished "; });
  }

  std::string Taken() { return std::exchange(Told, {}); }

  std::string Told;
  Data::TReferenceData Header;
  std::string CoolingOff;
  std::map<std::string, std::map<int, std::string>> Market;
};

const char* const Header = "{\"quorprice\":1,\"simulated\":true}\n";

std::string ThreeSeconds() {
  return Header + Line("10:00:00", "5", 1, "a") + Line("10:00:01", "5", 1, "b") +
         Line("10:00:02", "5", 2, "c") + Line("10:00:03", "5", 1, "d");
}

TEST(MarketPlayer, IsClosedUntilOpened) {
  TMarketPlayer player;
  player.Play();
  player.Pause();
  player.Seek(10h);
  player.Step(100);
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Closed);
  EXPECT_EQ(player.Position(), 0us);
  EXPECT_EQ(player.Index(), nullptr);
}

TEST(MarketPlayer, SaysWhyItCannotOpenAndKeepsWhatIsOpen) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  ASSERT_FALSE(Markets::Open(player, PathOf(file)));
  player.Step(0);
  EXPECT_EQ(Markets::Open(player, "/nowhere/at/all.jsonl"),
            Data::TProblem{Data::TProblemCode::FileMissing});
  EXPECT_EQ(player.Start(), 10h);
  EXPECT_EQ(player.End(), 10h + 3s);
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Paused);
}

TEST(MarketPlayer, TellsHeaderThenResetThenTheFirstMoment) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  TListener listener(player);
  QSignalSpy progress(&player, &TMarketPlayer::Progress);
  ASSERT_FALSE(Markets::Open(player, PathOf(file)));
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Indexing);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.Market.empty(); }));
  EXPECT_EQ(listener.Taken(), "header reset batch ");
  EXPECT_TRUE(listener.Header.Simulated);
  EXPECT_EQ(listener.Market["5"], (std::map<int, std::string>{{Field::BestBid, "a"}}));
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Paused);
  EXPECT_EQ(player.Start(), 10h);
  EXPECT_EQ(player.End(), 10h + 3s);
  EXPECT_EQ(player.Duration(), 3s);
  EXPECT_EQ(player.Position(), 10h);
  ASSERT_FALSE(progress.empty());
  EXPECT_EQ(progress.back().at(1).toInt(), 100);
}

TEST(MarketPlayer, StepsThroughRecordedTimeWithoutAClock) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(file));
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "header reset batch ");
  player.Step(999);
  EXPECT_EQ(listener.Taken(), "");
  player.Step(1);
  EXPECT_EQ(listener.Taken(), "batch ");
  EXPECT_EQ(listener.Market["5"][1], "b");
  EXPECT_EQ(player.Position(), 10h + 1s);
  player.Step(1500);
  EXPECT_EQ(listener.Market["5"][2], "c");
  EXPECT_EQ(player.Position(), 10h + 2500ms);
  listener.Taken();
  player.Step(60000);
  EXPECT_EQ(listener.Taken(), "batch finished ");
  EXPECT_EQ(listener.Market["5"][1], "d");
  EXPECT_EQ(player.Position(), 10h + 3s);
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Finished);
}

TEST(MarketPlayer, SeekingBackTakesAwayWhatWasSetLater) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(file));
  player.Step(60000);
  listener.Taken();
  player.Seek(10h + 1s);
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "reset batch ");
  EXPECT_EQ(listener.Market["5"], (std::map<int, std::string>{{Field::BestBid, "b"}}));
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Paused);
}

TEST(MarketPlayer, PlaysToTheEndInOrder) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  TListener listener(player);
  QSignalSpy states(&player, &TMarketPlayer::StateChanged);
  QSignalSpy finished(&player, &TMarketPlayer::Finished);
  player.SetSpeed(100);
  Markets::Open(player, PathOf(file));
  player.Play();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !finished.empty(); }));
  EXPECT_EQ(listener.Market["5"],
            (std::map<int, std::string>{{Field::BestBid, "d"}, {Field::BestAsk, "c"}}));
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Finished);
  EXPECT_EQ(states.back().at(0).value<TMarketPlayer::TState>(), TMarketPlayer::TState::Finished);
  EXPECT_EQ(player.Position(), player.End());
}

TEST(MarketPlayer, PlaysTheTwoSymbolsOfAFileAsFastAsPossible) {
  std::string content;
  for (int i = 0; i < 20000; ++i)
    content += Line(Text::TimeOfDayText(9h + i * 1s), i % 2 == 0 ? "5" : "7", 1, std::to_string(i));
  const TTemporaryFile file(content);
  TMarketPlayer player;
  TListener listener(player);
  QSignalSpy finished(&player, &TMarketPlayer::Finished);
  player.SetSpeed(TMarketPlayer::AsFastAsPossible);
  Markets::Open(player, PathOf(file));
  player.Play();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !finished.empty(); }));
  EXPECT_EQ(listener.Market["5"][1], "19998");
  EXPECT_EQ(listener.Market["7"][1], "19999");
}

TEST(MarketPlayer, TellsItsPositionWhilePlayingAndAfterAJump) {
  const TTemporaryFile file(ThreeSeconds());
  TMarketPlayer player;
  QSignalSpy positions(&player, &TMarketPlayer::PositionChanged);
  Markets::Open(player, PathOf(file));
  player.Step(0);
  ASSERT_EQ(positions.size(), 1);
  EXPECT_EQ(positions[0][0].value<Text::TTimeOfDay>(), 10h);
  player.Seek(10h + 1s);
  player.Step(0);
  EXPECT_EQ(positions.back()[0].value<Text::TTimeOfDay>(), 10h + 1s);
  player.Play();
  ASSERT_TRUE(QTest::qWaitFor([&] { return positions.size() >= 4; }));
  const auto position = positions.back()[0].value<Text::TTimeOfDay>();
  EXPECT_GT(position, 10h + 1s);
  EXPECT_LT(position, 10h + 3s);
}

TEST(MarketPlayer, KeepsItsSpeedWithinReason) {
  TMarketPlayer player;
  player.SetSpeed(0);
  EXPECT_EQ(player.Speed(), TMarketPlayer::SlowestSpeed);
  player.SetSpeed(std::nan(""));
  EXPECT_EQ(player.Speed(), TMarketPlayer::SlowestSpeed);
  player.SetSpeed(1e9);
  EXPECT_EQ(player.Speed(), TMarketPlayer::FastestSpeed);
  player.SetSpeed(TMarketPlayer::AsFastAsPossible);
  EXPECT_EQ(player.Speed(), TMarketPlayer::AsFastAsPossible);
}

TEST(MarketPlayer, ReportsTheLinesThatItSkipped) {
  const TTemporaryFile file(Header + Line("10:00:00", "5", 1, "a") + "{\"t\":\n" +
                            Line("10:00:01", "5", 1, "b"));
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(file));
  player.Step(1000);
  ASSERT_NE(player.Index(), nullptr);
  EXPECT_EQ(player.Index()->MalformedCount, 1u);
  EXPECT_EQ(player.Index()->Malformed.at(0).Number, 3u);
  EXPECT_EQ(player.Index()->Malformed.at(0).Problem,
            Data::TProblem{Data::TProblemCode::LineNotJson});
  EXPECT_EQ(listener.Market["5"][1], "b");
}

TEST(MarketPlayer, AnotherRecordingReplacesTheFirst) {
  const TTemporaryFile first(ThreeSeconds());
  const TTemporaryFile second(Line("12:00:00", "7", 3, "x"));
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(first));
  player.Step(0);
  listener.Taken();
  Markets::Open(player, PathOf(second));
  EXPECT_EQ(player.Index(), nullptr);
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "header reset batch finished ");
  EXPECT_FALSE(listener.Header.Simulated);
  EXPECT_EQ(listener.Market.count("5"), 0u);
  EXPECT_EQ(listener.Market["7"][3], "x");
  player.Close();
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Closed);
  EXPECT_EQ(player.Index(), nullptr);
  EXPECT_FALSE(player.Traits().Seekable);
}

TEST(MarketPlayer, ASlotMayOpenTheNextRecording) {
  const TTemporaryFile first(ThreeSeconds());
  const TTemporaryFile second(Line("12:00:00", "7", 3, "x") + Line("12:00:01", "7", 3, "y"));
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(first));
  QObject::connect(&player, &TMarketPlayer::Finished, &player, [&] {
    if (player.Start() == 10h)
      Markets::Open(player, PathOf(second));
  });
  player.Step(60000);
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Indexing);
  player.Step(1000);
  EXPECT_EQ(player.Start(), 12h);
  EXPECT_EQ(listener.Market["7"][3], "y");
}

TEST(MarketPlayer, NothingMoreIsToldOfARecordingThatASlotHasReplaced) {
  const TTemporaryFile first(ThreeSeconds());
  const TTemporaryFile second(Line("12:00:00", "7", 3, "x"));
  TMarketPlayer player;
  TListener listener(player);
  Markets::Open(player, PathOf(first));
  QObject::connect(&player, &TMarketPlayer::Reset, &player, [&] {
    if (player.Start() == 10h)
      Markets::Open(player, PathOf(second));
  });
  player.Step(60000);
  EXPECT_EQ(listener.Taken(), "header reset ");
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Indexing);
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "header reset batch finished ");
  EXPECT_FALSE(listener.Market.contains("5"));
}

TEST(MarketPlayer, TakesNoNoticeOfWhatItsSourceCannotDo) {
  TMarketPlayer player;
  TListener listener(player);
  ASSERT_FALSE(player.Open(FeedTest::QuietKind, {}));
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "header ");
  player.Seek(10h + 500ms);
  player.Jump(Feed::TJump::Opening);
  player.Request({});
  player.SetDelay(1min);
  player.Step(0);
  EXPECT_EQ(player.Position(), 10h);
  EXPECT_EQ(listener.Taken(), "");
  player.Step(1000);
  EXPECT_EQ(listener.Taken(), "finished ");
  player.Play();
  EXPECT_EQ(player.State(), TMarketPlayer::TState::Finished);
}

TEST(MarketPlayer, JumpToACoolingOffThatDoesNotComeFinishesTheDayUntilTheNextJump) {
  TMarketPlayer player;
  TListener listener(player);
  Markets::Simulate(player, 5, 16h + 9min);
  player.Step(0);
  listener.Taken();
  player.Jump(Feed::TJump::CoolingOff);
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "reset batch ") << "a simulated day is followed by the next";
  EXPECT_EQ(player.Position(), player.End());
  ASSERT_EQ(player.State(), TMarketPlayer::TState::Finished);
  QSignalSpy states(&player, &TMarketPlayer::StateChanged);
  player.Jump(Feed::TJump::Opening);
  ASSERT_EQ(states.size(), 1);
  EXPECT_EQ(states[0][0].value<TMarketPlayer::TState>(), TMarketPlayer::TState::Paused);
}

TEST(MarketPlayer, JumpToACoolingOffTellsItsSymbolAfterItsBatch) {
  TMarketPlayer player;
  TListener listener(player);
  Markets::Simulate(player, 5, 9h + 31min);
  player.Step(0);
  listener.Taken();
  player.Jump(Feed::TJump::CoolingOff);
  player.Step(0);
  EXPECT_EQ(listener.Taken(), "reset batch cooling-off ");
  ASSERT_TRUE(listener.Market.contains(listener.CoolingOff)) << listener.CoolingOff;
  EXPECT_EQ(listener.Market[listener.CoolingOff][3500], "1") << "in force";
}

} // namespace
