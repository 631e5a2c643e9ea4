#pragma once

#include "market/OrderBook.h"

#include <algorithm>
#include <optional>

namespace Market {

/// Which side would be left over at the equilibrium price.
enum class TImbalance { None, BuySurplus, SellSurplus };

/// What an auction would do if it ended now.
struct TEquilibrium {
  TPrice Price = 0;
  TQuantity Volume = 0; ///< above 0
  TImbalance Imbalance = TImbalance::None;
  TQuantity Surplus = 0; ///< 0 when there is no imbalance
  bool operator==(const TEquilibrium&) const = default;
};

/// Best price of the limit orders of a side, at-auction orders left out; empty when there is none.
std::optional<TPrice> BestLimitPrice(const TOrderBook& book, TSide side);

/// Empty unless limit orders are crossed. Of the prices of limit orders between the lowest ask and
/// the highest bid it is the one at which most is traded, at-auction orders counted; of several the
/// one with the smallest imbalance; of several the highest when buyers are left over at each, the
/// lowest when sellers are, else the one closest to `reference`; of two equally close, and of all
/// when there is no reference, the highest.
std::optional<TEquilibrium> FindEquilibrium(const TOrderBook& book,
                                            std::optional<TPrice> reference);

/// Trades everything that can be traded at `price`, in price-time priority on both sides; each
/// trade calls `onTrade(const TBookOrder& bid, const TBookOrder& ask, TQuantity)`, the orders as
/// they stand afterwards (quantity 0: it is gone). At the equilibrium price nothing stays crossed.
template <class TOnTrade> void Uncross(TOrderBook& book, TPrice price, TOnTrade&& onTrade) {
  while (book.Crosses(TSide::Bid, price) && book.Crosses(TSide::Ask, price)) {
    const TQuantity quantity =
        std::min(book.Front(TSide::Bid)->Quantity, book.Front(TSide::Ask)->Quantity);
    const TBookOrder bid = book.Fill(TSide::Bid, quantity);
    const TBookOrder ask = book.Fill(TSide::Ask, quantity);
    onTrade(bid, ask, quantity);
  }
}

} // namespace Market
