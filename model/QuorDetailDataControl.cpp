#include "model/QuorDetailDataControl.h"

#include "host/BaseSubscribeAdapter.h"
#include "host/ConstDef.h"
#include "text/Strings.h"

namespace Quorpricedatacontrol {

using Basesubscribeadapter::TCustomSubscribeAdapter;

TCustomQuorDetailDataControl::TCustomQuorDetailDataControl(System::TObject* owner,
                                                           TIssueSizeStyle issueSizeStyle)
    : TCustomDataControl(owner) {
  instrument_.IssueSizeStyle = issueSizeStyle;
}

TCustomQuorDetailDataControl::~TCustomQuorDetailDataControl() { ReleaseRecords(); }

void TCustomQuorDetailDataControl::SetSymbol(std::string symbol) {
  if (symbol == symbol_)
    return;
  ReleaseRecords();
  symbol_ = std::move(symbol);
  instrument_.Record = Subscribe(symbol_);
  if (IsReady(instrument_.Record))
    // A copy: subscribing may update the record.
    if (const std::string underlying(Text::Trim(instrument_.Record->GetText(Field::Underlying)));
        !underlying.empty())
      instrument_.Underlying = Subscribe(underlying);
  InitDataList();
  Changed();
}

void TCustomQuorDetailDataControl::InitDataList() {
  instrument_.Update();
  fields_ = DetailFieldsOf(instrument_.Kind);
  UpdateCaptions();
}

TCustomSubItem* TCustomQuorDetailDataControl::Subscribe(std::string_view symbol) {
  auto* adapter = TCustomSubscribeAdapter::GetInstance();
  TCustomSubItem* record = adapter->Subscribe(symbol, Constdef::DataSet_Prices, true);
  if (record)
    adapter->SetUpdateHandler(
        record,
        [this](System::TObject* sender, System::TObject* data) { SymbolUpdate(sender, data); },
        this);
  return record;
}

void TCustomQuorDetailDataControl::ReleaseRecords() {
  for (TCustomSubItem* record : {instrument_.Record, instrument_.Underlying})
    if (record)
      TCustomSubscribeAdapter::GetInstance()->Release(record, this);
  instrument_.Record = nullptr;
  instrument_.Underlying = nullptr;
}

void TCustomQuorDetailDataControl::UpdateCaptions() {
  captions_.clear();
  for (const int field : fields_)
    captions_.push_back(GetHeader(field));
}

void TCustomQuorDetailDataControl::UpdateLanguage() {
  UpdateCaptions();
  Changed();
}

void TCustomQuorDetailDataControl::SymbolUpdate(System::TObject*, System::TObject* data) {
  if (data && (data == instrument_.Record || data == instrument_.Underlying))
    Changed();
  if (data && data == instrument_.Underlying && OnUnderlyingChange)
    OnUnderlyingChange();
}

std::string TCustomQuorDetailDataControl::GetDisplayValue(int row, int column) const {
  if (row < 0 || row >= GetCount())
    return {};
  switch (column) {
  case DetailColumn::Label:
    return captions_[static_cast<std::size_t>(row)];
  case DetailColumn::Value:
    return GetDisplayText(fields_[static_cast<std::size_t>(row)]);
  default:
    return {};
  }
}

} // namespace Quorpricedatacontrol
