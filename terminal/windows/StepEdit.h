#pragma once

#include <QLineEdit>

namespace Terminal {

/// An edit for a figure that the arrow keys and the wheel step, the page keys ten steps at once.
/// What a step is, the owner knows.
class TStepEdit : public QLineEdit {
  Q_OBJECT

public:
  explicit TStepEdit(QWidget* parent = nullptr);

signals:
  /// Negative: downwards.
  void Stepped(int steps);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// Steps only where the keyboard is, so that a wheel that scrolls past changes nothing.
  void wheelEvent(QWheelEvent* event) override;
};

} // namespace Terminal
