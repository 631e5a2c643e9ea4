#include "terminal/script/Input.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QtTest>

namespace Terminal::Input {

void Deliver() {
  // Three rounds: what is delivered may post, and what is deleted may post again.
  for (int round = 0; round < 3; ++round) {
    QCoreApplication::processEvents(QEventLoop::X11ExcludeTimers);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

void Activate(const QWidget* widget) {
  widget->window()->activateWindow();
  Deliver();
}

void Click(QWidget* widget, const QPoint& position, Qt::MouseButton button) {
  if (!QApplication::activePopupWidget())
    Activate(widget);
  QTest::mouseClick(widget, button, Qt::NoModifier, position);
}

void Click(QWidget* widget) { Click(widget, widget->rect().center()); }

void MoveMouse(QWidget* widget, const QPoint& position) {
  QMouseEvent move(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QSpontaneKeyEvent::setSpontaneous(&move);
  QCoreApplication::sendEvent(widget, &move);
}

void Type(QWidget* widget, const QString& text) {
  Click(widget);
  QTest::keySequence(widget, QKeySequence::SelectAll);
  if (text.isEmpty())
    QTest::keyClick(widget, Qt::Key_Delete);
  for (const QChar character : text) {
    const bool isPrintable = character >= QChar(' ') && character < QChar(0x7f);
    const auto key = isPrintable ? QTest::asciiToKey(character.toLatin1()) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, widget, key, QString(character), Qt::NoModifier);
  }
}

void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(widget, key, modifiers);
}

void Choose(QComboBox* box, int index) {
  Activate(box);
  box->setFocus(Qt::MouseFocusReason);
  PressKey(box, Qt::Key_F4);
  QAbstractItemView* list = box->view();
  PressKey(list, Qt::Key_Home);
  for (int row = 0; row < index; ++row)
    PressKey(list, Qt::Key_Down);
  PressKey(list, Qt::Key_Return);
}

bool ChooseFromContextMenu(QWidget* widget, QAction* action) {
  Activate(widget);
  const QPoint middle = widget->rect().center();
  QContextMenuEvent ask(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
  QCoreApplication::sendEvent(widget, &ask);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (!menu)
    return false;
  const bool offers = menu->actions().contains(action);
  if (offers)
    Click(menu, menu->actionGeometry(action).center());
  menu->close();
  return offers;
}

} // namespace Terminal::Input
