#pragma once

#include "terminal/script/ScriptCommand.h"

#include <QByteArray>

#include <iosfwd>
#include <map>

namespace Terminal {

class TScriptSession;

/// Carries scripts out: one JSON object a line in, one a line out.
class TScriptDriver {
public:
  /// The session outlives the driver. `ofPackage` are the commands beside those of every host.
  explicit TScriptDriver(TScriptSession& session,
                         const std::vector<TScriptCommand>& ofPackage = {});

  /// Carries out every line of `script` and writes its answer before it reads the next; blank
  /// lines and those that begin with # are skipped. True when every answer was ok.
  bool Run(std::istream& script, std::ostream& answers);

  /// The answer to one line. What the command caused has been delivered, but for timers.
  QJsonObject Answer(const QByteArray& line);

private:
  QJsonObject Execute(const QByteArray& line);

  TScriptSession& session_;
  std::map<QString, TScriptCommand> commands_;
};

} // namespace Terminal
