#include "view/CaptionImages.h"

#include "platform/DrawnIcon.h"
#include "platform/ImageList.h"

#include <QPainter>
#include <QPainterPath>

#include <iterator>

namespace Quorpriceview {

namespace {

void DrawChevron(QPainter& painter, bool up) {
  const qreal tip = up ? 5 : 11;
  const qreal foot = up ? 10 : 6;
  painter.drawPolyline(QPolygonF({{4, foot}, {8, tip}, {12, foot}}));
}

/// Bars of a depth ladder, as many as there is room for, and the number of levels.
void DrawLevels(QPainter& painter, int levels) {
  QFont font = painter.font();
  font.setPixelSize(9);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(QRectF(0, 0, 16, 10), Qt::AlignCenter, QString::number(levels));
  for (int bar = 0; bar < 2; ++bar)
    painter.drawLine(QPointF(3, 11.5 + 3 * bar), QPointF(13 - 4 * bar, 11.5 + 3 * bar));
}

void DrawLock(QPainter& painter, bool open) {
  painter.drawRoundedRect(QRectF(3.5, 7.5, 9, 6.5), 1, 1);
  QPainterPath shackle;
  shackle.moveTo(5.5, 7.5);
  shackle.lineTo(5.5, 5);
  shackle.arcTo(QRectF(5.5, 2.5, 5, 5), 180, -180);
  shackle.lineTo(10.5, open ? 5.5 : 7.5);
  painter.drawPath(shackle);
  painter.drawPoint(QPointF(8, 10.75));
}

void DrawChart(QPainter& painter) {
  painter.drawPolyline(QPolygonF({{2.5, 2}, {2.5, 13.5}, {14, 13.5}}));
  painter.drawPolyline(QPolygonF({{4.5, 10.5}, {7, 6.5}, {9.5, 9}, {13, 3.5}}));
}

void DrawRefresh(QPainter& painter) {
  painter.drawArc(QRectF(3, 3, 10, 10), 40 * 16, 280 * 16);
  painter.drawPolyline(QPolygonF({{12.6, 1.6}, {12.2, 5}, {8.8, 4.6}}));
}

/// Two columns of a queue.
void DrawQueue(QPainter& painter) {
  for (const qreal left : {2.5, 9.5})
    for (int row = 0; row < 4; ++row)
      painter.drawLine(QPointF(left, 3.5 + 3 * row), QPointF(left + 4, 3.5 + 3 * row));
}

/// Four keys.
void DrawKeys(QPainter& painter) {
  for (const qreal left : {2.5, 9.0})
    for (const qreal top : {3.5, 9.0})
      painter.drawRect(QRectF(left, top, 4.5, 3.5));
}

/// What is struck out is what a click hides.
void DrawStruckOut(QPainter& painter, void (*draw)(QPainter&)) {
  draw(painter);
  painter.drawLine(QPointF(2, 14), QPointF(14, 2));
}

/// In the order of TCaptionImage.
constexpr void (*Drawings[])(QPainter&) = {
    [](QPainter& painter) { DrawChevron(painter, true); },
    [](QPainter& painter) { DrawChevron(painter, false); },
    [](QPainter& painter) { DrawLevels(painter, 5); },
    [](QPainter& painter) { DrawLevels(painter, 10); },
    [](QPainter& painter) { DrawLock(painter, false); },
    [](QPainter& painter) { DrawLock(painter, true); },
    DrawChart,
    DrawRefresh,
    [](QPainter& painter) { DrawStruckOut(painter, DrawQueue); },
    DrawQueue,
    [](QPainter& painter) { DrawStruckOut(painter, DrawKeys); },
    DrawKeys,
};
static_assert(std::size(Drawings) == imShowQty + 1);

} // namespace

void AddCaptionImages(Platform::TcxImageList& images) {
  for (const auto draw : Drawings)
    images.Add(Platform::DrawnIcon(draw));
}

} // namespace Quorpriceview
