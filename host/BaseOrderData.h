#pragma once

#include "host/System.h"

#include <string_view>

namespace Baseorderdata {

/// An order that a view prepares for order entry.
class QUOR_EXPORT TCustomOrder : public System::TObject {
public:
  ~TCustomOrder() override;

  /// Forgets everything that was set.
  virtual void Clear() = 0;
  virtual void SetSymbol(std::string_view symbol) = 0;
  /// In currency units.
  virtual void SetPrice(double price) = 0;
  /// In shares.
  virtual void SetQuantity(double quantity) = 0;
  /// A value by name: Constdef::OrderValue_...
  virtual void SetValue(std::string_view name, std::string_view value) = 0;
};

/// The order that order entry itself is working on.
class QUOR_EXPORT TCustomClientOrder : public System::TObject {
public:
  ~TCustomClientOrder() override;

  virtual std::string Symbol() const = 0;
};

/// What a custom view is opened with.
class QUOR_EXPORT TCustomViewParameters : public System::TObject {
public:
  ~TCustomViewParameters() override;

  virtual void SetSymbol(std::string_view symbol) = 0;
};

} // namespace Baseorderdata
