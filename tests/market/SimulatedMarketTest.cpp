#include "market/SimulatedMarket.h"

#include "host/RecordFields.h"
#include "market/PublishedState.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>

namespace {

namespace Field = Host::Field;

using namespace Market;
using namespace MarketTest;
using namespace std::chrono_literals;

constexpr std::uint64_t seed = 5;

/// A share that trades a lot.
std::string LivelyShare() {
  const TListing listing;
  const TInstrument* lively = nullptr;
  for (const TInstrument& instrument : listing.Instruments())
    if (!instrument.IsStructured() && instrument.Standing == TStanding::Trading &&
        (!lively || instrument.Temper.OrdersPerSecond > lively->Temper.OrdersPerSecond))
      lively = &instrument;
  return lively->Symbol;
}

/// What is published at each of `instants`, when time goes on from the day's start in `steps`.
std::vector<TPublishedState> StatesAt(std::uint64_t day, const std::vector<TTimeOfDay>& instants,
                                      TTimeOfDay step) {
  TSimulatedMarket market(day);
  TPublishedState state;
  std::vector<TPublishedState> states;
  TTimeOfDay time = DayStart;
  for (const TTimeOfDay instant : instants) {
    for (; time < instant; time += step) {
      market.AdvanceTo(time);
      state.Hear(market.TakeChanges());
    }
    market.AdvanceTo(instant);
    state.Hear(market.TakeChanges());
    states.push_back(state);
  }
  return states;
}

TEST(SimulatedMarket, StatesDoNotDependOnTheStepsOfTime) {
  const std::vector<TTimeOfDay> instants{9h + 10min,          9h + 21min + 30s, 9h + 30min,
                                         9h + 30min + 1500ms, 9h + 30min + 2s,  9h + 31min + 17s,
                                         9h + 31min + 17001ms};
  const auto coarse = StatesAt(seed, instants, 24h);
  const auto seconds = StatesAt(seed, instants, 1s);
  const auto fine = StatesAt(seed, instants, 37ms);
  for (std::size_t i = 0; i < instants.size(); ++i) {
    EXPECT_TRUE(coarse[i] == seconds[i]) << i << ": " << Differences(coarse[i], seconds[i]);
    EXPECT_TRUE(coarse[i] == fine[i]) << i << ": " << Differences(coarse[i], fine[i]);
  }
  EXPECT_FALSE(coarse[3] == coarse[4]);
}

TEST(SimulatedMarket, SameSeedIsTheSameDayAndAnotherIsNot) {
  const std::vector<TTimeOfDay> instant{9h + 31min};
  EXPECT_TRUE(StatesAt(seed, instant, 24h) == StatesAt(seed, instant, 24h));
  EXPECT_FALSE(StatesAt(seed, instant, 24h) == StatesAt(seed + 1, instant, 24h));
}

TEST(SimulatedMarket, AllThatHappensHappensAtItsNextMoments) {
  TSimulatedMarket market(seed), other(seed);
  TPublishedState everyMoment, atTheEnd;
  market.AdvanceTo(9h + 31min);
  everyMoment.Hear(market.TakeChanges());
  constexpr TTimeOfDay end = 9h + 31min + 5s;
  int moments = 0;
  while (market.NextMoment() <= end) {
    const TTimeOfDay moment = market.NextMoment();
    ASSERT_GE(moment, market.Now());
    market.AdvanceTo(moment);
    everyMoment.Hear(market.TakeChanges());
    ++moments;
  }
  other.AdvanceTo(end);
  atTheEnd.Hear(other.TakeChanges());
  EXPECT_GT(moments, 100);
  EXPECT_TRUE(everyMoment == atTheEnd) << Differences(everyMoment, atTheEnd);
}

TEST(SimulatedMarket, OnlyWhatChangedIsTold) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(9h + 31min);
  EXPECT_EQ(market.TakeChanges().size(), TListing().Instruments().size());
  EXPECT_TRUE(market.TakeChanges().empty());
  market.AdvanceTo(market.NextMoment());
  const auto changes = market.TakeChanges();
  ASSERT_LE(changes.size(), 1u);
  for (const auto& change : changes)
    EXPECT_LT(change.Fields.size(), 70u);
  market.PublishAnew();
  EXPECT_EQ(market.TakeChanges().size(), TListing().Instruments().size());
}

