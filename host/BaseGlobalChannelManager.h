#pragma once

#include "host/Service.h"

#include <string_view>

namespace Baseglobalchannelmanager {

/// A symbol that a list view broadcasts on channel 0.
class QUOR_EXPORT TCustomListObject : public System::TObject {
public:
  ~TCustomListObject() override;

  virtual bool IsEmpty() const = 0;
  /// Meaningful only while not empty.
  virtual std::string Symbol() const = 0;
};

/// A message of a linking group.
class QUOR_EXPORT TCustomGroupData : public System::TObject {
public:
  ~TCustomGroupData() override;

  virtual std::string GroupID() const = 0;
  /// True when the message must not be applied.
  virtual bool IsRefused() const = 0;
  virtual std::string Symbol() const = 0;
};

/// Messages between views: numbered channels and linking groups. Every registration is kept per
/// owner, which undoes it before it dies.
class QUOR_EXPORT TCustomGlobalChannelManager : public Host::TService<TCustomGlobalChannelManager> {
public:
  ~TCustomGlobalChannelManager() override;

  virtual void Subscribe(int number, System::TDataEvent handler, const System::TObject* owner) = 0;
  virtual void Unsubscribe(int number, const System::TObject* owner) = 0;

  /// Symbol broadcasts, channel 0.
  virtual void RegisterCopySymbol(System::TDataEvent handler, const System::TObject* owner) = 0;
  virtual void UnregisterCopySymbol(const System::TObject* owner) = 0;

  virtual void JoinGroup(std::string_view group, System::TDataEvent handler,
                         const System::TObject* owner) = 0;
  virtual void LeaveGroup(std::string_view group, const System::TObject* owner) = 0;

  /// Delivers `data` to every subscriber of the channel before it returns. `data` stays the
  /// caller's and may be null.
  virtual void Send(int number, System::TObject* sender, System::TObject* data) = 0;
};

} // namespace Baseglobalchannelmanager
