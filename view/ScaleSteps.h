#pragma once

namespace Quorpriceview {

/// The display scale, in per cent, that a configured size means: 100, 115, 125, 135 or 150.
int SnappedScale(int configured);

/// Font size, in points, with which columns are measured at a scale.
int ColumnFontSize(int scale);

/// Font size, in points, of hints at a scale.
int HintFontSize(int scale);

/// Height of a row at a scale, from its height at 100 per cent; halves round to even.
int ScaledRowHeight(int rowHeight, int scale);

/// What the frame is wider than its columns, in pixels.
int FrameMargin(int scale);

} // namespace Quorpriceview
