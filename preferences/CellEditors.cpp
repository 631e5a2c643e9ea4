#include "preferences/CellEditors.h"

#include "host/view/ImageResource.h"
#include "platform/ImageList.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

namespace Quorpricepreference {

namespace {

constexpr int ButtonImageSize = 16;

} // namespace

bool TCellEditor::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
  const bool cutOff = sizeHint(option, index).width() > option.rect.width();
  if (event->type() != QEvent::ToolTip || !cutOff)
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  QToolTip::showText(event->globalPos(), index.data().toString(), view);
  return true;
}

void TDeleteButton::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex&) const {
  QStyleOptionButton button;
  button.rect = option.rect.adjusted(1, 1, -1, -1);
  button.state = QStyle::State_Raised | QStyle::State_KeyboardFocusChange |
                 (option.state & (QStyle::State_Enabled | QStyle::State_HasFocus));
  button.icon = Iimageresource::TIImageResourceList::GetInstance()->Images()->Image(
      Iimageresource::TIImageResourceList::DeleteImage);
  button.iconSize = QSize(ButtonImageSize, ButtonImageSize);
  button.palette = option.palette;
  QApplication::style()->drawControl(QStyle::CE_PushButton, &button, painter);
}

} // namespace Quorpricepreference
