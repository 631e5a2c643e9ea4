#include "terminal/windows/WindowTexts.h"

#include "host/BaseLanguageManager.h"
#include "terminal/services/Services.h"

#include <algorithm>

namespace Terminal {

QString WindowText(const char* key) {
  auto* languages = Baselanguagemanager::TCustomLanguageManager::GetInstance();
  return QString::fromStdString(languages->GetResource(key));
}

QString WithMnemonic(const QString& text, QChar letter) {
  const auto place = text.indexOf(letter, 0, Qt::CaseInsensitive);
  return place < 0 ? QStringLiteral("%1(&%2)").arg(text, letter)
                   : QString(text).insert(place, QLatin1Char('&'));
}

QString InstrumentText(const TServices& services, const QString& symbol) {
  const auto& entries = services.Symbols.Entries();
  const auto listed = std::find_if(entries.begin(), entries.end(),
                                   [&](const auto& entry) { return entry.Symbol == symbol; });
  return listed == entries.end() ? symbol : (symbol + u' ' + listed->Name).trimmed();
}

const char* StatusKey(Market::TOrderStatus status) {
  switch (status) {
  case Market::TOrderStatus::Working:
    return "Term_StatusWorking";
  case Market::TOrderStatus::PartlyFilled:
    return "Term_StatusPartlyFilled";
  case Market::TOrderStatus::Filled:
    return "Term_StatusFilled";
  case Market::TOrderStatus::Cancelled:
    return "Term_StatusCancelled";
  case Market::TOrderStatus::Rejected:
    return "Term_StatusRejected";
  }
  return "";
}

} // namespace Terminal
