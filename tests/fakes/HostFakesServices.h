#pragma once

#include "fakes/HostFakesListeners.h"
#include "host/BaseConfigManager.h"
#include "host/BaseFormatter.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseLookAndFeelService.h"
#include "host/BaseTimerControl.h"
#include "host/BaseUserAppProfile.h"
#include "host/BaseVendorDDSModel.h"
#include "host/ICommon.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Fakes {

/// A value that was written through the contract.
struct TWrite {
  std::string section, key, value;
  bool store = false;

  bool operator==(const TWrite&) const = default;
};

class TFakeConfigManager : public Baseconfigmanager::TCustomConfigManager {
public:
  std::string currentSection = "USER";
  bool layoutReady = true;
  std::vector<TWrite> writes;

  /// Stores and tells nobody.
  void Set(std::string_view section, std::string_view key, std::string value);
  /// Stores in the current section and tells nobody.
  void SetCurrent(std::string_view key, std::string value);
  void Announce() { listeners_.Notify(this, static_cast<System::TObject*>(nullptr)); }
  int ListenerCount() const { return listeners_.Count(); }

  void RegisterListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterListener(const System::TObject* owner) override;
  std::string ReadString(std::string_view section, std::string_view key) override;
  int ReadInteger(std::string_view section, std::string_view key) override;
  bool ReadBoolean(std::string_view section, std::string_view key) override;
  std::string CurrentSection() override { return currentSection; }
  bool IsLayoutReady() override { return layoutReady; }
  void WriteString(std::string_view section, std::string_view key, std::string_view value,
                   bool store) override;

private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
  TDataListeners listeners_;
};

/// Every resource text is its own key until a test says otherwise.
class TFakeLanguageManager : public Baselanguagemanager::TCustomLanguageManager {
public:
  int language = Constdef::Language_English;

  void SetText(std::string_view tag, std::string_view key, std::string text);
  /// Of a resource key.
  void SetText(std::string_view key, std::string text);
  /// True when every call so far passed the selectors that packages pass.
  bool selectorsAsAgreed = true;

  void GetText(std::string& text, std::string_view tag, std::string_view key, int kind, int first,
               int second) override;
  int CurrentLanguage() override { return language; }

private:
  std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>> texts_;
};

class TFakeLookAndFeelService : public Baselookandfeelservice::TCustomLookAndFeelService {
public:
  std::map<std::string, System::TColor, std::less<>> namedColours;
  std::map<int, System::TColor> indexedColours;
  std::string skinSection = "SKIN";

  System::TColor GetColour(int index, std::string_view name) override;
  std::string CurrentSkinSection() override { return skinSection; }
};

class TFakeTimerControl : public Basetimercontrol::TCustomTimerControl {
public:
  void Tick() { listeners_.Notify(static_cast<System::TObject*>(this)); }
  int ListenerCount() const { return listeners_.Count(); }

  void Register(const System::TObject* owner, System::TNotifyEvent handler) override;
  void Unregister(const System::TObject* owner) override;

private:
  TNotifyListeners listeners_;
};

class TFakeUserAppProfile : public Baseuserappprofile::TCustomUserAppProfile {
public:
  std::set<std::string, std::less<>> granted;

  bool IsFunctionGranted(std::string_view function) override { return granted.contains(function); }
};

class TFakeVendorDDSModel : public Basevendorddsmodel::TCustomVendorDDSModel {
public:
  int feedType = Constdef::FeedType_Streaming;

  int FeedType() override { return feedType; }
};

/// Texts that tell which operation made them, and with which arguments.
class TFakeFormatter : public Baseformatter::TCustomFormatter {
public:
  std::string FormatNumber(double value, int flag) override;                ///< 12,000 or 12,000.00
  std::string FormatQuantity(double value) override;                        ///< 12,000 sh
  std::string FormatAmount(std::string_view symbol, double value) override; ///< 700 $12,000
  std::string FormatAbbreviatedAmount(double value, int precision) override; ///< ~12,000/2
  std::string FormatPrice(std::string_view symbol, int precision, double value) override;
  ///< 700@318.2, or with a precision 700@318.2/8
};

/// Prices with three decimals (318.200), volumes in groups (12,000), changes as chg(text) and
/// chg%(text).
class TFakeMarketDataFormatter : public Icommon::TCustomMarketDataFormatter {
public:
  bool FormatPrice(const Basesubscribedata::TCustomSubItem& record, int field,
                   std::string& text) override;
  bool FormatVolume(const Basesubscribedata::TCustomSubItem& record, int field,
                    std::string& text) override;
  bool FormatChange(const Basesubscribedata::TCustomSubItem& record, std::string& text) override;
  bool FormatChangePercent(const Basesubscribedata::TCustomSubItem& record,
                           std::string& text) override;
};

} // namespace Fakes
