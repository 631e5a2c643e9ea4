#include "host/BaseConfigManager.h"
#include "host/BaseDCDataControl.h"

using Baseconfigmanager::TCustomConfigManager;

namespace Basedatacontrol {

TBaseDataControl::~TBaseDataControl() = default;

void TBaseDataControl::Changed() {
  if (OnChange)
    OnChange(this);
}

std::vector<int> TBaseDataControl::GetColList() const { return {}; }

System::TVariant TBaseDataControl::GetValue(int row, int column) const {
  return GetDisplayValue(row, column);
}

System::TVariant TBaseDataControl::GetRowValue(int) const { return {}; }

System::TVariant TBaseDataControl::GetColValue(int) const { return {}; }

} // namespace Basedatacontrol

namespace Basedcdatacontrol {

TCustomDataControl::TCustomDataControl(System::TObject* owner) : owner_(owner) {
  TCustomConfigManager::GetInstance()->RegisterListener(
      [this](System::TObject* sender, System::TObject* data) { ConfigUpdate(sender, data); }, this);
}

TCustomDataControl::~TCustomDataControl() {
  TCustomConfigManager::GetInstance()->UnregisterListener(this);
}

void TCustomDataControl::ConfigUpdate(System::TObject*, System::TObject*) {}

} // namespace Basedcdatacontrol
