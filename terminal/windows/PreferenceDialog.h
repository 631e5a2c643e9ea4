#pragma once

#include "host/view/BasePreferenceView.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QStackedWidget>

namespace Terminal {

class TConfigStore;

/// The dialog that shows preference pages, of the packages and of the terminal, one at a time,
/// beside their names. The pages stay their owners'.
class TPreferenceDialog : public QDialog {
  Q_OBJECT

public:
  /// At least one of the preferences is not null and has a page. All outlive the dialog.
  TPreferenceDialog(TConfigStore& config,
                    const std::vector<Baseview::TIBasePreferenceView*>& preferences,
                    QWidget* parent = nullptr);
  ~TPreferenceDialog() override;

  /// Shows the pages, without waiting for the user.
  void ShowPage();

  /// The page that is shown; never null.
  Baseview::TBasePreferenceFrame* Page() const { return Current().Frame; }
  /// `Ok` and `Apply` save all pages and `Cancel` shows the saved values in all of them again; of
  /// the page that is shown, `Reset` shows the saved values and `RestoreDefaults` the factory's.
  /// `Ok` and `Cancel` close.
  QPushButton* Button(QDialogButtonBox::StandardButton which) const {
    return buttons_->button(which);
  }

  void SetLanguage(int language);

signals:
  void Saved();

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  struct TPage {
    Baseview::TIBasePreferenceView* Preference;
    Baseview::TBasePreferenceFrame* Frame;
    Baseview::TInstanceHandle Handle;
  };

  void AddPages(Baseview::TIBasePreferenceView& preference);
  void BuildButtons();
  void OrderTabs();
  const TPage& Current() const;
  void Save();
  void SetTexts();

  TConfigStore& config_;
  std::vector<TPage> pages_;
  QListWidget* names_;
  QStackedWidget* stack_;
  QDialogButtonBox* buttons_;
};

} // namespace Terminal
