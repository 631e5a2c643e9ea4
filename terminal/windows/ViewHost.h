#pragma once

#include "host/view/BaseView.h"
#include "terminal/windows/ViewPane.h"

#include <QObject>

#include <functional>
#include <map>
#include <set>

namespace Terminal {

/// What a view is given when it opens.
struct TViewSettings {
  int Language = 0;
  QString FontName;
  int FontSize = 0; ///< points
};

/// In the application's font at a display scale, in per cent; under 100 counts as 100.
TViewSettings SettingsAt(int language, int scale);

/// The host of the views: opens and closes them, keeps each at the size that it prefers and under
/// its present caption, and tells what they announce and ask for.
///
/// What a view announces is followed after the view is done with what it does: a view must not be
/// measured in the midst of a change. However often it announces, it is measured once.
class TViewHost : public QObject, public Baseview::TCustomViewHost {
  Q_OBJECT

public:
  /// `settings` gives what a view that opens now is given. Services and descriptor outlive the
  /// host.
  TViewHost(const TServices& services, Baseview::TIBaseView& descriptor,
            std::function<TViewSettings()> settings);
  /// Closes every view.
  ~TViewHost() override;

  Baseview::TIBaseView& Descriptor() { return descriptor_; }

  /// Opens a view with `layoutData`, or with none when it is empty; null when the descriptor
  /// opens none. Layout data that the view refuses leaves it as far as it came.
  TViewPane* Open(const std::string& layoutData = {});
  void Close(int number);
  /// Throws std::invalid_argument as the view does.
  void SetLayoutData(const TViewPane& pane, const std::string& layoutData);
  /// While a view is being given layout data.
  bool IsSettingLayout() const { return settingLayout_; }
  /// Null when no view of that number is open.
  TViewPane* Pane(int number) const;
  /// In the order opened.
  std::vector<TViewPane*> Panes() const;
  /// The pane that holds `widget`; null when none does.
  TViewPane* PaneOf(const QWidget* widget) const;

  void SetLanguage(int language);
  /// The skin has changed.
  void SetSkin();

  void ViewNotify(Baseview::TIBaseView* view, int code) override;
  void OpenCustomView(Baseview::TIBaseView* view, int type, int index,
                      Baseorderdata::TCustomViewParameters* parameters, int position,
                      bool show) override;
  QWidget* GetDialogForm(Baseview::TIBaseView* view, System::TObject* sender) override;

signals:
  void Opened(Terminal::TViewPane* pane);
  /// The pane is still whole.
  void Closing(Terminal::TViewPane* pane);
  void Notified(int view, int code);
  /// A view asked for a view of another type; the symbol is empty when none was told.
  void CustomViewAsked(int type, const QString& symbol);

private:
  int NumberOf(const Baseview::TIBaseView* view) const;
  void ApplyLater(int number, int code);
  void Follow();

  const TServices& services_;
  Baseview::TIBaseView& descriptor_;
  std::function<TViewSettings()> settings_;
  std::map<int, TViewPane*> panes_;
  std::map<const Baseview::TIBaseView*, int> numbers_; ///< of views that may speak
  int lastNumber_ = 0;
  std::set<int> toMeasure_;
  std::set<int> toCaption_;
  bool followPosted_ = false;
  bool measuring_ = false;
  bool settingLayout_ = false;
};

} // namespace Terminal
