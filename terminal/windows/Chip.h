#pragma once

#include <QColor>
#include <QString>

namespace Terminal {

// The grounds of what stands out wherever it is: dark text can be read on each of them.
inline constexpr QRgb SimulatedColour = 0xffd9a441;
inline constexpr QRgb MarketColour = 0xff4fa3d9;

/// Style of a label that is a bold text on a ground of its own, with `padding` as style sheets have
/// it.
QString ChipStyle(const QColor& ground, const char* padding);

} // namespace Terminal
