#pragma once

#include "data/Problem.h"
#include "feed/sources/Sources.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Terminal {

/// What the terminal was started for. Files and symbols are as given; absent when not given.
struct TCommandLine {
  std::optional<std::string> Script;   ///< script to carry out; "-" is standard input
  std::optional<std::string> Snapshot; ///< picture of the view to write
  std::optional<std::string> Symbol;   ///< symbol that the first view shows
  std::optional<std::string> Package;  ///< package to load instead of the one beside the program
  std::optional<std::string> Record;   ///< file to record the market to
  const Feed::TSourceKind* Source = &Feed::DefaultSource(); ///< what is played
  Feed::TSourceOptions SourceOptions;
  double Speed = 1;              ///< of the market, as a multiple of real time
  std::optional<double> Seconds; ///< how long to run without windows
  std::optional<int> Levels;     ///< 5 or 10 price levels in the first view
  bool Help = false;
};

/// The options after the program's name, or which of them is wrong.
std::variant<TCommandLine, Data::TProblem>
ParseCommandLine(const std::vector<std::string>& options);

/// The options and what they do, for a console.
std::string CommandLineHelp();

} // namespace Terminal
