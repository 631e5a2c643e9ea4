#pragma once

#include "market/SimulatedMarket.h"

#include <deque>
#include <map>

namespace MarketTest {

/// What somebody knows who has heard every change.
struct TPublishedState {
  struct TRecord {
    std::optional<int> State;
    std::map<int, std::string> Fields;
    std::deque<std::string> Trades; ///< the last five
    bool operator==(const TRecord&) const = default;
  };

  std::map<std::string, TRecord> Records;
  bool operator==(const TPublishedState&) const = default;

  void Hear(const std::vector<Data::TRecordChange>& changes) {
    for (const auto& change : changes) {
      TRecord& record = Records[change.Symbol];
      if (change.State)
        record.State = change.State;
      for (const auto& [field, text] : change.Fields)
        if (text)
          record.Fields[field] = *text;
        else
          record.Fields.erase(field);
      for (const auto& trade : change.Trades) {
        record.Trades.push_back(trade.Time + trade.Side + " " + trade.Quantity + " " +
                                std::to_string(trade.Price));
        if (record.Trades.size() > 5)
          record.Trades.pop_front();
      }
    }
  }
};

/// The symbols whose records differ, for a message.
inline std::string Differences(const TPublishedState& one, const TPublishedState& other) {
  std::string symbols;
  for (const auto& [symbol, record] : one.Records) {
    const auto found = other.Records.find(symbol);
    if (found == other.Records.end() || found->second != record)
      symbols += symbol + " ";
  }
  return symbols;
}

} // namespace MarketTest
