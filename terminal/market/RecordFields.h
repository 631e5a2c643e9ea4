#pragma once

#include "terminal/market/FieldList.h"
#include "terminal/market/InstrumentMarket.h"
#include "terminal/market/Listing.h"

namespace Terminal::Market {

/// The part of an instrument's record that is the same all day: name, kind, terms, board lot,
/// related codes and the like.
void AddListedFields(TFieldList& fields, const TListing& listing, const TInstrument& instrument);

/// Prices, sizes, order counts and broker queues of the ten best levels a side. There are none of
/// them while no ordinary book is published.
void AddBookFields(TFieldList& fields, const TInstrumentMarket& market);

/// What has been traded, and the prices that follow from it.
void AddDayFields(TFieldList& fields, const TInstrument& instrument,
                  const TInstrumentMarket& market);

enum class TCoolingOffs {
  None,
  Had ///< one of this day is over; views take it off when the field says no more that it applies
};

/// Volatility control, opening and closing session: what they say while they are in force.
void AddSessionFields(TFieldList& fields, const TInstrumentMarket& market, TCoolingOffs earlier);

/// Broker numbers of four digits, with a marker before the orders of every level but the best:
/// "0123,8088,-1,2820".
std::string BrokerQueueText(const TOrderBook& book, TSide side);

/// "HH:MM:SS".
std::string ClockText(TTimeOfDay time);

} // namespace Terminal::Market
