#pragma once

#include "host/Service.h"

#include <string_view>

namespace Baseconfigmanager {

/// Configuration values by section and key (Constdef::Section_... and Key_...), with change
/// notification.
class QUOR_EXPORT TCustomConfigManager : public Host::TService<TCustomConfigManager> {
public:
  ~TCustomConfigManager() override;

  /// `handler` is called after any configuration change, with null data. One registration per
  /// owner; the owner unregisters before it dies.
  virtual void RegisterListener(System::TDataEvent handler, const System::TObject* owner) = 0;
  virtual void UnregisterListener(const System::TObject* owner) = 0;

  /// Empty when the key is missing.
  virtual std::string ReadString(std::string_view section, std::string_view key) = 0;
  /// 0 when the key is missing or its value is not an integer.
  virtual int ReadInteger(std::string_view section, std::string_view key) = 0;
  /// True for "Y", "y", "1" and "true" in any case, false for anything else.
  virtual bool ReadBoolean(std::string_view section, std::string_view key) = 0;

  /// The section that holds the current user's values; may change between two calls.
  virtual std::string CurrentSection() = 0;

  /// True once the host has restored its layout, so that views may measure themselves.
  virtual bool IsLayoutReady() = 0;

  /// `store`: keep the value beyond this run. Listeners are told of the change; a host may tell
  /// of the writes of one user action together.
  virtual void WriteString(std::string_view section, std::string_view key, std::string_view value,
                           bool store) = 0;
};

} // namespace Baseconfigmanager
