#pragma once

#include <QLineEdit>

#include <functional>

namespace Platform {

/// An edit whose hint holds what its text was last resolved to. Leaving the box, by focus or by
/// PerformExit, and pressing Enter first run the resolver that its editor manager put there, then
/// tell the owner. Escape puts the hint back. A click selects all of it, the next one places the
/// caret; in a text that is being typed each one does.
class Q_DECL_EXPORT TcxPopupEdit : public QLineEdit {
  Q_OBJECT

public:
  /// Stands for Enter and Return alike in the signals of keys.
  static constexpr int EnterKey = 13;

  explicit TcxPopupEdit(QWidget* parent = nullptr);

  /// The resolved text; empty when nothing was resolved yet.
  QString Hint() const { return hint_; }
  void SetHint(const QString& hint) { hint_ = hint; }

  /// Runs before the owner hears of an exit or of Enter; unassigned: no resolution.
  std::function<void()> Resolver;

  /// The control-exit message: resolves the text and tells the owner, without moving the focus.
  void PerformExit();

signals:
  /// The box was left, or told so, which has Qt::OtherFocusReason. A pop-up that opens over it, or
  /// another window that becomes active, does not count as leaving.
  void Exited(Qt::FocusReason reason);
  /// A key went down; `key` is a Qt::Key or EnterKey.
  void KeyDown(int key);
  /// A character was typed and is in the text, or EnterKey was pressed.
  void KeyPress(int character);

protected:
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void Resolve();
  void Exit(Qt::FocusReason reason);
  void ApplyCompletion();

  QString hint_;
  bool isClicked_ = false; ///< a click has selected all, and nothing was done since
};

} // namespace Platform
