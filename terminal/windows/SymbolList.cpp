#include "terminal/windows/SymbolList.h"

#include "host/ConstDef.h"
#include "terminal/windows/WindowTexts.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

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
  const auto text = [&](int column) {
    return sourceModel()->index(row, column, parent).data().toString();
  };
  return text(TSymbolListModel::SymbolColumn).startsWith(symbol_, Qt::CaseInsensitive) ||
         text(TSymbolListModel::NameColumn).contains(text_, Qt::CaseInsensitive);
}

TSymbolList::TSymbolList(TServices& services, QWidget* parent)
    : QWidget(parent), services_(services), model_(services, this), filter_(this),
      find_(new QLineEdit), table_(new QTableView) {
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
  table_->setModel(&filter_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setShowGrid(false);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  table_->setSortingEnabled(true);
  table_->sortByColumn(-1, Qt::AscendingOrder); // as listed
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setHighlightSections(false);
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
  emit model_.headerDataChanged(Qt::Horizontal, 0, TSymbolListModel::Columns - 1);
  FitColumns();
}

void TSymbolList::FocusFilter() {
  find_->setFocus(Qt::ShortcutFocusReason);
  find_->selectAll();
}

void TSymbolList::Choose(const QString& symbol) {
  if (group_.empty()) {
    TListObject chosen(symbol.toStdString(), false);
    services_.Channels.Send(Constdef::Channel_CopySymbol, &owner_, &chosen);
  } else {
    TGroupData chosen(group_, symbol.toStdString(), false);
    services_.Channels.SendToGroup(group_, &owner_, &chosen);
  }
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
