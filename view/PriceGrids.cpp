#include "view/PriceGrids.h"

#include "host/BaseConfigManager.h"
#include "host/BaseLookAndFeelService.h"
#include "view/FeedType.h"
#include "view/Texts.h"
#include "view/ViewMeasures.h"

#include <algorithm>
#include <functional>
#include <span>
#include <utility>

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;
using Baseconfigmanager::TCustomConfigManager;

namespace {

constexpr int MinimumUpdateInterval = 50; // milliseconds

constexpr int DepthColumns[] = {Column::HeaderCaption, Column::HeaderValue, Column::BidSize,
                                Column::BidPrice,      Column::AskSize,     Column::AskPrice};
constexpr int QueueColumns[] = {Column::BidQueue1, Column::BidQueue2, Column::BidQueue3,
                                Column::BidQueue4, Column::AskQueue1, Column::AskQueue2,
                                Column::AskQueue3, Column::AskQueue4};
constexpr int PriceColumns[] = {Column::BidSize, Column::BidPrice, Column::AskSize,
                                Column::AskPrice};
constexpr int InfoColumns[] = {Column::InfoOpen, Column::InfoHigh, Column::InfoLow,
                               Column::InfoPreviousClose, Column::InfoCurrency};

void AddColumns(TcxGridTableView& view, std::span<const int> tags, const TViewMeasures& measures) {
  view.BeginUpdate();
  for (const int tag : tags)
    view.CreateColumn(tag, measures.ColumnWidth(tag),
                      tag != Column::HeaderCaption && !QueueColumnOf(tag));
  view.EndUpdate();
}

TColourTable SkinColours() {
  auto* skin = Baselookandfeelservice::TCustomLookAndFeelService::GetInstance();
  const auto named = [skin](std::string_view name) { return skin->GetColour(0, name); };
  const auto standard = [skin](int index) { return skin->GetColour(index, {}); };
  const auto invalid = TCustomConfigManager::GetInstance()->ReadString(
      skin->CurrentSkinSection(), Constdef::Colour_LabelInvalidBackground);
  return {.LabelBackground = named(Constdef::Colour_LabelBackground),
          .LabelInvalidBackground =
              invalid.empty() ? System::clRed : named(Constdef::Colour_LabelInvalidBackground),
          .BidBackground = standard(Constdef::Colour_BidBackground),
          .BidText = standard(Constdef::Colour_BidText),
          .BidLabelColor = named(Constdef::Colour_BidLabel),
          .AskBackground = standard(Constdef::Colour_AskBackground),
          .AskText = standard(Constdef::Colour_AskText),
          .AskLabelColor = named(Constdef::Colour_AskLabel)};
}

void Apply(const TCellStyle& style, int fontSize, TcxCanvas& canvas) {
  if (style.Brush)
    canvas.BrushColor = ToQColor(*style.Brush).rgb();
  if (style.Font)
    canvas.FontColor = ToQColor(*style.Font).rgb();
  if (style.FontGrowth)
    canvas.FontSize = fontSize + *style.FontGrowth;
  canvas.FontBold = style.Bold;
}

void CopyClicked(const TcxGridTableView& view, TCustomQuorMarketDataControl& control,
                 const TcxGridColumn* column, Qt::MouseButton button) {
  // The other buttons are for menus: they must not send an order.
  if (button == Qt::LeftButton)
    control.CopyPrice(view.FocusedRecordIndex(), column->Tag);
}

} // namespace

TPriceGrids::TPriceGrids(TQuorPriceForm& form, const TBrokerHighlight& highlight,
                         System::TObject* owner)
    : form_(form), highlight_(highlight) {
  price_ = Join<TPriceControl>(form.PriceGridView, owner, &TPriceGrids::PriceGridViewCustomDrawCell,
                               &TPriceGrids::PriceGridViewCellClick);
  price_->OnChange = std::bind_front(&TPriceGrids::HandleRefresh, this);
  price_->SetShowBrokerQueue(!IsDelayedFeed());
  if (IsPerclickFeed())
    JoinPerclick(owner);
  StartRefreshTimer();
}

TPriceGrids::~TPriceGrids() {
  // The grids outlive the sources that they show.
  for (auto* view : form_.GridViews()) {
    view->SetDataSource(nullptr);
    view->OnCustomDrawCell = nullptr;
  }
}

void TPriceGrids::JoinPerclick(System::TObject* owner) {
  perclickPrice_ = Join<TPerclickPriceControl>(form_.PerclickPriceGridView, owner,
                                               &TPriceGrids::PerclickPriceGridViewCustomDrawCell,
                                               &TPriceGrids::PerclickPriceGridViewCellClick);
  perclickPrice_->OnRelatedChange = [this](System::TObject*) { UpdateLastPrice(); };
  auto* info = form_.PerclickInfoGridView;
  perclickInfo_ = Join<TPerclickQuorInfoMarketDataControl>(
      info, owner, &TPriceGrids::PerclickInfoGridViewCustomDrawCell,
      &TPriceGrids::PerclickInfoGridViewCellClick);
  info->OnGetCellHeight = std::bind_front(&TPriceGrids::PerclickInfoGridViewGetCellHeight, this);
}

