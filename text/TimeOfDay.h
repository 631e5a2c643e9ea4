#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace Text {

/// A moment of a market's day: time since midnight.
using TTimeOfDay = std::chrono::microseconds;

/// "HH:MM:SS", with a fraction of one to six digits when there is one. Empty when `text` is no
/// such time between 00:00:00 and 23:59:59.999999.
std::optional<TTimeOfDay> ParseTimeOfDay(std::string_view text);

/// "HH:MM:SS.ffffff" of a time within one day.
std::string TimeOfDayText(TTimeOfDay time);

/// "HH:MM:SS" of it.
std::string ClockText(TTimeOfDay time);

} // namespace Text
