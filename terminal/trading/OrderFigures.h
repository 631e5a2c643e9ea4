#pragma once

#include "data/Orders.h"

#include <QString>

#include <optional>

namespace Terminal {

class TServices;

/// A price in currency units, with the decimals of the symbol's spread table.
QString PriceText(TServices& services, const std::string& symbol, double price);

/// Prices and quantities of orders as order entry and the blotter read, step and show them.
class TOrderFigures {
public:
  /// The services outlive the figures.
  explicit TOrderFigures(TServices& services) : services_(services) {}

  /// A price above zero of no more than three decimals; nothing for any other text.
  static std::optional<Data::TPrice> ParsePrice(const QString& text);
  /// A whole number above zero, in groups of three or not; nothing for any other text.
  static std::optional<Data::TQuantity> ParseQuantity(const QString& text);

  /// With the decimals of the symbol's spread table.
  QString PriceText(const std::string& symbol, Data::TPrice price) const;
  QString QuantityText(Data::TQuantity quantity) const;
  /// What `quantity` costs at `price`, with the symbol's currency.
  QString AmountText(const std::string& symbol, Data::TPrice price, Data::TQuantity quantity) const;

  /// `price` moved by steps of the symbol's spread table, negative ones down. A price beside the
  /// table's moves to the next one there first. Unchanged without a table and beyond its ends.
  Data::TPrice StepPrice(const std::string& symbol, Data::TPrice price, int steps) const;
  /// `quantity` moved by board lots, to a whole number of them and one at least; by single shares
  /// where the board lot is not known.
  Data::TQuantity StepQuantity(const std::string& symbol, Data::TQuantity quantity,
                               int steps) const;
  /// Where a price is stepped from first: nominal, or else bid or ask; nothing without any.
  std::optional<Data::TPrice> PresentPrice(const std::string& symbol) const;

private:
  TServices& services_;
};

} // namespace Terminal
