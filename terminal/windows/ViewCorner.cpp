#include "terminal/windows/ViewCorner.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>

namespace Terminal {

namespace {

constexpr QSize OtherDocks(400, 330); // pixels beside and below a view, menu and bars included

} // namespace

QSize TViewCorner::LeastSize(const QSize& view, const QSize& screen, int bar) {
  const QSize room = (screen - OtherDocks).expandedTo({bar, bar});
  const QSize barsBeside(view.height() > room.height() ? bar : 0,
                         view.width() > room.width() ? bar : 0);
  return (view + barsBeside).boundedTo(room);
}

TViewCorner::TViewCorner(QWidget* view) {
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidget(view);
}

QSize TViewCorner::sizeHint() const { return widget() ? widget()->sizeHint() : QSize(); }

QSize TViewCorner::minimumSizeHint() const {
  return LeastSize(sizeHint(), screen()->availableGeometry().size(),
                   style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

bool TViewCorner::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::Resize)
    updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

} // namespace Terminal
