#pragma once

#include <string>
#include <vector>

namespace Data {

/// A market's reference data, as the first line of a recording has it.
struct TReferenceData {
  /// The prices with From < price <= To have this step; all in currency units.
  struct TSpreadBand {
    double From = 0;
    double To = 0;
    double Step = 0;
    bool operator==(const TSpreadBand&) const = default;
  };
  struct TSpreadTable {
    std::string Code;
    int State = 1; ///< Constdef::SpreadState_Ready when the table holds bands
    std::vector<TSpreadBand> Bands;
    bool operator==(const TSpreadTable&) const = default;
  };
  struct TBroker {
    std::string Id; ///< four-digit broker number
    std::string Name, Name1, Name2, Other;
    bool operator==(const TBroker&) const = default;
  };
  struct TInstrument {
    std::string Symbol, Name, Currency;
    std::string Name1 = {}, Name2 = {}; ///< in Traditional and Simplified Chinese; may be empty
    bool operator==(const TInstrument&) const = default;
  };

  std::vector<TSpreadTable> Spreads;
  std::vector<TBroker> Brokers;
  std::vector<TInstrument> Instruments;
  bool Simulated = false; ///< the market is invented, and the terminal says so
  bool operator==(const TReferenceData&) const = default;
};

} // namespace Data
