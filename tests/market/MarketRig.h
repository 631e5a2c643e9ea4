#pragma once

#include "market/InstrumentMarket.h"

#include <ostream>
#include <random>
#include <vector>

// What the tests of the simulated exchange share.
namespace Market {

inline void PrintTo(const TPriceLimits& limits, std::ostream* out) {
  *out << limits.Lower << " to " << limits.Upper;
}
inline void PrintTo(const TBookLevel& level, std::ostream* out) {
  *out << level.Quantity << " in " << level.Orders << " at " << level.Price;
}
inline void PrintTo(const TEquilibrium& at, std::ostream* out) {
  *out << at.Volume << " at " << at.Price << ", imbalance " << static_cast<int>(at.Imbalance)
       << " of " << at.Surplus;
}

/// The shares' steps below 100: 0.001, 0.005, 0.01, 0.02 and 0.05.
inline TTickGrid ShareGrid() {
  return TTickGrid(
      {{0, 250, 1}, {250, 500, 5}, {500, 10'000, 10}, {10'000, 20'000, 20}, {20'000, 100'000, 50}});
}

/// 0 to count - 1, the same on every machine.
inline int Below(std::mt19937_64& random, int count) {
  return static_cast<int>(random() % static_cast<std::uint64_t>(count));
}

inline TBookOrder Order(TOrderId id, TSide side, TPrice price, TQuantity quantity,
                        TBrokerId broker = 0) {
  return {id, side, price, quantity, broker, {}};
}

struct TMarketEars : TMarketListener {
  void Traded(const TInstrumentMarket&, const TMatch& trade) override { Trades.push_back(trade); }
  void Lapsed(const TInstrumentMarket&, const TBookOrder& order) override {
    LapsedOrders.push_back(order);
  }

  std::vector<TMatch> Trades;
  std::vector<TBookOrder> LapsedOrders;
};

/// One instrument with a previous close of 50.00, a board lot of 100 and both auctions.
struct TMarketRig {
  explicit TMarketRig(TInstrumentSettings changed = Usual())
      : Market(std::move(changed), Grid, Day, Ears) {}

  static TInstrumentSettings Usual() {
    return {.Symbol = "1", .BoardLot = 100, .PreviousClose = 50'000, .HasClosingAuction = true};
  }
  static TInstrumentSettings Volatile() {
    TInstrumentSettings settings = Usual();
    settings.VolatilityPercent = 10;
    return settings;
  }

  TEntryResult Enter(TSide side, TPrice price, TQuantity quantity, TBrokerId broker = 0) {
    return Market.Enter({++LastId, side, TOrderKind::Limit, price, quantity, broker});
  }
  TEntryResult Bid(TPrice price, TQuantity quantity, TBrokerId broker = 0) {
    return Enter(TSide::Bid, price, quantity, broker);
  }
  TEntryResult Ask(TPrice price, TQuantity quantity, TBrokerId broker = 0) {
    return Enter(TSide::Ask, price, quantity, broker);
  }
  TEntryResult AtMarket(TSide side, TQuantity quantity) {
    return Market.Enter({++LastId, side, TOrderKind::Market, 0, quantity, 0});
  }
  /// A trade at `price` now and an empty book.
  void TradeAt(TPrice price) {
    Ask(price, 100);
    Bid(price, 100);
  }

  TTickGrid Grid = ShareGrid();
  TTradingDay Day{7};
  TMarketEars Ears;
  TInstrumentMarket Market;
  TOrderId LastId = 0;
};

} // namespace Market
