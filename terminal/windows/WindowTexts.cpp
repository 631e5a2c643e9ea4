#include "terminal/windows/WindowTexts.h"

#include "host/BaseLanguageManager.h"
#include "terminal/services/LanguageTexts.h"
#include "terminal/services/MarketFeed.h"
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

QString InstrumentName(const TServices& services, const QString& symbol) {
  const auto& entries = services.Symbols.Entries();
  const auto listed = std::find_if(entries.begin(), entries.end(),
                                   [&](const auto& entry) { return entry.Symbol == symbol; });
  auto* languages = Baselanguagemanager::TCustomLanguageManager::GetInstance();
  return listed == entries.end() ? QString() : listed->NameIn(languages->CurrentLanguage());
}

QString InstrumentText(const TServices& services, const QString& symbol) {
  return (symbol + u' ' + InstrumentName(services, symbol)).trimmed();
}

QString MarketText(const TMarketFeed& feed) { return WindowText(feed.Mark()).toUpper(); }

QString SimulatedMark(const TMarketFeed& feed) {
  return feed.IsSimulated() ? MarketText(feed) : QString();
}

QString ProblemText(const Data::TProblem& problem) {
  auto* languages = Baselanguagemanager::TCustomLanguageManager::GetInstance();
  return QString::fromStdString(Sentence(problem, languages->CurrentLanguage()));
}

QString FileSentence(const QString& file, const std::optional<Data::TProblem>& problem) {
  if (!problem || file.isEmpty())
    return problem ? ProblemText(*problem) : QString();
  return WindowText("Term_FileSentence").arg(file, ProblemText(*problem));
}

QString MarkedTitle(const QString& title, const QString& mark) {
  return mark.isEmpty() ? title : QStringLiteral("%1 – %2").arg(title, mark);
}

QString SideText(Data::TSide side) {
  return WindowText(side == Data::TSide::Bid ? "Term_Buy" : "Term_Sell");
}

const char* StatusKey(Data::TOrderStatus status) {
  switch (status) {
  case Data::TOrderStatus::Working:
    return "Term_StatusWorking";
  case Data::TOrderStatus::PartlyFilled:
    return "Term_StatusPartlyFilled";
  case Data::TOrderStatus::Filled:
    return "Term_StatusFilled";
  case Data::TOrderStatus::Cancelled:
    return "Term_StatusCancelled";
  case Data::TOrderStatus::Rejected:
    return "Term_StatusRejected";
  }
  return "";
}

} // namespace Terminal
