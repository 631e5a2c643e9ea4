#pragma once

#include "terminal/market/MarketTypes.h"

#include <string>

namespace Terminal::Market {

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

} // namespace Terminal::Market
