// The recording that is shipped: a market must be possible at every line of it.

#include "terminal/replay/RecordingIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <sstream>

namespace {

using namespace Terminal;
using namespace std::chrono_literals;

constexpr std::size_t Depth = 10;

struct TSideFields {
  std::array<int, Depth> Price, Size, Count;
};
constexpr TSideFields Bid{{1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184},
                          {16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159},
                          {55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140}};
constexpr TSideFields Ask{{2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194},
                          {19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169},
                          {65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150}};

using TRecord = std::map<int, std::string>;

double Number(const TRecord& record, int field) {
  return record.contains(field) ? std::stod(record.at(field)) : 0;
}

class SimulatedMarket : public testing::Test {
protected:
  /// Reads the recording and calls `check` with each line's event and the symbol's record after it.
  template <typename TCheck> void ForEachLine(TCheck check) {
    RecordingSource source;
    ASSERT_EQ(source.Open(QUOR_SOURCE_DIR "/terminal/replay/recordings/simulated.jsonl"), "");
    while (auto line = source.Next()) {
      if (auto* const header = std::get_if<TRecordingHeader>(&*line))
        header_ = *header;
      const auto* const event = std::get_if<TRecordedEvent>(&*line);
      if (event == nullptr)
        continue;
      Apply(event->Change);
      SCOPED_TRACE("line " + std::to_string(source.Place().Lines));
      check(*event, market_[event->Change.Symbol]);
      if (HasFailure())
        return;
    }
  }

  void Apply(const TRecordChange& change) {
    for (const auto& [field, value] : change.Fields) {
      if (value)
        market_[change.Symbol][field] = *value;
      else
        market_[change.Symbol].erase(field);
    }
  }

  /// Whether `price` is a whole number of steps above the start of its band.
  bool IsOnGrid(const std::string& code, double price) const {
    for (const auto& table : header_.Spreads) {
      if (table.Code != code)
        continue;
      for (const auto& band : table.Bands) {
        if (price <= band.From || price > band.To + 1e-9)
          continue;
        const double steps = (price - band.From) / band.Step;
        return std::abs(steps - std::round(steps)) < 1e-6;
      }
    }
    return false;
  }

  void CheckSide(const TRecord& record, const TSideFields& side, int direction) const {
    const double lot = Number(record, 24);
    double former = 0;
    for (std::size_t level = 0; level < Depth; ++level) {
      const bool isThere = record.contains(side.Price[level]);
      ASSERT_EQ(isThere, record.contains(side.Size[level])) << level;
      ASSERT_EQ(isThere, record.contains(side.Count[level])) << level;
      if (!isThere)
        continue;
      const double price = Number(record, side.Price[level]);
      ASSERT_TRUE(level == 0 || record.contains(side.Price[level - 1])) << level;
      ASSERT_TRUE(IsOnGrid(record.at(73), price)) << price;
      ASSERT_TRUE(level == 0 || (price - former) * direction > 1e-9) << price << " " << former;
      const double lots = Number(record, side.Size[level]) / lot;
      ASSERT_GT(lots, 0) << level;
      ASSERT_EQ(lots, std::floor(lots)) << level;
      ASSERT_GE(Number(record, side.Count[level]), 1) << level;
      ASSERT_LE(Number(record, side.Count[level]), lots) << level;
      former = price;
    }
  }

