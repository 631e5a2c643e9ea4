#pragma once

#include "host/System.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <list>
#include <utility>

namespace Terminal {

/// Handlers by owner, one per owner, called in the order of registration. A handler may register
/// and unregister anybody, itself included, while the list is being told: who leaves is not called
/// any more, who joins is first called the next time.
template <typename... TArguments> class TListeners {
public:
  using THandler = std::function<void(TArguments...)>;

  /// Replaces the owner's former handler.
  void Set(const System::TObject* owner, THandler handler) {
    Remove(owner);
    entries_.push_back({owner, std::move(handler)});
  }

  void Remove(const System::TObject* owner) {
    for (auto& entry : entries_)
      if (entry.Owner == owner)
        entry.Owner = nullptr;
    Sweep();
  }

  std::size_t Count() const {
    return static_cast<std::size_t>(std::count_if(entries_.begin(), entries_.end(),
                                                  [](const TEntry& entry) { return entry.Owner; }));
  }

  void Notify(TArguments... arguments) {
    ++delivering_;
    auto entry = entries_.begin();
    for (auto left = entries_.size(); left > 0; --left, ++entry)
      if (entry->Owner)
        entry->Handler(arguments...);
    --delivering_;
    Sweep();
  }

private:
  struct TEntry {
    const System::TObject* Owner; ///< null once it has left
    THandler Handler;
  };

  // A handler that is running must not be destroyed, so who leaves during a delivery is only
  // marked.
  void Sweep() {
    if (delivering_ == 0)
      entries_.remove_if([](const TEntry& entry) { return !entry.Owner; });
  }

  std::list<TEntry> entries_;
  int delivering_ = 0;
};

/// Listeners of a host notification.
using TDataListeners = TListeners<System::TObject*, System::TObject*>;

} // namespace Terminal
