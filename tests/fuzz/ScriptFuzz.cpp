// Any text as a script of the terminal, with the real package: every line is answered, with ok or
// with a reason, and when the script is over nothing of what it opened is left behind.

#include "fuzz/Fuzz.h"
#include "terminal/script/ScriptDriver.h"
#include "terminal/script/ScriptSession.h"
#include "terminal/start/PackageLoader.h"
#include "tests/Paths.h"

#include <QApplication>
#include <QDir>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <sstream>

namespace {

using namespace Terminal;

/// Without the lines that take long, or name a file outside the folder of this run.
std::string Harmless(const std::string& text) {
  static const QRegularExpression harmful(QStringLiteral("\\d{3}|e\\d|/"),
                                          QRegularExpression::CaseInsensitiveOption);
  std::istringstream lines(text);
  std::string harmless;
  for (std::string line; std::getline(lines, line);) {
    const QString name = QString::fromStdString(line);
    const bool takesFileOrTime =
        name.contains("tick") || name.contains("snapshot") || name.contains('\\');
    if (!takesFileOrTime || !name.contains(harmful))
      harmless += line + "\n";
  }
  return harmless;
}

int CommandsIn(const std::string& script) {
  const auto lines = QByteArray::fromStdString(script).split('\n');
  return static_cast<int>(std::count_if(lines.begin(), lines.end(), [](const QByteArray& line) {
    const QByteArray command = line.trimmed();
    return !command.isEmpty() && !command.startsWith('#');
  }));
}

/// How many answers there are, each of them well formed.
int CheckAnswers(const std::string& answers) {
  std::istringstream lines(answers);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
    Fuzz::Expect(answer["ok"].isBool(), "An answer says neither yes nor no", line);
    Fuzz::Expect(answer["ok"].toBool() == answer["error"].toString().isEmpty(),
                 "An answer without its reason", line);
  }
  return count;
}

void ExpectNothingLeft(const TRegistrations& left) {
  for (const std::size_t count : {left.Configuration, left.Channels, left.Groups, left.Timers,
                                  left.Editors, left.Records, left.TradeSides})
    Fuzz::Expect(count == 0, "Something is left registered", std::to_string(count));
}

} // namespace

void Fuzz::Start(int& argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(argc, argv);
  static const QTemporaryDir folder;
  QDir::setCurrent(folder.path());
}

void Fuzz::Check(const std::string& text) {
  const std::string script = Harmless(text);
  std::istringstream lines(script);
  std::ostringstream answers;
  TServices services;
  {
    const auto loaded = LoadPackage(QUOR_BINARY_DIR "/bin/quorprice.so");
    const auto* package = std::get_if<std::unique_ptr<TPackage>>(&loaded);
    Expect(package, "The package does not load");
    TScriptSession session(services, (*package)->Descriptor());
    TScriptDriver(session).Run(lines, answers);
  }
  ExpectNothingLeft(services.Registrations());
  Expect(CheckAnswers(answers.str()) == CommandsIn(script), "A line is not answered, or twice",
         script, answers.str());
  // Before whatever the first text made that lasts as long as the program.
  static const int atEnd = std::atexit([] { delete qApp; });
  Expect(atEnd == 0, "The application cannot be ended");
}
