#pragma once

#include "host/BaseLanguageManager.h"

#include <QString>

namespace Quorpricepreference {

/// The text of a resource key in the user's language.
inline QString GetResource(const char* key) {
  using Baselanguagemanager::TCustomLanguageManager;
  return QString::fromStdString(TCustomLanguageManager::GetInstance()->GetResource(key));
}

} // namespace Quorpricepreference
