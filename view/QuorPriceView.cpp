#include "view/QuorPriceView.h"

#include "host/BaseConfigManager.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseTimerControl.h"
#include "host/BaseVendorDDSModel.h"
#include "host/view/EditorManager.h"
#include "view/FeedType.h"
#include "view/ScaleSteps.h"

#include <algorithm>

namespace Quorpriceview {

using namespace Platform;
using namespace Quorpricedatacontrol;
using Baseconfigmanager::TCustomConfigManager;
using Baseglobalchannelmanager::TCustomGlobalChannelManager;
using Basetimercontrol::TCustomTimerControl;
using Columninfo::AddColumn;
using Editormanager::TEditorManager;

namespace {

constexpr int MinimumUpdateInterval = 50; // milliseconds

} // namespace

TQuorPriceFrame::TQuorPriceFrame(System::Classes::TComponent* owner) : TIBaseView(owner) {
  CreateRefreshTimer();
  CreateCaptionButtons();
  SetQtyButtonCaption();
  UpdateCaptionButtons();
  HideOptionalParts();
  SetLastPriceFonts();
  Initialize();
  BindForm();
  CreatePriceControl();
  CreatePerclickControls();
  RegisterWithHost();
  if (!AppliedSymbol().empty())
    edtSymbolExit();
  SetLanguage(Constdef::Language_English);
  SetSkin({});
  ConfigUpdate(this, nullptr);
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Subscribe(Constdef::Channel_LayoutLoaded, Handler(&TQuorPriceFrame::LoadLayoutComp),
                      this);
  channels->Subscribe(Constdef::Channel_MainFormShown, Handler(&TQuorPriceFrame::MainFormShow),
                      this);
  channels->Subscribe(Constdef::Channel_ScaleChanged, Handler(&TQuorPriceFrame::ScaleLayoutComp),
                      this);
}

TQuorPriceFrame::~TQuorPriceFrame() {
  refreshTimer_.reset();
  UnregisterFromHost();
  CloseDetailForms();
  // The grids outlive the sources that they show.
  for (auto* view : {PriceGridView, PerclickPriceGridView, PerclickInfoGridView})
    view->SetDataSource(nullptr);
  // Leaving the box on the way down must not reach a frame that is no longer whole.
  edtSymbol->disconnect(this);
  priceControl_ = nullptr;
  perclickPriceControl_ = nullptr;
  perclickInfoControl_ = nullptr;
  priceSource_.reset();
  perclickPriceSource_.reset();
  perclickInfoSource_.reset();
}

void TQuorPriceFrame::CreateRefreshTimer() {
  auto* config = TCustomConfigManager::GetInstance();
  const int interval = config->ReadInteger(config->CurrentSection(), Constdef::Key_UpdateInterval);
  refreshTimer_ = std::make_unique<TTimer>();
  refreshTimer_->setObjectName(QStringLiteral("RefreshTimer"));
  refreshTimer_->setTimerType(Qt::PreciseTimer); // a coarse one may come early
  refreshTimer_->setInterval(std::max(interval, MinimumUpdateInterval));
  connect(refreshTimer_.get(), &TTimer::timeout, this, &TQuorPriceFrame::RefreshTimer);
  refreshTimer_->start();
}

void TQuorPriceFrame::HideOptionalParts() {
  for (auto* item : {liLiqProvider, liWarrant, liRelated, liVCM, liCAS, liPOS})
    item->SetVisibleFlag(false);
  for (auto* group : {lgInfo, lgVCMCAS, lgPOS})
    group->SetVisibleFlag(false);
  mDetail->setVisible(false);
}

void TQuorPriceFrame::Initialize() {
  struct TColumn {
    int ID;
    bool RightAligned;
  };
  constexpr TColumn labels[] = {{Column::HeaderCaption, false}, {Column::HeaderValue, true}};
  constexpr TColumn sides[] = {{Column::BidSize, true},
                               {Column::BidPrice, true},
                               {Column::AskSize, true},
                               {Column::AskPrice, true}};
  for (const auto& column : labels)
    AddColumn(priceColumns_, column.ID, ColumnWidth(column.ID), column.RightAligned);
  for (const auto& column : sides) {
    AddColumn(priceColumns_, column.ID, ColumnWidth(column.ID), column.RightAligned);
    AddColumn(perclickPriceColumns_, column.ID, ColumnWidth(column.ID), column.RightAligned);
  }
  constexpr int queueColumns[] = {Column::BidQueue1, Column::BidQueue2, Column::BidQueue3,
                                  Column::BidQueue4, Column::AskQueue1, Column::AskQueue2,
                                  Column::AskQueue3, Column::AskQueue4};
  constexpr int infoColumns[] = {Column::InfoOpen, Column::InfoHigh, Column::InfoLow,
                                 Column::InfoPreviousClose, Column::InfoCurrency};
  if (!IsDelayedFeed())
    for (const int queueColumn : queueColumns)
      AddColumn(priceColumns_, queueColumn, QueueColumnWidth(), false);
  for (const int infoColumn : infoColumns)
    AddColumn(perclickInfoColumns_, infoColumn, PerclickInfoMinimumWidth, true);

  AddGridColumns(*PriceGridView, priceColumns_);
  DetectRowHeight();
  liDelay->SetVisibleFlag(IsDelayedFeed());
  InitializePerclick();
  SetGridWidths(FrameMargin(Constdef::ScalePPI_100));
}

void TQuorPriceFrame::InitializePerclick() {
  const bool perclick = IsPerclickFeed();
  liUpdateTime->SetVisibleFlag(perclick);
  liGrid->SetVisibleFlag(!perclick);
  lgPerclick->SetVisibleFlag(perclick);
  if (!perclick)
    return;
  AddGridColumns(*PerclickPriceGridView, perclickPriceColumns_);
  AddGridColumns(*PerclickInfoGridView, perclickInfoColumns_);
}

void TQuorPriceFrame::AddGridColumns(TcxGridTableView& view,
                                     const std::vector<Columninfo::TColumnInfo>& columns) {
  view.BeginUpdate();
  view.ClearColumns();
  for (const auto& column : columns)
    view.CreateColumn(column.ID, column.Width, column.RightAligned);
  view.EndUpdate();
}

void TQuorPriceFrame::BindForm() {
  connect(edtSymbol, &TcxPopupEdit::Exited, this, &TQuorPriceFrame::edtSymbolExit);
  connect(edtSymbol, &TcxPopupEdit::KeyDown, this, &TQuorPriceFrame::edtSymbolKeyDown);
  connect(edtSymbol, &TcxPopupEdit::KeyPress, this, &TQuorPriceFrame::edtSymbolKeyPress);
  connect(cmbWarrant, &TcxComboBox::currentIndexChanged, this,
          &TQuorPriceFrame::cmbWarrantPropertiesChange);
  connect(cmbRelated, &TcxComboBox::currentIndexChanged, this,
          &TQuorPriceFrame::cmbRelatedPropertiesChange);
  connect(mBrokerName, &TdxBarButton::triggered, this, &TQuorPriceFrame::mBrokerNameClick);
  connect(mDetail, &TdxBarButton::triggered, this, &TQuorPriceFrame::mDetailClick);
  for (const auto* button : btnQty)
    connect(button, &TcxButton::clicked, this, [this, button] { btnQtyClick(button); });

  connect(PriceGrid, &TcxGrid::Resized, this, &TQuorPriceFrame::PriceGridResize);
  connect(PriceGridView, &TcxGridTableView::MouseMove, this,
          &TQuorPriceFrame::PriceGridViewMouseMove);
  BindClick(*PriceGridView, &TQuorPriceFrame::PriceGridViewCellClick);
  BindClick(*PerclickPriceGridView, &TQuorPriceFrame::PerclickPriceGridViewCellClick);
  BindClick(*PerclickInfoGridView, &TQuorPriceFrame::PerclickInfoGridViewCellClick);

  PriceGridView->SetPopupMenu(PopUpMenu);
  PriceGridView->OnCustomDrawCell = [this](TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                           bool& done) {
    PriceGridViewCustomDrawCell(canvas, cell.Record, cell.Column->Tag, done);
  };
  PerclickPriceGridView->OnCustomDrawCell = [this](TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                                   bool& done) {
    PerclickPriceGridViewCustomDrawCell(canvas, cell.Record, cell.Column->Tag, done);
  };
  PerclickInfoGridView->OnCustomDrawCell = [this](TcxCanvas& canvas, const TcxCellViewInfo& cell,
                                                  bool& done) {
    PerclickInfoGridViewCustomDrawCell(canvas, cell.Record, cell.Column->Tag, done);
  };
  PerclickInfoGridView->OnGetCellHeight = [this](int record, int& height) {
    PerclickInfoGridViewGetCellHeight(record, height);
  };
}

void TQuorPriceFrame::BindClick(TcxGridTableView& view,
                                void (TQuorPriceFrame::*handler)(int column)) {
  connect(&view, &TcxGridTableView::CellClick, this,
          [this, handler](const TcxGridColumn* column, Qt::MouseButton button) {
            // The other buttons are for menus: they must not send an order.
            if (button == Qt::LeftButton)
              (this->*handler)(column->Tag);
          });
}

void TQuorPriceFrame::CreatePriceControl() {
  auto control = std::make_unique<TCustomQuorMarketDataControl>(this);
  priceControl_ = control.get();
  priceSource_ = std::make_unique<TGridDataSource>(std::move(control));
  PriceGridView->SetDataSource(priceSource_.get());

  priceControl_->OnFreeTextChange = Handler(&TQuorPriceFrame::SymbolMessageUpdate);
  priceControl_->OnRelatedChange = Handler(&TQuorPriceFrame::SymbolRelatedUpdate);
  priceControl_->OnField22Known = Handler(&TQuorPriceFrame::SymbolProductTypeUpdate);
  priceControl_->OnCountChange = Handler(&TQuorPriceFrame::HandleRowChanged);
  priceControl_->OnChange = Handler(&TQuorPriceFrame::HandleRefresh);
  priceControl_->SetShowBrokerName(false);

  if (HasVendorModel())
    priceControl_->SetShowBrokerQueue(!IsDelayedFeed());
  if (!priceControl_->ShowBrokerQueue())
    mBrokerName->setVisible(false);
}

void TQuorPriceFrame::CreatePerclickControls() {
  if (!IsPerclickFeed())
    return;
  auto price = std::make_unique<TPerclickQuorMarketDataControl>(this);
  perclickPriceControl_ = price.get();
  perclickPriceSource_ = std::make_unique<TGridDataSource>(std::move(price));
  PerclickPriceGridView->SetDataSource(perclickPriceSource_.get());
  perclickPriceControl_->OnRelatedChange = Handler(&TQuorPriceFrame::UpdateLastPrice);

  auto info = std::make_unique<TPerclickQuorInfoMarketDataControl>(this);
  perclickInfoControl_ = info.get();
  perclickInfoSource_ = std::make_unique<TGridDataSource>(std::move(info));
  PerclickInfoGridView->SetDataSource(perclickInfoSource_.get());
}

void TQuorPriceFrame::RegisterWithHost() {
  TEditorManager::GetInstance()->RegisterSymbolEditor(edtSymbol, groupID_, true, true);
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Subscribe(Constdef::Channel_CopyOrder, Handler(&TQuorPriceFrame::CopyPrice), this);
  TCustomTimerControl::GetInstance()->Register(this, Handler(&TQuorPriceFrame::ShowHintTimer));
  channels->RegisterCopySymbol(Handler(&TQuorPriceFrame::UpdateCopySymbol), this);
  TCustomConfigManager::GetInstance()->RegisterListener(Handler(&TQuorPriceFrame::ConfigUpdate),
                                                        this);
}

void TQuorPriceFrame::UnregisterFromHost() {
  TCustomTimerControl::GetInstance()->Unregister(this);
  TEditorManager::GetInstance()->RemoveSymbolEditor(edtSymbol);
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  channels->Unsubscribe(Constdef::Channel_CopyOrder, this);
  channels->UnregisterCopySymbol(this);
  if (!groupID_.empty())
    channels->LeaveGroup(groupID_, this);
  TCustomConfigManager::GetInstance()->UnregisterListener(this);
  for (const int message : {Constdef::Channel_LayoutLoaded, Constdef::Channel_MainFormShown,
                            Constdef::Channel_ScaleChanged})
    channels->Unsubscribe(message, this);
}

void TQuorPriceFrame::SetSymbol(const std::string& symbol) {
  if (symbol == symbol_ || !priceControl_)
    return;
  hintRow_ = -1;
  symbol_ = symbol;
  priceControl_->SetSymbol(symbol);
  if (perclickPriceControl_)
    perclickPriceControl_->SetSymbol(symbol);
  if (perclickInfoControl_)
    perclickInfoControl_->SetSymbol(symbol);
  Baseview::SendViewNotify(this, Constdef::Notify_SymbolChanged);
  SymbolMessageUpdate(this);
  SymbolRelatedUpdate(this);
  SymbolProductTypeUpdate(this);
}

bool TQuorPriceFrame::SetGroupID(const std::string& group) {
  if (group == groupID_)
    return true;
  auto* channels = TCustomGlobalChannelManager::GetInstance();
  if (!groupID_.empty())
    channels->LeaveGroup(groupID_, this);
  groupID_ = group;
  TEditorManager::GetInstance()->RegisterSymbolEditor(edtSymbol, groupID_, true, true);
  if (!groupID_.empty())
    channels->JoinGroup(groupID_, Handler(&TQuorPriceFrame::UpdateCopySymbol), this);
  priceControl_->GroupID = groupID_;
  if (perclickPriceControl_)
    perclickPriceControl_->GroupID = groupID_;
  if (perclickInfoControl_)
    perclickInfoControl_->GroupID = groupID_;
  return true;
}

bool TQuorPriceFrame::ExecuteShortcutAction(int action) {
  if (action == 0)
    Baseview::SendViewNotify(this, Constdef::Notify_Shortcut);
  return true;
}

std::string TQuorPriceFrame::AppliedSymbol() const { return edtSymbol->Hint().toStdString(); }

void TQuorPriceFrame::EnterSymbol(const std::string& symbol) {
  edtSymbol->setText(QString::fromStdString(symbol));
  edtSymbol->PerformExit();
}

void TQuorPriceFrame::edtSymbolExit() { SetSymbol(AppliedSymbol()); }

void TQuorPriceFrame::edtSymbolKeyDown(int key) {
  if (key == TcxPopupEdit::EnterKey)
    edtSymbolExit();
}

void TQuorPriceFrame::edtSymbolKeyPress(int character) {
  if (character == TcxPopupEdit::EnterKey)
    edtSymbol->selectAll();
}

void TQuorPriceFrame::HandleRefresh(TObject*) { refreshPending_ = true; }

void TQuorPriceFrame::RefreshTimer() {
  if (!refreshPending_)
    return;
  refreshPending_ = false;
  PriceGridView->Refresh();
}

void TQuorPriceFrame::MeasureWhenReady() {
  if (!TCustomConfigManager::GetInstance()->IsLayoutReady())
    return;
  DetectRowHeight();
  ResetSize();
  Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
}

void TQuorPriceFrame::LoadLayoutComp(TObject*, TObject*) { MeasureWhenReady(); }

void TQuorPriceFrame::MainFormShow(TObject*, TObject*) { MeasureWhenReady(); }

} // namespace Quorpriceview
