#include "terminal/start/CommandLine.h"

#include "text/Numbers.h"

#include <cmath>
#include <functional>
#include <map>

namespace Terminal {

namespace {

using enum Data::TProblemCode;

/// Takes an option's value over; false when it is none of those that the option takes.
using TStoreValue = std::function<bool(const std::string& value)>;

TStoreValue StoreText(std::optional<std::string>& text) {
  return [&text](const std::string& value) {
    text = value;
    return !value.empty();
  };
}

std::optional<double> PositiveNumber(const std::string& text) {
  const auto number = Text::ParseWhole<double>(text);
  return number && std::isfinite(*number) && *number > 0 ? number : std::nullopt;
}

TStoreValue StoreSourceOption(TCommandLine& line, const Feed::TSourceKind& kind,
                              const Feed::TSourceOption& option) {
  return [&](const std::string& value) {
    const bool isAskedFor = !kind.IsDefault && &option == &kind.Options.front();
    line.Source = isAskedFor ? &kind : line.Source;
    line.SourceOptions[option.Name] = value;
    return option.Accepts ? option.Accepts(value) : !value.empty();
  };
}

std::map<std::string, TStoreValue> OptionsInto(TCommandLine& line) {
  std::map<std::string, TStoreValue> options{
      {"--script", StoreText(line.Script)},
      {"--snapshot", StoreText(line.Snapshot)},
      {"--symbol", StoreText(line.Symbol)},
      {"--package", StoreText(line.Package)},
      {"--record", StoreText(line.Record)},
      {"--speed",
       [&line](const std::string& value) {
         const auto speed = PositiveNumber(value);
         line.Speed = speed.value_or(1);
         return speed.has_value();
       }},
      {"--seconds",
       [&line](const std::string& value) {
         constexpr double wholeDay = 24 * 60 * 60;
         line.Seconds = PositiveNumber(value);
         return line.Seconds && *line.Seconds <= wholeDay;
       }},
      {"--mode",
       [&line](const std::string& value) {
         line.Levels = value == "5" ? 5 : 10;
         return value == "5" || value == "10";
       }},
  };
  for (const auto& kind : Feed::SourceKinds())
    for (const auto& option : kind.Options)
      options.emplace(option.Name, StoreSourceOption(line, kind, option));
  return options;
}

/// Of the options by which sources are asked for and set.
std::string SourceHelp() {
  constexpr std::size_t column = 20;
  std::string help;
  for (const auto& kind : Feed::SourceKinds())
    for (const auto& option : kind.Options) {
      std::string line = "  " + option.Name + " " + option.Value;
      line.resize(std::max(column, line.size() + 1), ' ');
      help += line + option.Help + "\n";
    }
  return help;
}

} // namespace

std::variant<TCommandLine, Data::TProblem>
ParseCommandLine(const std::vector<std::string>& options) {
  TCommandLine line;
  const auto known = OptionsInto(line);
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i] == "--help") {
      line.Help = true;
      continue;
    }
    const auto option = known.find(options[i]);
    if (option == known.end())
      return Data::TProblem{OptionUnknown, {options[i]}};
    if (i + 1 == options.size())
      return Data::TProblem{OptionWithoutValue, {options[i]}};
    const std::string& value = options[++i];
    if (!option->second(value))
      return Data::TProblem{OptionValueUnknown, {option->first, value}};
  }
  return line;
}

std::string CommandLineHelp() {
  return "quorterminal [OPTION VALUE]...\n"
         "  --symbol SYMBOL   what the first view shows\n"
         "  --mode 5|10       its price levels (10)\n" +
         SourceHelp() +
         "  --speed X         plays X times as fast as the market was (1)\n"
         "  --snapshot FILE   writes a picture of the view and ends\n"
         "  --seconds N       how long to run where there is no display (10), before a snapshot\n"
         "                    (3), and to record (60)\n"
         "  --record FILE     records --seconds of the market as fast as it can, every change\n"
         "                    at its moment, and ends\n"
         "  --script FILE     carries out a script, - reads it from standard input\n"
         "  --package FILE    loads another package than the quorprice.so beside the program\n";
}

} // namespace Terminal
