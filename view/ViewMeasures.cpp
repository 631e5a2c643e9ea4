#include "view/ViewMeasures.h"

#include "host/BaseConfigManager.h"
#include "model/BrokerQueue.h"
#include "model/DepthLadder.h"
#include "view/QuorPriceForm.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;

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

int HostsScale() {
  return SnappedScale(Baseconfigmanager::TCustomConfigManager::GetInstance()->ReadInteger(
      Constdef::Section_TradePlatform, Constdef::Key_ScaleSize));
}

/// Gives the width.
int FitToColumns(TcxGrid* grid, int margin) {
  int width = margin;
  for (const auto& column : grid->View()->Columns())
    width += column->Visible ? column->Width : 0;
  grid->setFixedWidth(width);
  return width;
}

int HeightOfRows(const TcxGrid* grid, int rows) {
  return rows * grid->View()->DataRowHeight() + GridBorder;
}

void FitToRows(TcxGrid* grid, int rows) { grid->setFixedHeight(HeightOfRows(grid, rows)); }

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

bool TViewMeasures::ReadScale() {
  const int scale = HostsScale();
  return std::exchange(scale_, scale) != scale;
}

bool TViewMeasures::HasHostsScale() const { return HostsScale() == scale_; }

int TViewMeasures::DetectColWidth(int minimum, const QString& sample) const {
  QFont font = form_.PriceGrid->font();
  font.setPointSize(ColumnFontSize(scale_));
  const int width = QFontMetrics(font, form_.PriceGrid).horizontalAdvance(sample);
  return std::max(minimum, width + TextMargin);
}

int TViewMeasures::ColumnWidth(int tag) const {
  if (tag == Column::HeaderCaption)
    return DetectColWidth(65, LabelSample);
  if (QueueColumnOf(tag))
    return DetectColWidth(0, QueueSample) + QueueColumnExtra;
  if (const auto depth = DepthColumnOf(tag); depth && depth->Figure == TDepthColumn::Size)
    return DetectColWidth(50, NumberSample);
  return DetectColWidth(tag >= Column::InfoOpen ? 80 : 70, NumberSample);
}

bool TViewMeasures::ResetSize() {
  const int oldWidth = frameWidth_;
  form_.PriceGridView->BeginUpdate();
  for (auto* view : form_.GridViews())
    for (const auto& column : view->Columns())
      view->SetColumnWidth(column.get(), ColumnWidth(column->Tag));
  SetQueueColumnWidth();
  form_.PriceGridView->EndUpdate();
  FitGridWidths();
  return frameWidth_ != oldWidth;
}

void TViewMeasures::FitGridWidths() {
  frameWidth_ = FitToColumns(form_.PriceGrid, FrameMargin(scale_));
  form_.lgPrice->setFixedWidth(FitToColumns(form_.PerclickPriceGrid, PerclickMargin));
  FitToColumns(form_.PerclickInfoGrid, PerclickMargin);
}

void TViewMeasures::SetQueueColumnWidth() {
  auto& view = *form_.PriceGridView;
  view.BeginUpdate();
  for (const auto& column : view.Columns()) {
    const auto queueColumn = QueueColumnOf(column->Tag);
    if (!queueColumn)
      continue;
    // A name takes the room of two IDs, and so the place of the columns behind.
    if (queueColumn->Place < 2)
      view.SetColumnWidth(column.get(), (state_.ShowBrokerName ? 2 : 1) * ColumnWidth(column->Tag));
    else if (!state_.QueueHidden.IsOn())
      view.SetColumnVisible(column.get(), !state_.ShowBrokerName);
  }
  view.EndUpdate();
}

void TViewMeasures::ShowHideBrokerQueue() {
  auto& view = *form_.PriceGridView;
  view.BeginUpdate();
  for (const auto& column : view.Columns())
    if (QueueColumnOf(column->Tag))
      view.SetColumnVisible(column.get(), !state_.QueueHidden.IsOn());
  view.EndUpdate();
}

void TViewMeasures::DetectRowHeight() {
  if (rowHeight_ == 0)
    rowHeight_ = QFontMetrics(form_.font(), form_.PriceGrid).height() + TextMargin;
  for (auto* view : form_.GridViews())
    view->SetDataRowHeight(ScaledRowHeight(rowHeight_, scale_));
}

void TViewMeasures::SetGridHeights(int rows) {
  FitToRows(form_.PriceGrid, rows);
  FitToRows(form_.PerclickPriceGrid, BestPriceRow::Count);
  // At least; its group, which has higher rows to show in it, makes it as high as itself.
  auto* info = form_.PerclickInfoGrid;
  info->setMinimumHeight(HeightOfRows(info, InfoRow::Count));
  if (!info->isVisible())
    info->resize(info->width(), info->minimumHeight());
  form_.lgPerclick->setFixedHeight(form_.liPerclickPriceGrid->sizeHint().height() +
                                   form_.liLast->sizeHint().height() +
                                   form_.liChange->sizeHint().height() + PerclickGroupMargin);
}

void TViewMeasures::PriceGridResize(int rows) {
  if (scale_ > Constdef::ScalePPI_100)
    DetectRowHeight();
  SetGridHeights(rows);
}

void TViewMeasures::SetDisplayModeHeight(int rows) {
  if (state_.DisplayMode != qm10Simple)
    FitToRows(form_.PriceGrid, rows);
}

bool TViewMeasures::MeasureSymbolLine() {
  const int lines = form_.lgSymbol->LineCount(frameWidth_);
  return std::exchange(symbolLines_, lines) != lines;
}

int TViewMeasures::FrameHeight(int rows) {
  SetGridHeights(rows);
  form_.lcGrid->ensurePolished();
  return std::max(form_.lcGrid->ContentHeight(frameWidth_), MinimumHeight);
}

} // namespace Quorpriceview
