#include "terminal/windows/PopupWindow.h"

#include "platform/Grid.h"
#include "terminal/windows/WindowTexts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace Terminal {

namespace {

constexpr int Gap = 8;      // pixels between the view and its window
constexpr int Stagger = 28; // pixels, so that each caption can be read
constexpr int Steps = 8;    // lower than that it begins again at the top

} // namespace

QPoint BesideView(const QRect& view, const QSize& size, const QRect& screen) {
  const int right = view.right() + 1 + Gap;
  const int left = view.left() - Gap - size.width();
  const bool fitsRight = right + size.width() <= screen.right() + 1;
  const int x = fitsRight || left < screen.left() ? right : left;
  const int lowest = std::max(screen.top(), screen.bottom() + 1 - size.height());
  const int furthest = std::max(screen.left(), screen.right() + 1 - size.width());
  return {std::clamp(x, screen.left(), furthest), std::clamp(view.top(), screen.top(), lowest)};
}

TPopupWindow::TPopupWindow(QWidget* view, int position)
    : QWidget(view, Qt::Tool), position_(position),
      fontSize_(QFontInfo(QApplication::font()).pointSize()) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_WindowPropagation);
  setFocusPolicy(Qt::StrongFocus);
}

void TPopupWindow::SetMark(const QString& mark) {
  mark_ = mark;
  setWindowTitle(MarkedTitle(title_, mark_));
}

void TPopupWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && placed_)
    FollowFont();
  if (event->type() != QEvent::WindowTitleChange || windowTitle() == MarkedTitle(title_, mark_))
    return;
  title_ = windowTitle();
  setWindowTitle(MarkedTitle(title_, mark_));
}

// Once: afterwards it stays where the user moves it. Its size is known when it is shown first.
void TPopupWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (std::exchange(placed_, true))
    return;
  FollowFont();
  const QWidget* view = parentWidget();
  const QPoint corner(0, position_ % Steps * Stagger);
  const QRect beside(view->mapToGlobal(corner), view->size());
  move(BesideView(beside, frameGeometry().size(), view->screen()->availableGeometry()));
}

void TPopupWindow::FollowFont() {
  const int before = std::exchange(fontSize_, fontInfo().pointSize());
  const auto scaled = [&](int pixels) { return qRound(double(pixels) * fontSize_ / before); };
  resize(scaled(width()), scaled(height()));
  // Rows and columns of a grid are in pixels, as the view made them.
  for (auto* rows : findChildren<Platform::TcxGridTableView*>()) {
    rows->SetDataRowHeight(scaled(rows->DataRowHeight()));
    for (const auto& column : rows->Columns())
      rows->SetColumnWidth(column.get(), scaled(column->Width));
  }
}

void TPopupWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

} // namespace Terminal
