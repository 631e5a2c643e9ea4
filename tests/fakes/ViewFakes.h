#pragma once

#include "fakes/HostFakes.h"
#include "host/view/BaseView.h"
#include "host/view/EditorManager.h"
#include "host/view/ImageResource.h"
#include "platform/ImageList.h"
#include "platform/PopupEdit.h"

#include <QPointer>
#include <QWidget>

#include <set>
#include <utility>

namespace Fakes {

/// A custom view that was opened.
struct TOpenedView {
  int type = 0;
  std::string symbol;
  int index = 0;
  int position = 0;
  bool show = true;

  bool operator==(const TOpenedView&) const = default;
};

class TFakeViewHost : public Baseview::TCustomViewHost {
public:
  ~TFakeViewHost() override;

  std::vector<int> notifications; ///< codes, in order
  std::vector<TOpenedView> opened;
  std::vector<QPointer<QWidget>> dialogs; ///< in order; null once freed

  /// The codes since the last call.
  std::vector<int> TakeNotifications() { return std::exchange(notifications, {}); }

  void ViewNotify(Baseview::TIBaseView* view, int code) override;
  void OpenCustomView(Baseview::TIBaseView* view, int type, int index,
                      Baseorderdata::TCustomViewParameters* parameters, int position,
                      bool show) override;
  QWidget* GetDialogForm(Baseview::TIBaseView* view, System::TObject* sender) override;
};

/// Resolves the symbols that a test lists, and nothing else.
class TFakeEditorManager : public Editormanager::TEditorManager {
public:
  std::set<std::string> listed;
  std::vector<std::string> groups; ///< group of each registration, in order
  int liveEditors = 0;
  bool askedForCompletion = false; ///< by the last registration, like the next
  bool askedForResolutionOnExit = false;

  void RegisterSymbolEditor(Platform::TcxPopupEdit* edit, std::string_view group, bool completion,
                            bool resolveOnExit) override;
  void RemoveSymbolEditor(Platform::TcxPopupEdit* edit) override;
};

class TFakeImageResources : public Iimageresource::TIImageResourceList {
public:
  Platform::TcxImageList* Images() override { return &images; }

  Platform::TcxImageList images;
};

/// The host of a view's test: everything of THostFakes, and what has to do with widgets.
struct TViewFakes : THostFakes {
  TViewFakes();
  ~TViewFakes();

  TFakeViewHost viewHost;
  TFakeEditorManager editors;
  TFakeImageResources images;
};

} // namespace Fakes
