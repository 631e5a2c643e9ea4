#include "platform/PopupEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>

namespace Platform {

namespace {

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Enter || event.key() == Qt::Key_Return;
}

} // namespace

TcxPopupEdit::TcxPopupEdit(QWidget* parent) : QLineEdit(parent) {}

void TcxPopupEdit::Resolve() {
  if (Resolver)
    Resolver();
}

void TcxPopupEdit::PerformExit() { Exit(Qt::OtherFocusReason); }

void TcxPopupEdit::Exit(Qt::FocusReason reason) {
  Resolve();
  emit Exited(reason);
}

/// Pressing the button places the caret, so all is selected when it is released, unless the mouse
/// was drawn over a part of it.
void TcxPopupEdit::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (hasSelectedText() || text() != hint_)
    return;
  isClicked_ = !isClicked_;
  if (isClicked_)
    selectAll();
}

void TcxPopupEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  isClicked_ = false;
  // Of another window's becoming active the form hears nothing: its focus stays in the box. A form
  // that is destroyed loses its window first, too, and could not answer any more.
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
    Exit(event->reason());
}

// The completer hands Enter to the edit before it puts its own entry there, which would come after
// the resolution. So the edit takes the entry itself and closes the list.
void TcxPopupEdit::ApplyCompletion() {
  if (!completer() || !completer()->popup()->isVisible())
    return;
  QAbstractItemView* list = completer()->popup();
  if (list->currentIndex().isValid())
    setText(list->currentIndex().data(completer()->completionRole()).toString());
  list->hide();
}

void TcxPopupEdit::keyPressEvent(QKeyEvent* event) {
  isClicked_ = false;
  if (!IsEnter(*event)) {
    emit KeyDown(event->key());
    if (event->key() == Qt::Key_Escape && text() != hint_) {
      setText(hint_);
      selectAll();
      event->accept();
      return;
    }
    QLineEdit::keyPressEvent(event);
    const QString typed = event->text();
    if (!typed.isEmpty() && typed.front().isPrint())
      emit KeyPress(typed.front().unicode());
    return;
  }
  ApplyCompletion();
  Resolve();
  emit KeyDown(EnterKey);
  QLineEdit::keyPressEvent(event);
  emit KeyPress(EnterKey);
  event->accept();
}

} // namespace Platform
