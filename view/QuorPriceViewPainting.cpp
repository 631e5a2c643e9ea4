#include "host/view/BaseView.h"
#include "view/CellPainting.h"
#include "view/QuorPriceView.h"

#include <cmath>

// Cells, clicks and the broker hint.

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;

namespace {

constexpr int HintLifetime = 10;       // ticks of the host's shared timer
constexpr double ValueRowGrowth = 1.5; // of the data row height

} // namespace

void TQuorPriceFrame::ApplyCellStyle(const TCellStyle& style, const TPriceControl* control,
                                     TcxCanvas& canvas, int row, int column, bool& done) const {
  if (style.Brush)
    canvas.BrushColor = ToQColor(*style.Brush).rgb();
  if (style.Font)
    canvas.FontColor = ToQColor(*style.Font).rgb();
  if (style.FontGrowth)
    canvas.FontSize = font().pointSize() + *style.FontGrowth;
  canvas.FontBold = style.Bold;
  if (!style.DrawnByFrame)
    return;
  canvas.FillRect();
  canvas.DrawText(control->GetDisplayValue(row, column), style.DrawFlags);
  done = true;
}

void TQuorPriceFrame::PriceGridViewCustomDrawCell(TcxCanvas& canvas, int row, int column,
                                                  bool& done) {
  const auto* highlight = highlightEnabled_ ? &brokerColours_ : nullptr;
  ApplyCellStyle(DepthCellStyle(priceControl_, colours_, highlight, row, column), priceControl_,
                 canvas, row, column, done);
}

void TQuorPriceFrame::PerclickPriceGridViewCustomDrawCell(TcxCanvas& canvas, int row, int column,
                                                          bool& done) {
  ApplyCellStyle(PerclickPriceCellStyle(perclickPriceControl_ != nullptr, colours_, row, column),
                 perclickPriceControl_, canvas, row, column, done);
}

void TQuorPriceFrame::PerclickInfoGridViewCustomDrawCell(TcxCanvas& canvas, int row, int column,
                                                         bool& done) {
  ApplyCellStyle(PerclickInfoCellStyle(perclickInfoControl_ != nullptr, colours_, row),
                 perclickInfoControl_, canvas, row, column, done);
}

void TQuorPriceFrame::PerclickInfoGridViewGetCellHeight(int row, int& height) const {
  if (IsPerclickInfoValueRow(row))
    height =
        static_cast<int>(std::nearbyint(ValueRowGrowth * PerclickInfoGridView->DataRowHeight()));
}

void TQuorPriceFrame::PriceGridViewCellClick(int column) {
  if (priceControl_)
    priceControl_->CopyPrice(PriceGridView->FocusedRecordIndex(), column);
}

void TQuorPriceFrame::PerclickPriceGridViewCellClick(int column) {
  if (perclickPriceControl_)
    perclickPriceControl_->CopyPrice(PerclickPriceGridView->FocusedRecordIndex(), column);
}

void TQuorPriceFrame::PerclickInfoGridViewCellClick(int column) {
  if (perclickInfoControl_)
    perclickInfoControl_->CopyPrice(PerclickInfoGridView->FocusedRecordIndex(), column);
}

void TQuorPriceFrame::PriceGridViewMouseMove(const QPoint& position) {
  if (!priceControl_)
    return;
  const auto hit = PriceGridView->HitTest(position);
  if (hit.Record < 0)
    return;
  if (!hit.Column) {
    hintRow_ = -1;
    return;
  }
  // The hint is keyed by row alone: along one row it stays as it is.
  if (!QueueColumnOf(hit.Column->Tag) || hit.Record == hintRow_)
    return;
  const auto screen = PriceGrid->mapToGlobal(position);
  hintRow_ = hit.Record;
  hintShown_ = true;
  hintTicks_ = 0;
  const auto name = priceControl_->GetBrokerName(hit.Record, hit.Column->Tag);
  if (!name.empty())
    HintCtrl->ShowHint(screen.x(), screen.y(), QString::fromStdString(name), {}, 0);
}

void TQuorPriceFrame::ShowHintTimer(TObject*) {
  if (!hintShown_ || ++hintTicks_ < HintLifetime)
    return;
  HideHint();
}

void TQuorPriceFrame::HideHint() {
  hintTicks_ = 0;
  hintShown_ = false;
  HintCtrl->HideHint();
}

void TQuorPriceFrame::hideEvent(QHideEvent* event) {
  HideHint(); // it is a window of its own and would stay on the screen
  TQuorPriceForm::hideEvent(event);
}

void TQuorPriceFrame::HandleRowChanged(TObject*) {
  GetHeight();
  Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

} // namespace Quorpriceview
