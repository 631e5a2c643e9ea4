#include "platform/Label.h"

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

void TcxLabel::SetFontSize(int points) {
  QFont changed = font();
  changed.setPointSize(points);
  setFont(changed);
}

} // namespace Platform
