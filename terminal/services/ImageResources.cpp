#include "terminal/services/ImageResources.h"

#include "platform/DrawnIcon.h"

#include <QPainter>
#include <QPainterPath>

namespace Terminal {

namespace {

// Outlines in a square of 16 by 16.

QPainterPath Add() {
  QPainterPath path;
  path.moveTo(8, 3);
  path.lineTo(8, 13);
  path.moveTo(3, 8);
  path.lineTo(13, 8);
  return path;
}

QPainterPath Edit() {
  QPainterPath path;
  path.addPolygon(QPolygonF({{3, 13}, {3.6, 10}, {11, 2.6}, {13.4, 5}, {6, 12.4}, {3, 13}}));
  path.moveTo(9.4, 4.2);
  path.lineTo(11.8, 6.6);
  return path;
}

QPainterPath Bin() {
  QPainterPath path;
  path.addPolygon(QPolygonF({{4, 4.5}, {4.7, 14}, {11.3, 14}, {12, 4.5}}));
  path.moveTo(2.5, 4.5);
  path.lineTo(13.5, 4.5);
  path.addPolygon(QPolygonF({{6, 4.5}, {6, 2.5}, {10, 2.5}, {10, 4.5}}));
  for (const double x : {6.8, 9.2}) {
    path.moveTo(x, 7);
    path.lineTo(x, 11.5);
  }
  return path;
}

QPainterPath Chart() {
  QPainterPath path;
  path.addPolygon(QPolygonF({{2.5, 2.5}, {2.5, 13.5}, {13.5, 13.5}}));
  path.addPolygon(QPolygonF({{4.5, 10.5}, {7, 7.5}, {9, 9}, {13, 4}}));
  return path;
}

} // namespace

TImageResources::TImageResources() {
  for (const auto& outline : {Add(), Edit(), Bin(), Chart()})
    images_.Add(Platform::DrawnIcon([outline](QPainter& painter) { painter.drawPath(outline); }));
}

} // namespace Terminal
