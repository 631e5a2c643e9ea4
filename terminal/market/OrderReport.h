#pragma once

#include "terminal/market/UserOrders.h"

#include <variant>

namespace Terminal::Market {

/// A request to change or cancel an order that the market did not follow; the order stands as it
/// was.
struct TOrderRefusal {
  int Number = 0;     ///< of the order
  std::string Reason; ///< language key
};

/// What the market answers to the user: an order as it stands now, a fill, or a refusal.
using TOrderReport = std::variant<TUserOrder, TUserTrade, TOrderRefusal>;

} // namespace Terminal::Market
