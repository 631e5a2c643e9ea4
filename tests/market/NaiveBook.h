#pragma once

#include "market/OrderBook.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace Market {

/// One fill of a resting order.
struct TNaiveFill {
  TOrderId Resting = 0;
  TPrice Price = 0;
  TQuantity Quantity = 0;
  bool operator==(const TNaiveFill&) const = default;
};

/// A book as one would write it down: each side a list of orders, the next to be filled first.
class TNaiveBook {
public:
  void Add(const TBookOrder& order) {
    auto& orders = SideOf(order.Side);
    orders.insert(std::find_if(orders.begin(), orders.end(),
                               [&](const TBookOrder& each) { return IsBetter(order, each); }),
                  order);
  }

  std::vector<TNaiveFill> Match(TSide side, TPrice limit, TQuantity quantity) {
    std::vector<TNaiveFill> fills;
    auto& orders = SideOf(Opposite(side));
    while (quantity > 0 && !orders.empty() &&
           (side == TSide::Bid ? orders[0].Price <= limit : orders[0].Price >= limit)) {
      const TQuantity filled = std::min(quantity, orders[0].Quantity);
      fills.push_back({orders[0].Id, orders[0].Price, filled});
      quantity -= filled;
      orders[0].Quantity -= filled;
      if (orders[0].Quantity == 0)
        orders.erase(orders.begin());
    }
    return fills;
  }

  bool Cancel(TOrderId id) {
    return std::erase_if(bids_, [id](const TBookOrder& each) { return each.Id == id; }) +
               std::erase_if(asks_, [id](const TBookOrder& each) { return each.Id == id; }) >
           0;
  }

  bool Reduce(TOrderId id, TQuantity quantity) {
    for (auto* orders : {&bids_, &asks_})
      for (TBookOrder& order : *orders)
        if (order.Id == id && quantity < order.Quantity) {
          order.Quantity = quantity;
          return true;
        }
    return false;
  }

  std::vector<TBookOrder>& SideOf(TSide side) { return side == TSide::Bid ? bids_ : asks_; }
  const std::vector<TBookOrder>& SideOf(TSide side) const {
    return side == TSide::Bid ? bids_ : asks_;
  }

  std::vector<TBookLevel> Levels(TSide side) const {
    std::vector<TBookLevel> levels;
    for (const TBookOrder& order : SideOf(side)) {
      if (levels.empty() || levels.back().Price != order.Price)
        levels.push_back({order.Price, 0, 0});
      levels.back().Quantity += order.Quantity;
      ++levels.back().Orders;
    }
    return levels;
  }

private:
  static bool IsBetter(const TBookOrder& order, const TBookOrder& other) {
    return order.Side == TSide::Bid ? order.Price > other.Price : order.Price < other.Price;
  }

  std::vector<TBookOrder> bids_;
  std::vector<TBookOrder> asks_;
};

} // namespace Market
