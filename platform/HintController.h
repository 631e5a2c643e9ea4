#pragma once

#include <QFont>
#include <QLabel>
#include <QObject>
#include <QPointer>

namespace Platform {

/// Shows one hint window at a place on the screen until it is told to hide it.
class Q_DECL_EXPORT TcxHintStyleController : public QObject {
  Q_OBJECT

public:
  /// The hint window belongs to the parent's window and is freed with the controller.
  explicit TcxHintStyleController(QWidget* parent);
  ~TcxHintStyleController() override;

  /// Fonts of the hint's text and of its caption.
  QFont Font;
  QFont CaptionFont;

  /// Shows the hint below and right of the screen position, kept on that screen; above the
  /// position where there is no room below. With a caption and a text, the caption stands above the
  /// text in bold. `maxWidth` in pixels, 0 for no limit.
  void ShowHint(int x, int y, const QString& caption, const QString& text, int maxWidth);
  void HideHint();

  /// Caption of the hint that is shown; null when none is.
  QString VisibleCaption() const;

private:
  QSize FitText(int maxWidth);

  QPointer<QLabel> window_; ///< the parent may free it first
  QString caption_;
};

} // namespace Platform
