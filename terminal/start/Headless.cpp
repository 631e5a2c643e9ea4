#include "terminal/start/Headless.h"

#include "platform/Grid.h"
#include "terminal/start/TextTable.h"
#include "terminal/windows/WindowTexts.h"

#include <QDir>
#include <QEventLoop>
#include <QLabel>
#include <QPainter>
#include <QTimer>

#include <unistd.h>

#include <iostream>

namespace Terminal {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds RefreshInterval{250};
/// Long enough for the view's own refresh timer.
constexpr milliseconds SettleTime{300};

void RunFor(milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

std::string Headline(const THeadlessRun& run) {
  return run.View.Title().toStdString() + "   " + MarketText(run.Feed).toStdString() + "   " +
         Text::ClockText(run.Player.Position());
}

/// The view under a line that says which market it shows, and when.
QPixmap Picture(const THeadlessRun& run) {
  const QPixmap view = run.View.View()->grab();
  QLabel mark(QString::fromStdString(Headline(run)));
  mark.setFont(run.View.View()->font());
  mark.setMargin(4);
  const QPixmap line = mark.grab();
  QPixmap picture(std::max(view.width(), line.width()), view.height() + line.height());
  picture.fill(mark.palette().color(QPalette::Window));
  QPainter painter(&picture);
  painter.drawPixmap(0, 0, line);
  painter.drawPixmap(0, line.height(), view);
  return picture;
}

std::string SavePicture(const THeadlessRun& run, const QString& file) {
  if (Picture(run).save(file, "PNG"))
    return {};
  return FileSentence(file, Data::TProblem{Data::TProblemCode::FileUnwritable}).toStdString();
}

/// The grid that the view shows; null when it shows none.
const Platform::TcxGrid* ShownGrid(const TViewPane& pane) {
  for (const auto* grid : pane.View()->findChildren<Platform::TcxGrid*>())
    if (grid->isVisible())
      return grid;
  return nullptr;
}

std::string Screen(const THeadlessRun& run, TColouring colouring) {
  std::string text = Headline(run) + "\n";
  if (const auto* grid = ShownGrid(run.View))
    text += TextTable(*grid->View(), colouring);
  return text + LabelLines(*run.View.View());
}

void PrintInPlace(const std::string& screen) {
  std::cout << "\x1b[H\x1b[J" << screen << std::flush;
}

} // namespace

std::string WriteSnapshot(const THeadlessRun& run, const QString& file) {
  run.Player.Step(static_cast<int>(run.Time.count()));
  RunFor(SettleTime);
  return SavePicture(run, file);
}

std::string PlayToConsole(const THeadlessRun& run, const QString& file) {
  const bool isConsole = isatty(STDOUT_FILENO) != 0;
  QTimer refresh;
  QObject::connect(&refresh, &QTimer::timeout,
                   [&] { PrintInPlace(Screen(run, TColouring::Ansi)); });
  if (isConsole)
    refresh.start(RefreshInterval);
  run.Player.Play();
  RunFor(run.Time);
  if (isConsole)
    PrintInPlace(Screen(run, TColouring::Ansi));
  else
    std::cout << Screen(run, TColouring::None);
  std::string error = SavePicture(run, file);
  if (error.empty())
    std::cout << WindowText("Term_Picture").arg(QDir().absoluteFilePath(file)).toStdString()
              << std::endl;
  return error;
}

} // namespace Terminal
