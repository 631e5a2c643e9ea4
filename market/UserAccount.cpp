#include "market/UserAccount.h"

#include "market/Brokers.h"

#include <utility>

namespace Market {

namespace {

const char* ReasonOf(TRejection rejection) {
  switch (rejection) {
  case TRejection::Suspended:
    return Refused_Halted;
  case TRejection::PhaseRefuses:
    return Refused_Phase;
  case TRejection::QuantityNotInLots:
    return Refused_Lot;
  case TRejection::QuantityTooLarge:
    return Refused_Size;
  case TRejection::PriceOffTick:
    return Refused_Tick;
  case TRejection::OutsideLimits:
  case TRejection::TooFarFromNominal:
  case TRejection::BeyondReach:
  case TRejection::NoOppositePrice:
    return Refused_Limit;
  case TRejection::VolatilityControl:
    return Refused_CoolingOff;
  case TRejection::UnknownOrder:
    return Refused_Done;
  case TRejection::None:
    break;
  }
  return "";
}

} // namespace

std::string TUserAccount::SymbolOf(int number) const {
  const auto order = orders_.find(number);
  return order == orders_.end() ? std::string() : order->second.Symbol;
}

void TUserAccount::Apply(const TOrderRequest& request, TInstrumentMarket* market, TOrderId id) {
  if (request.Action == TOrderAction::Submit)
    return Submit(request, market, id);
  const auto order = orders_.find(request.Number);
  if (!market || order == orders_.end() || !order->second.IsAlive())
    return Refuse(request.Number, Refused_Done);
  if (request.Action == TOrderAction::Change)
    Change(order->second, request, *market);
  else
    Cancel(order->second, *market);
}

void TUserAccount::Submit(const TOrderRequest& request, TInstrumentMarket* market, TOrderId id) {
  TOwnOrder& order = orders_.insert_or_assign(request.Number, TOwnOrder()).first->second;
  order.Number = request.Number;
  order.Symbol = request.Symbol;
  order.Side = request.Side;
  order.Price = request.Price;
  order.Quantity = request.Quantity;
  order.Id = id;
  if (!market) {
    order.Status = TOrderStatus::Rejected;
    order.Reason = Refused_Symbol;
    return Tell(order);
  }
  order.Entered = market->Now();
  numberById_[id] = order.Number;
  entering_ = order.Number;
  Settle(order, market->Enter(
                    {id, order.Side, TOrderKind::Limit, order.Price, order.Quantity, UserBroker}));
}

void TUserAccount::Change(TOwnOrder& order, const TOrderRequest& request,
                          TInstrumentMarket& market) {
  const TQuantity open = request.Quantity - order.Filled;
  if (open <= 0)
    return Refuse(order.Number, Refused_Filled);
  entering_ = order.Number;
  const TEntryResult result = market.Change(order.Id, request.Price, open);
  const bool isRefused = result.Rejection != TRejection::None && market.Book().Find(order.Id);
  if (isRefused) {
    entering_ = 0;
    return Refuse(order.Number, ReasonOf(result.Rejection));
  }
  order.Price = request.Price;
  order.Quantity = request.Quantity;
  Settle(order, result);
}

void TUserAccount::Cancel(TOwnOrder& order, TInstrumentMarket& market) {
  if (const TRejection why = market.Cancel(order.Id); why != TRejection::None)
    return Refuse(order.Number, ReasonOf(why));
  order.Status = TOrderStatus::Cancelled;
  Tell(order);
}

/// After an order was entered or changed: its state, then the trades that this made.
void TUserAccount::Settle(TOwnOrder& order, const TEntryResult& result) {
  entering_ = 0;
  if (result.Open > 0)
    order.Status = order.Filled > 0 ? TOrderStatus::PartlyFilled : TOrderStatus::Working;
  else if (order.Open() == 0)
    order.Status = TOrderStatus::Filled;
  else
    order.Status = order.Filled > 0 ? TOrderStatus::Cancelled : TOrderStatus::Rejected;
  order.Reason = ReasonOf(result.Rejection);
  Tell(order);
  for (TUserTrade& trade : std::exchange(trades_, {}))
    reports_.emplace_back(std::move(trade));
}

void TUserAccount::Traded(const TMatch& trade) {
  if (numberById_.empty())
    return;
  Fill(trade.BuyOrder, trade);
  Fill(trade.SellOrder, trade);
}

void TUserAccount::Fill(TOrderId id, const TMatch& trade) {
  const auto number = numberById_.find(id);
  if (number == numberById_.end())
    return;
  TOwnOrder& order = orders_[number->second];
  order.Filled += trade.Quantity;
  order.Spent += trade.Price * trade.Quantity;
  order.AveragePrice = ToUnits(order.Spent) / static_cast<double>(order.Filled);
  const TUserTrade fill{order.Number, order.Symbol,   order.Side,
                        trade.Price,  trade.Quantity, trade.Time};
  if (order.Number == entering_) {
    trades_.push_back(fill);
    return;
  }
  order.Status = order.Open() == 0 ? TOrderStatus::Filled : TOrderStatus::PartlyFilled;
  Tell(order);
  reports_.emplace_back(fill);
}

void TUserAccount::Lapsed(TOrderId id) {
  const auto number = numberById_.find(id);
  if (number == numberById_.end())
    return;
  TOwnOrder& order = orders_[number->second];
  order.Status = TOrderStatus::Cancelled;
  Tell(order);
}

void TUserAccount::Tell(const TOwnOrder& order) {
  if (!order.IsAlive())
    numberById_.erase(order.Id);
  reports_.emplace_back(static_cast<const TUserOrder&>(order));
}

void TUserAccount::Refuse(int number, const char* reason) {
  reports_.emplace_back(TOrderRefusal{number, reason});
}

} // namespace Market
