#include "terminal/script/ScriptDriver.h"

#include "terminal/script/ScriptSession.h"
#include "terminal/script/input/Input.h"

#include <QJsonDocument>

#include <istream>
#include <ostream>
#include <string>

namespace Terminal {

namespace {

QJsonObject Refusal(const QString& sentence) { return {{"ok", false}, {"error", sentence}}; }

QJsonObject ParseLine(const QByteArray& line) {
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(line, &error);
  if (error.error != QJsonParseError::NoError)
    throw TScriptError(QStringLiteral("The line is not JSON (%1).").arg(error.errorString()));
  if (!document.isObject())
    throw TScriptError(QStringLiteral("The line is not a JSON object."));
  return document.object();
}

} // namespace

TScriptDriver::TScriptDriver(TScriptSession& session, const std::vector<TScriptCommand>& ofPackage)
    : session_(session) {
  for (const auto& group : {MarketCommands(), HostCommands(), ViewCommands(), InputCommands(),
                            LogCommands(), ofPackage})
    for (const auto& command : group)
      commands_.emplace(QString::fromLatin1(command.Name), command);
}

bool TScriptDriver::Run(std::istream& script, std::ostream& answers) {
  bool allOk = true;
  std::string text;
  while (std::getline(script, text)) {
    const QByteArray line = QByteArray::fromStdString(text).trimmed();
    if (line.isEmpty() || line.startsWith('#'))
      continue;
    const QJsonObject answer = Answer(line);
    allOk = allOk && answer["ok"].toBool();
    answers << QJsonDocument(answer).toJson(QJsonDocument::Compact).constData() << std::endl;
  }
  return allOk;
}

QJsonObject TScriptDriver::Answer(const QByteArray& line) {
  QJsonObject answer;
  try {
    answer = Execute(line);
    answer["ok"] = true;
  } catch (const TScriptError& error) {
    answer = Refusal(QString::fromUtf8(error.what()));
  } catch (const std::exception& error) {
    answer = Refusal(QStringLiteral("The command failed (%1).").arg(error.what()));
  }
  Input::Deliver();
  return answer;
}

QJsonObject TScriptDriver::Execute(const QByteArray& line) {
  QJsonObject members = ParseLine(line);
  const QJsonValue name = members.take("do");
  if (!name.isString())
    throw TScriptError(QStringLiteral("The line does not say in \"do\" what to do."));
  const auto command = commands_.find(name.toString());
  if (command == commands_.end())
    throw TScriptError(QStringLiteral("There is no command \"%1\".").arg(name.toString()));
  CheckMembers(members, command->second.Members,
               QStringLiteral("command \"%1\"").arg(command->first));
  return command->second.Run(session_, members);
}

} // namespace Terminal