TEST(SimulatedMarket, TimeOfTheLastUpdateMovesOnlyWithSomethingThatShows) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(9h + 31min);
  market.TakeChanges();
  int moments = 0, changes = 0;
  for (; market.Now() < 9h + 32min; ++moments) {
    market.AdvanceTo(market.NextMoment());
    for (const TRecordChange& change : market.TakeChanges()) {
      EXPECT_FALSE(change.Fields.size() == 1 && change.Fields[0].first == Host::Field::UpdateTime)
          << change.Symbol << " " << Text::TimeOfDayText(market.Now());
      ++changes;
    }
  }
  EXPECT_GT(changes, 1000);
  EXPECT_LT(changes, moments) << "some of what is done shows nothing";
}

TEST(SimulatedMarket, WhatDoesNotTradeIsSuspendedAndSaysNoTime) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(10h);
  TPublishedState state;
  state.Hear(market.TakeChanges());
  const TListing listing;
  for (const TInstrument& instrument : listing.Instruments()) {
    const auto& fields = state.Records.at(instrument.Symbol).Fields;
    const bool trades = instrument.Standing == TStanding::Trading;
    EXPECT_EQ(fields.contains(Host::Field::UpdateTime), trades) << instrument.Symbol;
    EXPECT_EQ(fields.contains(Host::Field::Status), instrument.Standing == TStanding::Halted);
  }
}

