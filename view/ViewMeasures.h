#pragma once

#include "host/ConstDef.h"
#include "view/ViewState.h"

#include <QString>

namespace Quorpriceview {

class TQuorPriceForm;

/// The display scale, in per cent, that a configured size means: 100, 115, 125, 135 or 150.
int SnappedScale(int configured);

/// Font sizes at a scale, in points: with which columns are measured, and of hints.
int ColumnFontSize(int scale);
int HintFontSize(int scale);

/// Height of a row at a scale, from its height at 100 per cent; halves round to even.
int ScaledRowHeight(int rowHeight, int scale);

/// What the frame is wider than its columns, in pixels.
int FrameMargin(int scale);

/// The measures of a price view, and the sizing of its grids by them. Columns are measured with
/// the grid's font at a size that follows the scale, rows with the form's font at its own size and
/// scaled afterwards; the two differ on purpose. In pixels; `rows` are those of the depth grid.
class TViewMeasures {
public:
  /// Both must outlive it.
  TViewMeasures(TQuorPriceForm& form, const TViewState& state) : form_(form), state_(state) {}

  /// In per cent.
  int Scale() const { return scale_; }
  /// Takes the host's scale; true when it is another one now.
  bool ReadScale();
  bool HasHostsScale() const;
  int FrameWidth() const { return frameWidth_; }
  int ColumnWidth(int tag) const;
  /// Measures all columns anew and fits grids and frame; true when the frame's width changed.
  bool ResetSize();
  void FitGridWidths();
  /// Makes room for names or for IDs in the queue's columns.
  void SetQueueColumnWidth();
  /// Shows the queue's columns, or hides them all.
  void ShowHideBrokerQueue();

  /// Measures the height of a row, once, and scales the grids' rows.
  void DetectRowHeight();
  void SetGridHeights(int rows);
  /// The same after the grid was given another size: its rows are scaled again.
  void PriceGridResize(int rows);
  /// The depth grid alone, as soon as another mode is chosen; the simple mode leaves it.
  void SetDisplayModeHeight(int rows);
  /// True when the symbol line takes another number of lines now.
  bool MeasureSymbolLine();
  /// What the form needs, once the grids have their heights.
  int FrameHeight(int rows);

private:
  int DetectColWidth(int minimum, const QString& sample) const;

  TQuorPriceForm& form_;
  const TViewState& state_;
  int scale_ = Constdef::ScalePPI_100;
  int frameWidth_ = 0;
  int symbolLines_ = 1;
  int rowHeight_ = 0; ///< unscaled; 0 until measured
};

} // namespace Quorpriceview
