#include "terminal/windows/Chip.h"

namespace Terminal {

QString ChipStyle(const QColor& ground, const char* padding) {
  constexpr const char* textColour = "#14171c";
  return QStringLiteral("background:%1;color:%2;border-radius:3px;padding:%3;font-weight:bold")
      .arg(ground.name(), QLatin1String(textColour), QLatin1String(padding));
}

} // namespace Terminal
