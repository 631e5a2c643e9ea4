#include "view/CellPainting.h"

#include "host/ConstDef.h"
#include "platform/GridCell.h"

namespace Quorpriceview {

using namespace Quorpricedatacontrol;

namespace {

// Rows of the best price and of the labels below it; fixed to the row layout.
constexpr int SimplePriceRow = 1;
constexpr int SimpleLabelRow = 2;
constexpr int FullPriceRow = 6;
constexpr int FullLabelRow = 7;
constexpr int LastHeaderRow = 5;
constexpr int PerclickPriceRow = 0;
constexpr int PerclickLabelRow = 1;

struct TSideColours {
  System::TColor Background;
  System::TColor Text;
  System::TColor Label;
};

TSideColours ColoursOf(const TColourTable& colours, int side) {
  if (side == Side::Bid)
    return {colours.BidBackground, colours.BidText, colours.BidLabelColor};
  return {colours.AskBackground, colours.AskText, colours.AskLabelColor};
}

bool IsPriceColumn(int column) { return column == Column::BidPrice || column == Column::AskPrice; }

/// The side of a price or size column; empty for any other.
std::optional<int> SideOfDepthColumn(int column) {
  switch (column) {
  case Column::BidPrice:
  case Column::BidSize:
    return Side::Bid;
  case Column::AskPrice:
  case Column::AskSize:
    return Side::Ask;
  default:
    return std::nullopt;
  }
}

void DrawBestPrice(TCellStyle& style, int column) {
  style.DrawnByFrame = true;
  if (IsPriceColumn(column)) {
    style.Bold = true;
    style.FontGrowth = BigFontGrowth;
    style.DrawFlags = Platform::DT_VCENTER;
  } else {
    style.DrawFlags = Platform::DT_CENTER | Platform::DT_VCENTER;
  }
}

void StyleDepthCell(TCellStyle& style, TQuorMode mode, const TSideColours& side, int row,
                    int column) {
  const bool simple = mode == qm10Simple;
  if (row == (simple ? SimpleLabelRow : FullLabelRow)) {
    style.Brush = side.Label;
  } else if (row > (simple ? 0 : LastHeaderRow)) {
    style.Brush = side.Background;
    style.Font = side.Text;
  }
  if (!simple && row == FullPriceRow)
    DrawBestPrice(style, column);
  if (simple && row == SimplePriceRow && IsPriceColumn(column)) {
    style.Bold = true;
    style.FontGrowth = BigFontGrowth;
  }
}

void StyleQueueCell(TCellStyle& style, const TCustomQuorMarketDataControl& control,
                    const TSideColours& side, THighlight highlight, int row, int column) {
  if (control.GetIsBrokerQueueHeader(column, row))
    style.Brush = side.Label;
  if (row <= 0)
    return;
  style.Font = side.Text;
  std::string broker;
  if (!highlight || !control.GetBrokerID(row, column, broker))
    return;
  if (const auto found = highlight->find(broker); found != highlight->end()) {
    style.Bold = true;
    style.Font = found->second;
  }
}

} // namespace

TCellStyle DepthCellStyle(const TCustomQuorMarketDataControl* control, const TColourTable& colours,
                          THighlight highlight, int row, int column) {
  TCellStyle style;
  style.FontGrowth = CellFontGrowth;
  if (column == Column::HeaderCaption) {
    const bool invalid =
        control && (control->GetState() == Constdef::RecordState_Invalid || control->Concealed());
    style.Brush = invalid ? colours.LabelInvalidBackground : colours.LabelBackground;
    return style;
  }
  if (!control)
    return style;
  if (column == Column::HeaderValue)
    style.Bold = row == control->GetHeaderLastPriceIndex();
  else if (const auto side = SideOfDepthColumn(column))
    StyleDepthCell(style, control->DisplayMode(), ColoursOf(colours, *side), row, column);
  else if (const auto queue = QueueColumnOf(column))
    StyleQueueCell(style, *control, ColoursOf(colours, queue->Side), highlight, row, column);
  return style;
}

TCellStyle PerclickPriceCellStyle(bool hasControl, const TColourTable& colours, int row,
                                  int column) {
  TCellStyle style;
  style.FontGrowth = CellFontGrowth;
  const auto side = SideOfDepthColumn(column);
  if (!side || !hasControl)
    return style;
  const auto sideColours = ColoursOf(colours, *side);
  if (row == PerclickLabelRow) {
    style.Brush = sideColours.Label;
  } else {
    style.Brush = sideColours.Background;
    style.Font = sideColours.Text;
  }
  if (row == PerclickPriceRow)
    DrawBestPrice(style, column);
  return style;
}

TCellStyle PerclickInfoCellStyle(bool hasControl, const TColourTable& colours, int row) {
  TCellStyle style;
  if (row == 0 || row == 2) {
    style.Brush = colours.LabelBackground;
  } else if (hasControl) {
    style.DrawnByFrame = true;
    style.Bold = true;
    style.FontGrowth = BigFontGrowth;
    style.DrawFlags = Platform::DT_CENTER | Platform::DT_VCENTER;
  }
  return style;
}

bool IsPerclickInfoValueRow(int row) { return row == 1 || row == 3; }

} // namespace Quorpriceview