  TRecordingHeader header_;
  std::map<std::string, TRecord> market_;
};

TEST_F(SimulatedMarket, HasNoMalformedLineAndLastsTwoMinutes) {
  RecordingSource source;
  ASSERT_EQ(source.Open(QUOR_SOURCE_DIR "/terminal/replay/recordings/simulated.jsonl"), "");
  const auto index = IndexRecording(source, [](std::uint64_t) { return true; }).value();
  EXPECT_EQ(index.MalformedCount, 0u);
  EXPECT_EQ(index.Start, 10h + 15min);
  EXPECT_GT(index.End, index.Start + 118s);
  EXPECT_LT(index.End, index.Start + 121s);
  EXPECT_GT(index.Events, 1000u);
  EXPECT_LT(source.Size(), 600000u);
}

TEST_F(SimulatedMarket, SaysThatItIsSimulatedAndNamesItsReferenceData) {
  ForEachLine([](const auto&, const auto&) {});
  EXPECT_TRUE(header_.Simulated);
  std::set<std::string> codes, brokers, symbols;
  for (const auto& table : header_.Spreads)
    codes.insert(table.Code);
  for (const auto& broker : header_.Brokers) {
    EXPECT_EQ(broker.Id.size(), 4u);
    EXPECT_FALSE(broker.Name.empty() || broker.Name1.empty() || broker.Name2.empty());
    brokers.insert(broker.Id);
  }
  for (const auto& instrument : header_.Instruments)
    symbols.insert(instrument.Symbol);
  EXPECT_EQ(codes, (std::set<std::string>{"01", "05", "06"}));
  EXPECT_EQ(brokers.size(), 40u);
  EXPECT_EQ(symbols, (std::set<std::string>{"700", "1077", "14680", "55321"}));
  for (const auto& [symbol, record] : market_)
    EXPECT_TRUE(symbols.contains(symbol)) << symbol;
}

TEST_F(SimulatedMarket, BookIsNeverCrossedAndEveryLevelIsInItsPlace) {
  int checked = 0;
  ForEachLine([&](const TRecordedEvent&, const TRecord& record) {
    if (!record.contains(1))
      return;
    CheckSide(record, Bid, -1);
    CheckSide(record, Ask, 1);
    EXPECT_LT(Number(record, 1), Number(record, 2));
    ++checked;
  });
  EXPECT_GT(checked, 1000);
}

TEST_F(SimulatedMarket, FiguresFollowTheTrades) {
  std::map<std::string, double> volume;
  int trades = 0;
  ForEachLine([&](const TRecordedEvent& event, const TRecord& record) {
    if (!record.contains(17))
      return;
    const auto [former, isFirst] = volume.try_emplace(event.Change.Symbol, Number(record, 17));
    double traded = 0;
    for (const auto& trade : event.Change.Trades) {
      traded += std::stod(trade.Quantity);
      EXPECT_TRUE(IsOnGrid(record.at(73), trade.Price)) << trade.Price;
      EXPECT_GE(trade.Price, Number(record, 32) - 1e-9);
      EXPECT_LE(trade.Price, Number(record, 37) + 1e-9);
      EXPECT_TRUE(trade.Side == "B" || trade.Side == "S");
      EXPECT_EQ(trade.Time, TimeOfDayText(event.Time).substr(0, 8));
      ++trades;
    }
    EXPECT_EQ(Number(record, 17), former->second + traded);
    former->second = Number(record, 17);
    EXPECT_GE(Number(record, 3), Number(record, 1)); // the nominal price lies within the quotes
    EXPECT_LE(Number(record, 3), Number(record, 2));
    EXPECT_GE(Number(record, 132), 0.001);
    EXPECT_LE(Number(record, 132), Number(record, 32));
    EXPECT_GE(Number(record, 131), Number(record, 37));
  });
  EXPECT_GT(trades, 300);
}

TEST_F(SimulatedMarket, BrokerQueueHasKnownBrokersBetweenGrowingMarkers) {
  int queues = 0;
  const auto check = [&](const std::string& text, int direction) {
    std::istringstream entries(text);
    int distance = 0, count = 0;
    for (std::string entry; std::getline(entries, entry, ','); ++count) {
      if (entry[0] == '+' || entry[0] == '-') {
        ASSERT_GT(std::stoi(entry) * direction, distance) << text;
        distance = std::stoi(entry) * direction;
        continue;
      }
      ASSERT_TRUE(std::ranges::any_of(header_.Brokers, [&](const auto& broker) {
        return broker.Id == entry;
      })) << entry;
    }
    ASSERT_GT(count, 1);
    ASSERT_LE(count, 40);
    ++queues;
  };
  ForEachLine([&](const TRecordedEvent& event, const TRecord&) {
    for (const auto& [field, value] : event.Change.Fields) {
      if (field == 120)
        check(value.value(), -1);
      if (field == 121)
        check(value.value(), 1);
    }
  });
  EXPECT_GT(queues, 100);
}

TEST_F(SimulatedMarket, CoolingOffHoldsTheBookWithinItsLimitsAndEnds) {
  bool wasInForce = false;
  ForEachLine([&](const TRecordedEvent& event, const TRecord& record) {
    if (event.Change.Symbol != "1077" || !record.contains(3503))
      return;
    wasInForce = true;
    EXPECT_EQ(record.at(3500), "1");
    EXPECT_EQ(record.at(3501), "10:11:05");
    EXPECT_EQ(record.at(3502), "10:16:05");
    EXPECT_LT(event.Time, 10h + 16min + 5s);
    EXPECT_NEAR(Number(record, 3504), Number(record, 3503) * 0.9, 0.001);
    EXPECT_NEAR(Number(record, 3505), Number(record, 3503) * 1.1, 0.005);
    for (std::size_t level = 0; level < Depth; ++level) {
      if (record.contains(Bid.Price[level])) {
        EXPECT_GE(Number(record, Bid.Price[level]), Number(record, 3504));
      }
      if (record.contains(Ask.Price[level])) {
        EXPECT_LE(Number(record, Ask.Price[level]), Number(record, 3505));
      }
    }
  });
  EXPECT_TRUE(wasInForce);
  EXPECT_EQ(market_["1077"].at(3500), "0");
  EXPECT_FALSE(market_["1077"].contains(3501) || market_["1077"].contains(3505));
}

TEST_F(SimulatedMarket, StructuredProductsNameTheirUnderlying) {
  ForEachLine([](const auto&, const auto&) {});
  for (const char* symbol : {"14680", "55321"}) {
    const TRecord& record = market_.at(symbol);
    EXPECT_EQ(record.at(22), "4");
    EXPECT_EQ(record.at(26), "700");
    EXPECT_EQ(record.at(10).size(), 15u);
    EXPECT_EQ(record.at(73), "06");
    for (const int field : {18, 27, 28, 29, 104, 170})
      EXPECT_FALSE(record.at(field).empty()) << field;
  }
  EXPECT_EQ(market_.at("14680").at(10).substr(7, 3), "@EC");
  EXPECT_EQ(market_.at("55321").at(10).substr(2, 1), "#");
  EXPECT_EQ(market_.at("55321").at(10).substr(8, 2), "RC");
  EXPECT_FALSE(market_.at("55321").at(172).empty());
  for (const int field : {135, 136, 3200})
    EXPECT_FALSE(market_.at("700").at(field).empty()) << field;
}

} // namespace
