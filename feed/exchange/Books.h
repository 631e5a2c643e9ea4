#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <unordered_map>
#include <vector>

/// The books of a security, as the two kinds of feed build them. Prices in thousandths of a
/// currency unit; sides are the exchange's: 0 bid, 1 offer.
namespace Feed::Exchange {

inline constexpr std::size_t ShownLevels = 10;

struct TBookLevel {
  std::int32_t Price = 0;
  std::uint64_t Quantity = 0;
  std::uint32_t Orders = 0;

  bool operator==(const TBookLevel&) const = default;
};

/// What an entry of an aggregate book's update does.
enum TBookAction : std::uint8_t { baNew = 0, baChange = 1, baDelete = 2, baClear = 74 };

/// A book that is told by levels: a new level pushes the lower ones down, and the last out of the
/// book; a level that is deleted lifts them.
class TAggregateBook {
public:
  /// `level` from 1. False, and nothing happens, where the book has no such level or side.
  bool Apply(TBookAction action, int side, std::size_t level, const TBookLevel& what);
  void Clear();

  /// Best first; empty for what is no side.
  std::span<const TBookLevel> Levels(int side) const;

private:
  std::vector<TBookLevel> sides_[2];
};

/// A book that is told by orders. An order without a price stands in no level.
class TOrderedBook {
public:
  static constexpr std::int32_t NoPrice = 0;

  /// False, and nothing happens, for an order that is known, or a side that is none.
  bool Add(std::uint64_t id, int side, std::int32_t price, std::uint64_t quantity);
  /// `quantity` is the whole new one. False for an order that is unknown on that side.
  bool Modify(std::uint64_t id, int side, std::uint64_t quantity);
  bool Delete(std::uint64_t id, int side);
  void Clear();

  /// The best ten, best first; empty for what is no side.
  std::vector<TBookLevel> Levels(int side) const;
  std::size_t OrderCount() const { return orders_.size(); }

private:
  struct TOrder {
    int Side = 0;
    std::int32_t Price = NoPrice;
    std::uint64_t Quantity = 0;
  };
  struct TLevel {
    std::uint64_t Quantity = 0;
    std::uint32_t Orders = 0;
  };

  TOrder* Find(std::uint64_t id, int side);
  /// Takes the order's share out of its level.
  void Withdraw(const TOrder& order);
  void Place(const TOrder& order);
  /// Best first: bids by falling, offers by rising price.
  static std::int32_t KeyOf(const TOrder& order) {
    return order.Side == 0 ? -order.Price : order.Price;
  }

  std::unordered_map<std::uint64_t, TOrder> orders_;
  std::map<std::int32_t, TLevel> sides_[2];
};

} // namespace Feed::Exchange
