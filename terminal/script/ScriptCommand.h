#pragma once

#include "terminal/script/Members.h"

#include <vector>

namespace Terminal {

class TScriptSession;

/// One command of a script.
struct TScriptCommand {
  const char* Name;
  std::vector<TMember> Members; ///< beside "do"
  /// Called with members that passed the check; gives the members of the answer beside "ok".
  /// Throws TScriptError when the command cannot be carried out; then nothing has changed.
  QJsonObject (*Run)(TScriptSession& session, const QJsonObject& members);
};

} // namespace Terminal
