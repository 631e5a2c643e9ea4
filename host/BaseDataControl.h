#pragma once

#include "host/System.h"

#include <vector>

namespace Basedatacontrol {

/// Model behind a grid: answers the text of each cell and tells its listener when to ask again.
class QUOR_EXPORT TBaseDataControl : public System::TObject {
public:
  ~TBaseDataControl() override;

  /// Fired when cells may have changed.
  System::TNotifyEvent OnChange;

  /// Number of rows.
  virtual int GetCount() const = 0;
  /// Fires OnChange.
  virtual void Changed();
  /// The identifiers of the columns that the control answers for; empty when it does not say.
  virtual std::vector<int> GetColList() const;

  /// Rows count from 0; `column` is a column identifier. Empty for a cell that does not exist.
  virtual std::string GetDisplayValue(int row, int column) const = 0;
  virtual System::TVariant GetValue(int row, int column) const;
  virtual System::TVariant GetRowValue(int row) const;
  virtual System::TVariant GetColValue(int column) const;
};

} // namespace Basedatacontrol
