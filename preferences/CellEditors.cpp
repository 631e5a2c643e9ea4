#include "preferences/CellEditors.h"

#include "host/view/ImageResource.h"
#include "platform/Colour.h"
#include "platform/ImageList.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace Quorpricepreference {

namespace {

constexpr int SwatchMargin = 3;
constexpr int ButtonImageSize = 16;
constexpr int ArrowWidth = 16;

/// Colours that stay apart from each other on a dark and on a light ground.
constexpr Platform::TColor NamedColours[] = {0x000000FF, 0x000080FF, 0x0000D7FF, 0x0000C000,
                                             0x00A0A000, 0x00FF9030, 0x00FF0000, 0x00FF40A0,
                                             0x00B469FF, 0x00404080, 0x00808080, 0x00FFFFFF};

QIcon SwatchIcon(const QColor& colour) {
  QPixmap pixmap(ButtonImageSize, ButtonImageSize);
  pixmap.fill(colour);
  return pixmap;
}

void AddColour(QComboBox& box, Platform::TColor colour) {
  const auto shown = Platform::ToQColor(colour);
  box.addItem(SwatchIcon(shown), shown.name(), colour);
}

/// The entry of a colour, made when it is none of the named ones.
void Select(QComboBox& box, Platform::TColor colour) {
  if (box.findData(colour) < 0)
    AddColour(box, colour);
  box.setCurrentIndex(box.findData(colour));
}

void DrawDropDownArrow(QPainter& painter, const QStyleOptionViewItem& option) {
  QStyleOption arrow = option;
  arrow.rect.setLeft(option.rect.right() + 1 - ArrowWidth);
  QApplication::style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter);
}

/// The cell's editor may close while the dialog is open, and a reload may take the cell itself
/// away.
void AskForColour(QWidget* window, const QPersistentModelIndex& cell) {
  const auto value = cell.data(Qt::EditRole);
  const auto shown = value.isValid() ? Platform::ToQColor(value.toUInt()) : QColor(Qt::white);
  auto* dialog = new QColorDialog(shown, window);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(dialog, &QColorDialog::colorSelected, dialog, [cell](const QColor& chosen) {
    if (cell.isValid())
      const_cast<QAbstractItemModel*>(cell.model())
          ->setData(cell, Platform::FromQColor(chosen), Qt::EditRole);
  });
  dialog->open();
}

} // namespace

bool TCellEditor::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
  const bool cutOff = sizeHint(option, index).width() > option.rect.width();
  if (event->type() != QEvent::ToolTip || !cutOff)
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  QToolTip::showText(event->globalPos(), index.data().toString(), view);
  return true;
}

void TColourEditor::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  TCellEditor::paint(painter, option, index);
  DrawDropDownArrow(*painter, option);
  const auto value = index.data(Qt::EditRole);
  if (!value.isValid())
    return;
  painter->setPen(option.palette.color(QPalette::Mid));
  painter->setBrush(Platform::ToQColor(value.toUInt()));
  painter->drawRect(
      option.rect.adjusted(SwatchMargin, SwatchMargin, -ArrowWidth - 1, -SwatchMargin - 1));
}

QWidget* TColourEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
  auto* box = new QComboBox(parent);
  for (const auto colour : NamedColours)
    AddColour(*box, colour);
  box->addItem(QStringLiteral("…"));
  const QPersistentModelIndex cell = index;
  connect(box, &QComboBox::activated, box, [this, box, cell](int entry) {
    if (box->itemData(entry).isValid()) {
      emit const_cast<TColourEditor*>(this)->commitData(box);
      return;
    }
    setEditorData(box, cell);
    AskForColour(box->window(), cell);
  });
  return box;
}

void TColourEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto& box = *qobject_cast<QComboBox*>(editor);
  const auto value = index.data(Qt::EditRole);
  if (value.isValid())
    Select(box, value.toUInt());
  else
    box.setCurrentIndex(-1);
}

void TColourEditor::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const {
  const auto colour = qobject_cast<QComboBox*>(editor)->currentData();
  if (colour.isValid())
    model->setData(index, colour, Qt::EditRole);
}

void TDeleteButton::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex&) const {
  QStyleOptionButton button;
  button.rect = option.rect.adjusted(1, 1, -1, -1);
  button.state = QStyle::State_Raised | (option.state & QStyle::State_Enabled);
  button.icon = Iimageresource::TIImageResourceList::GetInstance()->Images()->Image(
      Iimageresource::TIImageResourceList::DeleteImage);
  button.iconSize = QSize(ButtonImageSize, ButtonImageSize);
  button.palette = option.palette;
  QApplication::style()->drawControl(QStyle::CE_PushButton, &button, painter);
}

} // namespace Quorpricepreference
