#include "model/RecordText.h"

#include "host/BaseFormatter.h"
#include "host/ConstDef.h"
#include "host/ICommon.h"

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;
using Icommon::TCustomMarketDataFormatter;

bool IsReady(const TCustomSubItem* record) {
  return record && record->GetState() == Constdef::RecordState_Ready;
}

std::string_view TextOf(const TCustomSubItem* record, int field) {
  return record ? record->GetText(field) : std::string_view();
}

std::string PriceText(const TCustomSubItem* record, int field) {
  std::string text;
  if (!IsReady(record) ||
      !TCustomMarketDataFormatter::GetInstance()->FormatPrice(*record, field, text))
    return {};
  return text;
}

std::string VolumeText(const TCustomSubItem* record, int field) {
  std::string text;
  if (!IsReady(record) ||
      !TCustomMarketDataFormatter::GetInstance()->FormatVolume(*record, field, text))
    return {};
  return text;
}

std::string QuantityText(const TCustomSubItem* record, int field) {
  if (TextOf(record, field).empty())
    return {};
  return TCustomFormatter::GetInstance()->FormatQuantity(record->GetNumber(field));
}

} // namespace Quorpricedatacontrol
