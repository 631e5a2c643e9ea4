#pragma once

#include "host/BaseLanguageManager.h"

#include <QString>

namespace Quorpriceview {

/// The text of a language key, in the host's language of the moment.
inline QString Translated(std::string_view key) {
  return QString::fromStdString(
      Baselanguagemanager::TCustomLanguageManager::GetInstance()->GetResource(key));
}

/// The same with a colon, as it stands before a value.
inline QString Label(std::string_view key) { return Translated(key) + QLatin1Char(':'); }

} // namespace Quorpriceview
