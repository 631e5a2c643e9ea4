#include "terminal/windows/ViewPane.h"

#include "host/ConstDef.h"
#include "host/LayoutData.h"
#include "platform/Grid.h"
#include "terminal/windows/CaptionBar.h"
#include "terminal/windows/PopupWindow.h"
#include "terminal/windows/WindowTexts.h"

#include <QVBoxLayout>

namespace Terminal {

TViewPane::TViewPane(int number, const TServices& services, Baseview::TIBaseView& descriptor,
                     Baseview::TInstanceHandle handle)
    : number_(number), services_(services), descriptor_(descriptor), handle_(handle),
      bar_(new TCaptionBar(this)), view_(Instance()->Widget()) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(bar_);
  column->addWidget(view_);
  view_->show();
  connect(bar_, &TCaptionBar::CloseClicked, this, &TViewPane::CloseAsked);
  connect(bar_, &TCaptionBar::ButtonClicked, this,
          [this](int index) { descriptor_.HandleCaptionButtonClick(handle_, index); });
  connect(bar_, &TCaptionBar::GroupChosen, this,
          [this](const QString& group) { SetGroup(group.toStdString()); });
}

// The view first: it answers for its widget and closes its pop-ups itself.
TViewPane::~TViewPane() { descriptor_.CloseInstance(handle_); }

Baseview::TIBaseView* TViewPane::Instance() const {
  return reinterpret_cast<Baseview::TIBaseView*>(handle_);
}

std::string TViewPane::Caption() const {
  std::string caption;
  descriptor_.GetViewCaption(handle_, caption);
  return caption;
}

QString TViewPane::Title() const {
  const Host::TLayoutData layout(LayoutData());
  const auto symbol = QString::fromStdString(layout.Value(Constdef::Layout_Symbol));
  return symbol.isEmpty() ? QString::fromStdString(Caption()) : InstrumentText(services_, symbol);
}

std::vector<Viewinterface::TCaptionButton*> TViewPane::CaptionButtons() const {
  std::vector<Viewinterface::TCaptionButton*> buttons;
  descriptor_.GetViewCaptionButtons(handle_, buttons);
  return buttons;
}

QToolButton* TViewPane::CaptionTool(int index) const { return bar_->Button(index); }

std::string TViewPane::Group() const {
  std::string group;
  descriptor_.GetGroupID(handle_, group);
  return group;
}

void TViewPane::SetGroup(const std::string& group) {
  descriptor_.SetGroupID(handle_, group);
  RefreshCaption();
}

void TViewPane::ChooseGroup() { bar_->ChooseGroup(); }

std::string TViewPane::LayoutData() const { return descriptor_.GetLayoutData(handle_); }

QWidget* TViewPane::ReleaseCaptionBar() {
  layout()->removeWidget(bar_);
  return bar_;
}

void TViewPane::ApplyPreferredSize() {
  int width = preferred_.width();
  int height = preferred_.height();
  descriptor_.GetWidth(handle_, width);
  descriptor_.GetHeight(handle_, height);
  preferred_ = {width, height};
  view_->setFixedSize(preferred_);
}

void TViewPane::SetMark(const QString& mark) {
  mark_ = mark;
  bar_->SetMark(mark);
  for (auto* popup : findChildren<TPopupWindow*>(Qt::FindDirectChildrenOnly))
    popup->SetMark(mark);
  RefreshCaption();
}

void TViewPane::RefreshCaption() {
  const QString title = Title();
  bar_->SetCaption(title);
  setWindowTitle(MarkedTitle(title, mark_));
  Platform::TcxImageList* images = nullptr;
  descriptor_.GetViewCaptionButtonImageList(handle_, images);
  bar_->SetButtons(CaptionButtons(), images);
  bar_->SetGroup(QString::fromStdString(Group()));
}

void TViewPane::RepaintView() {
  for (auto* grid : findChildren<Platform::TcxGrid*>())
    if (grid->View())
      grid->View()->Repaint();
  view_->update();
}

QWidget* TViewPane::OpenPopup() {
  auto* window = new TPopupWindow(this, static_cast<int>(Popups().size()));
  window->SetMark(mark_);
  QPixmap icon;
  descriptor_.GetViewIcon(handle_, icon);
  window->setWindowIcon(icon.isNull() ? this->window()->windowIcon() : QIcon(icon));
  const int index = popups_.empty() ? 1 : popups_.back().Index + 1;
  popups_.push_back({index, window});
  return window;
}

std::vector<TViewPane::TPopup> TViewPane::Popups() const {
  std::vector<TPopup> open;
  for (const TPopup& popup : popups_)
    if (popup.Window && popup.Window->isVisible())
      open.push_back(popup);
  return open;
}

} // namespace Terminal
