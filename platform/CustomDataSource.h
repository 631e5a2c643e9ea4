#pragma once

#include <QtGlobal>

#include <functional>
#include <string>

namespace Platform {

/// What a grid shows: records by index, texts by (record, column tag). The grid reads it at a
/// refresh and at a repaint, never while it paints.
class Q_DECL_EXPORT TcxCustomDataSource {
public:
  TcxCustomDataSource() = default;
  TcxCustomDataSource(const TcxCustomDataSource&) = delete;
  TcxCustomDataSource& operator=(const TcxCustomDataSource&) = delete;
  virtual ~TcxCustomDataSource();

  virtual int GetRecordCount() const = 0;
  /// Overwrites `text` with the cell's UTF-8 text, so that its memory is reused.
  virtual void GetDisplayText(int record, int column, std::string& text) const = 0;

  /// Tells the grid that shows it to refresh.
  void DataChanged() const {
    if (OnDataChanged)
      OnDataChanged();
  }

  /// Set by the grid.
  std::function<void()> OnDataChanged;
};

} // namespace Platform
