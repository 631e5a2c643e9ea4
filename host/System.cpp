#include "host/SystemClasses.h"

#include <map>
#include <string>

namespace System {

TObject::~TObject() = default;

namespace Classes {

TComponent::~TComponent() = default;

namespace {

std::map<std::string, TComponentFactory, std::less<>>& Registry() {
  static std::map<std::string, TComponentFactory, std::less<>> registry;
  return registry;
}

} // namespace

void RegisterClass(std::string_view className, TComponentFactory factory) {
  Registry().insert_or_assign(std::string(className), std::move(factory));
}

std::unique_ptr<TComponent> CreateRegistered(std::string_view className, TComponent* owner) {
  const auto found = Registry().find(className);
  return found == Registry().end() ? nullptr : found->second(owner);
}

} // namespace Classes
} // namespace System
