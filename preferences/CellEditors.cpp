#include "preferences/CellEditors.h"

#include "host/view/ImageResource.h"
#include "platform/Colour.h"
#include "platform/ImageList.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QPainter>

namespace Quorpricepreference {

namespace {

constexpr int SwatchMargin = 3;
constexpr int ButtonImageSize = 16;

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

} // namespace

void TColourEditor::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const auto value = index.data(Qt::EditRole);
  if (!value.isValid())
    return;
  painter->setPen(option.palette.color(QPalette::Mid));
  painter->setBrush(Platform::ToQColor(value.toUInt()));
  painter->drawRect(
      option.rect.adjusted(SwatchMargin, SwatchMargin, -SwatchMargin - 1, -SwatchMargin - 1));
}

QWidget* TColourEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex&) const {
  auto* box = new QComboBox(parent);
  for (const auto colour : NamedColours)
    AddColour(*box, colour);
  box->addItem(QStringLiteral("…"));
  connect(box, &QComboBox::activated, box, [this, box](int entry) {
    if (!box->itemData(entry).isValid()) {
      const auto chosen = QColorDialog::getColor(Qt::white, box->window());
      if (!chosen.isValid())
        return;
      Select(*box, Platform::FromQColor(chosen));
    }
    auto* self = const_cast<TColourEditor*>(this);
    emit self->commitData(box);
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
