#pragma once

#include "host/BaseDataControl.h"
#include "platform/CustomDataSource.h"

#include <memory>

namespace Griddatasource {

/// Connects a data control to a grid: gives the grid the control's rows and texts, and refreshes
/// the grid when the control changes. Owns the control. The listener of the control's OnChange
/// may be replaced by one that refreshes the grid at its own time.
class QUOR_EXPORT TCustomGridDataSource : public Platform::TcxCustomDataSource {
public:
  /// `control` is never null.
  explicit TCustomGridDataSource(std::unique_ptr<Basedatacontrol::TBaseDataControl> control);
  ~TCustomGridDataSource() override;

  int GetRecordCount() const override;
  void GetDisplayText(int record, int column, std::string& text) const override;

private:
  std::unique_ptr<Basedatacontrol::TBaseDataControl> control_;
};

} // namespace Griddatasource
