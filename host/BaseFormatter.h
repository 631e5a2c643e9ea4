#pragma once

#include "host/Service.h"

#include <string_view>

namespace Baseformatter {

/// Texts of numbers as the host shows them. Never fails; zero has a text like any number.
class QUOR_EXPORT TCustomFormatter : public Host::TService<TCustomFormatter> {
public:
  ~TCustomFormatter() override;

  /// `flag` 0: a whole number in groups of three. `flag` 1: with two decimals.
  virtual std::string FormatNumber(double value, int flag) = 0;
  /// A quantity in shares.
  virtual std::string FormatQuantity(double value) = 0;
  /// An amount, of money in the symbol's currency or of shares: in full below ten million, larger
  /// ones may be shortened.
  virtual std::string FormatAmount(std::string_view symbol, double value) = 0;
  /// An amount in thousands, millions or billions, with at most `precision` decimals.
  virtual std::string FormatAbbreviatedAmount(double value, int precision) = 0;
  /// A price of `symbol`. `precision` 0: with the decimals of the symbol's price step; otherwise
  /// with as many decimals as the value needs, at most `precision`.
  virtual std::string FormatPrice(std::string_view symbol, int precision, double value) = 0;
};

} // namespace Baseformatter
