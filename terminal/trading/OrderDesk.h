#pragma once

#include "data/Orders.h"

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace Terminal {

class TMarketPlayer;

/// Between order entry and a market that takes orders: passes on what the user asks, and keeps the
/// user's orders and trades as the market last told them. All of it on the user-interface thread;
/// the market answers a moment later, also while its clock is stopped. Paper trading only.
class TOrderDesk : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

  // For order entry and the blotter.

  /// Whether there is a market to trade in; there is none while a recording is played, say.
  bool IsOpen() const { return static_cast<bool>(market_); }
  /// Orders `quantity` shares at the limit `price`. Answers the number of the new order, from 1,
  /// which OrderChanged tells of next: as working, filled or, with a reason, rejected.
  int Submit(const std::string& symbol, Data::TSide side, Data::TPrice price,
             Data::TQuantity quantity);
  /// Gives a living order another price or quantity (the whole one, what is filled included). Only
  /// a smaller quantity at the same price keeps its place in the queue.
  void Change(int number, Data::TPrice price, Data::TQuantity quantity);
  void Cancel(int number);

  /// By number, ascending; that of number N is at N - 1 once the market has told of it.
  const std::vector<Data::TUserOrder>& Orders() const { return orders_; }
  /// Oldest first.
  const std::vector<Data::TUserTrade>& Trades() const { return trades_; }

  /// Trades in whatever `player` plays that takes orders, from its next market on. It outlives
  /// the desk.
  void Follow(TMarketPlayer& player);

  // For the market.

  using TMarket = std::function<void(const Data::TOrderRequest& request)>;

  /// Requests go to `market` from now on; empty closes the desk. What was told before is forgotten.
  void SetMarket(TMarket market);
  void ApplyOrder(const Data::TUserOrder& order);
  void ApplyTrade(const Data::TUserTrade& trade);
  /// A change or cancellation was refused; the order stands as it was.
  void ApplyRefusal(int number, const std::string& reason);

signals:
  /// An order is new or has changed.
  void OrderChanged(const Data::TUserOrder& order);
  void Traded(const Data::TUserTrade& trade);
  /// The market refused to change or cancel order `number`; `reason` is a language key.
  void Refused(int number, const QString& reason);
  /// The desk opened or closed, or the market began anew; orders and trades are gone.
  void Reopened();

private:
  void Send(const Data::TOrderRequest& request);

  TMarket market_;
  int lastNumber_ = 0;
  std::vector<Data::TUserOrder> orders_;
  std::vector<Data::TUserTrade> trades_;
};

} // namespace Terminal
