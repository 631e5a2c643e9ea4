#pragma once

/// The steps that a scale snaps to, and what goes with each.
namespace ScaleSteps {

struct TStep {
  int scale;
  int columnFont;
  int hintFont;
  int margin;
};

inline constexpr TStep Steps[] = {
    {100, 9, 8, 20}, {115, 11, 10, 23}, {125, 12, 11, 25}, {135, 13, 12, 27}, {150, 14, 13, 30}};

} // namespace ScaleSteps
