#include "host/BaseConfigManager.h"
#include "view/QuorPriceView.h"
#include "view/ScaleSteps.h"

#include <QFontMetrics>

#include <algorithm>

// The view's measures. Columns are measured with the grid's font at a size that follows the scale,
// rows with the frame's font at its own size and scaled afterwards; the two differ on purpose.

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;
using Baseconfigmanager::TCustomConfigManager;

namespace {

constexpr int TextMargin = 4;       // around a measured text
constexpr int GridBorder = 6;       // what a grid is higher than its rows
constexpr int PerclickMargin = 20;  // what a per-click grid is wider than its columns
constexpr int QueueColumnExtra = 5; // room between two queue columns
constexpr int MinimumHeight = 300;
constexpr int PerclickGroupMargin = 20;

const QString NumberSample = QStringLiteral("99999999");
const QString LabelSample = QStringLiteral("MMMMMMMM");
const QString QueueSample = QStringLiteral("8888");

int SumOfWidths(const TcxGridTableView& view) {
  int sum = 0;
  for (const auto& column : view.Columns())
    if (column->Visible)
      sum += column->Width;
  return sum;
}

} // namespace

int TQuorPriceFrame::DetectColWidth(int minimum, const QString& sample) const {
  if (sample.isEmpty())
    return minimum;
  QFont font = PriceGrid->font();
  font.setPointSize(ColumnFontSize(scale_));
  return std::max(minimum, QFontMetrics(font, PriceGrid).horizontalAdvance(sample) + TextMargin);
}

int TQuorPriceFrame::QueueColumnWidth() const {
  return DetectColWidth(0, QueueSample) + QueueColumnExtra;
}

int TQuorPriceFrame::ColumnWidth(int tag) const {
  switch (tag) {
  case Column::HeaderCaption:
    return DetectColWidth(65, LabelSample);
  case Column::BidPrice:
  case Column::AskPrice:
  case Column::HeaderValue:
    return DetectColWidth(70, NumberSample);
  case Column::BidSize:
  case Column::AskSize:
    return DetectColWidth(50, NumberSample);
  default:
    return QueueColumnWidth();
  }
}

void TQuorPriceFrame::DetectRowHeight() {
  if (rowHeight_ == 0)
    rowHeight_ = QFontMetrics(font(), PriceGrid).height() + TextMargin;
  SetDataRowHeight(ScaledRowHeight(rowHeight_, scale_));
}

void TQuorPriceFrame::SetDataRowHeight(int height) {
  for (auto* view : {PriceGridView, PerclickPriceGridView, PerclickInfoGridView})
    view->SetDataRowHeight(height);
}

void TQuorPriceFrame::SetQueueColumnWidth() {
  const int width = QueueColumnWidth();
  const bool queueHidden = btnHideBrokerQueue_ && btnHideBrokerQueue_->State != 0;
  PriceGridView->BeginUpdate();
  for (const auto& column : PriceGridView->Columns()) {
    const auto queueColumn = QueueColumnOf(column->Tag);
    if (!queueColumn)
      continue;
    // A name takes the room of two IDs, and so the place of the columns behind.
    if (queueColumn->Place < 2)
      PriceGridView->SetColumnWidth(column.get(), showBrokerName_ ? 2 * width : width);
    else if (!queueHidden)
      PriceGridView->SetColumnVisible(column.get(), !showBrokerName_);
  }
  PriceGridView->EndUpdate();
}

void TQuorPriceFrame::ResetSize() {
  const int oldWidth = frameWidth_;
  PriceGridView->BeginUpdate();
  for (const auto& column : PriceGridView->Columns())
    PriceGridView->SetColumnWidth(column.get(), ColumnWidth(column->Tag));
  SetQueueColumnWidth();
  PriceGridView->EndUpdate();
  for (const auto& column : PerclickPriceGridView->Columns())
    PerclickPriceGridView->SetColumnWidth(column.get(), ColumnWidth(column->Tag));
  for (const auto& column : PerclickInfoGridView->Columns())
    PerclickInfoGridView->SetColumnWidth(column.get(),
                                         DetectColWidth(PerclickInfoMinimumWidth, NumberSample));
  SetGridWidths(FrameMargin(scale_));

  if (frameWidth_ != oldWidth)
    Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::SetGridWidths(int margin) {
  frameWidth_ = SumOfWidths(*PriceGridView) + margin;
  PriceGrid->setFixedWidth(frameWidth_);
  const int perclickWidth = SumOfWidths(*PerclickPriceGridView) + PerclickMargin;
  lgPrice->setFixedWidth(perclickWidth);
  PerclickPriceGrid->setFixedWidth(perclickWidth);
  PerclickInfoGrid->setFixedWidth(SumOfWidths(*PerclickInfoGridView) + PerclickMargin);
}

int TQuorPriceFrame::GetWidth() {
  ResetSize();
  if (firstWidthRequest_) {
    firstWidthRequest_ = false;
    edtSymbol->setCursorPosition(0);
    edtSymbol->selectAll();
  }
  return frameWidth_;
}

int TQuorPriceFrame::GetHeight() {
  SetGridHeights();
  lcGrid->ensurePolished();
  return std::max(lcGrid->ContentHeight(), MinimumHeight);
}

int TQuorPriceFrame::RowCount() const {
  return priceControl_ ? priceControl_->GetCount() : TPriceControl::LeastRowCount;
}

int TQuorPriceFrame::PriceGridHeight(int rows) const {
  return rows * PriceGridView->DataRowHeight() + GridBorder;
}

void TQuorPriceFrame::PriceGridResize() {
  if (scale_ > Constdef::ScalePPI_100 && rowHeight_ >= 1) {
    const int height = ScaledRowHeight(rowHeight_, scale_);
    if (height != PriceGridView->DataRowHeight())
      SetDataRowHeight(height);
  }
  SetGridHeights();
}

void TQuorPriceFrame::SetGridHeights() {
  PriceGrid->setFixedHeight(PriceGridHeight(RowCount()));
  PerclickPriceGrid->setFixedHeight(BestPriceRow::Count * PerclickPriceGridView->DataRowHeight() +
                                    GridBorder);
  PerclickInfoGrid->setFixedHeight(InfoRow::Count * PerclickInfoGridView->DataRowHeight() +
                                   GridBorder);
  lgPerclick->setFixedHeight(liPerclickPriceGrid->sizeHint().height() +
                             liLast->sizeHint().height() + liChange->sizeHint().height() +
                             PerclickGroupMargin);
}

void TQuorPriceFrame::SetDisplayModeHeight() {
  if (displayMode_ != qm10Simple)
    PriceGrid->setFixedHeight(PriceGridHeight(RowCount()));
}

void TQuorPriceFrame::ScaleLayoutComp(TObject*, TObject*) {
  const int configured = TCustomConfigManager::GetInstance()->ReadInteger(
      Constdef::Section_TradePlatform, Constdef::Key_ScaleSize);
  if (SnappedScale(configured) != scale_)
    return;
  DetectRowHeight();
  ResetSize();
}

} // namespace Quorpriceview
