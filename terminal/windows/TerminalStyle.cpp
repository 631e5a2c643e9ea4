#include "terminal/windows/TerminalStyle.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

namespace Terminal {

int Scaled(int pixels, const QWidget& widget) {
  return pixels * widget.fontInfo().pointSize() / QFontInfo(QApplication::font()).pointSize();
}

TTerminalStyle::TTerminalStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

// Fusion derives the frame from the window's colour, a shade darker, which a dark window hides.
void TTerminalStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                   QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isOfList = element == PE_Frame && widget && widget->windowType() == Qt::Popup;
  if (element != PE_IndicatorCheckBox && element != PE_PanelMenu && !isOfList)
    return;
  QColor frame = option->palette.color(QPalette::WindowText);
  frame.setAlphaF(element == PE_IndicatorCheckBox ? 0.6F : 0.4F);
  painter->save();
  painter->setPen(frame);
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  painter->restore();
}

int TTerminalStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const {
  const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
  const auto* menu = qobject_cast<const QMenu*>(widget);
  return menu && metric == PM_SmallIconSize ? Scaled(pixels, *menu) : pixels;
}

} // namespace Terminal
