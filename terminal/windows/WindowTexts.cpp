#include "terminal/windows/WindowTexts.h"

#include "host/BaseLanguageManager.h"

namespace Terminal {

QString WindowText(const char* key) {
  auto* languages = Baselanguagemanager::TCustomLanguageManager::GetInstance();
  return QString::fromStdString(languages->GetResource(key));
}

} // namespace Terminal
