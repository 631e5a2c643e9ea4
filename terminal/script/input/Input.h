#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class QAction;
class QComboBox;

/// A person's hands: input events as they come from the window system, by way of the window of a
/// visible widget. Nothing here runs a timer.
namespace Terminal::Input {

/// Delivers everything that waits for the event loop, except timers.
void Deliver();

/// Makes the window of `widget` the active one.
void Activate(const QWidget* widget);

/// With the left button; two clicks are never a double click.
void Click(QWidget* widget, const QPoint& position);
/// In the middle of the widget.
void Click(QWidget* widget);
void MoveMouse(QWidget* widget, const QPoint& position);

/// Clicks into the edit and types `text` in place of what it holds.
void Type(QWidget* widget, const QString& text);
/// A key that types no character, by itself or while Control or Alt is held. It goes to the window
/// of `widget`, or to its open pop-up: `widget` has the focus there.
void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);

/// Drops the list down and takes the entry at `index`, which exists.
void Choose(QComboBox* box, int index);

/// Chooses `action` from the context menu of `widget`; false when that menu does not offer it.
bool ChooseFromContextMenu(QWidget* widget, QAction* action);

} // namespace Terminal::Input
