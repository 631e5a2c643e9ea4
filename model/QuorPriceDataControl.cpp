#include "model/QuorPriceDataControl.h"

#include "host/BaseConfigManager.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseMarketAdapter.h"
#include "host/BaseSubscribeAdapter.h"
#include "host/MarketTradeSideDetector.h"
#include "model/ResourceText.h"
#include "text/Numbers.h"

namespace Quorpricedatacontrol {

using Baseconfigmanager::TCustomConfigManager;
using Baseglobalchannelmanager::TCustomGlobalChannelManager;
using Basemarketadapter::TChangedKeys;
using Basemarketadapter::TCustomMarketAdapter;
using Basesubscribeadapter::TCustomSubscribeAdapter;
using Markettradesidedetector::TMarketTradeSideDetector;

namespace {

constexpr int UnknownProductType = -1;

TConcealedExchanges ReadConcealedExchanges() {
  auto* config = TCustomConfigManager::GetInstance();
  return ParseConcealedExchanges(
      config->ReadString(config->CurrentSection(), Constdef::Key_ConcealedExchanges));
}

TCopyPriceQtyMode ReadCopyPriceQtyMode() {
  auto* config = TCustomConfigManager::GetInstance();
  const std::string style =
      config->ReadString(config->CurrentSection(), Constdef::Key_CopyPriceStyle);
  switch (style.empty() ? ' ' : style.front()) {
  case 'n':
  case 'N':
    return cpqmNone;
  case 'l':
  case 'L':
    return cpqmOneLot;
  case 's':
  case 'S':
    return cpqmSummary;
  default:
    return cpqmDefault;
  }
}

/// The part of a trade that a column shows in the header rows; null for a column that shows none.
std::string TTradeInfo::*TradePartOf(int column) {
  switch (column) {
  case Column::BidPrice:
    return &TTradeInfo::Time;
  case Column::AskPrice:
    return &TTradeInfo::Price;
  case Column::AskSize:
    return &TTradeInfo::Quantity;
  default:
    return nullptr;
  }
}

} // namespace

TCustomQuorMarketDataControl::TCustomQuorMarketDataControl(System::TObject* owner)
    : TCustomDataControl(owner), concealedExchanges_(ReadConcealedExchanges()) {
  UpdateCellHeaderList();
  RegisterListeners();
  TCustomQuorMarketDataControl::ConfigUpdate(this, nullptr);
}

TCustomQuorMarketDataControl::~TCustomQuorMarketDataControl() {
  // Before the fields go: no notification may find half a control.
  TCustomConfigManager::GetInstance()->UnregisterListener(this);
  TCustomGlobalChannelManager::GetInstance()->Unsubscribe(Constdef::Channel_BeginningOfDay, this);
  ReleaseRecord();
  detailControl_.reset();
  if (!symbol_.empty())
    TMarketTradeSideDetector::GetInstance()->RemoveSymbol(symbol_);
  TCustomMarketAdapter::GetInstance()->UnregisterBrokerListener(this);
  TCustomMarketAdapter::GetInstance()->UnregisterSpreadListener(this);
}

void TCustomQuorMarketDataControl::RegisterListeners() {
  TCustomMarketAdapter::GetInstance()->RegisterBrokerListener(
      [this](System::TObject* sender, System::TObject* data) { BrokerDataUpdate(sender, data); },
      this);
  TCustomMarketAdapter::GetInstance()->RegisterSpreadListener(
      [this](System::TObject* sender, System::TObject* data) { SpreadUpdate(sender, data); }, this);
  TCustomGlobalChannelManager::GetInstance()->Subscribe(
      Constdef::Channel_BeginningOfDay,
      [this](System::TObject* sender, System::TObject* data) { BODDataUpdate(sender, data); },
      this);
}

void TCustomQuorMarketDataControl::SetSymbol(std::string symbol) {
  if (symbol == symbol_)
    return;
  ReleaseRecord();
  auto* trades = TMarketTradeSideDetector::GetInstance();
  if (!symbol_.empty())
    trades->RemoveSymbol(symbol_);
  symbol_ = std::move(symbol);
  if (!symbol_.empty())
    trades->AddSymbol(symbol_);
  ForgetSymbol();
  SubscribeRecord();
  if (IsReady(record_))
    ReadField22();
  UpdateSymbolHeader();
  UpdateFreeText();
  UpdateRelated();
  if (IsReady(record_)) {
    DetectMarketDataType();
    UpdateBrokerQueueList();
  }
  Changed();
}

void TCustomQuorMarketDataControl::ReleaseRecord() {
  if (!record_)
    return;
  record_->RemoveRealtimeListener(this);
  TCustomSubscribeAdapter::GetInstance()->Unsubscribe(record_);
  record_ = nullptr;
}

void TCustomQuorMarketDataControl::ForgetSymbol() {
  headerReady_ = false;
  marketDataType_ = mdtUnknown;
  messages_ = {};
  related_ = {};
  mechanisms_ = {};
  field22Value_ = UnknownProductType;
  queue_.Update({}, {});
}

void TCustomQuorMarketDataControl::SubscribeRecord() {
  record_ =
      TCustomSubscribeAdapter::GetInstance()->Subscribe(symbol_, Constdef::DataSet_Prices, true);
  if (record_)
    record_->AddRealtimeListener([this](System::TObject* sender) { SymbolRealtimeUpdate(sender); },
                                 this);
}

void TCustomQuorMarketDataControl::SetDisplayMode(TQuorMode mode) {
  if (mode == displayMode_)
    return;
  displayMode_ = mode;
  if (IsReady(record_)) {
    headerReady_ = false;
    UpdateSymbolHeader();
  }
  Changed();
}

void TCustomQuorMarketDataControl::SetShowBrokerName(bool value) {
  if (value == ShowBrokerName())
    return;
  brokerStyle_ = Inverse(brokerStyle_);
  Changed();
}

int TCustomQuorMarketDataControl::GetState() const {
  return record_ ? record_->GetState() : Constdef::RecordState_None;
}

// Updates

void TCustomQuorMarketDataControl::ConfigUpdate(System::TObject* sender, System::TObject* data) {
  TCustomDataControl::ConfigUpdate(sender, data);
  copyPriceQtyMode_ = ReadCopyPriceQtyMode();
  auto* config = TCustomConfigManager::GetInstance();
  const int mode = config->ReadInteger(config->CurrentSection(), Constdef::Key_DenominatorMode);
  if (mode == denominatorMode_)
    return;
  denominatorMode_ = mode;
  Changed();
}

void TCustomQuorMarketDataControl::UpdateLanguage() {
  UpdateCellHeaderList();
  RebuildMechanisms();
}

void TCustomQuorMarketDataControl::SymbolUpdate(System::TObject*, System::TObject* data) {
  const auto* symbols = dynamic_cast<const TChangedKeys*>(data);
  if (symbols && symbols->Contains(symbol_))
    UpdateSymbolMessage();
}

void TCustomQuorMarketDataControl::SpreadUpdate(System::TObject*, System::TObject* data) {
  const auto* codes = dynamic_cast<const TChangedKeys*>(data);
  if (!codes || !record_ || !codes->Contains(record_->GetText(Field::SpreadCode)))
    return;
  Changed();
  RebuildMechanisms();
}

void TCustomQuorMarketDataControl::BODDataUpdate(System::TObject*, System::TObject*) {
  if (!IsReady(record_))
    return;
  headerReady_ = false;
  UpdateSymbolHeader();
  Changed();
}

void TCustomQuorMarketDataControl::BrokerDataUpdate(System::TObject*, System::TObject*) {
  if (ShowBrokerName())
    Changed();
}

void TCustomQuorMarketDataControl::UpdateSymbolMessage() {
  if (!record_ || !OnChange)
    return;
  DetectMarketDataType();
  UpdateSymbolHeader();
  UpdateBrokerQueueList();
  Changed();
  if (IsReady(record_) && field22Value_ == UnknownProductType) {
    ReadField22();
    if (OnField22Known)
      OnField22Known(this);
  }
  UpdateFreeText();
  UpdateRelated();
}

void TCustomQuorMarketDataControl::DetectMarketDataType() {
  if (marketDataType_ == mdtUnknown)
    marketDataType_ = Quorpricedatacontrol::DetectMarketDataType(*record_);
}

void TCustomQuorMarketDataControl::ReadField22() {
  field22Value_ =
      Text::ParseInteger(record_->GetText(Field::ProductType)).value_or(UnknownProductType);
}

void TCustomQuorMarketDataControl::UpdateSymbolHeader() {
  if (headerReady_ || !IsReady(record_))
    return;
  headerReady_ = true;
  const int rowCountBefore = RowCount();
  header_.SetHeaderAttribute(record_);
  AppendDetailRows();
  UpdateCellHeaderList();
  if (RowCount() != rowCountBefore && OnCountChange)
    OnCountChange(this);
}

void TCustomQuorMarketDataControl::AppendDetailRows() {
  if (displayMode_ != qm10Full || header_.Count() >= RowCount())
    return;
  if (!detailControl_)
    MakeDetailControl();
  detailControl_->SetSymbol(std::string(record_->Symbol()));
  header_.AppendDetail(*detailControl_, RowCount());
}

void TCustomQuorMarketDataControl::MakeDetailControl() {
  detailControl_ = std::make_unique<TCustomQuorDetailDataControl>(this, TIssueSizeStyle::Amount);
  detailControl_->OnUnderlyingChange = [this] {
    if (DetailInUse())
      Changed();
  };
}

const TCustomQuorDetailDataControl* TCustomQuorMarketDataControl::DetailInUse() const {
  return displayMode_ == qm10Full ? detailControl_.get() : nullptr;
}

void TCustomQuorMarketDataControl::UpdateBrokerQueueList() {
  const TCustomSubItem* record = IsReady(record_) ? record_ : nullptr;
  queue_.Update(TextOf(record, Field::BidQueue), TextOf(record, Field::AskQueue));
}

void TCustomQuorMarketDataControl::UpdateFreeText() {
  if (!OnFreeTextChange)
    return;
  const bool messagesChanged = messages_.Update(record_, concealedExchanges_);
  const bool mechanismsChanged = mechanisms_.Update(record_);
  if (messagesChanged || mechanismsChanged)
    OnFreeTextChange(this);
}

void TCustomQuorMarketDataControl::RebuildMechanisms() {
  if (!mechanisms_.AnyInForce())
    return;
  mechanisms_ = {};
  UpdateFreeText();
}

void TCustomQuorMarketDataControl::UpdateRelated() {
  if (!OnRelatedChange)
    return;
  const TCustomSubItem* record = IsReady(record_) ? record_ : nullptr;
  const auto warrants = TextOf(record, Field::WarrantList);
  const auto related = TextOf(record, Field::RelatedList);
  const auto providers = TextOf(record, Field::LiquidityProviderList);
  if (warrants == related_.Warrants && related == related_.Related &&
      providers == related_.LiquidityProviders)
    return;
  related_ = {std::string(warrants), std::string(related), std::string(providers)};
  OnRelatedChange(this);
}

// Cells

std::string TCustomQuorMarketDataControl::GetDisplayValue(int row, int column) const {
  if (row < 0 || row >= RowCount())
    return {};
  if (const auto part = TradePartOf(column); part && displayMode_ != qm10Simple)
    if (TTradeInfo trade = GetTradeInfo(row); trade.Found)
      return std::move(trade.*part);
  if (const auto depthColumn = DepthColumnOf(column))
    return GetDepthValue(row, *depthColumn);
  switch (column) {
  case Column::HeaderCaption:
    return GetCellHeader(row);
  case Column::HeaderValue:
    return GetCellHeaderValue(row);
  default:
    return showBrokerQueue_ ? GetQueueCell(row, column) : std::string();
  }
}

std::string TCustomQuorMarketDataControl::GetDepthValue(int row, TDepthColumn column) const {
  return column.Figure == TDepthColumn::Price ? GetPriceValue(row, column.Side)
                                              : GetSizeValue(row, column.Side);
}

std::string TCustomQuorMarketDataControl::GetPriceValue(int row, int side) const {
  const TDepthRow depthRow = ShownDepthRowAt(displayMode_, row);
  switch (depthRow.Content) {
  case TDepthRow::BestPrice:
    return GetBestPrice(side);
  case TDepthRow::PriceStep:
    return GetBestPriceSpread(side);
  case TDepthRow::Level:
    return GetDetailPrice(depthRow.LevelIndex, side);
  default:
    return {};
  }
}

std::string TCustomQuorMarketDataControl::GetSizeValue(int row, int side) const {
  const TDepthRow depthRow = ShownDepthRowAt(displayMode_, row);
  if (!FieldsOf(side) || depthRow.Content == TDepthRow::Nothing)
    return {};
  if (depthRow.Content != TDepthRow::Level)
    return SizeLabel(depthRow.Content, side);
  std::string size = LevelSizeText(record_, depthRow.LevelIndex, side);
  // The simple layout shows an empty level's zero as it stands.
  return displayMode_ != qm10Simple && size == "0" ? std::string() : size;
}

std::string TCustomQuorMarketDataControl::GetDetailPrice(int level, int side) const {
  return LevelPriceText(record_, marketDataType_, level, side);
}

std::string TCustomQuorMarketDataControl::GetCellHeaderValue(int row) const {
  const int field = header_.Attribute(row);
  if (field < 0 || !IsReady(record_))
    return {};
  if (const auto* detail = DetailInUse(); detail && row >= header_.OwnCount())
    return detail->GetDisplayText(field);
  return GetCellHeaderDisplayData(field);
}

std::string TCustomQuorMarketDataControl::GetCellHeaderDisplayData(int field) const {
  return HeaderValueText(record_, field);
}

// Broker queue

std::string TCustomQuorMarketDataControl::GetQueueBroker(int index, int side) const {
  return queue_.Text(index, side, brokerStyle_);
}

std::string TCustomQuorMarketDataControl::GetQueueCell(int row, int column) const {
  if (row > 0)
    return QueueText(row, column, brokerStyle_);
  if (column == Column::BidQueue1)
    return ResourceText("Res_QuorPrice_Buy");
  return column == Column::AskQueue1 ? ResourceText("Res_QuorPrice_Sell") : std::string();
}

std::string TCustomQuorMarketDataControl::QueueText(int row, int column, TBrokerStyle style) const {
  const auto place = QueueColumnOf(column);
  return place ? queue_.Text(QueueIndex(*place, row, RowCount()), place->Side, style)
               : std::string();
}

bool TCustomQuorMarketDataControl::GetIsBrokerQueueHeader(int column, int row) const {
  if (row == 0)
    return column == Column::BidQueue1 || column == Column::AskQueue1;
  const auto place = QueueColumnOf(column);
  return place && queue_.IsLevelMarker(QueueIndex(*place, row, RowCount()), place->Side);
}

std::string TCustomQuorMarketDataControl::GetBrokerName(int row, int column) const {
  return QueueText(row, column, Inverse(brokerStyle_));
}

bool TCustomQuorMarketDataControl::GetBrokerID(int row, int column, std::string& id) const {
  id = QueueText(row, column, TBrokerStyle::ID);
  return !id.empty();
}

// Copies to order entry

TCopiedOrder& TCustomQuorMarketDataControl::StartOrder() {
  order_.Start(symbol_);
  return order_;
}

void TCustomQuorMarketDataControl::CopyPrice(int row, int column) {
  const int field = column == Column::HeaderValue ? header_.Attribute(row)
                                                  : DepthCellField(displayMode_, row, column);
  if (!record_ || field < 0)
    return;
  StartOrder().FillFromField(CopySource(), field, column);
  SendOrder();
}

void TCustomQuorMarketDataControl::CopyQty(int quantity) {
  if (symbol_.empty())
    return;
  StartOrder().SetQuantity(quantity);
  SendOrder();
}

double TCustomQuorMarketDataControl::GetCopyPriceQty(int field) const {
  return CopyPriceQuantity(record_, copyPriceQtyMode_, field);
}

} // namespace Quorpricedatacontrol
