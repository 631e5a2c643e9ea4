#include "model/MarketMechanisms.h"

#include "host/BaseFormatter.h"
#include "model/QuorTypes.h"
#include "model/ResourceText.h"
#include "text/Strings.h"

namespace Quorpricedatacontrol {

using Baseformatter::TCustomFormatter;

namespace {

bool IsMarked(const TCustomSubItem* record, int field) { return TextOf(record, field) == "1"; }

std::string SymbolPriceText(const TCustomSubItem& record, int field) {
  if (record.GetText(field).empty())
    return {};
  return TCustomFormatter::GetInstance()->FormatPrice(record.Symbol(), 0, record.GetNumber(field));
}

std::string_view ImbalanceSign(std::string_view direction) {
  if (direction == "1")
    return "=";
  if (direction == "2")
    return ">";
  return direction == "3" ? "<" : "";
}

/// How the orders to buy compare with those to sell, and by how much; empty without a direction.
std::string ImbalanceText(const TCustomSubItem& record) {
  const auto sign = ImbalanceSign(record.GetText(Field::ImbalanceDirection));
  if (sign.empty())
    return {};
  return ResourceText("Res_Bid_Short")
      .append(sign)
      .append(ResourceText("Res_Side_Sell_Short"))
      .append(": ")
      .append(QuantityText(&record, Field::ImbalanceQuantity));
}

std::string CoolingOffPeriod(const TCustomSubItem& record) {
  return std::string(record.GetText(Field::VcmStartTime))
      .append("-")
      .append(record.GetText(Field::VcmEndTime));
}

void UpdatePos(TMarketMechanisms& state, const TCustomSubItem* record) {
  state.PosMarker = IsMarked(record, Field::PosMarker);
  state.PosInForce = state.PosMarker;
  if (!state.PosMarker)
    return;
  state.PosStateText = ImbalanceText(*record);
  state.PosRefPrice = SymbolPriceText(*record, Field::PosReferencePrice);
  state.PosUpperPrice = SymbolPriceText(*record, Field::PosUpperPrice);
  state.PosLowerPrice = SymbolPriceText(*record, Field::PosLowerPrice);
  state.PosBuyUpperLimit = SymbolPriceText(*record, Field::PosBuyUpperLimit);
  state.PosSellLowerLimit = SymbolPriceText(*record, Field::PosSellLowerLimit);
}

void UpdateVcm(TMarketMechanisms& state, const TCustomSubItem* record) {
  state.VcmMarker = IsMarked(record, Field::VcmMarker);
  if (!state.VcmMarker)
    state.VcmInForce = false;
  if (!state.VcmMarker || record->GetText(Field::VcmReferencePrice).empty())
    return;
  state.VcmInForce = true;
  state.VcmCasStateText = CoolingOffPeriod(*record);
  state.VcmCasRefPrice = SymbolPriceText(*record, Field::VcmReferencePrice);
  state.VcmCasUpperPrice = SymbolPriceText(*record, Field::VcmUpperPrice);
  state.VcmCasLowerPrice = SymbolPriceText(*record, Field::VcmLowerPrice);
}

void UpdateCas(TMarketMechanisms& state, const TCustomSubItem* record) {
  state.CasMarker = IsMarked(record, Field::CasMarker);
  if (!state.CasMarker)
    state.CasInForce = false;
  if (!state.CasMarker || record->GetText(Field::CasReferencePrice).empty())
    return;
  state.CasInForce = true;
  state.VcmCasStateText = ImbalanceText(*record);
  state.VcmCasRefPrice = SymbolPriceText(*record, Field::CasReferencePrice);
  state.VcmCasUpperPrice = SymbolPriceText(*record, Field::CasUpperPrice);
  state.VcmCasLowerPrice = SymbolPriceText(*record, Field::CasLowerPrice);
}

} // namespace

TConcealedExchanges ParseConcealedExchanges(std::string_view value) {
  TConcealedExchanges exchanges;
  if (value.empty())
    return exchanges;
  Text::ForEachPiece(value, [&exchanges](std::string_view piece) {
    std::string code(piece);
    for (char& c : code)
      if (c >= 'a' && c <= 'z')
        c = static_cast<char>(c - 'a' + 'A');
    exchanges.insert(std::move(code));
  });
  return exchanges;
}

bool TSymbolMessages::Update(const TCustomSubItem* record,
                             const TConcealedExchanges& concealedExchanges) {
  TSymbolMessages now;
  now.Concealed = Concealed;
  if (IsReady(record)) {
    now.FreeText1 = record->GetText(Field::FirstMessage);
    now.FreeText2 = record->GetText(Field::SecondMessage);
    if (now.FreeText1.empty() && now.FreeText2.empty())
      now.FreeText1 = record->GetText(Field::OtherMessage);
  } else if (record) {
    now.FreeText1 = record->StatusText();
  }
  if (record && concealedExchanges.contains(record->GetText(Field::Exchange))) {
    now.FreeText1 = ResourceText("Res_InvalidSymbol");
    now.Concealed = true;
  }
  if (now == *this)
    return false;
  *this = std::move(now);
  return true;
}

bool TMarketMechanisms::Update(const TCustomSubItem* record) {
  const TMarketMechanisms before = *this;
  UpdatePos(*this, record);
  UpdateVcm(*this, record);
  UpdateCas(*this, record); // after VCM: where both are in force, its texts are shown
  return *this != before;
}

} // namespace Quorpricedatacontrol
