#pragma once

#include <QProxyStyle>

namespace Terminal {

/// What is `pixels` long beside text in the application's font, beside text of `widget`'s.
int Scaled(int pixels, const QWidget& widget);

/// The toolkit's Fusion style with check boxes, menus and lists whose frame can be seen on a dark
/// window too, and with icons in menus that are as large as the menu's font demands.
class TTerminalStyle : public QProxyStyle {
public:
  TTerminalStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
};

} // namespace Terminal
