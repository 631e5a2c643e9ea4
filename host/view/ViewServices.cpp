#include "host/ServiceSlot.h"
#include "host/view/ColumnInfo.h"
#include "host/view/EditorManager.h"
#include "host/view/GridDataSource.h"
#include "host/view/ImageResource.h"
#include "host/view/ViewInterface.h"

template class Host::TService<Editormanager::TEditorManager>;
template class Host::TService<Iimageresource::TIImageResourceList>;

Editormanager::TEditorManager::~TEditorManager() = default;
Iimageresource::TIImageResourceList::~TIImageResourceList() = default;
Viewinterface::TCaptionButton::~TCaptionButton() = default;

void Columninfo::AddColumn(std::vector<TColumnInfo>& columns, int id, int width, bool rightAligned,
                           std::string captionKey) {
  columns.push_back({id, width, rightAligned, std::move(captionKey)});
}

namespace Griddatasource {

TCustomGridDataSource::TCustomGridDataSource(
    std::unique_ptr<Basedatacontrol::TBaseDataControl> control)
    : control_(std::move(control)) {
  control_->OnChange = [this](System::TObject*) { DataChanged(); };
}

TCustomGridDataSource::~TCustomGridDataSource() = default;

int TCustomGridDataSource::GetRecordCount() const { return control_->GetCount(); }

void TCustomGridDataSource::GetDisplayText(int record, int column, std::string& text) const {
  text = control_->GetDisplayValue(record, column);
}

} // namespace Griddatasource
