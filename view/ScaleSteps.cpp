#include "view/ScaleSteps.h"

#include "host/ConstDef.h"

#include <array>
#include <cmath>

namespace Quorpriceview {

namespace {

struct TScaleStep {
  int Scale;
  int ColumnFont;
  int HintFont;
};

constexpr std::array<TScaleStep, 5> ScaleSteps{
    {{100, 9, 8}, {115, 11, 10}, {125, 12, 11}, {135, 13, 12}, {150, 14, 13}}};

const TScaleStep& StepOf(int scale) {
  for (const auto& step : ScaleSteps)
    if (step.Scale == scale)
      return step;
  return ScaleSteps.front();
}

} // namespace

int SnappedScale(int configured) {
  for (const auto& step : ScaleSteps)
    if (configured <= step.Scale)
      return step.Scale;
  return ScaleSteps.back().Scale;
}

int ColumnFontSize(int scale) { return StepOf(scale).ColumnFont; }

int HintFontSize(int scale) { return StepOf(scale).HintFont; }

int ScaledRowHeight(int rowHeight, int scale) {
  if (scale <= Constdef::ScalePPI_100)
    return rowHeight;
  const double grown =
      static_cast<double>(rowHeight) * (scale - Constdef::ScalePPI_100) / Constdef::ScalePPI_100;
  return rowHeight + static_cast<int>(std::nearbyint(grown));
}

int FrameMargin(int scale) { return scale * 20 / 100; }

} // namespace Quorpriceview
