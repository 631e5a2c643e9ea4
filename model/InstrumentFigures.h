#pragma once

#include "model/RecordText.h"

#include <string>

/// Figures of an instrument that are worked out from its record and its underlying's. Either
/// record may be null; a figure that cannot be worked out is 0.
namespace Quorpricedatacontrol {

enum TCallPutFlag { cpfUnknown = -1, cpfCall = 0, cpfPut = 1 };

/// What an instrument's name tells of a callable bull/bear contract.
struct TCBBCMark {
  bool IsCBBC = false;
  std::string Category; ///< "R" or "N"; empty when the name does not say

  bool operator==(const TCBBCMark&) const = default;
};

/// No CBBC unless the record holds data.
TCBBCMark DetectCBBCWarrant(const TCustomSubItem* record);

TCallPutFlag GetCallPutFlag(const TCustomSubItem* record);

/// True for a number too small to be divided by.
bool IsZero(double number);

/// Nominal price, else the middle of bid and ask, else the previous close, in currency units; 0
/// for a record that holds no data or whose status denies it a price.
double GetPrice(const TCustomSubItem* record);

/// Price of the underlying over the price of what stands for one of it.
double GetGearing(const TCustomSubItem* record, const TCustomSubItem* underlying);

/// In per cent of the underlying's price.
double GetPremium(const TCustomSubItem* record, const TCustomSubItem* underlying);

/// In currency units.
double GetMarketCap(const TCustomSubItem* record);

} // namespace Quorpricedatacontrol
