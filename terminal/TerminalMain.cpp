#include "terminal/TerminalMain.h"

#include "terminal/CommandLine.h"
#include "terminal/Headless.h"
#include "terminal/PackageLoader.h"
#include "terminal/script/ScriptDriver.h"
#include "terminal/script/ScriptSession.h"
#include "terminal/windows/MainWindow.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

// Outside of any namespace, as the resource compiler names what this calls.
static void InitializeRecordings() { Q_INIT_RESOURCE(recordings); }

namespace Terminal {

namespace {

constexpr int StatusFailed = 1;
constexpr int StatusNoScript = 2;
constexpr double HeadlessSeconds = 10;
constexpr double SnapshotSeconds = 3;
constexpr const char* PackageFile = "quorprice.so";
constexpr const char* HeadlessPicture = "quorterminal.png";

int Fail(const std::string& sentence, int status = StatusFailed) {
  std::cerr << sentence << std::endl;
  return status;
}

/// The platform without a display cannot do some of what windows ask of it, and need not.
void DropPlatformNoise(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith(QLatin1String("This plugin does not support")) &&
      !message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
    std::cerr << message.toStdString() << std::endl;
}

int StatusOf(const std::string& error) { return error.empty() ? 0 : Fail(error); }

std::string PackageOf(const TCommandLine& line) {
  const auto beside = QApplication::applicationDirPath().toStdString() + "/" + PackageFile;
  return line.Package.value_or(beside);
}

bool HasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(name))
      return true;
  return false;
}

/// The market that is played: the recording of the command line, or the one that comes with the
/// terminal.
class TMarket {
public:
  explicit TMarket(TServices& services) : Feed(services, Player) {
    services.Profile.Grant({"QuorPrice"});
    services.Vendor.SetFeedType(Constdef::FeedType_Streaming);
  }

  /// Empty, or one sentence.
  std::string Open(const TCommandLine& line) {
    Player.SetSpeed(line.Speed);
    Player.SetAtEnd(line.Replay ? TAtEnd::Stop : TAtEnd::StartOver);
    if (line.Replay) {
      const QString error = Player.Open(QString::fromStdString(*line.Replay));
      return error.isEmpty() ? std::string() : *line.Replay + ": " + error.toStdString();
    }
    const QString file = folder_.filePath(QStringLiteral("simulated.jsonl"));
    if (!QFile::copy(QStringLiteral(":/recordings/simulated.jsonl"), file))
      return "The simulated market cannot be written to " + file.toStdString() + ".";
    return Player.Open(file).toStdString();
  }

  ReplayPlayer Player;
  TMarketFeed Feed;

private:
  QTemporaryDir folder_; ///< the player reads files, not resources
};

/// Layout data of the view that is opened on `symbol`.
std::string FirstLayout(TServices& services, const TCommandLine& line, const QString& symbol) {
  if (line.Symbol)
    services.Symbols.Add(*line.Symbol);
  constexpr int fiveLevels = 0;
  constexpr int tenLevels = 2;
  const int mode = line.Levels == 5 ? fiveLevels : tenLevels;
  return "Symbol=" + line.Symbol.value_or(symbol.toStdString()) +
         ",DisplayMode=" + std::to_string(mode);
}

int RunScript(TServices& services, Baseview::TIBaseView& descriptor, std::istream& script) {
  TScriptSession session(services, descriptor);
  return TScriptDriver(session).Run(script, std::cout) ? 0 : StatusFailed;
}

int RunHeadless(TServices& services, Baseview::TIBaseView& descriptor, const TCommandLine& line) {
  TMarket market(services);
  QString symbol;
  QObject::connect(&market.Feed, &TMarketFeed::Started,
                   [&symbol](const QString& first) { symbol = first; });
  if (const std::string error = market.Open(line); !error.empty())
    return Fail(error);
  market.Player.Step(0);
  for (const auto& skipped : SkippedLines(*market.Player.Index()))
    std::cerr << skipped << std::endl;
  services.Config.SetLayoutReady(true);
  const QFont font = QApplication::font();
  TViewHost views(descriptor, [&] {
    return TViewSettings{services.Languages.CurrentLanguage(), font.family(), font.pointSize()};
  });
  auto* view = views.Open(FirstLayout(services, line, symbol));
  if (!view)
    return Fail("The package opens no view.");
  view->show();
  const double seconds = line.Seconds.value_or(line.Snapshot ? SnapshotSeconds : HeadlessSeconds);
  const std::chrono::milliseconds time(std::lround(seconds * 1000));
  const THeadlessRun run{market.Player, market.Feed, *view, time};
  return StatusOf(line.Snapshot ? WriteSnapshot(run, QString::fromStdString(*line.Snapshot))
                                : PlayToConsole(run, QString::fromLatin1(HeadlessPicture)));
}

