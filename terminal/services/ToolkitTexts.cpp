#include "terminal/services/ToolkitTexts.h"

#include "host/ConstDef.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace Terminal {

void TToolkitTexts::SetLanguage(int language) {
  QCoreApplication::removeTranslator(&translator_);
  if (language != Constdef::Language_English &&
      translator_.load(language == Constdef::Language_TraditionalChinese
                           ? QStringLiteral("qtbase_zh_TW")
                           : QStringLiteral("qtbase_zh_CN"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&translator_);
  // Widgets of the toolkit write their texts anew now, and not over those that are set hereafter.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
}

} // namespace Terminal
