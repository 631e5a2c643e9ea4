#include "terminal/start/TerminalMain.h"

#include "host/ConstDef.h"
#include "host/LayoutData.h"

#include "feed/recording/RecordingWriter.h"
#include "terminal/script/ScriptDriver.h"
#include "terminal/script/ScriptSession.h"
#include "terminal/script/quorprice/PageCommands.h"
#include "terminal/start/CommandLine.h"
#include "terminal/start/Headless.h"
#include "terminal/start/PackageLoader.h"
#include "terminal/trading/OrderDesk.h"
#include "terminal/windows/MainWindow.h"
#include "terminal/windows/SkippedLines.h"
#include "terminal/windows/TerminalStyle.h"
#include "terminal/windows/WindowTexts.h"

#include <QApplication>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace Terminal {

namespace {

constexpr int StatusFailed = 1;
constexpr int StatusNoScript = 2;
constexpr double HeadlessSeconds = 10;
constexpr double RecordedSeconds = 60;
constexpr double SnapshotSeconds = 3;
constexpr const char* PackageFile = "quorprice.so";
constexpr const char* HeadlessPicture = "quorterminal.png";

int Fail(const std::string& sentence, int status = StatusFailed) {
  std::cerr << sentence << std::endl;
  return status;
}

/// The console speaks English as long as no language is known to be chosen. `file`: which one the
/// problem is about, unless it is empty.
std::string InEnglish(const Data::TProblem& problem, const std::string& file = {}) {
  return (file.empty() ? "" : file + ": ") + Sentence(problem, Constdef::Language_English);
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

/// The market that is played.
class TMarket {
public:
  explicit TMarket(TServices& services) : Feed(services, Player) {
    Desk.Follow(Player);
    services.Profile.Grant(
        {std::string(Constdef::Function_QuorPrice), std::string(Constdef::Function_Chart)});
  }

  /// Empty, or one sentence.
  std::string Open(const TCommandLine& line) {
    Player.SetSpeed(line.Speed);
    return FileSentence(QString::fromStdString(line.Source->Asked(line.SourceOptions)),
                        Player.Open(*line.Source, line.SourceOptions))
        .toStdString();
  }

  TMarketPlayer Player;
  TMarketFeed Feed;
  TOrderDesk Desk;
};

/// Layout data of the view that is opened on `symbol`.
std::string FirstLayout(TServices& services, const TCommandLine& line, const QString& symbol) {
  if (line.Symbol)
    services.Symbols.Add(*line.Symbol);
  Host::TLayoutData layout;
  layout.Add(Constdef::Layout_Symbol, line.Symbol.value_or(symbol.toStdString()));
  layout.Add(Constdef::Layout_DisplayMode,
             line.Levels == 5 ? Constdef::DisplayMode_FiveLevels : Constdef::DisplayMode_TenLevels);
  return layout.CommaText();
}

int RunScript(TServices& services, Baseview::TIBaseView& descriptor, std::istream& script) {
  TScriptSession session(services, descriptor);
  return TScriptDriver(session, PageCommands()).Run(script, std::cout) ? 0 : StatusFailed;
}

int Record(const TCommandLine& line) {
  const std::chrono::duration<double> length(line.Seconds.value_or(RecordedSeconds));
  const auto opened = line.Source->Read ? line.Source->Read(line.SourceOptions)
                                        : Data::TProblem{Data::TProblemCode::MarketNotReadable};
  if (const auto* problem = std::get_if<Data::TProblem>(&opened))
    return Fail(InEnglish(*problem, line.Source->Asked(line.SourceOptions)));
  const auto problem =
      Feed::WriteRecording(std::get<Feed::TChangeStream>(opened),
                           std::chrono::duration_cast<Text::TTimeOfDay>(length), *line.Record);
  return problem ? Fail(InEnglish(*problem, *line.Record)) : 0;
}

/// Linked views follow their own group only; views in no group follow what is broadcast.
constexpr const char* GroupDataMode = "1";

void RestoreSettings(TServices& services, TSavedState& state) {
  services.Config.Load(Constdef::Section_TradePlatform, Constdef::Key_DefaultGroupDataMode,
                       GroupDataMode);
  state.Follow(services.Config);
  services.Languages.SetLanguage(services.Settings.Language.Value());
  services.Skin.SelectPriceColours(services.Settings.PriceColours.Value());
  services.Skin.Select(services.Settings.Skin.Value());
  if (const auto& problem = state.Problem())
    std::cerr << ProblemText(*problem).toStdString() << std::endl;
}

int RunHeadless(TServices& services, Baseview::TIBaseView& descriptor, const TCommandLine& line) {
  TSavedState state(TSavedState::DefaultFile());
  RestoreSettings(services, state);
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
  TViewHost views(services, descriptor, [&] {
    return SettingsAt(services.Languages.CurrentLanguage(), services.Settings.Scale.Value());
  });
  auto* view = views.Open(FirstLayout(services, line, symbol));
  if (!view)
    return Fail(ProblemText({Data::TProblemCode::PackageOpensNoView}).toStdString());
  view->show();
  const double seconds = line.Seconds.value_or(line.Snapshot ? SnapshotSeconds : HeadlessSeconds);
  const std::chrono::milliseconds time(std::lround(seconds * 1000));
  const THeadlessRun run{market.Player, market.Feed, *view, time};
  return StatusOf(line.Snapshot ? WriteSnapshot(run, QString::fromStdString(*line.Snapshot))
                                : PlayToConsole(run, QString::fromLatin1(HeadlessPicture)));
}

int RunWindow(TServices& services, Baseview::TIBaseView& descriptor, const TCommandLine& line) {
  TSavedState state(TSavedState::DefaultFile());
  RestoreSettings(services, state);
  TMarket market(services);
  if (const int type = services.Settings.FeedType.Value())
    market.Feed.SetFeedType(type);
  TMainWindow window(
      {services, descriptor, market.Player, market.Feed, state, market.Desk, line.SourceOptions});
  QObject::connect(
      &market.Feed, &TMarketFeed::Started, &window,
      [&](const QString& symbol) {
        const bool isAskedFor = line.Symbol || line.Levels || !line.Source->IsDefault;
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
  if (const auto* problem = std::get_if<Data::TProblem>(&loaded))
    return Fail(InEnglish(*problem));
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
    std::cerr << InEnglish({Data::TProblemCode::NoDisplay}) << std::endl;
  qInstallMessageHandler(DropPlatformNoise);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace

int RunTerminal(int argc, char** argv) {
  const auto parsed = ParseCommandLine({argv + 1, argv + argc});
  if (const auto* problem = std::get_if<Data::TProblem>(&parsed))
    return Fail(InEnglish(*problem));
  const auto& line = std::get<TCommandLine>(parsed);
  if (line.Help) {
    std::cout << CommandLineHelp();
    return 0;
  }
  if (line.Record)
    return Record(line);
  std::ifstream file;
  if (line.Script &&
      !(*line.Script == "-" ? CanReadStandardInput() : OpenScript(*line.Script, file)))
    return Fail(InEnglish({Data::TProblemCode::ScriptUnreadable, {*line.Script}}), StatusNoScript);
  const bool hasDisplay = HasDisplay();
  ChoosePlatform(line, hasDisplay);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("quorterminal"));
  QApplication::setStyle(new TTerminalStyle);
  return Run(line, file.is_open() ? static_cast<std::istream&>(file) : std::cin, hasDisplay);
}

} // namespace Terminal
