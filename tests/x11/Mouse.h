#pragma once

#include <QString>
#include <QWidget>

/// The mouse and the keyboard of the display, as a user's hands move them: what reaches which
/// window is up to the X server.
namespace X11 {

/// Carries out a command of xdotool and lets the application hear of it.
void Do(const QString& command);

/// Where a point of a widget is on the display.
void MoveTo(const QWidget& widget, const QPoint& point);
void Click(int button = 1);
void Click(const QWidget& widget, const QPoint& point, int button = 1);
void Turn(const QWidget& widget, int notches);
void Type(const QString& text);
void Press(const QString& key);

/// Shows a window at the upper left of the display and gives it the keyboard.
void Show(QWidget& window);

} // namespace X11
