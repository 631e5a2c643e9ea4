#pragma once

#include <QFont>
#include <QObject>

class QLabel;

namespace Platform {

/// Shows one hint window at a place on the screen until it is told to hide it.
class Q_DECL_EXPORT TcxHintStyleController : public QObject {
  Q_OBJECT

public:
  explicit TcxHintStyleController(QWidget* parent);

  /// Fonts of the hint's text and of its caption.
  QFont Font;
  QFont CaptionFont;

  /// Shows the hint below and right of the screen position, kept on that screen. `maxWidth` 0: no
  /// limit.
  void ShowHint(int x, int y, const QString& caption, const QString& text, int maxWidth);
  void HideHint();

  /// Caption of the hint that is shown; null when none is.
  QString VisibleCaption() const;

private:
  QLabel* window_;
  QString caption_;
};

} // namespace Platform
