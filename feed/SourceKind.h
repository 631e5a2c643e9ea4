#pragma once

#include "data/Problem.h"
#include "feed/MarketReader.h"

#include <map>
#include <string>
#include <variant>

namespace Feed {

/// A market without a clock: every change at its moment, as fast as it is asked for.
struct TChangeStream {
  struct TMoment {
    TTimeOfDay Time{};
    std::vector<TRecordChange> Changes;
  };

  TReferenceData Header;
  std::function<std::optional<TMoment>()> Next; ///< empty after the end
};

/// An option that a source takes, with one value.
struct TSourceOption {
  std::string Name;  ///< as in "--seed"
  std::string Value; ///< what the help calls its value
  std::string Help;
  /// Whether a value can be used; null: any that is not empty.
  bool (*Accepts)(const std::string& value) = nullptr;
};

/// The values of options by their names; one that was not given has an empty value or none.
using TSourceOptions = std::map<std::string, std::string>;

inline std::string ValueOf(const TSourceOptions& options, const std::string& name) {
  const auto option = options.find(name);
  return option == options.end() ? std::string() : option->second;
}

// What was opened, or what is wrong.
using TOpenedSource = std::variant<std::unique_ptr<TMarketReader>, Data::TProblem>;
using TOpenedStream = std::variant<TChangeStream, Data::TProblem>;

/// How a user asks for a source, and what opens it: a row of the table of sources. The functions
/// take options whose values can be used, those of other sources too.
struct TSourceKind {
  /// At least one. The first asks for the source, unless that is the default.
  std::vector<TSourceOption> Options;
  const char* MenuText = ""; ///< language key
  const char* MenuKeys = ""; ///< that choose it from the menu; may be empty
  const char* Files = "";    ///< pattern of those that a user may choose; empty: it needs none
  /// Paused at its first moment. `wake` as TMarketReader has it.
  TOpenedSource (*Open)(const TSourceOptions& options, std::function<void()> wake) = nullptr;
  /// The first moment tells everything as it stands. Null: the market cannot be read ahead of the
  /// clock.
  TOpenedStream (*Read)(const TSourceOptions& options) = nullptr;
  bool IsDefault = false; ///< played where no other is asked for

  /// The file, say, that was asked for.
  std::string Asked(const TSourceOptions& options) const {
    return ValueOf(options, Options.front().Name);
  }
};

} // namespace Feed
