#include "terminal/windows/ToolDocks.h"

#include "host/ConstDef.h"
#include "terminal/windows/Blotter.h"
#include "terminal/windows/CaptionBar.h"
#include "terminal/windows/Chart.h"
#include "terminal/windows/SymbolList.h"
#include "terminal/windows/WindowTexts.h"

#include <QApplication>

namespace Terminal {

namespace {

constexpr int NarrowestTools = 560; // pixels, chart and ticket side by side

} // namespace

TToolDocks::TToolDocks(TServices& services, TOrderDesk& desk, TOrderTicket::TSourceName sourceName,
                       QMainWindow& window)
    : services_(services), window_(window), bars_(services.TradeSides),
      symbols_(new TSymbolList(services)),
      ticket_(new TOrderTicket(services, desk, std::move(sourceName))),
      chart_(new TChart(services, bars_)), blotter_(new TBlotter(services, desk)),
      symbolsDock_(Add("symbolList", symbols_)), ticketDock_(Add("orderTicket", ticket_)),
      chartDock_(Add("chartDock", chart_)), blotterDock_(Add("blotter", blotter_)),
      symbolsBar_(new TCaptionBar(symbolsDock_)) {
  tools_ = {
      {symbolsDock_, "Term_Symbols", Qt::CTRL | Qt::Key_1, Qt::CTRL | Qt::Key_K,
       [this] { symbols_->FocusFilter(); }},
      {ticketDock_, "Term_OrderTicket", Qt::CTRL | Qt::Key_2, Qt::CTRL | Qt::Key_E,
       [this] { ticket_->FocusForm(); }},
      {chartDock_, "Term_Chart", Qt::CTRL | Qt::Key_3, Qt::CTRL | Qt::Key_H,
       [this] { chart_->setFocus(Qt::ShortcutFocusReason); }},
      {blotterDock_, "Term_Blotter", Qt::CTRL | Qt::Key_4, Qt::CTRL | Qt::Key_B,
       [this] { blotter_->FocusOrders(); }},
  };
  BuildSymbolList();
  window_.addDockWidget(Qt::LeftDockWidgetArea, blotterDock_);
  window_.addDockWidget(Qt::RightDockWidgetArea, symbolsDock_);
  window_.splitDockWidget(symbolsDock_, chartDock_, Qt::Vertical);
  window_.splitDockWidget(chartDock_, ticketDock_, Qt::Horizontal);
  SetTexts();
}

TToolDocks::~TToolDocks() {
  // They speak to what is destroyed before the window's children are.
  for (const auto& tool : tools_)
    delete tool.Dock;
}

QDockWidget* TToolDocks::Add(const char* name, QWidget* content) {
  auto* dock = new QDockWidget(&window_);
  dock->setAttribute(Qt::WA_WindowPropagation); // of the font, while it floats
  dock->setObjectName(QLatin1String(name));
  dock->setWidget(content);
  return dock;
}

void TToolDocks::BuildSymbolList() {
  symbolsDock_->setTitleBarWidget(symbolsBar_);
  connect(symbolsBar_, &TCaptionBar::CloseClicked, symbolsDock_, &QWidget::hide);
  connect(symbolsBar_, &TCaptionBar::GroupChosen, this, &TToolDocks::SetListGroup);
  const auto saved = services_.Settings.ListGroup.Value();
  symbols_->SetGroup(saved);
  symbolsBar_->SetGroup(QString::fromStdString(saved));
}

void TToolDocks::SetListGroup(const QString& group) {
  symbols_->SetGroup(group.toStdString());
  symbolsBar_->SetGroup(group);
  services_.Settings.ListGroup.Set(group.toStdString());
}

void TToolDocks::GoTo(const TTool& tool) {
  tool.Dock->show();
  tool.Dock->raise();
  tool.Dock->activateWindow();
  tool.Focus();
}

void TToolDocks::SetTexts() {
  CaptionDocks();
  symbols_->SetTexts();
  ticket_->SetTexts();
  blotter_->SetTexts();
  chart_->update();
}

void TToolDocks::SetSkin() {
  symbols_->RepaintFigures();
  ticket_->SetSkin();
  chart_->update();
}

void TToolDocks::SetMark(const QString& mark) {
  mark_ = mark;
  CaptionDocks();
}

void TToolDocks::CaptionDocks() {
  for (const auto& tool : tools_)
    Caption(tool.Dock, WindowText(tool.CaptionKey));
  Caption(
      chartDock_,
      (WindowText("Term_Chart") + u' ' + InstrumentText(services_, chart_->Symbol())).trimmed());
  symbolsBar_->SetCaption(WindowText("Term_Symbols"));
  symbolsBar_->SetMark(mark_);
}

// The menu that shows and hides the docks has their names alone.
void TToolDocks::Caption(QDockWidget* dock, const QString& caption) {
  dock->setWindowTitle(MarkedTitle(caption, mark_));
  dock->toggleViewAction()->setText(caption);
}

void TToolDocks::ShowChart(const QString& symbol) {
  chart_->SetSymbol(symbol);
  CaptionDocks();
  chartDock_->show();
  chartDock_->raise();
}

void TToolDocks::OfferChart(const QString& symbol) {
  if (!chart_->Symbol().isEmpty())
    return;
  chart_->SetSymbol(symbol);
  CaptionDocks();
}

void TToolDocks::AddView(QDockWidget* view, const std::vector<QDockWidget*>& before, int width) {
  if (before.empty()) {
    window_.addDockWidget(Qt::LeftDockWidgetArea, view);
    window_.splitDockWidget(view, blotterDock_, Qt::Vertical);
    return;
  }
  const int needed = (static_cast<int>(before.size()) + 1) * width + NarrowestTools;
  if (needed <= window_.width()) {
    window_.splitDockWidget(before.back(), view, Qt::Horizontal);
    return;
  }
  window_.tabifyDockWidget(before.back(), view);
  view->show();
  view->raise();
}

void TToolDocks::ShareRoom(QDockWidget* view) {
  const int left = view->sizeHint().width();
  const int right = window_.width() - left;
  window_.resizeDocks({view, symbolsDock_}, {left, right}, Qt::Horizontal);
  window_.resizeDocks({chartDock_, ticketDock_}, {3 * right / 5, 2 * right / 5}, Qt::Horizontal);
  const int height = window_.height();
  const int top = view->sizeHint().height();
  window_.resizeDocks({view, blotterDock_}, {top, height - top}, Qt::Vertical);
  window_.resizeDocks({symbolsDock_, ticketDock_}, {height / 2, height / 2}, Qt::Vertical);
}

bool TToolDocks::IsInSymbolList() const {
  return symbolsDock_->isAncestorOf(QApplication::focusWidget());
}

void TToolDocks::ChooseListGroup() { symbolsBar_->ChooseGroup(); }

} // namespace Terminal
