#include "feed/simulation/SimulationReader.h"
#include "host/RecordFields.h"

#include "market/PublishedState.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <semaphore>
#include <set>

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace Market;
using namespace MarketTest;
using namespace std::chrono_literals;

constexpr std::uint64_t seed = 5;

/// The market as it stands at `time`, straight from the simulation.
TPublishedState StateAt(TTimeOfDay time) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(time);
  TPublishedState state;
  state.Hear(market.TakeChanges());
  return state;
}

class TSimulationReaderTest : public testing::Test {
protected:
  /// Takes what there is after going on by `by`.
  TReaderNews Step(std::chrono::milliseconds by = 0ms) {
    Reader.Step(by);
    TReaderNews news = Reader.Take();
    if (news.Reset)
      State = {};
    State.Hear(news.Changes);
    return news;
  }

  /// Takes news until `isEnough` says so.
  template <class TIsEnough> void TakeUntil(TIsEnough isEnough) {
    for (int i = 0; i < 200'000; ++i) {
      const auto news = Reader.Take();
      if (isEnough(news))
        return;
      std::this_thread::sleep_for(2ms);
    }
    FAIL() << "it never came";
  }

  struct TBid {
    std::string Symbol;
    TPrice Price = 0;
    TQuantity Quantity = 0;
  };
  /// One lot more at the best bid of an instrument that trades.
  TBid LivelyBid() const {
    for (const auto& [symbol, record] : State.Records)
      if (record.Fields.contains(Field::BestBid) && record.Fields.contains(Field::Bid.Price[4]))
        return {symbol, std::llround(std::stod(record.Fields.at(Field::Bid.Price[4])) * PriceUnit),
                std::stoll(record.Fields.at(Field::BoardLot))};
    return {};
  }

  std::atomic<int> Wakes = 0;
  TPublishedState State;
  Feed::TSimulationReader Reader{{seed, 9h + 31min}, [this] { ++Wakes; }};
};

TEST_F(TSimulationReaderTest, BeginsPausedAtItsStartWithTheWholeMarket) {
  const auto news = Step();
  ASSERT_TRUE(news.Index);
  EXPECT_TRUE(news.Index->Header.Simulated);
  EXPECT_EQ(news.Index->Start, 9h);
  EXPECT_EQ(news.Index->End, 16h + 10min);
  EXPECT_TRUE(news.Reset);
  EXPECT_EQ(news.Time, 9h + 31min);
  EXPECT_EQ(Reader.Position(), 9h + 31min);
  EXPECT_FALSE(Reader.IsPlaying());
  const auto direct = StateAt(9h + 31min);
  EXPECT_TRUE(State == direct) << Differences(direct, State);
}

TEST_F(TSimulationReaderTest, StepsLeadToTheStateOfTheirMoment) {
  for (int i = 0; i < 50; ++i)
    Step(211ms);
  const auto direct = StateAt(9h + 31min + 50 * 211ms);
  EXPECT_TRUE(State == direct) << Differences(direct, State);
}

TEST_F(TSimulationReaderTest, NothingIsToldOfTheWayToWhereARunLeads) {
  Reader.SetDelay(0s);
  TakeUntil([this](const TReaderNews& news) {
    EXPECT_TRUE(news.Changes.empty() || news.Time == 9h + 31min) << news.Time.count();
    return !news.Changes.empty();
  });
}

TEST_F(TSimulationReaderTest, GoesBackToTheSameDay) {
  Step();
  const auto before = State;
  Step(20s);
  EXPECT_FALSE(State == before);
  Reader.Seek(9h + 31min);
  const auto news = Step();
  EXPECT_TRUE(news.Reset);
  EXPECT_TRUE(news.Index) << "the day begins anew";
  EXPECT_TRUE(State == before) << Differences(before, State);
}

TEST_F(TSimulationReaderTest, JumpsToTheOpeningsAndTheClosingAuctionAndPlaysToTheEnd) {
  Step();
  Reader.Jump(TJump::Opening);
  EXPECT_TRUE(Step().Reset);
  EXPECT_EQ(Reader.Position(), 13h);
  Reader.Jump(TJump::ClosingAuction);
  Step();
  EXPECT_EQ(Reader.Position(), 16h);
  Reader.SetSpeed(TMarketReader::AsFastAsPossible);
  Reader.Play();
  TakeUntil([](const TReaderNews& news) { return news.Finished; });
  EXPECT_TRUE(Reader.IsAtEnd());
  EXPECT_FALSE(Reader.IsPlaying());
  EXPECT_EQ(Reader.Position(), 16h + 10min);
  Reader.Jump(TJump::Opening);
  Step();
  EXPECT_EQ(Reader.Position(), 9h + 30min) << "of the day begun anew";
}

