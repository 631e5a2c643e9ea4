#pragma once

#include "host/view/EditorManager.h"
#include "terminal/services/LanguageTexts.h"
#include "terminal/services/SymbolDirectory.h"

#include <QStringListModel>

#include <functional>
#include <map>
#include <memory>

namespace Terminal {

class TSymbolEditor;

/// Makes symbol boxes of edits. What the user types is resolved in the directory; a symbol that is
/// found becomes hint and text. Enter on a name, or a part of it, that fits several opens the list
/// of them. What is not found gives way to the hint's symbol, and a hint says why.
class TSymbolEditors : public Editormanager::TEditorManager {
public:
  /// Both outlive the manager.
  TSymbolEditors(const TSymbolDirectory& symbols, TLanguageTexts& languages);
  ~TSymbolEditors() override;

  void RegisterSymbolEditor(Platform::TcxPopupEdit* edit, std::string_view group, bool completion,
                            bool resolveOnExit) override;
  void RemoveSymbolEditor(Platform::TcxPopupEdit* edit) override;

  /// Called when the user has entered another symbol in a box that is in a linking group, after
  /// the box's owner has heard of it. A symbol that came in by program is not reported.
  std::function<void(std::string_view group, std::string_view symbol)> OnUserSymbol;

  /// Whether what enters a box now without being typed is the program's and not the user's, who
  /// may choose a symbol elsewhere in the view. Unassigned: only what is typed is the user's.
  std::function<bool()> IsByProgram;

  std::size_t RegistrationCount() const { return editors_.size(); }

private:
  friend class TSymbolEditor;

  /// Brings what completion offers up to date with the directory.
  void UpdateCompletions();

  const TSymbolDirectory& symbols_;
  TLanguageTexts& languages_;
  QStringListModel completions_;  ///< shared by all boxes
  std::pair<int, int> completed_; ///< revision of the directory, and language, that they are of
  std::map<Platform::TcxPopupEdit*, std::unique_ptr<TSymbolEditor>> editors_;
};

} // namespace Terminal
