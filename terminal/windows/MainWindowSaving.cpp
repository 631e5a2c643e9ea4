#include "terminal/windows/MainWindow.h"

#include "host/ConstDef.h"
#include "host/LayoutData.h"
#include "terminal/services/Services.h"
#include "terminal/windows/WindowTexts.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>

#include <utility>

// What the window keeps beyond the run, and how it comes back.

namespace Terminal {

namespace {

constexpr int SaveInterval = 500; // milliseconds; what is lost at most, and one write for a burst

} // namespace

// Not every change of a view or of the docks is announced.
void TMainWindow::KeepSaving() {
  connect(&saveTimer_, &QTimer::timeout, this, &TMainWindow::Save);
  saveTimer_.start(SaveInterval);
  parts_.State.OnLost = [this] { ShowStoreProblem(); };
  ShowStoreProblem();
}

void TMainWindow::RestoreViews(const std::string& layoutData, TFirstView firstView) {
  const TSavedLayout saved = parts_.State.Layout();
  auto views = saved.Views;
  if (views.empty())
    views.emplace_back();
  if (firstView == TFirstView::AsTold || views.front().LayoutData.empty())
    views.front().LayoutData = layoutData;
  for (const auto& view : views) {
    // This market may not have named the symbol yet; the view keeps it all the same.
    const Host::TLayoutData layout(view.LayoutData);
    if (const auto symbol = layout.Value(Constdef::Layout_Symbol); !symbol.empty()) {
      parts_.Services.Symbols.Add(symbol);
      tools_->OfferChart(QString::fromStdString(symbol));
    }
    if (auto* pane = views_.Open(view.LayoutData))
      pane->SetGroup(view.Group);
  }
  RestoreArrangement(saved);
  parts_.Services.Config.SetLayoutReady(true);
  parts_.Services.Channels.Send(Constdef::Channel_LayoutLoaded, nullptr, nullptr);
  parts_.Services.Channels.Send(Constdef::Channel_MainFormShown, nullptr, nullptr);
}

// The toolkit moves windows of a screen that is gone onto one that is there, floating docks too.
void TMainWindow::RestoreArrangement(const TSavedLayout& saved) {
  restoreGeometry(saved.Geometry);
  NameDocks();
  if (!restoreState(saved.Docks))
    ArrangeDocks();
}

// The first time: as large as the screen allows, up to what the docks make use of.
void TMainWindow::ArrangeDocks() {
  constexpr QSize enough(1600, 1000);
  const QRect room = screen()->availableGeometry();
  setGeometry(QRect(room.topLeft(), enough.boundedTo(room.size())));
  if (!docks_.empty())
    tools_->ShareRoom(docks_.begin()->second);
}

// By their order, for that is how the views come back.
void TMainWindow::NameDocks() {
  int position = 0;
  for (const auto& [number, dock] : docks_)
    dock->setObjectName(QStringLiteral("view%1").arg(++position));
}

void TMainWindow::Save() {
  // Before the views are back, there is nothing that could take the place of what is saved.
  if (!parts_.Services.Config.IsLayoutReady())
    return;
  TSavedLayout layout;
  for (const auto* pane : views_.Panes())
    layout.Views.push_back({pane->LayoutData(), pane->Group()});
  NameDocks();
  layout.Geometry = saveGeometry();
  layout.Docks = saveState();
  if (std::exchange(saved_, layout) != layout)
    parts_.State.StoreLayout(layout);
}

void TMainWindow::closeEvent(QCloseEvent* event) {
  Save();
  saveTimer_.stop();
  event->accept();
}

/// Below the views, where it stays until the user has read it.
void TMainWindow::ShowStoreProblem() {
  const auto& problem = parts_.State.Problem();
  if (!problem)
    return;
  auto* text = new QLabel(ProblemText(*problem));
  text->setObjectName(QStringLiteral("storeSentence"));
  text->setWordWrap(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* close = new QToolButton;
  close->setText(WindowText("Term_Close"));
  close->setAutoRaise(true);
  connect(close, &QToolButton::clicked, this, [this] { setStatusBar(nullptr); });
  setStatusBar(nullptr);
  statusBar()->addWidget(text, 1);
  statusBar()->addPermanentWidget(close);
}

} // namespace Terminal