TEST_F(TSimulationReaderTest, JumpsToWhereACoolingOffIsInForceAndNamesIt) {
  Step();
  Reader.Jump(TJump::CoolingOff);
  const auto news = Step();
  ASSERT_FALSE(news.CoolingOff.empty());
  const auto& record = State.Records.at(news.CoolingOff).Fields;
  EXPECT_EQ(record.at(3500), "1");
  EXPECT_TRUE(record.contains(3503));
  EXPECT_GE(Reader.Position(), 9h + 45min);
  EXPECT_FALSE(news.Progress.empty());
  EXPECT_EQ(Step(100ms).CoolingOff, "") << "named once";
}

TEST_F(TSimulationReaderTest, DelayedChangesComeFromThatMuchEarlier) {
  Reader.SetDelay(15min);
  Step();
  EXPECT_EQ(Reader.Position(), 9h + 31min);
  EXPECT_TRUE(State == StateAt(9h + 16min));
  Step(7s);
  const auto direct = StateAt(9h + 16min + 7s);
  EXPECT_TRUE(State == direct) << Differences(direct, State);
  Reader.SetDelay(0s);
  EXPECT_TRUE(Step().Reset);
  EXPECT_TRUE(State == StateAt(9h + 31min + 7s));
}

TEST_F(TSimulationReaderTest, DelayedMarketHasTheUsersOrdersToo) {
  Step();
  const std::string symbol = State.Records.begin()->first;
  Reader.Request({TOrderAction::Submit, 1, symbol, TSide::Bid, 1'000'000'000, 1});
  const auto [lively, price, lot] = LivelyBid();
  Reader.Request({TOrderAction::Submit, 2, lively, TSide::Bid, price, lot});
  auto news = Step();
  ASSERT_EQ(news.Reports.size(), 2u);
  EXPECT_EQ(std::get<TUserOrder>(news.Reports[0]).Status, TOrderStatus::Rejected);
  EXPECT_EQ(std::get<TUserOrder>(news.Reports[1]).Status, TOrderStatus::Working);
  const auto live = State;
  Reader.SetDelay(1s);
  Step(1s);
  EXPECT_TRUE(State == live) << Differences(live, State);
}

TEST_F(TSimulationReaderTest, SlowOwnerIsToldOnceAndFindsOneChangeASymbol) {
  Step();
  TSimulatedMarket market(seed);
  market.AdvanceTo(9h + 31min);
  market.TakeChanges();
  std::size_t unmerged = 0;
  const int wakes = Wakes;
  for (int second = 1; second <= 20; ++second) {
    Reader.Step(1s);
    market.AdvanceTo(9h + 31min + second * 1s);
    unmerged += market.TakeChanges().size();
  }
  EXPECT_EQ(Wakes - wakes, 1);
  const auto news = Reader.Take();
  EXPECT_LT(news.Changes.size(), unmerged);
  std::set<std::string> symbols;
  for (const auto& change : news.Changes)
    EXPECT_TRUE(symbols.insert(change.Symbol).second) << change.Symbol << " comes twice";
  State.Hear(news.Changes);
  const auto direct = StateAt(9h + 31min + 20s);
  EXPECT_TRUE(State == direct) << Differences(direct, State);
}

TEST_F(TSimulationReaderTest, StartsTheSameDayOverAtItsEndWithoutTheUsersOrders) {
  Step();
  const auto opening = State;
  const auto [symbol, price, lot] = LivelyBid();
  Reader.Request({TOrderAction::Submit, 1, symbol, TSide::Bid, price, lot});
  Reader.SetAtEnd(TAtEnd::StartOver);
  Reader.SetSpeed(TMarketReader::AsFastAsPossible);
  Reader.Play();
  Reader.Seek(16h + 10min);
  std::optional<TUserOrder> order;
  TakeUntil([&order](const TReaderNews& news) {
    for (const auto& report : news.Reports)
      if (const auto* now = std::get_if<TUserOrder>(&report))
        order = *now;
    return news.Reset && news.Time == 16h + 10min;
  });
  ASSERT_TRUE(order);
  EXPECT_FALSE(order->IsAlive()) << "no order outlives its day";
  bool isNewDay = false;
  TakeUntil([this, &isNewDay](const TReaderNews& news) {
    isNewDay = isNewDay || news.Index;
    EXPECT_TRUE(news.Reports.empty());
    EXPECT_FALSE(news.Finished);
    if (!news.Reset)
      return false;
    EXPECT_EQ(news.Time, 9h + 31min);
    State = {};
    State.Hear(news.Changes);
    return true;
  });
  EXPECT_TRUE(isNewDay);
  EXPECT_TRUE(State == opening) << Differences(opening, State);
  EXPECT_TRUE(Reader.IsPlaying());
  Reader.Request({TOrderAction::Cancel, 1, {}, TSide::Bid, 0, 0});
  const auto reports = Step().Reports;
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(std::get<TOrderRefusal>(reports[0]).Reason, Refused_Done);
}

TEST_F(TSimulationReaderTest, ResetIsNeverTakenWithoutTheStateThatFollowsIt) {
  Step();
  const auto takeReset = [this] {
    TReaderNews news;
    while (!news.Reset)
      news = Reader.Take(); // all the time, so that no moment between the two is left out
    return news;
  };
  for (int second = 1; second <= 50; ++second) {
    Reader.Seek(9h + 31min + second * 1s);
    ASSERT_EQ(takeReset().Changes.size(), State.Records.size()) << second;
  }
  Reader.SetDelay(1min);
  EXPECT_EQ(takeReset().Changes.size(), State.Records.size());
}

TEST_F(TSimulationReaderTest, CoolingOffIsNotNamedBeforeTheDelayedStateComes) {
  Step();
  Reader.Jump(TJump::CoolingOff);
  Reader.Step(0ms);
  Reader.SetDelay(1min);
  const auto early = Reader.Take();
  EXPECT_EQ(early.CoolingOff.empty(), early.Changes.empty());
  const auto late = Step();
  EXPECT_NE(early.CoolingOff.empty(), late.CoolingOff.empty());
}

TEST_F(TSimulationReaderTest, ProgressOfARunThatIsBrokenOffEndsAllTheSame) {
  Step();
  Reader.Jump(TJump::ClosingAuction);
  TakeUntil([](const TReaderNews& news) {
    return !news.Progress.empty() && news.Progress.back().PerCent < 90;
  });
  Reader.Seek(9h);
  const auto news = Step();
  EXPECT_EQ(news.Time, 9h);
  ASSERT_FALSE(news.Progress.empty());
  EXPECT_EQ(news.Progress.back().PerCent, 100);
}

TEST_F(TSimulationReaderTest, RequestToADayThatIsOverHasNoAnswerInTheNext) {
  const auto request = [this](int number) {
    Reader.Request({TOrderAction::Submit, number, "nothing", TSide::Bid, 1, 1});
  };
  Step();
  Reader.Seek(9h + 30min);
  Reader.Step(0ms); // the new day stands, and nobody has heard of it
  request(7);
  EXPECT_TRUE(Step().Reports.empty());
  EXPECT_TRUE(Step().Reports.empty());
  request(1);
  const auto reports = Step().Reports;
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(std::get<TUserOrder>(reports[0]).Number, 1);
}

TEST_F(TSimulationReaderTest, JumpWaitsForTheSeekThatWasAskedForBefore) {
  Reader.Seek(9h + 40min);
  Reader.Jump(TJump::Opening);
  Step();
  EXPECT_EQ(Reader.Position(), 13h);
}

TEST_F(TSimulationReaderTest, SeekTakesBackWhatWasNotToldYet) {
  Step();
  Reader.Jump(TJump::CoolingOff);
  Reader.Step(0ms);
  Reader.Seek(16h + 10min);
  EXPECT_TRUE(Reader.Take().CoolingOff.empty());
  Reader.Step(0ms);
  ASSERT_TRUE(Reader.IsAtEnd());
  Reader.Seek(9h);
  EXPECT_FALSE(Reader.Take().Finished);
  const auto news = Step();
  EXPECT_EQ(news.Time, 9h);
  EXPECT_TRUE(news.CoolingOff.empty());
  EXPECT_FALSE(news.Finished);
}

TEST_F(TSimulationReaderTest, NoChangeOfTheMarketComesOnceItIsToBeDelayed) {
  Step();
  Reader.Step(1s);
  Reader.SetDelay(15min);
  const auto news = Reader.Take();
  EXPECT_TRUE(news.Changes.empty() || news.Reset);
}

TEST(Simulation, DayOfAFirstStartHasACoolingOffInItsFirstInstrumentWithinFiveMinutes) {
  Market::TSimulatedMarket market(TSimulation::DefaultSeed);
  market.AdvanceTo(TSimulation::DefaultStart);
  EXPECT_TRUE(market.CoolingOffs().empty());
  market.AdvanceTo(TSimulation::DefaultStart + 5min);
  EXPECT_EQ(market.CoolingOffs(),
            std::vector<std::string>{market.Header().Instruments.front().Symbol});
}

TEST(SimulationReaderRun, CoolingOffIsNamedTogetherWithItsBatch) {
  std::binary_semaphore told(0);
  std::binary_semaphore taken(0);
  std::atomic<bool> isOver = false;
  const auto wake = [&] {
    if (isOver)
      return;
    told.release();
    taken.acquire();
  };
  Feed::TSimulationReader reader({seed, 9h + 31min}, wake);
  reader.Jump(TJump::CoolingOff);
  TReaderNews news;
  while (news.CoolingOff.empty() && !news.Finished) {
    told.acquire();
    news = reader.Take();
    isOver = !news.CoolingOff.empty() || news.Finished;
    taken.release();
  }
  const auto isIt = [&news](const auto& change) { return change.Symbol == news.CoolingOff; };
  EXPECT_FALSE(news.CoolingOff.empty());
  EXPECT_TRUE(std::ranges::any_of(news.Changes, isIt));
}

} // namespace
