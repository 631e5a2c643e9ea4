#pragma once

#include "data/Orders.h"
#include "data/RecordChange.h"
#include "data/ReferenceData.h"
#include "text/TimeOfDay.h"

#include <cstdint>

// The words that every part of the simulated market shares.
namespace Market {

using namespace Data;
using Text::ClockText;
using Text::TTimeOfDay;

/// Exchange participant's broker number, at most four digits.
using TBrokerId = int;
/// Unique within one market, in the order of entry; 0 is no order.
using TOrderId = std::uint64_t;

} // namespace Market
