#pragma once

#include <QProxyStyle>

namespace Terminal {

/// The toolkit's Fusion style with check boxes whose frame can be seen on a dark window too.
class TTerminalStyle : public QProxyStyle {
public:
  TTerminalStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace Terminal
