#include "platform/Grid.h"

#include "platform/ToolTip.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace Platform {

TcxGridLevel::TcxGridLevel(const QString& name, TcxGrid* grid, TcxGridTableView* view)
    : QObject(grid), view_(view) {
  setObjectName(name);
  grid->view_ = view;
  grid->update();
}

TcxGrid::TcxGrid(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
}

TcxGrid::~TcxGrid() = default;

bool TcxGrid::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !view_ || !view_->CellHints)
    return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), ToolTipOf(view_->HintAt(help->pos())), this);
  return true;
}

void TcxGrid::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (view_)
    view_->Paint(painter, event->region());
  else
    painter.fillRect(event->rect(), palette().base());
}

void TcxGrid::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (view_ && view_->OnGetCellHeight)
    view_->Refresh();
  emit Resized();
}

void TcxGrid::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool looksOther =
      event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
  if (looksOther && view_)
    view_->Repaint();
}

void TcxGrid::mousePressEvent(QMouseEvent* event) {
  if (!view_)
    return;
  pressed_ = view_->HitTest(event->position().toPoint());
  pressedButton_ = event->button();
  if (pressed_.Record >= 0)
    view_->SetFocusedRecordIndex(pressed_.Record);
}

void TcxGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (!view_ || event->button() != pressedButton_)
    return;
  const TcxHitTest released = view_->HitTest(event->position().toPoint());
  const TcxHitTest pressed = std::exchange(pressed_, {});
  pressedButton_ = Qt::NoButton;
  if (released.Column && released.Column == pressed.Column && released.Record == pressed.Record)
    emit view_->CellClick(released.Column, event->button());
}

void TcxGrid::mouseMoveEvent(QMouseEvent* event) {
  if (view_)
    emit view_->MouseMove(event->position().toPoint());
}

void TcxGrid::contextMenuEvent(QContextMenuEvent* event) {
  // A menu without entries would be no more than a window that swallows the next click.
  const QMenu* menu = view_ ? view_->popupMenu_ : nullptr;
  if (menu && std::ranges::any_of(menu->actions(), &QAction::isVisible))
    view_->popupMenu_->popup(event->globalPos());
  else
    QWidget::contextMenuEvent(event);
}

} // namespace Platform
