#pragma once

#include "data/ReferenceData.h"
#include "market/MarketTypes.h"

#include <span>
#include <string_view>
#include <vector>

namespace Market {

class TRandom;

/// A name as the market shows it; every one is invented.
struct TNames {
  std::string_view English, Traditional, Simplified;
};

/// An exchange participant with its block of broker numbers.
struct TParticipant {
  TNames Names;
  TBrokerId First = 0;
  int Numbers = 10;  ///< First, First + 1, ...
  double Weight = 1; ///< share in the order flow, relative to the others'; 0: none of its own
};

/// By broker number, ascending; the blocks do not overlap.
std::span<const TParticipant> Participants();

/// The number of the user's own house, under which no order flow comes.
inline constexpr TBrokerId UserBroker = 8088;

/// The participant that owns the number; null when nobody does.
const TParticipant* FindParticipant(TBrokerId broker);

/// One entry a broker number, with the names of its participant: the default name is English,
/// name 1 Traditional and name 2 Simplified Chinese.
std::vector<TReferenceData::TBroker> BrokerDirectory();

/// Draws broker numbers with unequal shares: few houses bring most orders, and the first numbers
/// of a house more than its last.
class TBrokerDraw {
public:
  TBrokerDraw();

  TBrokerId Draw(TRandom& random) const;

private:
  struct TShare {
    TBrokerId Broker;
    double UpTo; ///< sum of the shares as far as this one
  };

  std::vector<TShare> shares_;
};

} // namespace Market
