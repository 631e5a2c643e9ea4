#pragma once

#include "market/FieldList.h"
#include "market/Listing.h"
#include "market/Snapshot.h"

namespace Market {

/// The part of an instrument's record that is the same all day: name, kind, terms, board lot,
/// related codes and the like.
void AddListedFields(TFieldList& fields, const TListing& listing, const TInstrument& instrument);

/// Prices, sizes, order counts and broker queues.
void AddBookFields(TFieldList& fields, const TSnapshot& shown);

/// What has been traded, the prices that follow from it, and whether trading is suspended.
void AddDayFields(TFieldList& fields, const TInstrument& instrument, const TSnapshot& shown);

enum class TCoolingOffs {
  None,
  Had ///< one of this day is over; views take it off when the field says no more that it applies
};

/// Volatility control, opening and closing session: what they say while they are in force.
void AddSessionFields(TFieldList& fields, const TInstrumentSettings& settings,
                      const TSnapshot& shown, TCoolingOffs earlier);

/// Broker numbers of four digits, with a marker before the orders of every level but the best:
/// "0123,8088,-1,2820".
std::string BrokerQueueText(const std::vector<TQueueEntry>& queue);

} // namespace Market
