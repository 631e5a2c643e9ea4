#pragma once

#include "host/System.h"

#include <memory>
#include <string_view>

namespace System::Classes {

/// Base of what the class registry creates. The owner is a note of who answers for the component;
/// it does not free it.
class QUOR_EXPORT TComponent : public TObject {
public:
  explicit TComponent(TComponent* owner) : owner_(owner) {}
  ~TComponent() override;

  TComponent* Owner() const { return owner_; }

private:
  TComponent* owner_;
};

/// Makes one object of a registered class.
using TComponentFactory = std::function<std::unique_ptr<TComponent>(TComponent* owner)>;

/// Enters a class under its name; a second registration of a name replaces the first.
QUOR_EXPORT void RegisterClass(std::string_view className, TComponentFactory factory);

/// A new object of the class registered under `className`; null when no such class is registered.
QUOR_EXPORT std::unique_ptr<TComponent> CreateRegistered(std::string_view className,
                                                         TComponent* owner);

} // namespace System::Classes
