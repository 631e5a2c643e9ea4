#pragma once

#include "host/System.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Fakes {

/// Handlers by owner, in order of registration.
template <typename THandler> class TListeners {
public:
  void Add(THandler handler, const System::TObject* owner) {
    Remove(owner);
    entries_.emplace_back(owner, std::move(handler));
  }
  void Remove(const System::TObject* owner) {
    std::erase_if(entries_, [owner](const auto& entry) { return entry.first == owner; });
  }
  bool Has(const System::TObject* owner) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [owner](const auto& entry) { return entry.first == owner; });
  }
  int Count() const { return static_cast<int>(entries_.size()); }

  /// Calls the handlers that were registered when it began; they may register and remove.
  template <typename... TArguments> void Notify(TArguments... arguments) const {
    const auto entries = entries_;
    for (const auto& [owner, handler] : entries)
      if (Has(owner))
        handler(arguments...);
  }

private:
  std::vector<std::pair<const System::TObject*, THandler>> entries_;
};

using TDataListeners = TListeners<System::TDataEvent>;
using TNotifyListeners = TListeners<System::TNotifyEvent>;

} // namespace Fakes
