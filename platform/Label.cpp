#include "platform/Label.h"

#include "platform/ToolTip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace Platform {

TcxLabel::TcxLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
}

void TcxLabel::SetColor(TColor colour) {
  colour_ = colour;
  QPalette changed = palette();
  changed.setColor(QPalette::Window, ToQColor(colour));
  setPalette(changed);
  setAutoFillBackground(true);
}

void TcxLabel::SetTextColor(TColor colour) {
  textColour_ = colour;
  QPalette changed = palette();
  changed.setColor(QPalette::WindowText, ToQColor(colour));
  setPalette(changed);
}

void TcxLabel::SetShortened() {
  isShortened_ = true;
  updateGeometry();
}

QSize TcxLabel::minimumSizeHint() const {
  const QSize hint = QLabel::minimumSizeHint();
  return isShortened_ ? QSize(0, hint.height()) : hint;
}

bool TcxLabel::IsTooNarrow() const {
  return isShortened_ && fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool TcxLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !IsTooNarrow())
    return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), ToolTipOf(text()), this);
  return true;
}

/// The toolkit would centre each text by the highest font that it needs, and Chinese ones would
/// stand lower than the figures beside them.
void TcxLabel::paintEvent(QPaintEvent*) {
  const QRect room = contentsRect();
  const QFontMetrics metrics = fontMetrics();
  const QString shown =
      IsTooNarrow() ? metrics.elidedText(text(), Qt::ElideRight, room.width()) : text();
  int left = room.left();
  if (alignment() & Qt::AlignRight)
    left = room.right() + 1 - metrics.horizontalAdvance(shown);
  else if (alignment() & Qt::AlignHCenter)
    left += (room.width() - metrics.horizontalAdvance(shown)) / 2;
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(left, room.top() + (room.height() - metrics.height()) / 2 + metrics.ascent(),
                   shown);
}

void TcxLabel::SetFontSize(int points) {
  QFont changed = font();
  changed.setPointSize(points);
  setFont(changed);
}

} // namespace Platform
