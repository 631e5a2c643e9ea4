#pragma once

#include "terminal/windows/SymbolListModel.h"

#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTableView>

namespace Terminal {

/// The listed symbols that match what is typed above them. Rows keep their places while figures
/// move; they are sorted when a column's header is clicked.
class TSymbolFilter : public QSortFilterProxyModel {
public:
  explicit TSymbolFilter(QObject* parent);

  /// Symbols that begin with `text`, with or without leading zeros, and names that hold it, in
  /// whatever language.
  void SetText(const QString& text);

protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
  QString text_;
  QString symbol_; ///< the text without leading zeros
};

/// The watch list: every listed symbol with its figures, and a box to find one. Choosing a symbol
/// (a click, or Enter on a row or in the box) tells it to the views: by broadcast, or to the views
/// of the list's linking group.
class TSymbolList : public QWidget {
  Q_OBJECT

public:
  /// The services outlive the list.
  explicit TSymbolList(TServices& services, QWidget* parent = nullptr);

  /// Takes the texts of the present language.
  void SetTexts();
  /// Puts the keyboard into the box that finds a symbol.
  void FocusFilter();
  /// Empty: chosen symbols are broadcast.
  void SetGroup(const std::string& group) { group_ = group; }

  void Choose(const QString& symbol);
  /// The colours of prices have changed.
  void RepaintFigures() { table_->viewport()->update(); }

protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void BuildTable();
  void FitColumns();
  void ChooseRow(const QModelIndex& row);
  /// The symbol that is typed, or else the first row's.
  void ChooseTyped();
  bool FilterKey(int key);

  TServices& services_;
  System::TObject owner_;
  std::string group_;
  TSymbolListModel model_;
  TSymbolFilter filter_;
  QLineEdit* find_;
  QTableView* table_;
};

} // namespace Terminal
