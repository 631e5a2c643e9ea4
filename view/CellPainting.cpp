#include "view/CellPainting.h"

#include "host/ConstDef.h"
#include "platform/GridCell.h"

#include <cmath>

namespace Quorpriceview {

using namespace Quorpricedatacontrol;

namespace {

constexpr double ValueRowGrowth = 1.5; // of the data row height

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

/// A best price is large.
void StyleBestPrice(TCellStyle& style, TDepthColumn::TFigure kind) {
  if (kind != TDepthColumn::Price)
    return;
  style.Bold = true;
  style.FontGrowth = BigFontGrowth;
}

void DrawBestPrice(TCellStyle& style, TDepthColumn::TFigure kind) {
  StyleBestPrice(style, kind);
  style.DrawnByFrame = true;
  style.DrawFlags = Platform::DT_VCENTER;
  if (kind == TDepthColumn::Size)
    style.DrawFlags |= Platform::DT_CENTER;
}

void StyleSideCell(TCellStyle& style, const TSideColours& side, bool isLabel) {
  style.Brush = isLabel ? side.Label : side.Background;
  if (!isLabel)
    style.Font = side.Text;
}

void StyleDepthCell(TCellStyle& style, TQuorMode mode, const TSideColours& side, int row,
                    TDepthColumn::TFigure kind) {
  const TDepthRows rows = DepthRowsOf(mode);
  if (row >= rows.BestPrice)
    StyleSideCell(style, side, row == rows.PriceStep);
  if (row != rows.BestPrice)
    return;
  if (mode == qm10Simple)
    StyleBestPrice(style, kind);
  else
    DrawBestPrice(style, kind);
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
  else if (const auto depth = DepthColumnOf(column))
    StyleDepthCell(style, control->DisplayMode(), ColoursOf(colours, depth->Side), row,
                   depth->Figure);
  else if (const auto queue = QueueColumnOf(column))
    StyleQueueCell(style, *control, ColoursOf(colours, queue->Side), highlight, row, column);
  return style;
}

TCellStyle PerclickPriceCellStyle(bool hasControl, const TColourTable& colours, int row,
                                  int column) {
  TCellStyle style;
  style.FontGrowth = CellFontGrowth;
  const auto depth = DepthColumnOf(column);
  if (!depth || !hasControl)
    return style;
  StyleSideCell(style, ColoursOf(colours, depth->Side), row == BestPriceRow::Step);
  if (row == BestPriceRow::Price)
    DrawBestPrice(style, depth->Figure);
  return style;
}

TCellStyle PerclickInfoCellStyle(bool hasControl, const TColourTable& colours, int row) {
  TCellStyle style;
  if (row == InfoRow::UpperLabel || row == InfoRow::LowerLabel) {
    style.Brush = colours.LabelBackground;
  } else if (hasControl) {
    style.DrawnByFrame = true;
    style.Bold = true;
    style.FontGrowth = BigFontGrowth;
    style.DrawFlags = Platform::DT_CENTER | Platform::DT_VCENTER;
  }
  return style;
}

bool IsPerclickInfoValueRow(int row) {
  return row == InfoRow::UpperValue || row == InfoRow::LowerValue;
}

int PerclickInfoRowHeight(int row, int dataRowHeight) {
  if (!IsPerclickInfoValueRow(row))
    return dataRowHeight;
  return static_cast<int>(std::nearbyint(ValueRowGrowth * dataRowHeight));
}

} // namespace Quorpriceview
