#pragma once

#include "host/Service.h"

#include <string_view>

namespace Platform {
class TcxPopupEdit;
}

namespace Editormanager {

/// Makes symbol boxes of edits: interprets what the user types and leaves the resolved symbol in
/// the edit's hint. What cannot be resolved leaves the hint as it was.
class QUOR_EXPORT TEditorManager : public Host::TService<TEditorManager> {
public:
  ~TEditorManager() override;

  /// `group` is the linking group to which a symbol that the user enters is passed on; empty for
  /// none. Registering an edit again replaces its group. `completion` offers listed symbols while
  /// the user types, `resolveOnExit` resolves when the edit is left.
  virtual void RegisterSymbolEditor(Platform::TcxPopupEdit* edit, std::string_view group,
                                    bool completion, bool resolveOnExit) = 0;
  virtual void RemoveSymbolEditor(Platform::TcxPopupEdit* edit) = 0;
};

} // namespace Editormanager
