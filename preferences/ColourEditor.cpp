#include "preferences/ColourEditor.h"

#include "platform/Colour.h"
#include "preferences/NamedColours.h"
#include "preferences/Resource.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>

namespace Quorpricepreference {

using System::TColor;

namespace {

constexpr int SwatchSize = 16;
constexpr int ArrowWidth = 16;

QPixmap Swatch(TColor colour) {
  QPixmap pixmap(SwatchSize, SwatchSize);
  pixmap.fill(Platform::ToQColor(colour));
  QPainter painter(&pixmap);
  painter.setPen(QApplication::palette().color(QPalette::Mid));
  painter.drawRect(0, 0, SwatchSize - 1, SwatchSize - 1);
  return pixmap;
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

/// The colours that the rows of the cell's list have.
std::vector<TColor> ColoursBeside(const QPersistentModelIndex& cell) {
  std::vector<TColor> colours;
  const auto* list = cell.model();
  for (int row = 0; list && row < list->rowCount(); ++row)
    if (const auto colour = list->index(row, cell.column()).data(Qt::EditRole); colour.isValid())
      colours.push_back(colour.toUInt());
  return colours;
}

/// The colours of a cell. A cell that has none, or that of the background, which nobody sees, is
/// proposed the next one that no row has.
class TColourBox : public QComboBox {
public:
  TColourBox(QWidget* parent, const QModelIndex& cell) : QComboBox(parent), cell_(cell) {
    for (const auto colour : NamedColours())
      addItem(Swatch(colour), ColourName(colour), colour);
    addItem(GetResource("Res_ColorMore"));
    view()->installEventFilter(this);
  }

  /// An entry is made for a colour that is none of the named ones.
  void Select(TColor colour) {
    if (findData(colour) < 0)
      insertItem(count() - 1, Swatch(colour), ColourName(colour), colour);
    setCurrentIndex(findData(colour));
  }

  void showPopup() override {
    QComboBox::showPopup();
    if (currentIndex() < 0 || currentData() == QVariant(System::clWindow))
      view()->setCurrentIndex(model()->index(findData(NextColour(ColoursBeside(cell_))), 0));
  }

protected:
  // Tab takes what is marked, and goes on; Shift and Tab goes back without it.
  bool eventFilter(QObject* watched, QEvent* event) override {
    const int key =
        event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : Qt::Key(0);
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab)
      return QComboBox::eventFilter(watched, event);
    if (key == Qt::Key_Tab)
      setCurrentIndex(view()->currentIndex().row());
    hidePopup();
    QCoreApplication::sendEvent(this, event);
    return true;
  }

private:
  QPersistentModelIndex cell_;
};

} // namespace

void TColourEditor::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  TCellEditor::initStyleOption(option, index);
  const auto value = index.data(Qt::EditRole);
  if (!value.isValid())
    return;
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->decorationSize = QSize(SwatchSize, SwatchSize);
  option->icon = Swatch(value.toUInt());
}

void TColourEditor::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  auto beside = option;
  beside.rect.adjust(0, 0, -ArrowWidth, 0);
  TCellEditor::paint(painter, beside, index);
  DrawDropDownArrow(*painter, option);
}

QWidget* TColourEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
  auto* box = new TColourBox(parent, index);
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
  auto& box = static_cast<TColourBox&>(*editor);
  const auto value = index.data(Qt::EditRole);
  if (value.isValid())
    box.Select(value.toUInt());
  else
    box.setCurrentIndex(-1);
}

void TColourEditor::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const {
  const auto colour = qobject_cast<QComboBox*>(editor)->currentData();
  if (colour.isValid())
    model->setData(index, colour, Qt::EditRole);
}

} // namespace Quorpricepreference
