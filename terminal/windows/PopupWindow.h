#pragma once

#include <QWidget>

namespace Terminal {

/// Where a window of `size` goes so that it stands beside `view` and wholly on `screen`: to the
/// right of it, or to the left where there is more room; over it only where there is none on
/// either side. All with their frames, on the same desktop.
QPoint BesideView(const QRect& view, const QSize& size, const QRect& screen);

/// A tool window of a view. It comes up beside the view, in the view's font and with it as large as
/// it was made for the application's font, and Esc closes it. Deleted on close.
class TPopupWindow : public QWidget {
  Q_OBJECT

public:
  /// `view` is the widget that it stands beside, and its parent. `position` counts the windows that
  /// stand there already: each stands a little lower than the one before.
  TPopupWindow(QWidget* view, int position);

  /// Puts `mark` behind every title that the window is given; empty: none.
  void SetMark(const QString& mark);

protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void FollowFont();

  int position_;
  QString title_; ///< without the mark
  QString mark_;
  int fontSize_; ///< in points, for which it has its size
  bool placed_ = false;
};

} // namespace Terminal
