#include "terminal/trading/OrderFigures.h"

#include "host/ConstDef.h"
#include "host/RecordFields.h"
#include "terminal/services/Services.h"
#include "text/Numbers.h"

#include <cmath>

namespace Terminal {

using namespace Data;

namespace {

constexpr double HighestNumber = 1e12; ///< beyond it thousandths would not be exact

std::optional<double> ParsePositive(QString text) {
  const auto number = Text::ParseNumber(text.remove(u',').toStdString());
  return number && *number > 0 && *number < HighestNumber ? number : std::nullopt;
}

TPrice Thousandths(double price) { return std::llround(price * PriceUnit); }

} // namespace

QString PriceText(TServices& services, const std::string& symbol, double price) {
  constexpr int everyDecimal = 0;
  return QString::fromStdString(services.Formatter.FormatPrice(symbol, everyDecimal, price));
}

std::optional<TPrice> TOrderFigures::ParsePrice(const QString& text) {
  const auto number = ParsePositive(text);
  if (!number)
    return {};
  const TPrice price = Thousandths(*number);
  const bool isExact = std::abs(*number * PriceUnit - static_cast<double>(price)) < 1e-6;
  return isExact && price > 0 ? std::optional(price) : std::nullopt;
}

std::optional<TQuantity> TOrderFigures::ParseQuantity(const QString& text) {
  const auto number = ParsePositive(text);
  return number && *number == std::floor(*number) ? std::optional(std::llround(*number))
                                                  : std::nullopt;
}

QString TOrderFigures::PriceText(const std::string& symbol, TPrice price) const {
  return Terminal::PriceText(services_, symbol, ToUnits(price));
}

QString TOrderFigures::QuantityText(TQuantity quantity) const {
  return QString::fromStdString(services_.Formatter.FormatQuantity(static_cast<double>(quantity)));
}

QString TOrderFigures::AmountText(const std::string& symbol, TPrice price,
                                  TQuantity quantity) const {
  const double amount = ToUnits(price) * static_cast<double>(quantity);
  const auto text = QString::fromStdString(services_.Formatter.FormatNumber(amount, 1));
  const auto* instrument = services_.Market.GetInstrument(symbol);
  const auto currency = instrument ? std::string(instrument->Currency()) : std::string();
  return (QString::fromStdString(currency) + u' ' + text).trimmed();
}

TPrice TOrderFigures::StepPrice(const std::string& symbol, TPrice price, int steps) const {
  const auto* record = services_.Subscriptions.Find(symbol);
  const auto* table =
      record ? services_.Market.GetSpreadTable(record->GetText(Host::Field::SpreadCode)) : nullptr;
  const TPrice step = table && table->State() == Constdef::SpreadState_Ready
                          ? Thousandths(table->PriceStep(ToUnits(price)))
                          : 0;
  if (step == 0)
    return price;
  const TPrice beside = price % step;
  const TPrice from = beside == 0 || steps > 0 ? price - beside : price - beside + step;
  const TPrice moved = Thousandths(table->PriceStepsAway(ToUnits(from), steps));
  return moved > 0 ? moved : price;
}

TQuantity TOrderFigures::StepQuantity(const std::string& symbol, TQuantity quantity,
                                      int steps) const {
  const auto* record = services_.Subscriptions.Find(symbol);
  const TQuantity lot =
      std::max<TQuantity>(1, record ? std::llround(record->GetNumber(Host::Field::BoardLot)) : 0);
  const TQuantity beside = quantity % lot;
  const TQuantity from = beside == 0 || steps > 0 ? quantity - beside : quantity - beside + lot;
  return std::max(lot, from + steps * lot);
}

std::optional<TPrice> TOrderFigures::PresentPrice(const std::string& symbol) const {
  if (const auto* record = services_.Subscriptions.Find(symbol))
    for (const int field :
         {Host::Field::Nominal, Host::Field::Bid.Price[0], Host::Field::Ask.Price[0]})
      if (const double price = record->GetNumber(field); price > 0)
        return Thousandths(price);
  return {};
}

} // namespace Terminal
