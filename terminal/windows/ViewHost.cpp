#include "terminal/windows/ViewHost.h"

#include "host/ConstDef.h"
#include "terminal/services/OrderAdapter.h"

#include <QApplication>
#include <QScopedValueRollback>

#include <stdexcept>

namespace Terminal {

TViewSettings SettingsAt(int language, int scale) {
  const QFont font = QApplication::font();
  return {language, font.family(),
          font.pointSize() * std::max(scale, Constdef::ScalePPI_100) / Constdef::ScalePPI_100};
}

TViewHost::TViewHost(const TServices& services, Baseview::TIBaseView& descriptor,
                     std::function<TViewSettings()> settings)
    : services_(services), descriptor_(descriptor), settings_(std::move(settings)) {
  Install(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (auto* pane = PaneOf(now))
      descriptor_.ActiveView(pane->Handle());
  });
}

TViewHost::~TViewHost() {
  while (!panes_.empty())
    Close(panes_.begin()->first);
  Install(nullptr);
}

TViewPane* TViewHost::Open(const std::string& layoutData) {
  const int number = ++lastNumber_;
  const auto handle = descriptor_.OpenNewInstance();
  if (handle == 0)
    return nullptr;
  auto* pane = new TViewPane(number, services_, descriptor_, handle);
  panes_[number] = pane;
  numbers_[pane->Instance()] = number;
  connect(
      pane, &TViewPane::CloseAsked, this, [this, number] { Close(number); }, Qt::QueuedConnection);
  if (!layoutData.empty()) {
    try {
      SetLayoutData(*pane, layoutData);
    } catch (const std::invalid_argument&) {
      // What the view took before the refused value stays, and the user can set the rest.
    }
  }
  const TViewSettings settings = settings_();
  descriptor_.SetLanguage(handle, settings.Language);
  descriptor_.SetSkin(handle, {});
  descriptor_.SetFont(handle, settings.FontName.toStdString(), settings.FontSize, 0);
  descriptor_.SetGroupID(handle, {});
  descriptor_.ActiveView(handle);
  pane->ApplyPreferredSize();
  pane->RefreshCaption();
  emit Opened(pane);
  return pane;
}

void TViewHost::Close(int number) {
  auto* pane = Pane(number);
  if (!pane)
    return;
  emit Closing(pane);
  panes_.erase(number);
  const auto* instance = pane->Instance();
  delete pane;
  numbers_.erase(instance);
  toMeasure_.erase(number);
  toCaption_.erase(number);
}

void TViewHost::SetLayoutData(const TViewPane& pane, const std::string& layoutData) {
  const QScopedValueRollback setting(settingLayout_, true);
  descriptor_.SetLayoutData(pane.Handle(), layoutData);
}

TViewPane* TViewHost::Pane(int number) const {
  const auto found = panes_.find(number);
  return found == panes_.end() ? nullptr : found->second;
}

std::vector<TViewPane*> TViewHost::Panes() const {
  std::vector<TViewPane*> panes;
  for (const auto& [number, pane] : panes_)
    panes.push_back(pane);
  return panes;
}

TViewPane* TViewHost::PaneOf(const QWidget* widget) const {
  for (const auto& [number, pane] : panes_)
    if (widget && pane->isAncestorOf(widget))
      return pane;
  return nullptr;
}

void TViewHost::SetLanguage(int language) {
  for (auto* pane : Panes()) {
    descriptor_.SetLanguage(pane->Handle(), language);
    pane->RepaintView();
  }
}

void TViewHost::SetSkin() {
  for (auto* pane : Panes()) {
    descriptor_.SetSkin(pane->Handle(), {});
    pane->RepaintView();
  }
}

void TViewHost::ViewNotify(Baseview::TIBaseView* view, int code) {
  const int number = NumberOf(view);
  emit Notified(number, code);
  ApplyLater(number, code);
}

void TViewHost::OpenCustomView(Baseview::TIBaseView*, int type, int,
                               Baseorderdata::TCustomViewParameters* parameters, int, bool) {
  const auto* known = dynamic_cast<TViewParameters*>(parameters);
  emit CustomViewAsked(type, known ? QString::fromStdString(known->Symbol()) : QString());
}

QWidget* TViewHost::GetDialogForm(Baseview::TIBaseView* view, System::TObject*) {
  auto* pane = Pane(NumberOf(view));
  if (pane)
    return pane->OpenPopup();
  auto* window = new QWidget(nullptr, Qt::Tool);
  window->setAttribute(Qt::WA_DeleteOnClose);
  return window;
}

// A view may speak while it is still being opened; it is then the one opened last.
int TViewHost::NumberOf(const Baseview::TIBaseView* view) const {
  const auto found = numbers_.find(view);
  return found == numbers_.end() ? lastNumber_ : found->second;
}

void TViewHost::ApplyLater(int number, int code) {
  // A view that is asked for its size may answer with the announcement that it has one.
  if (code == Constdef::Notify_SizeChanged && !measuring_)
    toMeasure_.insert(number);
  if (code != Constdef::Notify_Shortcut)
    toCaption_.insert(number);
  if (followPosted_)
    return;
  followPosted_ = true;
  QMetaObject::invokeMethod(this, &TViewHost::Follow, Qt::QueuedConnection);
}

void TViewHost::Follow() {
  followPosted_ = false;
  const auto measure = std::exchange(toMeasure_, {});
  const auto caption = std::exchange(toCaption_, {});
  measuring_ = true;
  for (const int number : measure)
    if (auto* pane = Pane(number))
      pane->ApplyPreferredSize();
  measuring_ = false;
  for (const int number : caption)
    if (auto* pane = Pane(number))
      pane->RefreshCaption();
}

} // namespace Terminal
