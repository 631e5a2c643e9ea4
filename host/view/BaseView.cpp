#include "host/view/BaseView.h"

#include "host/ServiceSlot.h"

#include <QPixmap>
#include <QWidget>

template class Host::TService<Baseview::TCustomViewHost>;

namespace Baseview {

using Viewinterface::TCaptionButton;

TIBaseView::TIBaseView(System::Classes::TComponent* owner) : TComponent(owner) {}

TIBaseView::~TIBaseView() = default;

TIBaseView* TIBaseView::FindInstance(TInstanceHandle handle) const {
  const auto found = instances_.find(handle);
  return found == instances_.end() ? nullptr : found->second.get();
}

// The descriptor's own answers.

std::string TIBaseView::GetName() { return {}; }
int TIBaseView::GetViewID() { return 0; }
int TIBaseView::GetMenuLevel() { return 0; }
int TIBaseView::GetMenuIndex(int) { return -1; }
int TIBaseView::GetMenuID(int) { return 0; }
std::string TIBaseView::GetMenuCaption(int) { return {}; }
int TIBaseView::GetMenuGroupIndex(int) { return 0; }
bool TIBaseView::GetIsVisible() { return true; }
bool TIBaseView::GetIsWindow() { return false; }
TInstanceHandle TIBaseView::OpenNewInstance() { return 0; }
TIBasePreferenceView* TIBaseView::GetPreferenceView() { return nullptr; }
bool TIBaseView::GetIsDialog() { return false; }
bool TIBaseView::GetIsSizeable() { return false; }
bool TIBaseView::GetCanDock() { return true; }
TDockPosition TIBaseView::GetDockPosition() { return TDockPosition::Left; }
bool TIBaseView::GetIsDialogViewAfterMainShow() { return false; }
int TIBaseView::GetDialogViewIndexAfterMainShow() { return -1; }
bool TIBaseView::GetDefaultSize(int&, int&) { return false; }
bool TIBaseView::GetDefaultCaption(std::string&) { return false; }
void TIBaseView::InitializeShortcut() { shortcuts_.clear(); }

void TIBaseView::AddNewShortcut(const std::string& keyName, int key) {
  shortcuts_.push_back({keyName, key});
}

void TIBaseView::GetShortCutList(std::vector<Viewinterface::TCustomViewShortcut>& shortcuts) {
  if (!shortcutsReady_) {
    shortcutsReady_ = true;
    InitializeShortcut();
  }
  shortcuts = shortcuts_;
}

bool TIBaseView::ExecuteShortcutAction(int action) {
  auto* instance = FindInstance(active_);
  return instance && instance->ExecuteShortcutAction(action);
}

TInstanceHandle TIBaseView::AddView(std::unique_ptr<TIBaseView> frame) {
  const auto handle = reinterpret_cast<TInstanceHandle>(frame.get());
  instances_.emplace(handle, std::move(frame));
  return handle;
}

void TIBaseView::CloseInstance(TInstanceHandle handle) {
  // Out of the table first: what the destructor causes must not find the instance any more.
  const auto closing = instances_.extract(handle);
  if (active_ == handle)
    active_ = 0;
}

bool TIBaseView::ContainView(TInstanceHandle handle) { return FindInstance(handle) != nullptr; }
void TIBaseView::ActiveView(TInstanceHandle handle) { active_ = handle; }

void TIBaseView::DeactiveView(TInstanceHandle handle) {
  if (active_ == handle)
    active_ = 0;
}

// What the descriptor forwards to the instance.

void TIBaseView::GetWidth(TInstanceHandle handle, int& width) {
  if (auto* instance = FindInstance(handle))
    width = instance->GetWidth();
}

void TIBaseView::GetHeight(TInstanceHandle handle, int& height) {
  if (auto* instance = FindInstance(handle))
    height = instance->GetHeight();
}

void TIBaseView::GetViewCaption(TInstanceHandle handle, std::string& caption) {
  if (auto* instance = FindInstance(handle))
    caption = instance->GetViewCaption();
}

void TIBaseView::HandleCaptionButtonClick(TInstanceHandle handle, int button) {
  auto* instance = FindInstance(handle);
  if (!instance || button < 0)
    return;
  const auto buttons = instance->GetViewCaptionButtons();
  if (static_cast<std::size_t>(button) >= buttons.size())
    return;
  auto* clicked = buttons[static_cast<std::size_t>(button)];
  if (clicked->OnClick)
    clicked->OnClick(clicked);
}

void TIBaseView::GetViewCaptionButtons(TInstanceHandle handle,
                                       std::vector<TCaptionButton*>& buttons) {
  if (auto* instance = FindInstance(handle))
    buttons = instance->GetViewCaptionButtons();
}

void TIBaseView::GetViewCaptionButtonImageList(TInstanceHandle handle,
                                               Platform::TcxImageList*& images) {
  if (auto* instance = FindInstance(handle))
    images = instance->GetViewCaptionButtonImageList();
}

void TIBaseView::GetViewIcon(TInstanceHandle, QPixmap&) {}

void TIBaseView::SetSkin(TInstanceHandle handle, const std::string& skin) {
  if (auto* instance = FindInstance(handle))
    instance->SetSkin(skin);
}

void TIBaseView::SetLanguage(TInstanceHandle handle, int language) {
  if (auto* instance = FindInstance(handle))
    instance->SetLanguage(language);
}

void TIBaseView::SetFont(TInstanceHandle handle, const std::string& name, int size, int style) {
  if (auto* instance = FindInstance(handle))
    instance->SetFont(name, size, style);
}

std::string TIBaseView::GetLayoutData(TInstanceHandle handle) {
  auto* instance = FindInstance(handle);
  return instance ? instance->GetLayoutData() : std::string();
}

void TIBaseView::SetLayoutData(TInstanceHandle handle, const std::string& data) {
  if (auto* instance = FindInstance(handle))
    instance->SetLayoutData(data);
}

void TIBaseView::SetCustomData(TInstanceHandle handle, int kind, System::TObject* object) {
  if (auto* instance = FindInstance(handle))
    instance->SetCustomData(kind, object);
}

void TIBaseView::SendMessage(TInstanceHandle handle, int message, std::int64_t parameter) {
  if (auto* instance = FindInstance(handle))
    instance->SendMessage(message, parameter);
}

void TIBaseView::SetGroupID(TInstanceHandle handle, const std::string& group) {
  if (auto* instance = FindInstance(handle))
    instance->SetGroupID(group);
}

void TIBaseView::GetGroupID(TInstanceHandle handle, std::string& group) {
  if (auto* instance = FindInstance(handle))
    group = instance->GetGroupID();
}

// The instance's defaults.

QWidget* TIBaseView::Widget() { return nullptr; }
void TIBaseView::Initialize() {}
int TIBaseView::GetWidth() { return 0; }
int TIBaseView::GetHeight() { return 0; }
std::string TIBaseView::GetViewCaption() { return {}; }
std::vector<TCaptionButton*> TIBaseView::GetViewCaptionButtons() { return {}; }
Platform::TcxImageList* TIBaseView::GetViewCaptionButtonImageList() { return nullptr; }
bool TIBaseView::SetSkin(const std::string&) { return true; }
bool TIBaseView::SetLanguage(int) { return true; }
std::string TIBaseView::GetLayoutData() { return {}; }
bool TIBaseView::SetLayoutData(const std::string&) { return true; }
bool TIBaseView::SetGroupID(const std::string&) { return true; }
std::string TIBaseView::GetGroupID() { return {}; }
void TIBaseView::SetCustomData(int, System::TObject*) {}
void TIBaseView::SendMessage(int, std::int64_t) {}

void TIBaseView::SetFont(const std::string& name, int size, int style) {
  auto* widget = Widget();
  if (!widget)
    return;
  QFont font = widget->font();
  font.setFamily(QString::fromStdString(name));
  font.setPointSize(size);
  font.setBold((style & FontBold) != 0);
  font.setItalic((style & FontItalic) != 0);
  widget->setFont(font);
}

// The host's windows.

TCustomViewHost::~TCustomViewHost() = default;

void SendViewNotify(TIBaseView* view, int code) {
  TCustomViewHost::GetInstance()->ViewNotify(view, code);
}

void OpenCustomView(TIBaseView* view, int type, int index,
                    Baseorderdata::TCustomViewParameters* parameters, int position, bool show) {
  TCustomViewHost::GetInstance()->OpenCustomView(view, type, index, parameters, position, show);
}

QWidget* GetDialogForm(TIBaseView* view, System::TObject* sender) {
  return TCustomViewHost::GetInstance()->GetDialogForm(view, sender);
}

} // namespace Baseview
