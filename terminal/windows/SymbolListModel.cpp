#include "terminal/windows/SymbolListModel.h"

#include "host/ConstDef.h"
#include "host/RecordFields.h"
#include "platform/Colour.h"
#include "terminal/windows/Table.h"
#include "terminal/windows/WindowTexts.h"
#include "text/Numbers.h"

#include <algorithm>
#include <limits>

namespace Terminal {

namespace {

constexpr int UpdateInterval = 150; // milliseconds

constexpr const char* headerKeys[TSymbolListModel::Columns] = {
    "Term_Symbol",        "Term_Name", "Term_Last", "Term_Change",
    "Term_ChangePercent", "Term_Bid",  "Term_Ask",  "Term_Volume"};

/// Whole numbers come in the order of their value, before all other symbols.
QString SymbolOrder(const QString& symbol) {
  constexpr int longest = 12;
  bool isNumber = false;
  symbol.toLongLong(&isNumber);
  return isNumber ? symbol.rightJustified(longest, u'0') : symbol;
}

TCellKind KindOf(int column) {
  return column >= TSymbolListModel::LastColumn ? TCellKind::Figure : TCellKind::Text;
}

double FigureOrder(QString text) {
  const auto number = Text::ParseNumber(text.remove(u',').remove(u'%').toStdString());
  return number.value_or(-std::numeric_limits<double>::infinity());
}

} // namespace

TSymbolListModel::TSymbolListModel(TServices& services, QObject* parent)
    : QAbstractTableModel(parent), services_(services) {
  connect(&timer_, &QTimer::timeout, this, &TSymbolListModel::Update);
  timer_.start(UpdateInterval);
  Update();
}

TSymbolListModel::~TSymbolListModel() {
  for (const auto& row : rows_)
    services_.Subscriptions.Release(row.Record, &owner_);
}

int TSymbolListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TSymbolListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Columns;
}

QVariant TSymbolListModel::data(const QModelIndex& index, int role) const {
  const TRow& row = rows_.at(static_cast<std::size_t>(index.row()));
  const int column = index.column();
  const QString& text = row.Texts.at(static_cast<std::size_t>(column));
  switch (role) {
  case Qt::DisplayRole:
    return text;
  case Qt::TextAlignmentRole:
    return AlignmentOf(KindOf(column));
  case Qt::ForegroundRole:
    return column >= LastColumn && column <= ChangePercentColumn ? ColourOf(row) : QVariant();
  case SortRole:
    return column == SymbolColumn ? QVariant(SymbolOrder(text))
           : column == NameColumn ? QVariant(text)
                                  : QVariant(FigureOrder(text));
  case NamesRole: {
    const auto& names = services_.Symbols.Entries()[static_cast<std::size_t>(index.row())].Names;
    return QStringList(names.begin(), names.end());
  }
  default:
    return {};
  }
}

QVariant TSymbolListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal)
    return {};
  if (role == Qt::DisplayRole)
    return WindowText(headerKeys[section]);
  if (role == Qt::TextAlignmentRole)
    return AlignmentOf(KindOf(section));
  return {};
}

// The sign of the change, as it is shown, says which way the price went; the palette's colour where
// it went nowhere.
QVariant TSymbolListModel::ColourOf(const TRow& row) const {
  const QString& change = row.Texts[ChangeColumn];
  if (change.startsWith(u'+'))
    return Platform::ToQColor(services_.Skin.Up().Text);
  return change.startsWith(u'-') ? QVariant(Platform::ToQColor(services_.Skin.Down().Text))
                                 : QVariant();
}

void TSymbolListModel::Update() {
  AddListed();
  for (const auto row : std::exchange(stale_, {})) {
    rows_[row].Stale = false;
    const TTexts before = std::exchange(rows_[row].Texts, TextsOf(row));
    const TTexts& now = rows_[row].Texts;
    const auto first = std::mismatch(now.begin(), now.end(), before.begin()).first;
    if (first == now.end())
      continue;
    const auto last = std::mismatch(now.rbegin(), now.rend(), before.rbegin()).first;
    emit dataChanged(index(static_cast<int>(row), static_cast<int>(first - now.begin())),
                     index(static_cast<int>(row), static_cast<int>(now.rend() - last) - 1));
  }
}

void TSymbolListModel::SetTexts() {
  for (std::size_t row = 0; row < rows_.size(); ++row)
    MarkStale(row);
  Update();
  emit headerDataChanged(Qt::Horizontal, 0, Columns - 1);
}

void TSymbolListModel::AddListed() {
  const auto& symbols = services_.Symbols;
  if (std::exchange(knownListing_, symbols.Revision()) == symbols.Revision())
    return;
  for (std::size_t row = 0; row < rows_.size(); ++row) // names may have come
    MarkStale(row);
  const auto& entries = symbols.Entries();
  if (entries.size() == rows_.size())
    return;
  beginInsertRows({}, rowCount(), static_cast<int>(entries.size()) - 1);
  while (rows_.size() < entries.size()) {
    const auto row = rows_.size();
    auto* record = services_.Subscriptions.Subscribe(entries[row].Symbol.toStdString(),
                                                     Constdef::DataSet_Prices, true);
    rows_.push_back({record, {}, false});
    rows_.back().Texts = TextsOf(row);
    services_.Subscriptions.SetUpdateHandler(
        record, [this, row](System::TObject*, System::TObject*) { MarkStale(row); }, &owner_);
  }
  endInsertRows();
}

void TSymbolListModel::MarkStale(std::size_t row) {
  if (!std::exchange(rows_[row].Stale, true))
    stale_.push_back(row);
}

TSymbolListModel::TTexts TSymbolListModel::TextsOf(std::size_t row) const {
  const auto& record = *rows_[row].Record;
  auto& formatter = services_.MarketDataFormatter;
  const auto textOf = [&](auto format) {
    std::string text;
    format(text);
    return QString::fromStdString(text);
  };
  const auto price = [&](int field) {
    return textOf([&](std::string& text) { formatter.FormatPrice(record, field, text); });
  };
  const auto& entry = services_.Symbols.Entries()[row];
  return {entry.Symbol,
          entry.NameIn(services_.Languages.CurrentLanguage()),
          price(Host::Field::Nominal),
          textOf([&](std::string& text) { formatter.FormatChange(record, text); }),
          textOf([&](std::string& text) { formatter.FormatChangePercent(record, text); }),
          price(Host::Field::Bid.Price[0]),
          price(Host::Field::Ask.Price[0]),
          textOf([&](std::string& text) {
            formatter.FormatVolume(record, Host::Field::Volume, text);
          })};
}

} // namespace Terminal
