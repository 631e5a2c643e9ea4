#include "fakes/HostFakesOrders.h"

#include "host/ConstDef.h"
#include "host/DataDef.h"

namespace Fakes {

namespace {

/// An order that its adapter counts while it lives.
struct TCountedOrder : TFakeOrder {
  int& liveOrders;

  explicit TCountedOrder(int& liveOrders_) : liveOrders(liveOrders_) { ++liveOrders; }
  ~TCountedOrder() override { --liveOrders; }
};

TSentOrder CopyOf(const Datadef::TCopyOrderRecord& record, System::TObject* sender) {
  TSentOrder sent;
  if (const auto* order = dynamic_cast<const TFakeOrder*>(record.Order)) {
    sent.symbol = order->symbol;
    sent.price = order->price;
    sent.quantity = order->quantity;
    sent.values = order->values;
  }
  sent.kind = record.Kind;
  sent.source = record.Source;
  sent.sender = sender;
  return sent;
}

} // namespace

void TFakeOrder::Clear() {
  symbol.clear();
  price.reset();
  quantity.reset();
  values.clear();
}

void TFakeOrder::SetValue(std::string_view name, std::string_view value) {
  values.insert_or_assign(std::string(name), std::string(value));
}

std::unique_ptr<Baseorderdata::TCustomOrder> TFakeOrderAdapter::NewOrder() {
  return std::make_unique<TCountedOrder>(liveOrders);
}

std::unique_ptr<Baseorderdata::TCustomViewParameters> TFakeOrderAdapter::NewViewParameters() {
  return std::make_unique<TFakeViewParameters>();
}

void TFakeGlobalChannelManager::SendToGroup(std::string_view group, System::TObject* data) const {
  const auto found = groups_.find(group);
  if (found != groups_.end())
    found->second.Notify(static_cast<System::TObject*>(nullptr), data);
}

int TFakeGlobalChannelManager::ChannelCount() const {
  int count = 0;
  for (const auto& [number, listeners] : channels_)
    count += listeners.Count();
  return count;
}

int TFakeGlobalChannelManager::ChannelCount(int number) const {
  const auto found = channels_.find(number);
  return found == channels_.end() ? 0 : found->second.Count();
}

int TFakeGlobalChannelManager::GroupCount() const {
  int count = 0;
  for (const auto& [group, listeners] : groups_)
    count += listeners.Count();
  return count;
}

bool TFakeGlobalChannelManager::IsMember(std::string_view group,
                                         const System::TObject* owner) const {
  const auto found = groups_.find(group);
  return found != groups_.end() && found->second.Has(owner);
}

void TFakeGlobalChannelManager::Subscribe(int number, System::TDataEvent handler,
                                          const System::TObject* owner) {
  channels_[number].Add(std::move(handler), owner);
}

void TFakeGlobalChannelManager::Unsubscribe(int number, const System::TObject* owner) {
  channels_[number].Remove(owner);
}

void TFakeGlobalChannelManager::RegisterCopySymbol(System::TDataEvent handler,
                                                   const System::TObject* owner) {
  Subscribe(Constdef::Channel_CopySymbol, std::move(handler), owner);
}

void TFakeGlobalChannelManager::UnregisterCopySymbol(const System::TObject* owner) {
  Unsubscribe(Constdef::Channel_CopySymbol, owner);
}

void TFakeGlobalChannelManager::JoinGroup(std::string_view group, System::TDataEvent handler,
                                          const System::TObject* owner) {
  groups_[std::string(group)].Add(std::move(handler), owner);
}

void TFakeGlobalChannelManager::LeaveGroup(std::string_view group, const System::TObject* owner) {
  groups_[std::string(group)].Remove(owner);
}

void TFakeGlobalChannelManager::Send(int number, System::TObject* sender, System::TObject* data) {
  sentNumbers.push_back(number);
  if (const auto* record = dynamic_cast<const Datadef::TCopyOrderRecord*>(data))
    sentOrders.push_back(CopyOf(*record, sender));
  const auto found = channels_.find(number);
  if (found != channels_.end())
    found->second.Notify(sender, data);
}

} // namespace Fakes
