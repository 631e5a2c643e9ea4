#pragma once

#include "text/TimeOfDay.h"

#include <cstdint>
#include <string>
#include <variant>

// What order entry says to a market that takes orders, and hears from it. Paper trading only.
namespace Data {

/// A price in thousandths of the currency unit, which every spread table divides evenly.
using TPrice = std::int64_t;
/// Shares, units or warrants; never lots.
using TQuantity = std::int64_t;

inline constexpr TPrice PriceUnit = 1000;

enum class TSide { Bid, Ask };

constexpr TSide Opposite(TSide side) { return side == TSide::Bid ? TSide::Ask : TSide::Bid; }
constexpr double ToUnits(TPrice price) { return static_cast<double>(price) / PriceUnit; }

enum class TOrderAction { Submit, Change, Cancel };

/// What the user asks of the simulated market.
struct TOrderRequest {
  TOrderAction Action = TOrderAction::Submit;
  int Number = 0;          ///< of the user's order, above 0; a new one for Submit
  std::string Symbol;      ///< Submit only
  TSide Side = TSide::Bid; ///< Submit only
  TPrice Price = 0;        ///< Submit and Change
  TQuantity Quantity = 0;  ///< Submit and Change: the whole quantity, what is filled too
};

// Why a request was refused: keys of the language manager.
inline constexpr const char* Refused_NoMarket = "Term_RefusedNoMarket"; ///< a recording is played
inline constexpr const char* Refused_Symbol = "Term_RefusedSymbol";     ///< not traded here
inline constexpr const char* Refused_Halted = "Term_RefusedHalted";
inline constexpr const char* Refused_Phase = "Term_RefusedPhase"; ///< not in this part of the day
inline constexpr const char* Refused_Tick = "Term_RefusedTick";   ///< no price of the spread table
inline constexpr const char* Refused_Lot = "Term_RefusedLot";     ///< no multiple of the board lot
inline constexpr const char* Refused_Size = "Term_RefusedSize";   ///< over the largest order
inline constexpr const char* Refused_Limit = "Term_RefusedLimit"; ///< price beyond today's limits
inline constexpr const char* Refused_Done = "Term_RefusedDone";   ///< the order is no longer alive
inline constexpr const char* Refused_CoolingOff = "Term_RefusedCoolingOff"; ///< volatility control
inline constexpr const char* Refused_Filled = "Term_RefusedFilled"; ///< that much is filled already
enum class TOrderStatus { Working, PartlyFilled, Filled, Cancelled, Rejected };

/// An order of the user as it stands.
struct TUserOrder {
  int Number = 0; ///< from 1, in the order of entry
  std::string Symbol;
  TSide Side = TSide::Bid;
  TPrice Price = 0;
  TQuantity Quantity = 0; ///< as ordered
  TQuantity Filled = 0;
  double AveragePrice = 0; ///< of the fills, in currency units; 0 while there is none
  TOrderStatus Status = TOrderStatus::Working;
  std::string Reason; ///< language key of why it was rejected; empty otherwise
  Text::TTimeOfDay Entered{};

  TQuantity Open() const { return Quantity - Filled; }
  bool IsAlive() const {
    return Status == TOrderStatus::Working || Status == TOrderStatus::PartlyFilled;
  }
};

/// One fill of one of the user's orders.
struct TUserTrade {
  int Order = 0; ///< number of the order
  std::string Symbol;
  TSide Side = TSide::Bid;
  TPrice Price = 0;
  TQuantity Quantity = 0;
  Text::TTimeOfDay Time{};
};
/// A request to change or cancel an order that the market did not follow; the order stands as it
/// was.
struct TOrderRefusal {
  int Number = 0;     ///< of the order
  std::string Reason; ///< language key
};

/// What the market answers to the user: an order as it stands now, a fill, or a refusal.
using TOrderReport = std::variant<TUserOrder, TUserTrade, TOrderRefusal>;

} // namespace Data
