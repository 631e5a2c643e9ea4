#include "terminal/trading/OrderDesk.h"

#include "terminal/services/MarketPlayer.h"

#include <algorithm>
#include <utility>

namespace Terminal {

using namespace Data;

int TOrderDesk::Submit(const std::string& symbol, TSide side, TPrice price, TQuantity quantity) {
  const int number = ++lastNumber_;
  const TOrderRequest request{TOrderAction::Submit, number, symbol, side, price, quantity};
  if (IsOpen()) {
    market_(request);
    return number;
  }
  TUserOrder order;
  order.Number = number;
  order.Symbol = symbol;
  order.Side = side;
  order.Price = price;
  order.Quantity = quantity;
  order.Status = TOrderStatus::Rejected;
  order.Reason = Refused_NoMarket;
  ApplyOrder(order);
  return number;
}

void TOrderDesk::Change(int number, TPrice price, TQuantity quantity) {
  Send({TOrderAction::Change, number, {}, {}, price, quantity});
}

void TOrderDesk::Cancel(int number) { Send({TOrderAction::Cancel, number, {}, {}, 0, 0}); }

void TOrderDesk::Follow(TMarketPlayer& player) {
  connect(&player, &TMarketPlayer::HeaderRead, this, [this, &player] {
    if (player.Traits().Orders)
      SetMarket([&player](const TOrderRequest& request) { player.Request(request); });
    else
      SetMarket({});
  });
  connect(&player, &TMarketPlayer::Reported, this, [this](const TOrderReport& report) {
    if (const auto* order = std::get_if<TUserOrder>(&report))
      ApplyOrder(*order);
    else if (const auto* trade = std::get_if<TUserTrade>(&report))
      ApplyTrade(*trade);
    else if (const auto* refusal = std::get_if<TOrderRefusal>(&report))
      ApplyRefusal(refusal->Number, refusal->Reason);
  });
}

void TOrderDesk::SetMarket(TMarket market) {
  market_ = std::move(market);
  lastNumber_ = 0;
  orders_.clear();
  trades_.clear();
  emit Reopened();
}

void TOrderDesk::ApplyOrder(const TUserOrder& order) {
  const auto place =
      std::lower_bound(orders_.begin(), orders_.end(), order.Number,
                       [](const TUserOrder& known, int number) { return known.Number < number; });
  if (place != orders_.end() && place->Number == order.Number)
    *place = order;
  else
    orders_.insert(place, order);
  emit OrderChanged(order);
}

void TOrderDesk::ApplyTrade(const TUserTrade& trade) {
  trades_.push_back(trade);
  emit Traded(trade);
}

void TOrderDesk::ApplyRefusal(int number, const std::string& reason) {
  emit Refused(number, QString::fromStdString(reason));
}

void TOrderDesk::Send(const TOrderRequest& request) {
  if (IsOpen())
    market_(request);
  else
    ApplyRefusal(request.Number, Refused_NoMarket);
}

} // namespace Terminal
