#include "model/InstrumentFigures.h"

#include "model/QuorTypes.h"
#include "text/Strings.h"

#include <cmath>

namespace Quorpricedatacontrol {

namespace {

constexpr double SmallestNumber = 0.0000001;
constexpr int CBBCMarkPosition = 2;
constexpr int CategoryPosition = 8;

/// First byte of the character at a position counted in characters; 0 beyond the end.
char CharacterAt(std::string_view text, int position) {
  for (const char c : text)
    if (!Text::IsContinuation(c) && position-- == 0)
      return c;
  return 0;
}

/// True when the first "#" stands at the mark's position.
bool IsMarkedCBBC(std::string_view name) {
  return CharacterAt(name.substr(0, name.find('#') + 1), CBBCMarkPosition) == '#';
}

} // namespace

bool IsZero(double number) { return std::abs(number) < SmallestNumber; }

TCBBCMark DetectCBBCWarrant(const TCustomSubItem* record) {
  const auto name = IsReady(record) ? record->GetText(Field::Name) : std::string_view();
  if (!IsMarkedCBBC(name))
    return {};
  switch (CharacterAt(name, CategoryPosition)) {
  case 'r':
  case 'R':
    return {true, "R"};
  case 'n':
  case 'N':
    return {true, "N"};
  default:
    return {true, {}};
  }
}

TCallPutFlag GetCallPutFlag(const TCustomSubItem* record) {
  constexpr std::string_view calls = "16C", puts = "27P";
  const auto text = TextOf(record, Field::CallPut);
  if (text.empty())
    return cpfUnknown;
  if (calls.find(text.front()) != std::string_view::npos)
    return cpfCall;
  return puts.find(text.front()) != std::string_view::npos ? cpfPut : cpfUnknown;
}

double GetPrice(const TCustomSubItem* record) {
  const auto status = TextOf(record, Field::Status);
  if (!IsReady(record) || status == "0" || status == "-1")
    return 0;
  if (const double nominal = record->GetNumber(Field::Nominal); !IsZero(nominal))
    return nominal;
  const double bid = record->GetNumber(Field::BestBid), ask = record->GetNumber(Field::BestAsk);
  if (const double middle = (bid + ask) / 2; !IsZero(bid) && !IsZero(ask) && !IsZero(middle))
    return middle;
  return record->GetNumber(Field::PreviousClose);
}

double GetGearing(const TCustomSubItem* record, const TCustomSubItem* underlying) {
  if (!record || !underlying)
    return 0;
  const double price = GetPrice(record), underlyingPrice = GetPrice(underlying);
  const double ratio = record->GetNumber(Field::ConversionRatio);
  if (IsZero(price) || IsZero(underlyingPrice) || IsZero(ratio))
    return 0;
  return underlyingPrice / price * ratio;
}

double GetPremium(const TCustomSubItem* record, const TCustomSubItem* underlying) {
  if (!record || !underlying)
    return 0;
  const double price = GetPrice(record), underlyingPrice = GetPrice(underlying);
  const double strike = record->GetNumber(Field::StrikePrice);
  const double ratio = record->GetNumber(Field::ConversionRatio);
  if (IsZero(price) || IsZero(underlyingPrice) || IsZero(strike) || IsZero(ratio))
    return 0;
  switch (GetCallPutFlag(record)) {
  case cpfCall:
    return ((price / ratio + strike) / underlyingPrice - 1) * 100;
  case cpfPut:
    return (1 - (strike - price / ratio) / underlyingPrice) * 100;
  default:
    return 0;
  }
}

double GetMarketCap(const TCustomSubItem* record) {
  return record ? GetPrice(record) * record->GetNumber(Field::IssueSize) : 0;
}

} // namespace Quorpricedatacontrol
