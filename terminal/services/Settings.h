#pragma once

#include "host/ConstDef.h"
#include "terminal/services/ConfigStore.h"
#include "text/Numbers.h"

namespace Terminal {

/// A setting of the terminal: a text in the configuration, read and written as what it is.
template <typename TValue> class TSetting {
public:
  /// The configuration outlives the setting.
  TSetting(TConfigStore& config, std::string_view key) : config_(config), key_(key) {}

  /// Empty or 0 when it was never set.
  TValue Value() const {
    std::string text = config_.ReadString(Constdef::Section_TradePlatform, key_);
    if constexpr (std::is_same_v<TValue, std::string>)
      return text;
    else
      return Text::ParseInteger(text).value_or(0);
  }
  /// Keeps the value beyond this run; the configuration's listeners are told.
  void Set(const TValue& value) {
    if constexpr (std::is_same_v<TValue, std::string>)
      config_.WriteString(Constdef::Section_TradePlatform, key_, value, true);
    else
      config_.WriteString(Constdef::Section_TradePlatform, key_, std::to_string(value), true);
  }

private:
  TConfigStore& config_;
  std::string_view key_;
};

/// What the user has set in the terminal itself; what packages are set up by is theirs.
struct TSettings {
  explicit TSettings(TConfigStore& config)
      : Language(config, "Language"), Skin(config, "Skin"), PriceColours(config, "PriceColours"),
        Scale(config, Constdef::Key_ScaleSize), FeedType(config, "FeedType"),
        ListGroup(config, "SymbolListGroup") {}

  TSetting<int> Language;     ///< Constdef::Language_...
  TSetting<std::string> Skin; ///< name of a built-in one, like the next
  TSetting<std::string> PriceColours;
  TSetting<int> Scale;             ///< in per cent
  TSetting<int> FeedType;          ///< Constdef::FeedType_...
  TSetting<std::string> ListGroup; ///< linking group of the symbol list
};

} // namespace Terminal
