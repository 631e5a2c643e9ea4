#pragma once

#include <QKeySequenceEdit>

namespace Terminal {

/// A box that holds the key that is pressed in it: one with Ctrl, or a function key, for others are
/// typed or belong to the window. Backspace and Delete empty it.
class TKeyEdit : public QKeySequenceEdit {
public:
  using QKeySequenceEdit::QKeySequenceEdit;

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

} // namespace Terminal
