#include "terminal/script/input/Input.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPointingDevice>
#include <QWindow>

QT_BEGIN_NAMESPACE
// A key as the window system gives it to a window: shortcuts first, then who has the focus. The
// library exports it for the test helpers of the toolkit, whose headers declare it as here.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool isRepeat, ushort count);
QT_END_NAMESPACE

namespace Terminal::Input {

namespace {

/// The window finds who is under the mouse, who has grabbed it and which pop-up is open.
void SendMouse(QWidget* widget, QEvent::Type type, const QPoint& position, Qt::MouseButton button,
               Qt::MouseButtons pressed) {
  static quint64 time = 0;
  if (type == QEvent::MouseButtonPress)
    time += static_cast<quint64>(QApplication::doubleClickInterval()) + 1;
  const QPointF inWindow = widget->mapTo(widget->window(), position);
  QMouseEvent event(type, inWindow, inWindow, widget->mapToGlobal(position), button, pressed,
                    Qt::NoModifier, QPointingDevice::primaryPointingDevice());
  event.setTimestamp(time);
  // A view may be larger than its window, and is used there as well.
  const bool isCutOff = !widget->visibleRegion().contains(position);
  const QPointer<QWidget> guarded = widget;
  if (isCutOff)
    widget->grabMouse();
  QCoreApplication::sendEvent(widget->window()->windowHandle(), &event);
  if (isCutOff && guarded)
    guarded->releaseMouse();
}

/// Presses and releases a key that gives `text`, between the two of Control or Alt where that is
/// held. Any of them may close the window.
void Strike(const QWidget* widget, int key, const QString& text,
            Qt::KeyboardModifiers held = Qt::NoModifier) {
  const QPointer<QWindow> window = widget->window()->windowHandle();
  const auto send = [&window](QEvent::Type type, int code, const QString& typed,
                              Qt::KeyboardModifiers modifiers) {
    if (window)
      qt_handleKeyEvent(window, type, code, modifiers, typed, false, 1);
  };
  const int heldKey = held & Qt::ControlModifier ? Qt::Key_Control : Qt::Key_Alt;
  if (held)
    send(QEvent::KeyPress, heldKey, {}, Qt::NoModifier);
  send(QEvent::KeyPress, key, text, held);
  send(QEvent::KeyRelease, key, text, held);
  if (held)
    send(QEvent::KeyRelease, heldKey, {}, Qt::NoModifier);
}

/// The text that a keyboard gives with a key.
QString TextOf(Qt::Key key) {
  if (key == Qt::Key_Return)
    return QStringLiteral("\r");
  return key < Qt::Key_Escape ? QString(QChar(key).toLower()) : QString();
}

} // namespace

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

void Click(QWidget* widget, const QPoint& position) {
  if (!QApplication::activePopupWidget())
    Activate(widget);
  const QPointer<QWidget> guarded = widget;
  SendMouse(widget, QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton);
  if (guarded)
    SendMouse(widget, QEvent::MouseButtonRelease, position, Qt::LeftButton, Qt::NoButton);
}

void Click(QWidget* widget) { Click(widget, widget->rect().center()); }

void MoveMouse(QWidget* widget, const QPoint& position) {
  SendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton);
}

void Type(QWidget* widget, const QString& text) {
  Click(widget);
  PressKey(widget, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty())
    PressKey(widget, Qt::Key_Delete);
  for (const QChar character : text) {
    const bool isOnKey = character >= QChar(' ') && character < QChar(0x7f);
    Strike(widget, isOnKey ? character.toUpper().unicode() : int{Qt::Key_unknown},
           QString(character));
  }
}

void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers held) {
  Strike(widget, key, held & Qt::ControlModifier ? QString() : TextOf(key), held);
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
