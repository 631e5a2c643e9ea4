#pragma once

#include "data/RecordChange.h"
#include "data/ReferenceData.h"
#include "text/TimeOfDay.h"

// The words that every source shares.
namespace Feed {

using Data::TRecordChange;
using Data::TReferenceData;
using Text::TTimeOfDay;

} // namespace Feed
