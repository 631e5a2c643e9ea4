// A package whose views change their layouts all the time, and the terminal's settings and the
// number of views with them. Every change raises one generation number; what it restored and what
// is known to be stored goes to standard output, a line each.

#include "host/BaseConfigManager.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/ConstDef.h"
#include "host/Export.h"
#include "host/view/BaseView.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QRandomGenerator>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <cstdlib>
#include <set>

namespace {

using Baseglobalchannelmanager::TCustomGlobalChannelManager;

constexpr int Interval = 7; // milliseconds
constexpr int SettingEach = 5;
constexpr int MenuEach = 40;
constexpr int ViewEach = 25;
constexpr std::size_t FewestViews = 2;
constexpr std::size_t MostViews = 5;
constexpr const char* Section = "Restless";
constexpr const char* Key = "Generation";

int generation = 0;

template <typename... TValues> void Say(const char* format, TValues... values) {
  std::printf(format, values...);
  std::fflush(stdout);
}

/// The generation of layout data; 0 where there is none.
int GenerationOf(const std::string& layoutData) {
  const auto at = layoutData.find("Generation=");
  return at == std::string::npos ? 0 : std::atoi(layoutData.c_str() + at + 11);
}

class TRestlessView : public QWidget, public Baseview::TIBaseView {
public:
  TRestlessView() : TIBaseView(nullptr) {}

  using TIBaseView::GetLayoutData;
  using TIBaseView::SetLayoutData;

  QWidget* Widget() override { return this; }
  int GetWidth() override { return 200; }
  int GetHeight() override { return 100; }
  std::string GetLayoutData() override {
    return "Symbol=700,Generation=" + std::to_string(generation);
  }
  bool SetLayoutData(const std::string& layoutData) override {
    Say("view %d\n", GenerationOf(layoutData));
    generation = std::max(generation, GenerationOf(layoutData));
    return true;
  }
};

class TRestlessDescriptor : public Baseview::TIBaseView {
public:
  TRestlessDescriptor() : TIBaseView(nullptr) {
    // The services are there before the package, but not yet its descriptor's window.
    TCustomGlobalChannelManager::GetInstance()->Subscribe(
        Constdef::Channel_LayoutLoaded,
        [this](System::TObject*, System::TObject*) {
          auto* config = Baseconfigmanager::TCustomConfigManager::GetInstance();
          const int setting = config->ReadInteger(Section, Key);
          generation = std::max(generation, setting);
          Say("setting %d\nready %zu\n", setting, views_.size());
          timer_.start(Interval);
        },
        this);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Change(); });
  }

  ~TRestlessDescriptor() override {
    TCustomGlobalChannelManager::GetInstance()->Unsubscribe(Constdef::Channel_LayoutLoaded, this);
  }

  int GetMenuLevel() override { return 1; }
  bool GetIsVisible() override { return true; }
  Baseview::TInstanceHandle OpenNewInstance() override {
    auto view = std::make_unique<TRestlessView>();
    auto* raw = view.get();
    views_.insert(raw);
    QObject::connect(raw, &QObject::destroyed, [this, raw] { views_.erase(raw); });
    return AddView(std::move(view));
  }

private:
  void Change() {
    ++generation;
    for (auto* view : views_)
      Baseview::SendViewNotify(view, Constdef::Notify_LayoutChanged);
    if (generation % SettingEach == 0) {
      Baseconfigmanager::TCustomConfigManager::GetInstance()->WriteString(
          Section, Key, std::to_string(generation), true);
      Say("stored %d\n", generation);
    }
    if (generation % MenuEach == 0)
      ChooseASetting();
    if (generation % ViewEach == 0)
      OpenOrCloseAView();
  }

  /// As a user does, from the menu.
  static void ChooseASetting() {
    QList<QAction*> choices;
    for (const auto* window : QApplication::topLevelWidgets())
      for (auto* action : window->findChildren<QAction*>())
        if (action->isCheckable() && action->actionGroup())
          choices.append(action);
    if (!choices.isEmpty())
      choices[QRandomGenerator::global()->bounded(choices.size())]->trigger();
  }

  void OpenOrCloseAView() {
    const bool isEven = QRandomGenerator::global()->bounded(2) == 0;
    if (views_.size() < FewestViews || (views_.size() < MostViews && isEven))
      OpenAView();
    else
      CloseAView(**views_.begin());
  }

  static void OpenAView() {
    for (const auto* window : QApplication::topLevelWidgets())
      for (auto* action : window->findChildren<QAction*>())
        if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_N))
          return action->trigger();
  }

  /// By the last button of its caption.
  static void CloseAView(const TRestlessView& view) {
    const QWidget* parent = &view;
    while (parent && !qobject_cast<const QDockWidget*>(parent))
      parent = parent->parentWidget();
    if (const auto* dock = qobject_cast<const QDockWidget*>(parent))
      dock->titleBarWidget()->findChildren<QToolButton*>().back()->click();
  }

  std::set<TRestlessView*> views_;
  QTimer timer_;
};

} // namespace

extern "C" {

QUOR_EXPORT int quorPackageContractVersion() { return Constdef::ContractVersion; }
QUOR_EXPORT void quorPackageInitialize() {
  System::Classes::RegisterClass("TIQuorPrice", [](System::Classes::TComponent*) {
    return std::make_unique<TRestlessDescriptor>();
  });
}
QUOR_EXPORT void quorPackageFinalize() {}
}
