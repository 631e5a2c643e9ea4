#include "terminal/windows/KeyEdit.h"

#include <QKeyEvent>

namespace Terminal {

namespace {

bool Empties(const QKeyEvent& event) {
  return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
}

bool IsShortcut(const QKeyEvent& event) {
  const int key = event.key();
  const bool isFunctionKey = key >= Qt::Key_F1 && key <= Qt::Key_F35;
  const bool isHeldKey = key >= Qt::Key_Shift && key <= Qt::Key_Alt;
  return isFunctionKey || (event.modifiers().testFlag(Qt::ControlModifier) && !isHeldKey);
}

} // namespace

// The box takes its keys from the window's shortcuts; the dialog's buttons keep theirs.
bool TKeyEdit::event(QEvent* event) {
  const bool isOthers =
      event->type() == QEvent::ShortcutOverride && !IsShortcut(*static_cast<QKeyEvent*>(event));
  return !isOthers && QKeySequenceEdit::event(event);
}

void TKeyEdit::keyPressEvent(QKeyEvent* event) {
  const QKeyCombination pressed(event->modifiers() & ~Qt::KeypadModifier, Qt::Key(event->key()));
  if (Empties(*event))
    clear();
  else if (IsShortcut(*event))
    setKeySequence(pressed);
  else
    event->ignore();
}

} // namespace Terminal
