#pragma once

#include "terminal/market/MarketTypes.h"

#include <string>

// What order entry says to the simulated market and hears from it. Paper trading only.
namespace Terminal::Market {

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
  TTimeOfDay Entered{};

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
  TTimeOfDay Time{};
};

} // namespace Terminal::Market
