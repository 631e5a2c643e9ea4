#include "terminal/services/OrderAdapter.h"

namespace Terminal {

void TOrder::Clear() {
  symbol_.clear();
  price_.reset();
  quantity_.reset();
  values_.clear();
}

void TOrder::SetValue(std::string_view name, std::string_view value) {
  values_.insert_or_assign(std::string(name), value);
}

std::unique_ptr<Baseorderdata::TCustomOrder> TOrderAdapter::NewOrder() {
  return std::make_unique<TOrder>();
}

std::unique_ptr<Baseorderdata::TCustomViewParameters> TOrderAdapter::NewViewParameters() {
  return std::make_unique<TViewParameters>();
}

} // namespace Terminal
