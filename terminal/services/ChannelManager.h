#pragma once

#include "host/BaseGlobalChannelManager.h"
#include "terminal/services/Listeners.h"

#include <map>

namespace Terminal {

/// A symbol broadcast.
class TListObject : public Baseglobalchannelmanager::TCustomListObject {
public:
  TListObject(std::string symbol, bool empty) : symbol_(std::move(symbol)), empty_(empty) {}

  bool IsEmpty() const override { return empty_; }
  std::string Symbol() const override { return symbol_; }

private:
  std::string symbol_;
  bool empty_;
};

/// A message of a linking group.
class TGroupData : public Baseglobalchannelmanager::TCustomGroupData {
public:
  TGroupData(std::string group, std::string symbol, bool refused)
      : group_(std::move(group)), symbol_(std::move(symbol)), refused_(refused) {}

  std::string GroupID() const override { return group_; }
  bool IsRefused() const override { return refused_; }
  std::string Symbol() const override { return symbol_; }

private:
  std::string group_;
  std::string symbol_;
  bool refused_;
};

/// Channels and linking groups. A message is delivered to everybody before its sending returns.
class TChannelManager : public Baseglobalchannelmanager::TCustomGlobalChannelManager {
public:
  void Subscribe(int number, System::TDataEvent handler, const System::TObject* owner) override;
  void Unsubscribe(int number, const System::TObject* owner) override;
  void RegisterCopySymbol(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterCopySymbol(const System::TObject* owner) override;
  void JoinGroup(std::string_view group, System::TDataEvent handler,
                 const System::TObject* owner) override;
  void LeaveGroup(std::string_view group, const System::TObject* owner) override;
  void Send(int number, System::TObject* sender, System::TObject* data) override;

  /// Delivers `data` to the members of the group. It stays the caller's.
  void SendToGroup(std::string_view group, System::TObject* sender, System::TObject* data);

  /// While a message of a channel or group is on its way to its receivers.
  bool IsDelivering() const { return delivering_ > 0; }

  /// One per owner and channel, channel 0 included.
  std::size_t ChannelCount() const;
  /// One per owner and group.
  std::size_t GroupCount() const;

private:
  void Deliver(TDataListeners& listeners, System::TObject* sender, System::TObject* data);

  std::map<int, TDataListeners> channels_;
  std::map<std::string, TDataListeners, std::less<>> groups_;
  int delivering_ = 0;
};

} // namespace Terminal
