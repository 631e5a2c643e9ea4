#include "platform/Colour.h"

#include <QGuiApplication>
#include <QPalette>

namespace Platform {

namespace {

constexpr TColor SystemColourMark = 0xFF;

QPalette::ColorRole SystemRole(TColor index) {
  switch (index) {
  case 5:
    return QPalette::Base;
  case 8:
    return QPalette::Text;
  case 13:
    return QPalette::Highlight;
  case 14:
    return QPalette::HighlightedText;
  case 15:
    return QPalette::Button;
  default:
    return QPalette::Window;
  }
}

} // namespace

QColor ToQColor(TColor colour) {
  if (colour >> 24 == SystemColourMark)
    return QGuiApplication::palette().color(QPalette::Active, SystemRole(colour & 0xFF));
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}

TColor FromQColor(const QColor& colour) {
  const QRgb rgb = colour.rgb();
  return static_cast<TColor>(qRed(rgb)) | static_cast<TColor>(qGreen(rgb)) << 8 |
         static_cast<TColor>(qBlue(rgb)) << 16;
}

} // namespace Platform
