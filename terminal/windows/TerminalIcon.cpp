#include "terminal/windows/TerminalIcon.h"

#include "platform/DrawnIcon.h"

#include <QPainter>

namespace Terminal {

QIcon TerminalIcon() {
  return Platform::DrawnIcon([](QPainter& painter) {
    constexpr QColor ground(0x1e, 0x22, 0x2a), bid(0x4f, 0xa3, 0xd9), ask(0xd9, 0x9a, 0x4f);
    constexpr double middle = 8, gap = 0.5, rowHeight = 3, longest = 6;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(0, 0, 16, 16), 3, 3);
    double top = 2.5;
    for (const double length : {3.0, 5.0, longest}) {
      painter.fillRect(QRectF(middle - gap - length, top, length, rowHeight), bid);
      painter.fillRect(QRectF(middle + gap, top, longest + 2 - length, rowHeight), ask);
      top += rowHeight + 1;
    }
  });
}

} // namespace Terminal
