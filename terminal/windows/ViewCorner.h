#pragma once

#include <QScrollArea>

namespace Terminal {

/// A view at its own size in the upper left corner of a dock that may be larger. The dock is never
/// smaller than the view where the screen has room for the view and for the least that must stand
/// beside and below it; where it has not, the view is scrolled.
class TViewCorner : public QScrollArea {
  Q_OBJECT

public:
  /// What `screen` leaves of `view`, scroll bars of width `bar` included.
  static QSize LeastSize(const QSize& view, const QSize& screen, int bar);

  /// Takes `view`, whose size is its own, and which may be destroyed first.
  explicit TViewCorner(QWidget* view);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace Terminal
