#pragma once

#include "data/Orders.h"
#include "market/InstrumentMarket.h"

#include <map>
#include <unordered_map>

namespace Market {

/// The user's orders in the simulated market, under the broker number of the user's own house.
class TUserAccount {
public:
  /// Carries the request out at `market`'s present moment. `market` is that of the order's
  /// instrument, null when there is none; `id` is a number that no other order of the day has, for
  /// a new order.
  void Apply(const TOrderRequest& request, TInstrumentMarket* market, TOrderId id);

  /// The symbol of order `number`; empty when there is none.
  std::string SymbolOf(int number) const;

  // Both hear of everybody's orders.
  void Traded(const TMatch& trade);
  void Lapsed(TOrderId id);

  /// What happened since the last call.
  std::vector<TOrderReport> TakeReports() { return std::exchange(reports_, {}); }

private:
  struct TOwnOrder : TUserOrder {
    TOrderId Id = 0;
    TAmount Spent = 0; ///< price times quantity of the fills
  };

  void Submit(const TOrderRequest& request, TInstrumentMarket* market, TOrderId id);
  void Change(TOwnOrder& order, const TOrderRequest& request, TInstrumentMarket& market);
  void Cancel(TOwnOrder& order, TInstrumentMarket& market);
  void Fill(TOrderId id, const TMatch& trade);
  void Settle(TOwnOrder& order, const TEntryResult& result);
  void Tell(const TOwnOrder& order);
  void Refuse(int number, const char* reason);

  std::map<int, TOwnOrder> orders_;              ///< by number
  std::unordered_map<TOrderId, int> numberById_; ///< living orders
  std::vector<TUserTrade> trades_;               ///< of the order that is being entered
  int entering_ = 0;                             ///< number of that order; 0: none
  std::vector<TOrderReport> reports_;
};

} // namespace Market
