#pragma once

#include "terminal/script/Members.h"

#include <functional>
#include <vector>

namespace Terminal {

/// One command of a script.
struct TScriptCommand {
  const char* Name;
  std::vector<TMember> Members; ///< beside "do"
  /// Called with members that passed the check; gives the members of the answer beside "ok".
  /// Throws TScriptError when the command cannot be carried out; then nothing has changed.
  std::function<QJsonObject(const QJsonObject& members)> Run;
};

} // namespace Terminal
