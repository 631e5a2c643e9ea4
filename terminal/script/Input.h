#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class QAction;
class QComboBox;

/// A person's hands: real input events on real widgets. Nothing here runs a timer.
namespace Terminal::Input {

/// Delivers everything that waits for the event loop, except timers.
void Deliver();

/// Makes the window of `widget` the active one.
void Activate(const QWidget* widget);

void Click(QWidget* widget, const QPoint& position, Qt::MouseButton button = Qt::LeftButton);
/// In the middle of the widget.
void Click(QWidget* widget);
void MoveMouse(QWidget* widget, const QPoint& position);

/// Clicks into the edit and types `text` in place of what it holds.
void Type(QWidget* widget, const QString& text);
void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Drops the list down and takes the entry at `index`, which exists.
void Choose(QComboBox* box, int index);

/// Chooses `action` from the context menu of `widget`; false when that menu does not offer it.
bool ChooseFromContextMenu(QWidget* widget, QAction* action);

} // namespace Terminal::Input
