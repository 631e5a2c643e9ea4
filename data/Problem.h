#pragma once

#include <string>
#include <vector>

namespace Data {

/// What can be wrong. The sentence of each stands in the terminal's table of problems, in every
/// language.
enum class TProblemCode {
  // A file.
  FileMissing,
  NotAFile,
  FileUnreadable,
  FileUnwritable,
  RecordingIncomplete, ///< it could not be written to the end
  MarketNotReadable,   ///< to be recorded; it comes by the clock only

  // A line of a recording.
  LineTooLong,
  LineNotUtf8,
  LineNotJson,
  LineNotObject,
  MemberNotObject,
  MemberNotList,
  HeaderNotFirst,
  VersionNotInteger,
  VersionUnknown,
  SimulatedNotBoolean,
  SpreadTableNotObject,
  SpreadStateNotInteger,
  SpreadBandsNotList,
  SpreadBandNotList,
  SpreadBandNotThreeNumbers,
  SpreadBandStartNotNumber,
  SpreadBandEndNotNumber,
  SpreadBandStepNotNumber,
  SpreadBandEmpty,
  BrokerNotObject,
  BrokerIdMissing,
  BrokerIdNotText,
  BrokerNameNotText,
  BrokerName1NotText,
  BrokerName2NotText,
  BrokerOtherNotText,
  InstrumentNotObject,
  InstrumentSymbolMissing,
  InstrumentSymbolNotText,
  InstrumentNameNotText,
  InstrumentCurrencyNotText,
  InstrumentName1NotText,
  InstrumentName2NotText,
  TimeMissing,
  TimeNotText,
  TimeUnknown, ///< no time of day
  TimeGoesBack,
  SymbolMissing,
  SymbolNotText,
  StateNotInteger,
  StatusNotText,
  FieldNumberUnknown,
  FieldNotText,
  TradeNotObject,
  TradeTimeNotText,
  TradeSideNotText,
  TradeQuantityNotText,
  TradePriceMissing,
  TradePriceNotText,
  TradePriceNotNumber,

  // What a user enters.
  SymbolUnknown, ///< neither symbol nor name of anything listed

  // The store of layouts and settings.
  StoreInUse,    ///< another terminal keeps its changes there; it is read, and nothing is kept
  StoreDamaged,  ///< it could not be read and was set aside; changes are kept in a new one
  StoreNewer,    ///< it is of a later version and was set aside; changes are kept in a new one
  StoreUnusable, ///< it cannot be opened, or a change could not be written

  // The start of the terminal.
  OptionUnknown,
  OptionWithoutValue,
  OptionValueUnknown,
  ScriptUnreadable,
  NoDisplay,
  PackageMissing,
  PackageNotAFile,
  PackageIncomplete,
  PackageNotLoadable,
  PackageWithoutFunction,
  PackageOfOtherVersion,
  PackageWithoutClass,
  PackageClassNotAView,
  PackageFails,
  PackageOpensNoView,

  Count ///< none of them: how many there are
};

/// What is wrong, in no language yet.
struct TProblem {
  TProblemCode Code;
  std::vector<std::string> Parts = {}; ///< %1, %2, ... of the sentence
  bool operator==(const TProblem&) const = default;
};

} // namespace Data
