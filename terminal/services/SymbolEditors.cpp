#include "terminal/services/SymbolEditors.h"

#include "data/Problem.h"
#include "platform/PopupEdit.h"
#include "platform/ToolTip.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QToolTip>

#include <algorithm>

namespace Terminal {

using Platform::TcxPopupEdit;

/// One edit as a symbol box.
class TSymbolEditor {
public:
  TSymbolEditor(TSymbolEditors& manager, TcxPopupEdit& edit);
  ~TSymbolEditor();

  void Configure(std::string_view group, bool completion, bool resolveOnExit);

private:
  void OfferCompletions();
  void Resolve();
  void ApplySymbol(const QString& symbol, bool byUser);
  bool OfferChoice() const;
  void Refuse(const QString& text);
  void Report();

  TSymbolEditors& manager_;
  TcxPopupEdit* edit_; ///< null once it has died
  std::string group_;
  bool resolveOnExit_ = true;
  QString userText_;    ///< what the user typed or chose last; null once resolved
  std::string entered_; ///< a symbol to report once the owner has heard of it
  QObject connections_; ///< they end with it
};

TSymbolEditor::TSymbolEditor(TSymbolEditors& manager, TcxPopupEdit& edit)
    : manager_(manager), edit_(&edit) {
  edit.Resolver = [this] { Resolve(); };
  QObject::connect(&edit, &QLineEdit::textEdited, &connections_, [this](const QString& text) {
    userText_ = text;
    manager_.UpdateCompletions();
  });
  QObject::connect(&edit, &TcxPopupEdit::Exited, &connections_, [this] { Report(); });
  QObject::connect(&edit, &TcxPopupEdit::KeyDown, &connections_, [this](int key) {
    if (key == TcxPopupEdit::EnterKey)
      Report();
  });
  QObject::connect(&edit, &QObject::destroyed, &connections_,
                   [this] { manager_.RemoveSymbolEditor(std::exchange(edit_, nullptr)); });
}

TSymbolEditor::~TSymbolEditor() {
  if (!edit_)
    return;
  edit_->Resolver = nullptr;
  edit_->setCompleter(nullptr);
}

void TSymbolEditor::Configure(std::string_view group, bool completion, bool resolveOnExit) {
  group_ = group;
  resolveOnExit_ = resolveOnExit;
  if (!completion)
    edit_->setCompleter(nullptr);
  else if (!edit_->completer())
    OfferCompletions();
}

void TSymbolEditor::OfferCompletions() {
  auto* completer = new QCompleter(&manager_.completions_, edit_);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setFilterMode(Qt::MatchContains);
  edit_->setCompleter(completer);
  const auto text = [this](const QString& chosen) { userText_ = chosen; };
  QObject::connect(completer, qOverload<const QString&>(&QCompleter::highlighted), &connections_,
                   text);
  QObject::connect(completer, qOverload<const QString&>(&QCompleter::activated), &connections_,
                   text);
  // Choosing with the mouse enters the symbol, once the edit has taken the chosen text.
  QObject::connect(completer, qOverload<const QString&>(&QCompleter::activated), edit_,
                   &TcxPopupEdit::PerformExit, Qt::QueuedConnection);
}

void TSymbolEditor::Resolve() {
  const bool entering = edit_->hasFocus(); // Enter leaves the focus here, an exit has taken it
  if (!entering && !resolveOnExit_)
    return;
  const auto text = edit_->text();
  const bool typed = !userText_.isNull() && text == userText_;
  const bool byUser = typed || (manager_.IsByProgram && !manager_.IsByProgram());
  userText_ = QString();
  if (text == edit_->Hint())
    return;
  if (const auto symbol = manager_.symbols_.Resolve(text.toStdString()))
    ApplySymbol(QString::fromStdString(*symbol), byUser);
  else if (!entering || !typed || !OfferChoice())
    Refuse(typed ? text : QString());
}

/// Opens the list of what fits the text; false when it is no part of any name.
bool TSymbolEditor::OfferChoice() const {
  const auto text = edit_->text();
  const bool isName = std::ranges::any_of(text, [](QChar c) { return c.isLetter(); });
  auto* completer = edit_->completer();
  if (!isName || !completer)
    return false;
  completer->setCompletionPrefix(text);
  if (completer->completionCount() == 0)
    return false;
  completer->complete();
  return true;
}

/// Puts the hint's symbol back; the user is told about a text of theirs.
void TSymbolEditor::Refuse(const QString& text) {
  edit_->setText(edit_->Hint());
  if (text.trimmed().isEmpty())
    return;
  const auto sentence =
      Sentence({Data::TProblemCode::SymbolUnknown, {text.trimmed().toStdString()}},
               manager_.languages_.CurrentLanguage());
  QToolTip::showText(edit_->mapToGlobal(edit_->rect().bottomLeft()),
                     Platform::ToolTipOf(QString::fromStdString(sentence)), edit_);
}

void TSymbolEditor::ApplySymbol(const QString& symbol, bool byUser) {
  if (byUser && symbol != edit_->Hint() && !group_.empty())
    entered_ = symbol.toStdString();
  edit_->SetHint(symbol);
  edit_->setText(symbol);
}

void TSymbolEditor::Report() {
  if (entered_.empty() || !manager_.OnUserSymbol)
    return;
  // The receiver may close the view, and this editor with it.
  const auto report = manager_.OnUserSymbol;
  const auto symbol = std::exchange(entered_, {});
  const auto group = group_;
  report(group, symbol);
}

TSymbolEditors::TSymbolEditors(const TSymbolDirectory& symbols, TLanguageTexts& languages)
    : symbols_(symbols), languages_(languages) {}
TSymbolEditors::~TSymbolEditors() = default;

void TSymbolEditors::RegisterSymbolEditor(TcxPopupEdit* edit, std::string_view group,
                                          bool completion, bool resolveOnExit) {
  auto& editor = editors_[edit];
  if (!editor)
    editor = std::make_unique<TSymbolEditor>(*this, *edit);
  editor->Configure(group, completion, resolveOnExit);
}

void TSymbolEditors::RemoveSymbolEditor(TcxPopupEdit* edit) { editors_.erase(edit); }

void TSymbolEditors::UpdateCompletions() {
  const int language = languages_.CurrentLanguage();
  const std::pair present(symbols_.Revision(), language);
  if (std::exchange(completed_, present) == present)
    return;
  QStringList offered;
  for (const auto& entry : symbols_.Entries())
    offered.append(TSymbolDirectory::Text(entry, language));
  completions_.setStringList(offered);
}

} // namespace Terminal
