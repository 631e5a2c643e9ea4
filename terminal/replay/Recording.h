#pragma once

#include "terminal/services/RecordChange.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Terminal {

/// A moment of a recording: time since midnight.
using TTimeOfDay = std::chrono::microseconds;

/// "HH:MM:SS", with a fraction of one to six digits when there is one. Empty when `text` is no
/// such time between 00:00:00 and 23:59:59.999999.
std::optional<TTimeOfDay> ParseTimeOfDay(std::string_view text);

/// "HH:MM:SS.ffffff" of a time within one day.
std::string TimeOfDayText(TTimeOfDay time);

/// The reference data in a recording's first line.
struct TRecordingHeader {
  /// The prices with From < price <= To have this step; all in currency units.
  struct TBand {
    double From = 0;
    double To = 0;
    double Step = 0;
    bool operator==(const TBand&) const = default;
  };
  struct TSpreadTable {
    std::string Code;
    int State = 1; ///< Constdef::SpreadState_Ready when the table holds bands
    std::vector<TBand> Bands;
    bool operator==(const TSpreadTable&) const = default;
  };
  struct TBroker {
    std::string Id; ///< four-digit broker number
    std::string Name, Name1, Name2, Other;
    bool operator==(const TBroker&) const = default;
  };
  struct TInstrument {
    std::string Symbol, Name, Currency;
    bool operator==(const TInstrument&) const = default;
  };

  std::vector<TSpreadTable> Spreads;
  std::vector<TBroker> Brokers;
  std::vector<TInstrument> Instruments;
  bool Simulated = false; ///< the market is invented, and the terminal says so
  bool operator==(const TRecordingHeader&) const = default;
};

/// One line of a recording after the header.
struct TRecordedEvent {
  TTimeOfDay Time{};
  TRecordChange Change;
};

/// A line that was skipped.
struct TMalformedLine {
  std::uint64_t Number = 0; ///< from 1
  std::string Sentence;     ///< what is wrong with it
};

} // namespace Terminal
