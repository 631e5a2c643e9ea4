#pragma once

#include "model/RecordText.h"

#include <set>
#include <string>

namespace Quorpricedatacontrol {

/// Exchange codes whose market data the user may not see.
using TConcealedExchanges = std::set<std::string, std::less<>>;

/// Reads the codes out of a comma-separated configuration value, in upper case but not trimmed;
/// an empty value holds none. Records are looked up as they stand, so that a code that a record
/// gives in lower case is never concealed.
TConcealedExchanges ParseConcealedExchanges(std::string_view value);

/// A symbol's message lines.
struct TSymbolMessages {
  std::string FreeText1;
  std::string FreeText2;
  bool Concealed = false; ///< the symbol's exchange is concealed; stays until the symbol changes

  bool operator==(const TSymbolMessages&) const = default;

  /// Reads the lines from the record, which may be null. True when anything changed.
  bool Update(const TCustomSubItem* record, const TConcealedExchanges& concealedExchanges);
};

/// State of the exchange's volatility control (VCM), closing auction (CAS) and pre-opening session
/// (POS) for a symbol, with texts ready for display.
struct TMarketMechanisms {
  bool VcmInForce = false; ///< the panel is to be shown
  bool CasInForce = false;
  bool PosInForce = false;
  bool VcmMarker = false; ///< the mechanism applies to the symbol
  bool CasMarker = false;
  bool PosMarker = false;

  // Shared by VCM and CAS, of which one is shown at a time.
  std::string VcmCasStateText;
  std::string VcmCasRefPrice;
  std::string VcmCasUpperPrice;
  std::string VcmCasLowerPrice;

  std::string PosStateText;
  std::string PosRefPrice;
  std::string PosBuyUpperLimit;
  std::string PosSellLowerLimit;
  std::string PosUpperPrice;
  std::string PosLowerPrice;

  bool operator==(const TMarketMechanisms&) const = default;

  bool AnyInForce() const { return VcmInForce || CasInForce || PosInForce; }

  /// Reads the state from the record, which may be null. A mechanism that ends, and one whose
  /// reference price is gone, keep their texts. True when anything changed.
  bool Update(const TCustomSubItem* record);
};

} // namespace Quorpricedatacontrol
