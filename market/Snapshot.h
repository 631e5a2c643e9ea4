#pragma once

#include "market/InstrumentMarket.h"
#include "market/PublishedQueue.h"

namespace Market {

/// All that an instrument shows the public at one moment and that moves through the day. What
/// happens outside of it, such as an order behind the tenth level, is nobody's news.
struct TSnapshot {
  /// Best level first, at most ten.
  struct TBookSide {
    std::vector<TBookLevel> Levels;
    std::vector<TQueueEntry> Queue;
    bool operator==(const TBookSide&) const = default;
  };
  enum class TSession { None, Opening, Closing };

  bool IsSuspended = false;
  TBookSide Bid, Ask; ///< empty while no ordinary book is published
  TDayFigures Figures;
  std::optional<TPrice> Nominal;
  std::optional<TCoolingOff> CoolingOff;

  TSession Session = TSession::None; ///< with an auction, that is on
  bool IsClosed = false;             ///< the closing price is known
  std::optional<TPrice> Reference;
  std::optional<TPriceLimits> AuctionLimits;
  std::optional<TEquilibrium> Equilibrium;

  bool operator==(const TSnapshot&) const = default;
};

TSnapshot SnapshotOf(const TInstrumentMarket& market);

} // namespace Market
