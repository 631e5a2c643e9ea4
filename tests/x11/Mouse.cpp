#include "x11/Mouse.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace X11 {

namespace {

constexpr int Settled = 60; // milliseconds in which an event has come through

} // namespace

void Do(const QString& command) {
  QProcess process;
  process.start(QStringLiteral("xdotool"), command.split(QLatin1Char(' '), Qt::SkipEmptyParts));
  ASSERT_TRUE(process.waitForFinished(10'000)) << command.toStdString();
  ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  QTest::qWait(Settled);
}

void MoveTo(const QWidget& widget, const QPoint& point) {
  const QPoint at = widget.mapToGlobal(point);
  Do(QStringLiteral("mousemove %1 %2").arg(at.x()).arg(at.y()));
}

void Click(int button) { Do(QStringLiteral("click %1").arg(button)); }

void Click(const QWidget& widget, const QPoint& point, int button) {
  MoveTo(widget, point);
  Click(button);
}

void Turn(const QWidget& widget, int notches) {
  MoveTo(widget, widget.rect().center());
  for (int notch = 0; notch < std::abs(notches); ++notch)
    Click(notches > 0 ? 4 : 5);
}

void Type(const QString& text) { Do(QStringLiteral("type ") + text); }

void Press(const QString& key) { Do(QStringLiteral("key ") + key); }

void Show(QWidget& window) {
  window.move(0, 0);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::qWait(Settled);
}

} // namespace X11
