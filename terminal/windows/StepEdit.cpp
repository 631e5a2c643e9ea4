#include "terminal/windows/StepEdit.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace Terminal {

namespace {

constexpr int PageSteps = 10;

int StepsOf(int key) {
  switch (key) {
  case Qt::Key_Up:
    return 1;
  case Qt::Key_Down:
    return -1;
  case Qt::Key_PageUp:
    return PageSteps;
  case Qt::Key_PageDown:
    return -PageSteps;
  default:
    return 0;
  }
}

} // namespace

TStepEdit::TStepEdit(QWidget* parent) : QLineEdit(parent) { setAlignment(Qt::AlignRight); }

void TStepEdit::keyPressEvent(QKeyEvent* event) {
  if (const int steps = StepsOf(event->key()))
    emit Stepped(steps);
  else
    QLineEdit::keyPressEvent(event);
}

void TStepEdit::wheelEvent(QWheelEvent* event) {
  const int turn = event->angleDelta().y();
  if (hasFocus() && turn != 0)
    emit Stepped(turn > 0 ? 1 : -1);
  else
    event->ignore();
}

} // namespace Terminal
