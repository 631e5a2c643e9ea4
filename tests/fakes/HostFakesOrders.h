#pragma once

#include "fakes/HostFakesListeners.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseOrderAdapter.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Fakes {

struct TFakeOrder : Baseorderdata::TCustomOrder {
  std::string symbol;
  std::optional<double> price;
  std::optional<double> quantity;
  std::map<std::string, std::string, std::less<>> values;

  void Clear() override;
  void SetSymbol(std::string_view newSymbol) override { symbol = newSymbol; }
  void SetPrice(double newPrice) override { price = newPrice; }
  void SetQuantity(double newQuantity) override { quantity = newQuantity; }
  void SetValue(std::string_view name, std::string_view value) override;
};

struct TFakeClientOrder : Baseorderdata::TCustomClientOrder {
  std::string symbol;

  explicit TFakeClientOrder(std::string symbol_) : symbol(std::move(symbol_)) {}

  std::string Symbol() const override { return symbol; }
};

struct TFakeViewParameters : Baseorderdata::TCustomViewParameters {
  std::string symbol;

  void SetSymbol(std::string_view newSymbol) override { symbol = newSymbol; }
};

/// Counts the orders that were made and not yet freed.
class TFakeOrderAdapter : public Baseorderadapter::TCustomOrderAdapter {
public:
  int liveOrders = 0;

  std::unique_ptr<Baseorderdata::TCustomOrder> NewOrder() override;
  std::unique_ptr<Baseorderdata::TCustomViewParameters> NewViewParameters() override;
};

struct TFakeListObject : Baseglobalchannelmanager::TCustomListObject {
  std::string symbol; ///< an empty one makes the object empty

  explicit TFakeListObject(std::string symbol_) : symbol(std::move(symbol_)) {}

  bool IsEmpty() const override { return symbol.empty(); }
  std::string Symbol() const override { return symbol; }
};

struct TFakeGroupData : Baseglobalchannelmanager::TCustomGroupData {
  std::string group, symbol;
  bool refused = false;

  TFakeGroupData(std::string group_, std::string symbol_, bool refused_ = false)
      : group(std::move(group_)), symbol(std::move(symbol_)), refused(refused_) {}

  std::string GroupID() const override { return group; }
  bool IsRefused() const override { return refused; }
  std::string Symbol() const override { return symbol; }
};

/// A copied order as it was when it was sent.
struct TSentOrder {
  std::string symbol;
  std::optional<double> price;
  std::optional<double> quantity;
  std::map<std::string, std::string, std::less<>> values;
  int kind = 0;
  std::string source;
  System::TObject* sender = nullptr;
};

/// Delivers messages to their subscribers and keeps the copied orders among them.
class TFakeGlobalChannelManager : public Baseglobalchannelmanager::TCustomGlobalChannelManager {
public:
  /// Numbers of the messages sent, in order.
  std::vector<int> sentNumbers;
  /// The orders copied to order entry, in order.
  std::vector<TSentOrder> sentOrders;

  /// Delivers `data` to the group's members.
  void SendToGroup(std::string_view group, System::TObject* data) const;

  int ChannelCount() const; ///< live subscriptions of numbers and of channel 0
  int ChannelCount(int number) const;
  int GroupCount() const; ///< live memberships
  bool IsMember(std::string_view group, const System::TObject* owner) const;

  void Subscribe(int number, System::TDataEvent handler, const System::TObject* owner) override;
  void Unsubscribe(int number, const System::TObject* owner) override;
  void RegisterCopySymbol(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterCopySymbol(const System::TObject* owner) override;
  void JoinGroup(std::string_view group, System::TDataEvent handler,
                 const System::TObject* owner) override;
  void LeaveGroup(std::string_view group, const System::TObject* owner) override;
  void Send(int number, System::TObject* sender, System::TObject* data) override;

private:
  std::map<int, TDataListeners> channels_;
  std::map<std::string, TDataListeners, std::less<>> groups_;
};

} // namespace Fakes
