#pragma once

#include "terminal/services/Services.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <array>
#include <vector>

namespace Terminal {

/// The listed symbols and their latest figures, a row each in the order listed. The figures follow
/// the records a few times a second, and only cells whose text differs are told to have changed.
class TSymbolListModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn {
    SymbolColumn,
    NameColumn,
    LastColumn,
    ChangeColumn,
    ChangePercentColumn,
    BidColumn,
    AskColumn,
    VolumeColumn,
    Columns
  };

  /// Gives what a column is sorted by: numbers for figures, lowest where there is none.
  static constexpr int SortRole = Qt::UserRole;
  /// Gives all that a symbol is found by beside itself: its names in every language.
  static constexpr int NamesRole = Qt::UserRole + 1;

  /// Subscribes the symbols until it is destroyed. The services outlive the model.
  explicit TSymbolListModel(TServices& services, QObject* parent = nullptr);
  ~TSymbolListModel() override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Takes headers and names in the present language.
  void SetTexts();

  /// Takes in the symbols that were listed and the figures that came since it ran last. Runs by
  /// itself while there is an event loop.
  void Update();

private:
  using TTexts = std::array<QString, Columns>;

  struct TRow {
    Basesubscribedata::TCustomSubItem* Record;
    TTexts Texts;
    bool Stale = false; ///< the record has changed since the texts were taken
  };

  void AddListed();
  void MarkStale(std::size_t row);
  TTexts TextsOf(std::size_t row) const;
  QVariant ColourOf(const TRow& row) const;

  TServices& services_;
  System::TObject owner_;
  std::vector<TRow> rows_;
  std::vector<std::size_t> stale_;
  int knownListing_ = -1; ///< revision of the symbols that the rows show
  QTimer timer_;
};

} // namespace Terminal
