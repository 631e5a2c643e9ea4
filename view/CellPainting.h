#pragma once

#include "host/System.h"
#include "model/QuorPriceDataControl.h"
#include "view/BrokerHighlight.h"

#include <optional>

namespace Quorpriceview {

/// The colours of the skin that the view paints with. None has a default, so that the compiler
/// tells of one that is forgotten.
struct TColourTable {
  System::TColor LabelBackground;
  System::TColor LabelInvalidBackground;
  System::TColor BidBackground;
  System::TColor BidText;
  System::TColor BidLabelColor;
  System::TColor AskBackground;
  System::TColor AskText;
  System::TColor AskLabelColor;
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

/// Whether a row of the per-click info grid holds values.
bool IsPerclickInfoValueRow(int row);

/// Height of a row of the per-click info grid: values take half as much again, halves to even.
int PerclickInfoRowHeight(int row, int dataRowHeight);

} // namespace Quorpriceview
