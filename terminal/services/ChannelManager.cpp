#include "terminal/services/ChannelManager.h"

#include "host/ConstDef.h"

namespace Terminal {

namespace {

template <typename TMap> std::size_t Total(const TMap& listenersByKey) {
  std::size_t count = 0;
  for (const auto& [key, listeners] : listenersByKey)
    count += listeners.Count();
  return count;
}

} // namespace

void TChannelManager::Subscribe(int number, System::TDataEvent handler,
                                const System::TObject* owner) {
  channels_[number].Set(owner, std::move(handler));
}

void TChannelManager::Unsubscribe(int number, const System::TObject* owner) {
  channels_[number].Remove(owner);
}

void TChannelManager::RegisterCopySymbol(System::TDataEvent handler, const System::TObject* owner) {
  Subscribe(Constdef::Channel_CopySymbol, std::move(handler), owner);
}

void TChannelManager::UnregisterCopySymbol(const System::TObject* owner) {
  Unsubscribe(Constdef::Channel_CopySymbol, owner);
}

void TChannelManager::JoinGroup(std::string_view group, System::TDataEvent handler,
                                const System::TObject* owner) {
  groups_[std::string(group)].Set(owner, std::move(handler));
}

void TChannelManager::LeaveGroup(std::string_view group, const System::TObject* owner) {
  if (const auto found = groups_.find(group); found != groups_.end())
    found->second.Remove(owner);
}

void TChannelManager::Send(int number, System::TObject* sender, System::TObject* data) {
  if (const auto found = channels_.find(number); found != channels_.end())
    Deliver(found->second, sender, data);
}

void TChannelManager::SendToGroup(std::string_view group, System::TObject* sender,
                                  System::TObject* data) {
  if (const auto found = groups_.find(group); found != groups_.end())
    Deliver(found->second, sender, data);
}

void TChannelManager::Deliver(TDataListeners& listeners, System::TObject* sender,
                              System::TObject* data) {
  ++delivering_;
  listeners.Notify(sender, data);
  --delivering_;
}

std::size_t TChannelManager::ChannelCount() const { return Total(channels_); }
std::size_t TChannelManager::GroupCount() const { return Total(groups_); }

} // namespace Terminal
