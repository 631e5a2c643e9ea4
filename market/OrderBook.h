#pragma once

#include "market/OrderPool.h"
#include "market/TickGrid.h"
#include "market/TickSet.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>

namespace Market {

/// A price with its orders.
struct TBookLevel {
  TPrice Price = 0;
  TQuantity Quantity = 0; ///< sum of the orders
  int Orders = 0;
  bool operator==(const TBookLevel&) const = default;
};

/// The limit orders of one instrument with price-time priority. The book knows no rules beside
/// priority: what may enter, at what price and when, is its owner's to say. Between calls a book
/// in continuous trading is never crossed; in an auction, where orders only gather, it may be.
class TOrderBook {
public:
  /// `grid` outlives the book; every price of every order is on it.
  explicit TOrderBook(const TTickGrid& grid);

  const TTickGrid& Grid() const { return grid_; }

  /// The order joins the back of the queue at its price and is matched with nothing. Its number
  /// is above 0 and not in the book, its quantity above 0.
  void Add(const TBookOrder& order);

  /// Fills `quantity` from the orders against `side` (a buyer takes asks), best price first, then
  /// longest-standing first, up to `limit`; each fill calls `onFill(const TBookOrder& resting,
  /// TQuantity filled)`, the resting order as it stands after the fill (quantity 0: it is gone).
  /// `onFill` does not touch the book. Returns the quantity left over.
  template <class TOnFill>
  TQuantity Match(TSide side, TPrice limit, TQuantity quantity, TOnFill&& onFill);

  /// Fills `quantity`, at most what is open, from the first order of the best level of `side`,
  /// which is not empty. Returns the order as it stands afterwards (quantity 0: it is gone).
  TBookOrder Fill(TSide side, TQuantity quantity);

  /// The order as it was; empty when it is not in the book.
  std::optional<TBookOrder> Cancel(TOrderId id);
  /// Lowers the open quantity to `quantity`, above 0; the order keeps its place. False, and
  /// nothing happens, when it is not in the book or has no more than that.
  bool Reduce(TOrderId id, TQuantity quantity);

  /// Null when it is not in the book; good until the book next changes.
  const TBookOrder* Find(TOrderId id) const { return pool_.Find(id); }
  /// The order that a fill would take next; null when the side is empty.
  const TBookOrder* Front(TSide side) const;
  /// Empty when the side is empty.
  std::optional<TPrice> BestPrice(TSide side) const;
  /// Whether an order of `side` at `price` would be filled at once.
  bool Crosses(TSide side, TPrice price) const;
  std::size_t OrderCount() const { return pool_.Count(); }

  /// The level at `price`, with no orders when it is empty.
  TBookLevel LevelAt(TSide side, TPrice price) const;
  /// The levels of the side into `levels`, best first, as many as there are and as fit; returns
  /// how many.
  std::size_t ReadLevels(TSide side, std::span<TBookLevel> levels) const;

  /// Walks the levels of a side, best first, while `visit(const TBookLevel&)` answers true;
  /// `visit` does not touch the book.
  template <class TVisit> void VisitLevels(TSide side, TVisit&& visit) const;

  /// Walks the orders of a side, best level first and front to back in each, while
  /// `visit(const TBookOrder&, int ticks)` answers true; `ticks` is how far, in ticks and never
  /// below 0, the level lies from the best. `visit` does not touch the book.
  template <class TVisit> void VisitOrders(TSide side, TVisit&& visit) const;

private:
  struct TLevel {
    TQueuedOrder* Front = nullptr;
    TQueuedOrder* Back = nullptr;
    TQuantity Quantity = 0;
    int Orders = 0;
  };

  /// The levels by tick number, in pages that come into being when first used: a book touches a
  /// small part of its grid.
  struct TSideLevels {
    static constexpr int PageSize = 64;
    using TPage = std::array<TLevel, PageSize>;

    explicit TSideLevels(int ticks);

    TLevel& At(int tick);
    const TLevel* Find(int tick) const; ///< null when nothing ever stood there

    std::vector<std::unique_ptr<TPage>> Pages;
    TTickSet Occupied;
    int Best = TTickSet::None;
  };

  TSideLevels& SideOf(TSide side) { return side == TSide::Bid ? bids_ : asks_; }
  const TSideLevels& SideOf(TSide side) const { return side == TSide::Bid ? bids_ : asks_; }
  /// Of the occupied ticks the best that is `tick` or worse.
  static int BestFrom(const TSideLevels& levels, TSide side, int tick);
  static int WorseBy(TSide side, int tick) { return side == TSide::Bid ? tick - 1 : tick + 1; }
  void Withdraw(TQueuedOrder& order, TQuantity quantity);
  void Unlink(TQueuedOrder& order);

  const TTickGrid& grid_;
  TOrderPool pool_;
  TSideLevels bids_;
  TSideLevels asks_;
};

template <class TOnFill>
TQuantity TOrderBook::Match(TSide side, TPrice limit, TQuantity quantity, TOnFill&& onFill) {
  const TSide against = Opposite(side);
  while (quantity > 0 && Crosses(side, limit)) {
    const TQuantity filled = std::min(quantity, Front(against)->Quantity);
    const TBookOrder resting = Fill(against, filled);
    quantity -= filled;
    onFill(resting, filled);
  }
  return quantity;
}

template <class TVisit> void TOrderBook::VisitLevels(TSide side, TVisit&& visit) const {
  const TSideLevels& levels = SideOf(side);
  for (int tick = levels.Best; tick != TTickSet::None;
       tick = BestFrom(levels, side, WorseBy(side, tick))) {
    const TLevel& level = *levels.Find(tick);
    if (!visit(TBookLevel{level.Front->Price, level.Quantity, level.Orders}))
      return;
  }
}

template <class TVisit> void TOrderBook::VisitOrders(TSide side, TVisit&& visit) const {
  const TSideLevels& levels = SideOf(side);
  for (int tick = levels.Best; tick != TTickSet::None;
       tick = BestFrom(levels, side, WorseBy(side, tick)))
    for (const TQueuedOrder* order = levels.Find(tick)->Front; order; order = order->Behind)
      if (!visit(static_cast<const TBookOrder&>(*order), std::abs(tick - levels.Best)))
        return;
}

} // namespace Market