TEST(SimulatedMarket, CalledContractIsSuspendedAndSaysWhy) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(9h + 45min);
  TPublishedState state;
  state.Hear(market.TakeChanges());
  const auto& contract = state.Records["55321"].Fields; // a bull on 700
  const auto& underlying = state.Records["700"].Fields;
  ASSERT_FALSE(contract.contains(Host::Field::Status));
  const double level = std::stod(contract.at(Host::Field::CallPrice));
  // The user sells the underlying, eight ticks at a time, down to a bid of his own.
  market.Apply({TOrderAction::Submit, 1, "700", TSide::Bid, std::llround(level * PriceUnit), 100});
  for (int sold = 2; sold < 100 && std::stod(underlying.at(Host::Field::Low)) > level; ++sold) {
    market.Apply({TOrderAction::Submit, sold, "700", TSide::Ask,
                  std::llround((std::stod(underlying.at(1)) - 1.6) * PriceUnit), 300'000});
    state.Hear(market.TakeChanges());
  }
  ASSERT_LE(std::stod(underlying.at(Host::Field::Low)), level);
  EXPECT_EQ(contract.at(Host::Field::Status), "0");
  EXPECT_EQ(contract.at(Host::Field::FirstMessage), "MANDATORY CALL");
  EXPECT_FALSE(contract.contains(1));
}

TEST(SimulatedMarket, ControlIsSaidToBeOffForAMomentAfterACoolingOff) {
  TSimulatedMarket market(seed);
  for (TTimeOfDay time = 9h + 45min; market.CoolingOffs().empty(); time += 1min)
    market.AdvanceTo(time);
  TPublishedState state;
  const auto fieldsAt = [&](TTimeOfDay time) -> const std::map<int, std::string>& {
    market.AdvanceTo(time);
    state.Hear(market.TakeChanges());
    return state.Records.at(market.CoolingOffs().front()).Fields;
  };
  const auto& fields = fieldsAt(market.Now());
  const auto end = *Text::ParseTimeOfDay(fields.at(Host::Field::VcmEndTime) + ".999999");
  EXPECT_EQ(fieldsAt(end - 2s).at(Host::Field::VcmMarker), "1");
  EXPECT_EQ(fieldsAt(end).at(Host::Field::VcmMarker), "0");
  EXPECT_FALSE(fields.contains(Host::Field::VcmEndTime));
  EXPECT_EQ(fieldsAt(end + 11s).at(Host::Field::VcmMarker), "1");
  EXPECT_FALSE(fields.contains(Host::Field::VcmEndTime));
}

TEST(SimulatedMarket, HeaderNamesEverythingAndSaysThatItIsSimulated) {
  const auto header = TSimulatedMarket(seed).Header();
  EXPECT_TRUE(header.Simulated);
  std::set<std::string> codes;
  for (const auto& table : header.Spreads)
    codes.insert(table.Code);
  const TListing listing;
  ASSERT_EQ(header.Instruments.size(), listing.Instruments().size());
  for (std::size_t i = 0; i < header.Instruments.size(); ++i) {
    const TInstrument& instrument = listing.Instruments()[i];
    EXPECT_EQ(header.Instruments[i],
              (TReferenceData::TInstrument{instrument.Symbol, instrument.Name, instrument.Currency,
                                           instrument.TraditionalName, instrument.SimplifiedName}));
    EXPECT_TRUE(codes.contains(instrument.SpreadCode)) << instrument.SpreadCode;
  }
  EXPECT_GE(header.Brokers.size(), 40u);
}

TEST(SimulatedMarket, InstrumentWithoutDataSaysSo) {
  TSimulatedMarket market(seed);
  market.AdvanceTo(9h + 31min);
  int silent = 0;
  for (const auto& change : market.TakeChanges()) {
    if (change.State != 0)
      continue;
    EXPECT_TRUE(change.Fields.empty());
    EXPECT_FALSE(change.Status.value_or("").empty());
    EXPECT_EQ(TListing().Find(change.Symbol)->Standing, TStanding::Unknown);
    ++silent;
  }
  EXPECT_EQ(silent, 1);
}

/// Follows a quarter of an hour of trading, change by change.
class TPublishedMarketTest : public testing::Test {
protected:
  using TRecord = std::map<int, std::string>;

  static double Number(const TRecord& record, int field) {
    return record.contains(field) ? std::stod(record.at(field)) : 0;
  }

  template <class TCheck> void ForEachChange(TTimeOfDay from, TTimeOfDay to, TCheck check) {
    TSimulatedMarket market(seed);
    for (TTimeOfDay time = from; time <= to; time += 100ms) {
      market.AdvanceTo(time);
      const auto changes = market.TakeChanges();
      State.Hear(changes);
      for (const auto& change : changes) {
        SCOPED_TRACE(change.Symbol + " " + Text::TimeOfDayText(time));
        check(change, State.Records[change.Symbol].Fields);
        if (HasFailure())
          return;
      }
    }
  }

  void CheckSide(const TRecord& record, const TTickGrid& grid, const Host::Field::TSideFields& side,
                 int direction) const {
    const double lot = Number(record, Host::Field::BoardLot);
    double former = 0;
    for (std::size_t level = 0; level < Host::Field::DepthLevels; ++level) {
      const bool isThere = record.contains(side.Price[level]);
      ASSERT_EQ(isThere, record.contains(side.Size[level])) << level;
      ASSERT_EQ(isThere, record.contains(side.Count[level])) << level;
      if (!isThere)
        continue;
      const double price = Number(record, side.Price[level]);
      ASSERT_TRUE(grid.IsValid(std::llround(price * PriceUnit))) << price;
      ASSERT_TRUE(level == 0 || (price - former) * direction > 1e-9) << price << " " << former;
      const double lots = Number(record, side.Size[level]) / lot;
      ASSERT_EQ(lots, std::floor(lots)) << level;
      ASSERT_GE(Number(record, side.Count[level]), 1) << level;
      ASSERT_LE(Number(record, side.Count[level]), lots) << level;
      former = price;
    }
  }

  TListing Listing;
  TPublishedState State;
};

TEST_F(TPublishedMarketTest, BookIsNeverCrossedAndEveryLevelIsInItsPlace) {
  int checked = 0;
  ForEachChange(9h + 30min, 9h + 32min, [&](const TRecordChange& change, const TRecord& record) {
    if (!record.contains(1) || !record.contains(2))
      return;
    const TTickGrid& grid = Listing.Grid(*Listing.Find(change.Symbol));
    CheckSide(record, grid, Host::Field::Bid, -1);
    CheckSide(record, grid, Host::Field::Ask, 1);
    EXPECT_LT(Number(record, 1), Number(record, 2));
    ++checked;
  });
  EXPECT_GT(checked, 1000);
}

TEST_F(TPublishedMarketTest, VolumeIsTheSumOfTheTradesAndTheFiguresFollowThem) {
  std::map<std::string, double> volume;
  int trades = 0;
  ForEachChange(9h, 9h + 33min, [&](const TRecordChange& change, const TRecord& record) {
    for (const auto& trade : change.Trades) {
      volume[change.Symbol] += std::stod(trade.Quantity);
      EXPECT_GE(trade.Price, Number(record, Host::Field::Low) - 1e-9);
      EXPECT_LE(trade.Price, Number(record, Host::Field::High) + 1e-9);
      ++trades;
    }
    EXPECT_EQ(Number(record, Host::Field::Volume), volume[change.Symbol]);
    if (record.contains(1) && record.contains(2)) {
      EXPECT_GE(Number(record, Host::Field::Nominal), Number(record, 1));
      EXPECT_LE(Number(record, Host::Field::Nominal), Number(record, 2));
    }
  });
  EXPECT_GT(trades, 500);
}

TEST_F(TPublishedMarketTest, BrokerQueueHasKnownBrokersBetweenGrowingMarkers) {
  std::set<std::string> brokers;
  for (const auto& broker : BrokerDirectory())
    brokers.insert(broker.Id);
  int queues = 0;
  const auto check = [&](const std::string& text, int direction) {
    std::istringstream entries(text);
    int distance = 0, count = 0;
    for (std::string entry; std::getline(entries, entry, ','); ++count) {
      if (entry[0] != '+' && entry[0] != '-') {
        EXPECT_TRUE(brokers.contains(entry)) << entry;
        continue;
      }
      EXPECT_GT(std::stoi(entry) * direction, distance) << text;
      distance = std::stoi(entry) * direction;
    }
    EXPECT_LE(count, 40);
    ++queues;
  };
  ForEachChange(9h + 30min, 9h + 31min, [&](const TRecordChange& change, const TRecord&) {
    for (const auto& [field, text] : change.Fields) {
      if (field == 120 && text)
        check(*text, -1);
      if (field == 121 && text)
        check(*text, 1);
    }
  });
  EXPECT_GT(queues, 500);
}

TEST_F(TPublishedMarketTest, NoOrdinaryBookIsPublishedBeforeTheOpening) {
  int equilibria = 0;
  ForEachChange(9h, 9h + 29min, [&](const TRecordChange&, const TRecord& record) {
    for (const int field : {1, 2, 16, 19, 55, 65, 120, 121})
      EXPECT_FALSE(record.contains(field)) << field;
    equilibria += record.contains(Host::Field::ImbalanceDirection) ? 1 : 0;
  });
  EXPECT_GT(equilibria, 100);
}

TEST(SimulatedMarketOrders, UsersOrderStandsInTheQueueOfTheRecord) {
  TSimulatedMarket market(seed);
  TPublishedState state;
  market.AdvanceTo(9h + 31min);
  state.Hear(market.TakeChanges());
  const std::string symbol = LivelyShare();
  const auto fields = state.Records.at(symbol).Fields;
  const TPrice bid = std::llround(std::stod(fields.at(Field::BestBid)) * PriceUnit);
  ASSERT_EQ(fields.at(Field::BidQueue).find("8088"), std::string::npos);
  const TQuantity lot = std::stoll(fields.at(Field::BoardLot));
  market.Apply({TOrderAction::Submit, 1, symbol, TSide::Bid, bid, lot});
  state.Hear(market.TakeChanges());
  const auto& after = state.Records.at(symbol).Fields;
  EXPECT_NE(after.at(120).find(",8088"), std::string::npos) << after.at(120);
  EXPECT_EQ(std::stoll(after.at(55)), std::stoll(fields.at(Field::Bid.Count[0])) + 1);
  EXPECT_EQ(std::stoll(after.at(16)), std::stoll(fields.at(Field::BestBidSize)) + lot);
  const auto reports = market.TakeReports();
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(std::get<TUserOrder>(reports[0]).Status, TOrderStatus::Working);
}

TEST(SimulatedMarketOrders, UsersOrderAtTheBestPriceIsFilledByOthersInTime) {
  TSimulatedMarket market(seed);
  TPublishedState state;
  market.AdvanceTo(9h + 31min);
  state.Hear(market.TakeChanges());
  const std::string symbol = LivelyShare();
  const auto& fields = state.Records.at(symbol).Fields;
  const TPrice bid = std::llround(std::stod(fields.at(Field::BestBid)) * PriceUnit);
  const TQuantity lot = std::stoll(fields.at(Field::BoardLot));
  market.Apply({TOrderAction::Submit, 1, symbol, TSide::Bid, bid, lot});
  market.TakeReports();
  market.AdvanceTo(9h + 51min);
  bool isFilled = false;
  for (const auto& report : market.TakeReports())
    if (const auto* trade = std::get_if<TUserTrade>(&report))
      isFilled = isFilled || (trade->Price == bid && trade->Side == TSide::Bid);
  EXPECT_TRUE(isFilled);
}

} // namespace
