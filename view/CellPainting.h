#pragma once

#include "host/System.h"
#include "model/QuorPriceDataControl.h"
#include "view/BrokerColours.h"

#include <optional>

namespace Quorpriceview {

/// The colours of the skin that the view paints with.
struct TColourTable {
  System::TColor LabelBackground = 0;
  System::TColor LabelInvalidBackground = 0;
  System::TColor BidBackground = 0;
  System::TColor BidText = 0;
  System::TColor BidLabelColor = 0;
  System::TColor AskBackground = 0;
  System::TColor AskText = 0;
  System::TColor AskLabelColor = 0;
};

/// How much larger than the frame's font, in points.
inline constexpr int CellFontGrowth = 1;
inline constexpr int BigFontGrowth = 3;

/// What the frame decides for a cell. What it leaves open stays the grid's.
struct TCellStyle {
  std::optional<System::TColor> Brush;
  std::optional<System::TColor> Font;
  std::optional<int> FontGrowth; ///< over the frame's font, in points; unset: the grid's size
  bool Bold = false;
  bool DrawnByFrame = false; ///< fill, then the control's text with DrawFlags
  unsigned DrawFlags = 0;

  bool operator==(const TCellStyle&) const = default;
};

/// Highlighted brokers; null while highlighting is off.
using THighlight = const TBrokerColours*;

/// A cell of the depth grid. `control` may be null: the defaults and label colours stand then.
TCellStyle DepthCellStyle(const Quorpricedatacontrol::TCustomQuorMarketDataControl* control,
                          const TColourTable& colours, THighlight highlight, int row, int column);

/// A cell of the per-click price grid.
TCellStyle PerclickPriceCellStyle(bool hasControl, const TColourTable& colours, int row,
                                  int column);

/// A cell of the per-click info grid.
TCellStyle PerclickInfoCellStyle(bool hasControl, const TColourTable& colours, int row);

/// Whether a row of the per-click info grid holds values, which take half as much height again.
bool IsPerclickInfoValueRow(int row);

} // namespace Quorpriceview
