#include "platform/DrawnIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace Platform {

namespace {

constexpr qreal Units = 16;

class TDrawnIconEngine : public QIconEngine {
public:
  explicit TDrawnIconEngine(std::function<void(QPainter&)> draw) : draw_(std::move(draw)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
    const qreal side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center() - QPointF(side, side) / 2);
    painter->scale(side / Units, side / Units);
    painter->setPen(QPen(QGuiApplication::palette().color(group, role), 1.4, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    draw_(*painter);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new TDrawnIconEngine(*this); }

private:
  std::function<void(QPainter&)> draw_;
};

} // namespace

QIcon DrawnIcon(std::function<void(QPainter&)> draw) {
  return QIcon(new TDrawnIconEngine(std::move(draw)));
}

} // namespace Platform