void RestoreSettings(TServices& services, TSavedState& state) {
  state.Follow(services.Config);
  services.Languages.SetLanguage(
      services.Config.ReadInteger(Constdef::Section_TradePlatform, "Language"));
  services.Skin.Select(services.Config.ReadString(Constdef::Section_TradePlatform, "Skin"));
}

int RunWindow(TServices& services, Baseview::TIBaseView& descriptor, const TCommandLine& line) {
  TSavedState state(TSavedState::DefaultFile());
  if (!state.Error().isEmpty())
    std::cerr << state.Error().toStdString() << std::endl;
  RestoreSettings(services, state);
  TMarket market(services);
  TMainWindow window({services, descriptor, market.Player, market.Feed, state});
  QObject::connect(
      &market.Feed, &TMarketFeed::Started, &window,
      [&](const QString& symbol) {
        const bool isAskedFor = line.Symbol || line.Levels || line.Replay;
        window.RestoreViews(FirstLayout(services, line, symbol),
                            isAskedFor ? TFirstView::AsTold : TFirstView::AsSaved);
      },
      Qt::SingleShotConnection);
  if (const std::string error = market.Open(line); !error.empty())
    return Fail(error);
  market.Player.Play();
  window.show();
  return QApplication::exec();
}

int Run(const TCommandLine& line, std::istream& script, bool hasDisplay) {
  TServices services;
  auto loaded = LoadPackage(PackageOf(line));
  if (const auto* sentence = std::get_if<std::string>(&loaded))
    return Fail(*sentence);
  auto& descriptor = std::get<std::unique_ptr<TPackage>>(loaded)->Descriptor();
  if (line.Script)
    return RunScript(services, descriptor, script);
  if (line.Snapshot || !hasDisplay)
    return RunHeadless(services, descriptor, line);
  return RunWindow(services, descriptor, line);
}

bool OpenScript(const std::string& name, std::ifstream& file) {
  std::error_code ignored;
  if (!std::filesystem::is_directory(name, ignored))
    file.open(name, std::ios::binary);
  return file.is_open();
}

bool CanReadStandardInput() {
  struct stat input {};
  return fstat(STDIN_FILENO, &input) == 0 && !S_ISDIR(input.st_mode);
}

/// Scripts and snapshots never show a window, whatever display there is.
void ChoosePlatform(const TCommandLine& line, bool hasDisplay) {
  const bool isSilent = line.Script || line.Snapshot;
  if (!isSilent && hasDisplay)
    return;
  if (!isSilent)
    std::cerr << "There is no display, so the terminal runs without windows." << std::endl;
  qInstallMessageHandler(DropPlatformNoise);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace

int RunTerminal(int argc, char** argv) {
  const auto parsed = ParseCommandLine({argv + 1, argv + argc});
  if (const auto* sentence = std::get_if<std::string>(&parsed))
    return Fail(*sentence);
  const auto& line = std::get<TCommandLine>(parsed);
  if (line.Help) {
    std::cout << CommandLineHelp();
    return 0;
  }
  std::ifstream file;
  if (line.Script &&
      !(*line.Script == "-" ? CanReadStandardInput() : OpenScript(*line.Script, file)))
    return Fail("The script " + *line.Script + " cannot be read.", StatusNoScript);
  const bool hasDisplay = HasDisplay();
  ChoosePlatform(line, hasDisplay);
  InitializeRecordings();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("quorterminal"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  return Run(line, file.is_open() ? static_cast<std::istream&>(file) : std::cin, hasDisplay);
}

} // namespace Terminal
