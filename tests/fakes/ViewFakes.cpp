#include "fakes/ViewFakes.h"

namespace Fakes {

TFakeViewHost::~TFakeViewHost() {
  for (const auto& dialog : dialogs)
    delete dialog.data();
}

void TFakeViewHost::ViewNotify(Baseview::TIBaseView*, int code) { notifications.push_back(code); }

void TFakeViewHost::OpenCustomView(Baseview::TIBaseView*, int type, int index,
                                   Baseorderdata::TCustomViewParameters* parameters, int position,
                                   bool show) {
  opened.push_back(
      {type, dynamic_cast<TFakeViewParameters&>(*parameters).symbol, index, position, show});
}

QWidget* TFakeViewHost::GetDialogForm(Baseview::TIBaseView*, System::TObject*) {
  auto* dialog = new QWidget(nullptr, Qt::Tool);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialogs.emplace_back(dialog);
  return dialog;
}

void TFakeEditorManager::RegisterSymbolEditor(Platform::TcxPopupEdit* edit, std::string_view group,
                                              bool completion, bool resolveOnExit) {
  askedForCompletion = completion;
  askedForResolutionOnExit = resolveOnExit;
  if (!edit->Resolver)
    ++liveEditors;
  groups.emplace_back(group);
  edit->Resolver = [this, edit] {
    if (listed.contains(edit->text().toStdString()))
      edit->SetHint(edit->text());
  };
}

void TFakeEditorManager::RemoveSymbolEditor(Platform::TcxPopupEdit* edit) {
  edit->Resolver = nullptr;
  --liveEditors;
}

TViewFakes::TViewFakes() {
  Baseview::TCustomViewHost::Install(&viewHost);
  Editormanager::TEditorManager::Install(&editors);
  Iimageresource::TIImageResourceList::Install(&images);
}

TViewFakes::~TViewFakes() {
  Baseview::TCustomViewHost::Install(nullptr);
  Editormanager::TEditorManager::Install(nullptr);
  Iimageresource::TIImageResourceList::Install(nullptr);
}

} // namespace Fakes
