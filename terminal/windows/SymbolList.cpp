#include "terminal/windows/SymbolList.h"

#include "terminal/windows/SymbolChoice.h"
#include "terminal/windows/Table.h"
#include "terminal/windows/WindowTexts.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace Terminal {

namespace {

/// The widest that a column is made for; the column of names takes what is left.
constexpr const char* samples[TSymbolListModel::Columns] = {
    "88888", "", "8888.88", "+88.88", "+88.88%", "8888.88", "8888.88", "88,888,888"};
constexpr int CellMargin = 12;
constexpr int NarrowestName = 80;

} // namespace

TSymbolFilter::TSymbolFilter(QObject* parent) : QSortFilterProxyModel(parent) {
  setSortRole(TSymbolListModel::SortRole);
  setDynamicSortFilter(false);
}

void TSymbolFilter::SetText(const QString& text) {
  text_ = text.simplified();
  symbol_ = text_;
  while (symbol_.size() > 1 && symbol_.startsWith(u'0'))
    symbol_.remove(0, 1);
  invalidateFilter();
}

bool TSymbolFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  const auto listed = sourceModel()->index(row, TSymbolListModel::SymbolColumn, parent);
  const auto names = listed.data(TSymbolListModel::NamesRole).toStringList();
  return listed.data().toString().startsWith(symbol_, Qt::CaseInsensitive) ||
         std::any_of(names.begin(), names.end(), [this](const QString& name) {
           return name.contains(text_, Qt::CaseInsensitive);
         });
}

TSymbolList::TSymbolList(TServices& services, QWidget* parent)
    : QWidget(parent), services_(services), model_(services, this), filter_(this),
      find_(new QLineEdit), table_(NewTable(filter_)) {
  filter_.setSourceModel(&model_);
  find_->setClearButtonEnabled(true);
  find_->installEventFilter(this);
  connect(find_, &QLineEdit::textChanged, &filter_, &TSymbolFilter::SetText);
  BuildTable();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(find_);
  column->addWidget(table_, 1);
  SetTexts();
}

void TSymbolList::BuildTable() {
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSortingEnabled(true);
  table_->sortByColumn(-1, Qt::AscendingOrder); // as listed
  table_->installEventFilter(this);
  connect(table_, &QTableView::clicked, this, &TSymbolList::ChooseRow);
  FitColumns();
}

void TSymbolList::FitColumns() {
  const QFontMetrics metrics(font());
  auto* header = table_->horizontalHeader();
  header->setFont(font()); // headers have a font of their own
  header->setMinimumSectionSize(metrics.height());
  for (int column = 0; column < TSymbolListModel::Columns; ++column)
    header->resizeSection(
        column, std::max(metrics.horizontalAdvance(QLatin1String(samples[column])) + CellMargin,
                         header->sectionSizeHint(column)));
  header->resizeSection(TSymbolListModel::NameColumn, NarrowestName);
  header->setSectionResizeMode(TSymbolListModel::NameColumn, QHeaderView::Stretch);
  table_->verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
}

void TSymbolList::SetTexts() {
  find_->setPlaceholderText(WindowText("Term_FindSymbol"));
  find_->setAccessibleName(WindowText("Term_FindSymbol"));
  table_->setAccessibleName(WindowText("Term_Symbols"));
  model_.SetTexts();
  FitColumns();
}

void TSymbolList::FocusFilter() {
  find_->setFocus(Qt::ShortcutFocusReason);
  find_->selectAll();
}

void TSymbolList::Choose(const QString& symbol) {
  ChooseSymbol(services_, group_, &owner_, symbol.toStdString());
}

void TSymbolList::ChooseRow(const QModelIndex& row) {
  if (row.isValid())
    Choose(row.siblingAtColumn(TSymbolListModel::SymbolColumn).data().toString());
}

void TSymbolList::ChooseTyped() {
  find_->selectAll();
  if (const auto symbol = services_.Symbols.Resolve(find_->text().toStdString()))
    Choose(QString::fromStdString(*symbol));
  else
    ChooseRow(filter_.index(0, 0));
}

void TSymbolList::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    FitColumns();
}

bool TSymbolList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress)
    return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (watched == find_)
    return FilterKey(key);
  if (isEnter)
    ChooseRow(table_->currentIndex());
  return isEnter;
}

bool TSymbolList::FilterKey(int key) {
  switch (key) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    ChooseTyped();
    return true;
  case Qt::Key_Escape:
    find_->clear();
    return true;
  case Qt::Key_Down:
    table_->setFocus(Qt::TabFocusReason);
    if (!table_->currentIndex().isValid())
      table_->setCurrentIndex(filter_.index(0, 0));
    return true;
  default:
    return false;
  }
}

} // namespace Terminal
