#pragma once

#include "host/view/BaseView.h"

#include <QDialog>
#include <QDialogButtonBox>

namespace Terminal {

class TConfigStore;

/// The dialog that shows the preference page of the price view. The page stays the descriptor's.
class TPreferenceDialog : public QDialog {
  Q_OBJECT

public:
  /// The descriptor has a preference page. Both outlive the dialog.
  TPreferenceDialog(TConfigStore& config, Baseview::TIBaseView& descriptor,
                    QWidget* parent = nullptr);
  ~TPreferenceDialog() override;

  /// Shows the page, without waiting for the user.
  void ShowPage();

  /// Never null.
  Baseview::TBasePreferenceFrame* Page() const { return page_; }
  /// `Ok` and `Apply` save, `Cancel` and `Reset` show the saved values again, `RestoreDefaults`
  /// the factory's; `Ok` and `Cancel` close.
  QPushButton* Button(QDialogButtonBox::StandardButton which) const {
    return buttons_->button(which);
  }

  void SetLanguage(int language);

private:
  void Save();
  void ShowSaved();
  void SetTexts();

  TConfigStore& config_;
  Baseview::TIBasePreferenceView& preference_;
  Baseview::TBasePreferenceFrame* page_;
  Baseview::TInstanceHandle handle_;
  QDialogButtonBox* buttons_;
};

} // namespace Terminal
