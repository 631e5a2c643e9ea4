#pragma once

#include "host/BaseLanguageManager.h"

#include <string>
#include <string_view>

namespace Quorpricedatacontrol {

/// The text of a "Res_" key in the user's language.
inline std::string ResourceText(std::string_view key) {
  return Baselanguagemanager::TCustomLanguageManager::GetInstance()->GetResource(key);
}

} // namespace Quorpricedatacontrol
