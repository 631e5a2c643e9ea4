#pragma once

#include <QAbstractItemView>
#include <QColor>
#include <QJsonArray>
#include <QString>

#include <optional>

namespace Terminal {

/// The list of highlighted brokers on the preference page, found by name on the live page and read
/// and edited through its item view. Columns are found by their tags, which the header tells.
class TBrokerList {
public:
  static constexpr int IdTag = 45;
  static constexpr int ColourTag = 200;
  static constexpr int DeleteTag = 25;

  /// Roles under which the list's header tells a column's tag, and its width as set.
  static constexpr int TagRole = Qt::UserRole;
  static constexpr int WidthRole = Qt::UserRole + 1;

  /// Throws TScriptError when the page has no broker list.
  explicit TBrokerList(QWidget& page);

  QAbstractItemView& View() const { return view_; }
  int RowCount() const;

  /// `[id or null, colour or null]`, a row each.
  QJsonArray Rows() const;
  /// `{"tag","caption","width"}`, a column each.
  QJsonArray Columns() const;

  /// Enters a row's values; what is absent is left empty. The row is a fresh one.
  void Enter(int row, const std::optional<QString>& id, const std::optional<QColor>& colour);
  /// Clicks the row's delete button.
  void Delete(int row);

private:
  /// Throws TScriptError when no column has the tag.
  QModelIndex Cell(int row, int tag) const;

  QAbstractItemView& view_;
};

} // namespace Terminal
