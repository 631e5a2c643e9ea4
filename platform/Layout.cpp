#include "platform/Layout.h"

#include "platform/WrappingLayout.h"

namespace Platform {

namespace {

constexpr int HorizontalSpacing = 4;
constexpr int VerticalSpacing = 2;

QBoxLayout* NewBox(TLayoutDirection direction) {
  const bool horizontal = direction == TLayoutDirection::Horizontal;
  auto* box = new QBoxLayout(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  box->setContentsMargins({});
  box->setSpacing(horizontal ? HorizontalSpacing : VerticalSpacing);
  return box;
}

// A change inside a nested layout reaches the layouts around it by one event each. This hands it up
// at once, innermost first.
void Settle(QWidget* element) {
  const auto inner = element->findChildren<TdxLayoutElement*>(Qt::FindDirectChildrenOnly);
  for (TdxLayoutElement* each : inner)
    Settle(each);
  element->layout()->activate();
}

} // namespace

TdxLayoutElement::TdxLayoutElement(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
}

TdxLayoutItem::TdxLayoutItem(const QString& name, QWidget* control, QWidget* parent)
    : TdxLayoutElement(name, parent), caption_(new TcxLabel({}, this)), control_(control) {
  caption_->setForegroundRole(QPalette::PlaceholderText); // dimmed beside what it is the caption of
  caption_->hide();
  auto* box = NewBox(TLayoutDirection::Horizontal);
  box->addWidget(caption_);
  box->addWidget(control_, 1);
  setLayout(box);
}

QString TdxLayoutItem::Caption() const { return caption_->text(); }

void TdxLayoutItem::SetCaption(const QString& caption) {
  caption_->setText(caption);
  caption_->setVisible(!caption.isEmpty());
}

TdxLayoutGroup::TdxLayoutGroup(const QString& name, TLayoutDirection direction, QWidget* parent)
    : TdxLayoutElement(name, parent) {
  auto* outer = NewBox(TLayoutDirection::Vertical);
  if (direction == TLayoutDirection::Wrapping)
    outer->addLayout(lines_ = new TWrappingLayout(HorizontalSpacing, VerticalSpacing));
  else
    outer->addLayout(box_ = NewBox(direction));
  setLayout(outer);
}

void TdxLayoutGroup::SetCaption(const QString& caption) {
  caption_ = caption;
  if (captionLabel_)
    captionLabel_->setText(caption);
}

void TdxLayoutGroup::ShowCaption() {
  if (captionLabel_)
    return;
  captionLabel_ = new QLabel(caption_);
  captionLabel_->setTextFormat(Qt::PlainText);
  static_cast<QBoxLayout*>(layout())->insertWidget(0, captionLabel_);
  captionLabel_->show();
}

TdxLayoutGroup* TdxLayoutGroup::AddGroup(const QString& name, TLayoutDirection direction) {
  auto* group = new TdxLayoutGroup(name, direction, this);
  Add(group, 0, {});
  return group;
}

TdxLayoutItem* TdxLayoutGroup::AddItem(const QString& name, QWidget* control, bool takesFreeWidth) {
  auto* item = new TdxLayoutItem(name, control, this);
  const bool vertical = box_ && box_->direction() == QBoxLayout::TopToBottom;
  item->setSizePolicy(takesFreeWidth ? QSizePolicy::Preferred : QSizePolicy::Maximum,
                      QSizePolicy::Fixed);
  Add(item, takesFreeWidth && !vertical ? 1 : 0,
      vertical && !takesFreeWidth ? Qt::AlignLeft : Qt::Alignment());
  return item;
}

void TdxLayoutGroup::Add(TdxLayoutElement* element, int stretch, Qt::Alignment alignment) {
  if (box_) {
    box_->addWidget(element, stretch, alignment);
  } else {
    lines_->addWidget(element);
    if (stretch > 0)
      lines_->SetTakesFreeWidth();
  }
  element->SetVisibleFlag(true); // in a group on the screen it would wait for an event
}

void TdxLayoutGroup::AddStretch() {
  if (box_)
    box_->addStretch();
}

void TdxLayoutGroup::Align(TdxLayoutElement* element, Qt::Alignment alignment) {
  if (box_)
    box_->setAlignment(element, alignment);
  else
    lines_->setAlignment(element, alignment);
}

void TdxLayoutGroup::FillHeight(TdxLayoutElement* element) {
  element->setSizePolicy(element->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
}

int TdxLayoutGroup::LineCount(int width) const { return lines_ ? lines_->LineCount(width) : 1; }

void TdxLayoutGroup::SetSpacing(int pixels) {
  if (box_)
    box_->setSpacing(pixels);
  else
    lines_->setSpacing(pixels);
}

TdxLayoutControl::TdxLayoutControl(const QString& name, QWidget* parent)
    : QWidget(parent), root_(new TdxLayoutGroup(name + QStringLiteral("Group_Root"),
                                                TLayoutDirection::Vertical, this)) {
  setObjectName(name);
  root_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  auto* box = NewBox(TLayoutDirection::Vertical);
  box->addWidget(root_);
  box->addStretch(1); // all that is left, whatever stretches inside
  setLayout(box);
}

int TdxLayoutControl::ContentWidth() {
  Settle(root_);
  return root_->sizeHint().width();
}

int TdxLayoutControl::ContentHeight(int width) {
  Settle(root_);
  return root_->hasHeightForWidth() ? root_->heightForWidth(width) : root_->sizeHint().height();
}

} // namespace Platform
