#include "terminal/windows/PreferenceDialog.h"

#include "host/BaseLanguageManager.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/windows/WindowTexts.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace Terminal {

TPreferenceDialog::TPreferenceDialog(TConfigStore& config, Baseview::TIBaseView& descriptor,
                                     QWidget* parent)
    : QDialog(parent), config_(config), preference_(*descriptor.GetPreferenceView()),
      page_(preference_.GetView().front()),
      handle_(Baseview::TIBasePreferenceView::HandleOf(page_)),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply |
                                    QDialogButtonBox::Reset | QDialogButtonBox::RestoreDefaults |
                                    QDialogButtonBox::Cancel)) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(page_->Widget(), 1);
  column->addWidget(buttons_);
  page_->Widget()->show();
  connect(buttons_, &QDialogButtonBox::accepted, this, [this] {
    Save();
    accept();
  });
  connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(this, &QDialog::rejected, this, &TPreferenceDialog::ShowSaved);
  connect(Button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &TPreferenceDialog::Save);
  connect(Button(QDialogButtonBox::Reset), &QPushButton::clicked, this,
          &TPreferenceDialog::ShowSaved);
  connect(Button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
          [this] { preference_.ResetFactory(handle_); });
}

TPreferenceDialog::~TPreferenceDialog() { page_->Widget()->setParent(nullptr); }

void TPreferenceDialog::ShowPage() {
  SetLanguage(Baselanguagemanager::TCustomLanguageManager::GetInstance()->CurrentLanguage());
  page_->Widget()->setMinimumSize(page_->GetWidth(), page_->GetHeight());
  show();
  raise();
  activateWindow();
}

void TPreferenceDialog::SetLanguage(int language) {
  preference_.SetLanguage(handle_, language);
  SetTexts();
}

void TPreferenceDialog::Save() {
  TConfigStore::TUserAction action(config_);
  preference_.Execute(handle_);
}

void TPreferenceDialog::ShowSaved() { preference_.Reset(handle_); }

void TPreferenceDialog::SetTexts() {
  setWindowTitle(QString::fromStdString(preference_.GetName()));
  Button(QDialogButtonBox::Ok)->setText(WindowText("Term_OK"));
  Button(QDialogButtonBox::Apply)->setText(WindowText("Term_Apply"));
  Button(QDialogButtonBox::Reset)->setText(WindowText("Term_Reset"));
  Button(QDialogButtonBox::RestoreDefaults)->setText(WindowText("Term_Defaults"));
  Button(QDialogButtonBox::Cancel)->setText(WindowText("Term_Cancel"));
}

} // namespace Terminal
