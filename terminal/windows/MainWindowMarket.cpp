#include "terminal/windows/MainWindow.h"

#include "host/ConstDef.h"
#include "terminal/services/Services.h"
#include "terminal/windows/SymbolChoice.h"
#include "terminal/windows/WindowTexts.h"

#include <QDockWidget>
#include <QFileDialog>

// Which market is shown, and in what form.

namespace Terminal {

void TMainWindow::FollowMarket() {
  connect(&parts_.Player, &TMarketPlayer::HeaderRead, this, &TMainWindow::ShowMarks);
  connect(&parts_.Player, &TMarketPlayer::CoolingOffReached, this, [this](const QString& symbol) {
    // A view in a linking group does not hear what is broadcast.
    const auto* active = ActivePane();
    ChooseSymbol(parts_.Services, active ? active->Group() : std::string(), nullptr,
                 symbol.toStdString());
  });
}

// Every view and tool says what it shows, also where it floats apart from the window.
void TMainWindow::ShowMarks() {
  const QString mark = SimulatedMark(parts_.Feed);
  for (auto* pane : views_.Panes())
    pane->SetMark(mark);
  tools_->SetMark(mark);
  ShowTitle();
}

void TMainWindow::OpenSource(const Feed::TSourceKind& kind) {
  if (*kind.Files) {
    const QString file = QFileDialog::getOpenFileName(this, WindowText(kind.MenuText), {},
                                                      QLatin1String(kind.Files));
    if (file.isEmpty())
      return;
    parts_.SourceOptions[kind.Options.front().Name] = QFile::encodeName(file).toStdString();
  }
  const auto problem = parts_.Player.Open(kind, parts_.SourceOptions);
  if (!problem)
    parts_.Player.Play();
  WarnOf(QString::fromStdString(kind.Asked(parts_.SourceOptions)), problem);
}

// A view keeps to the feed type that it was opened with.
void TMainWindow::SetFeedType(int type) {
  NameDocks();
  const QByteArray docks = saveState();
  std::vector<TSavedView> open;
  for (const auto* pane : views_.Panes()) {
    open.push_back({pane->LayoutData(), pane->Group()});
    docks_.at(pane->Number())->setObjectName({}); // the name is its successor's
    views_.Close(pane->Number());
  }
  parts_.Feed.SetFeedType(type);
  for (const auto& view : open)
    if (auto* pane = views_.Open(view.LayoutData))
      pane->SetGroup(view.Group);
  NameDocks();
  restoreState(docks);
  parts_.Services.Settings.FeedType.Set(type);
  player_->SetTexts();
}

} // namespace Terminal
