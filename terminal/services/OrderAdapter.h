#pragma once

#include "host/BaseOrderAdapter.h"

#include <map>
#include <optional>

namespace Terminal {

/// An order prepared for order entry.
class TOrder : public Baseorderdata::TCustomOrder {
public:
  using TValues = std::map<std::string, std::string, std::less<>>;

  void Clear() override;
  void SetSymbol(std::string_view symbol) override { symbol_ = symbol; }
  void SetPrice(double price) override { price_ = price; }
  void SetQuantity(double quantity) override { quantity_ = quantity; }
  void SetValue(std::string_view name, std::string_view value) override;

  const std::string& Symbol() const { return symbol_; }
  std::optional<double> Price() const { return price_; }       ///< nothing when never set
  std::optional<double> Quantity() const { return quantity_; } ///< nothing when never set
  const TValues& Values() const { return values_; }

private:
  std::string symbol_;
  std::optional<double> price_;
  std::optional<double> quantity_;
  TValues values_;
};

/// The order that order entry works on.
class TClientOrder : public Baseorderdata::TCustomClientOrder {
public:
  explicit TClientOrder(std::string symbol) : symbol_(std::move(symbol)) {}
  std::string Symbol() const override { return symbol_; }

private:
  std::string symbol_;
};

/// What a custom view is opened with.
class TViewParameters : public Baseorderdata::TCustomViewParameters {
public:
  void SetSymbol(std::string_view symbol) override { symbol_ = symbol; }
  const std::string& Symbol() const { return symbol_; }

private:
  std::string symbol_;
};

class TOrderAdapter : public Baseorderadapter::TCustomOrderAdapter {
public:
  std::unique_ptr<Baseorderdata::TCustomOrder> NewOrder() override;
  std::unique_ptr<Baseorderdata::TCustomViewParameters> NewViewParameters() override;
};

} // namespace Terminal