template <typename TControl> TControl* TPriceGrids::Join(TcxGridTableView* view,
                                                         System::TObject* owner, TDrawCell drawCell,
                                                         TCellClick click) {
  auto owned = std::make_unique<TControl>(owner);
  auto* control = owned.get();
  controls_.push_back(control);
  sources_.push_back(std::make_unique<Griddatasource::TCustomGridDataSource>(std::move(owned)));
  view->SetDataSource(sources_.back().get());
  view->OnCustomDrawCell = std::bind_front(drawCell, this);
  connect(view, &TcxGridTableView::CellClick, this, click);
  return control;
}

void TPriceGrids::DrawCell(TcxCanvas& canvas, const TcxCellViewInfo& cell, const TCellStyle& style,
                           const TPriceControl* control, bool& done) const {
  Apply(style, form_.font().pointSize(), canvas);
  if (!style.DrawnByFrame)
    return;
  canvas.FillRect();
  canvas.DrawText(control->GetDisplayValue(cell.Record, cell.Column->Tag), style.DrawFlags);
  done = true;
}

void TPriceGrids::PriceGridViewCustomDrawCell(TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                              bool& done) {
  const auto style =
      DepthCellStyle(price_, colours_, highlight_.Colours(), cell.Record, cell.Column->Tag);
  DrawCell(canvas, cell, style, price_, done);
}

void TPriceGrids::PerclickPriceGridViewCustomDrawCell(TcxCanvas& canvas,
                                                      const TcxCellViewInfo& cell, bool& done) {
  const auto style = PerclickPriceCellStyle(true, colours_, cell.Record, cell.Column->Tag);
  DrawCell(canvas, cell, style, perclickPrice_, done);
}

void TPriceGrids::PerclickInfoGridViewCustomDrawCell(TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                                     bool& done) {
  DrawCell(canvas, cell, PerclickInfoCellStyle(true, colours_, cell.Record), perclickInfo_, done);
}

void TPriceGrids::PerclickInfoGridViewGetCellHeight(int row, int& height) const {
  height = PerclickInfoRowHeight(row, form_.PerclickInfoGridView->DataRowHeight());
}

void TPriceGrids::PriceGridViewCellClick(const TcxGridColumn* column, Qt::MouseButton button) {
  CopyClicked(*form_.PriceGridView, *price_, column, button);
}

void TPriceGrids::PerclickPriceGridViewCellClick(const TcxGridColumn* column,
                                                 Qt::MouseButton button) {
  CopyClicked(*form_.PerclickPriceGridView, *perclickPrice_, column, button);
}

void TPriceGrids::PerclickInfoGridViewCellClick(const TcxGridColumn* column,
                                                Qt::MouseButton button) {
  CopyClicked(*form_.PerclickInfoGridView, *perclickInfo_, column, button);
}

void TPriceGrids::CreateColumns(const TViewMeasures& measures) {
  for (auto* view : form_.GridViews())
    view->ClearColumns();
  AddColumns(*form_.PriceGridView, DepthColumns, measures);
  if (!IsDelayedFeed())
    AddColumns(*form_.PriceGridView, QueueColumns, measures);
  if (!perclickPrice_)
    return;
  AddColumns(*form_.PerclickPriceGridView, PriceColumns, measures);
  AddColumns(*form_.PerclickInfoGridView, InfoColumns, measures);
}

void TPriceGrids::SetSkin() {
  colours_ = SkinColours();
  // The cells keep the colours that they were described with.
  for (auto* view : form_.GridViews())
    view->Repaint();
}

void TPriceGrids::SetLastPriceFonts() {
  constexpr int lastGrowth = 6;
  constexpr int changeGrowth = 2;
  form_.lblLast->SetFontSize(form_.font().pointSize() + lastGrowth);
  form_.lblChange->SetFontSize(form_.font().pointSize() + changeGrowth);
}

void TPriceGrids::UpdateLastPrice() {
  if (!perclickPrice_)
    return;
  const auto figure = [this](int field) {
    return QString::fromStdString(perclickPrice_->GetCellHeaderDisplayData(field));
  };
  form_.lblLast->setText(figure(Field::Nominal));
  form_.lblChange->setText(figure(Field::Change) + "   " + figure(Field::ChangePercent));
  form_.lblUpdateTime->setText(Label("Res_UpdateTime") + ' ' +
                               QString::fromStdString(perclickPrice_->GetLastUpdateTime()));
}

void TPriceGrids::StartRefreshTimer() {
  auto* config = TCustomConfigManager::GetInstance();
  const int interval = config->ReadInteger(config->CurrentSection(), Constdef::Key_UpdateInterval);
  timer_.setObjectName("RefreshTimer");
  timer_.setTimerType(Qt::PreciseTimer); // a coarse one may come early
  connect(&timer_, &TTimer::timeout, this, [this] {
    if (std::exchange(refreshPending_, false))
      form_.PriceGridView->Refresh();
  });
  timer_.start(std::max(interval, MinimumUpdateInterval));
}

} // namespace Quorpriceview
