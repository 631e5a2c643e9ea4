#include "terminal/windows/StoreSentence.h"

#include "terminal/store/SavedState.h"
#include "terminal/windows/WindowTexts.h"

namespace Terminal {

QString StoreSentence(const TSavedState& state) {
  switch (state.Status()) {
  case TStoreStatus::Kept:
    return {};
  case TStoreStatus::InUse:
    return WindowText("Term_StoreInUse").arg(state.File());
  case TStoreStatus::Damaged:
    return WindowText("Term_StoreDamaged").arg(state.File(), state.Detail());
  case TStoreStatus::Newer:
    return WindowText("Term_StoreNewer").arg(state.File(), state.Detail());
  case TStoreStatus::Unusable:
    return WindowText("Term_StoreUnusable").arg(state.File(), state.Detail());
  }
  return {};
}

} // namespace Terminal
