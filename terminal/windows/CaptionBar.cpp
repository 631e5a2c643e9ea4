#include "terminal/windows/CaptionBar.h"

#include "platform/DrawnIcon.h"
#include "platform/ImageList.h"
#include "terminal/windows/TerminalStyle.h"
#include "terminal/windows/WindowTexts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace Terminal {

namespace {

constexpr int IconSize = 16;
constexpr QColor quietColour(0x80, 0x88, 0x90); // of what waits to be used

/// A dot in the group's colour with its number, for those who cannot tell the colours apart; a ring
/// for none.
QIcon GroupIcon(const QColor& colour, const QString& number) {
  return Platform::DrawnIcon([=](QPainter& painter) {
    if (colour.isValid())
      painter.setBrush(colour);
    painter.setPen(QPen(colour.isValid() ? colour : quietColour, 1.5));
    painter.drawEllipse(QRectF(2, 2, 12, 12));
    QFont font = painter.font();
    font.setPixelSize(9);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, 0, IconSize, IconSize), Qt::AlignCenter, number);
  });
}

QIcon CloseIcon() {
  return Platform::DrawnIcon([](QPainter& painter) {
    painter.setPen(QPen(quietColour, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(5, 5, 11, 11);
    painter.drawLine(11, 5, 5, 11);
  });
}

} // namespace

TCaptionBar::TCaptionBar(QWidget* parent)
    : QWidget(parent), caption_(new QLabel(this)), mark_(new QLabel(this)) {
  setObjectName(QStringLiteral("captionBar"));
  setAttribute(Qt::WA_StyledBackground);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 2, 2, 2);
  row->setSpacing(2);
  caption_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(caption_, 1);
  row->addWidget(mark_);
  buttonRow_ = new QHBoxLayout;
  buttonRow_->setSpacing(2);
  row->addLayout(buttonRow_);
  group_ = AddTool(row);
  group_->setPopupMode(QToolButton::InstantPopup);
  group_->setStyleSheet(QStringLiteral("QToolButton::menu-indicator{image:none}"));
  BuildGroupMenu();
  close_ = AddTool(row);
  close_->setIcon(CloseIcon());
  connect(close_, &QToolButton::clicked, this, &TCaptionBar::CloseClicked);
  SetGroup({});
}

void TCaptionBar::SetCaption(const QString& caption) { caption_->setText(caption); }

void TCaptionBar::SetMark(const QString& mark) { mark_->setText(mark); }

void TCaptionBar::SetButtons(const std::vector<Viewinterface::TCaptionButton*>& buttons,
                             const Platform::TcxImageList* images) {
  FitButtons(buttons.size());
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const QIcon icon = images ? images->Image(buttons[i]->ImageIndex) : QIcon();
    buttons_[i]->setIcon(icon);
    buttons_[i]->setToolTip(QString::fromStdString(buttons[i]->Hint));
    buttons_[i]->setText(icon.isNull() ? buttons_[i]->toolTip() : QString());
  }
}

void TCaptionBar::SetGroup(const QString& group) {
  const auto known = std::find_if(LinkingGroups.begin(), LinkingGroups.end(),
                                  [&group](const auto& g) { return group == g.Id; });
  const bool isKnown = known != LinkingGroups.end();
  group_->setIcon(isKnown ? GroupIcon(QColor(known->Colour), group) : GroupIcon({}, {}));
  group_->setText(isKnown ? QString() : group);
  group_->setToolButtonStyle(isKnown || group.isEmpty() ? Qt::ToolButtonIconOnly
                                                        : Qt::ToolButtonTextBesideIcon);
  group_->setToolTip(WindowText("Term_Group"));
  group_->setAccessibleName(group_->toolTip() + u' ' + group);
  group_->menu()->actions().front()->setText(WindowText("Term_NoGroup"));
  close_->setToolTip(WindowText("Term_Close"));
}

void TCaptionBar::ChooseGroup() { group_->showMenu(); }

QToolButton* TCaptionBar::Button(int index) const {
  const auto position = static_cast<std::size_t>(index);
  return index >= 0 && position < buttons_.size() ? buttons_[position] : nullptr;
}

QToolButton* TCaptionBar::AddTool(QBoxLayout* layout) {
  auto* tool = new QToolButton(this);
  tool->setAutoRaise(true);
  tool->setFocusPolicy(Qt::NoFocus);
  tool->setIconSize(QSize(1, 1) * Scaled(IconSize, *this));
  layout->addWidget(tool);
  return tool;
}

void TCaptionBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    for (auto* tool : findChildren<QToolButton*>())
      tool->setIconSize(QSize(1, 1) * Scaled(IconSize, *this));
}

void TCaptionBar::BuildGroupMenu() {
  auto* menu = new QMenu(group_);
  const auto offer = [this, menu](const QString& id, const QColor& colour) {
    auto* action = menu->addAction(GroupIcon(colour, id), id.isEmpty() ? id : u'&' + id);
    connect(action, &QAction::triggered, this, [this, id] { emit GroupChosen(id); });
  };
  offer({}, {});
  for (const auto& group : LinkingGroups)
    offer(QString::fromLatin1(group.Id), QColor(group.Colour));
  group_->setMenu(menu);
}

void TCaptionBar::FitButtons(std::size_t count) {
  while (buttons_.size() > count) {
    delete buttons_.back();
    buttons_.pop_back();
  }
  while (buttons_.size() < count) {
    const int index = static_cast<int>(buttons_.size());
    buttons_.push_back(AddTool(buttonRow_));
    connect(buttons_.back(), &QToolButton::clicked, this,
            [this, index] { emit ButtonClicked(index); });
    buttons_.back()->show();
  }
}

} // namespace Terminal
