#include "terminal/windows/PreferenceDialog.h"

#include "host/BaseLanguageManager.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/windows/WindowTexts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace Terminal {

namespace {

bool IsInItemView(const QWidget* widget) {
  for (; widget; widget = widget->parentWidget())
    if (qobject_cast<const QAbstractItemView*>(widget))
      return true;
  return false;
}

} // namespace

TPreferenceDialog::TPreferenceDialog(
    TConfigStore& config, const std::vector<Baseview::TIBasePreferenceView*>& preferences,
    QWidget* parent)
    : QDialog(parent), config_(config), names_(new QListWidget), stack_(new QStackedWidget),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply |
                                    QDialogButtonBox::Reset | QDialogButtonBox::RestoreDefaults |
                                    QDialogButtonBox::Cancel)) {
  for (auto* preference : preferences)
    if (preference)
      AddPages(*preference);
  connect(names_, &QListWidget::currentRowChanged, stack_, &QStackedWidget::setCurrentIndex);
  names_->setCurrentRow(0);
  auto* row = new QHBoxLayout;
  row->addWidget(names_);
  row->addWidget(stack_, 1);
  auto* column = new QVBoxLayout(this);
  column->addLayout(row, 1);
  column->addWidget(buttons_);
  BuildButtons();
}

// The pages outlive the dialog.
TPreferenceDialog::~TPreferenceDialog() {
  for (const auto& page : pages_)
    page.Frame->Widget()->setParent(nullptr);
}

void TPreferenceDialog::AddPages(Baseview::TIBasePreferenceView& preference) {
  for (auto* frame : preference.GetView()) {
    pages_.push_back({&preference, frame, Baseview::TIBasePreferenceView::HandleOf(frame)});
    names_->addItem(QString());
    stack_->addWidget(frame->Widget());
  }
}

void TPreferenceDialog::BuildButtons() {
  connect(buttons_, &QDialogButtonBox::accepted, this, [this] {
    Save();
    accept();
  });
  connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(this, &QDialog::rejected, this, [this] {
    for (const auto& page : pages_)
      page.Preference->Reset(page.Handle);
  });
  connect(Button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &TPreferenceDialog::Save);
  connect(Button(QDialogButtonBox::Reset), &QPushButton::clicked, this,
          [this] { Current().Preference->Reset(Current().Handle); });
  connect(Button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
          [this] { Current().Preference->ResetFactory(Current().Handle); });
}

const TPreferenceDialog::TPage& TPreferenceDialog::Current() const {
  return pages_.at(static_cast<std::size_t>(stack_->currentIndex()));
}

void TPreferenceDialog::ShowPage() {
  SetLanguage(Baselanguagemanager::TCustomLanguageManager::GetInstance()->CurrentLanguage());
  for (const auto& page : pages_)
    page.Frame->Widget()->setMinimumSize(page.Frame->GetWidth(), page.Frame->GetHeight());
  names_->setFixedWidth(names_->sizeHintForColumn(0) + 4 * names_->frameWidth() +
                        fontMetrics().averageCharWidth() * 4);
  show();
  OrderTabs();
  raise();
  activateWindow();
}

// The box puts its buttons in the platform's order when it is shown, and leaves those of its right
// side out of the tab chain.
void TPreferenceDialog::OrderTabs() {
  QWidget* before = Button(QDialogButtonBox::RestoreDefaults);
  for (const auto which :
       {QDialogButtonBox::Ok, QDialogButtonBox::Apply, QDialogButtonBox::Cancel}) {
    setTabOrder(before, Button(which));
    before = Button(which);
  }
}

void TPreferenceDialog::SetLanguage(int language) {
  for (const auto& page : pages_)
    page.Preference->SetLanguage(page.Handle, language);
  SetTexts();
}

void TPreferenceDialog::Save() {
  {
    TConfigStore::TUserAction action(config_);
    for (const auto& page : pages_)
      page.Preference->Execute(page.Handle);
  }
  emit Saved();
}

void TPreferenceDialog::SetTexts() {
  setWindowTitle(WindowText("Term_Preferences"));
  for (int page = 0; page < names_->count(); ++page)
    names_->item(page)->setText(
        QString::fromStdString(pages_[static_cast<std::size_t>(page)].Preference->GetName()));
  const auto set = [this](QDialogButtonBox::StandardButton which, const char* key, char letter) {
    Button(which)->setText(WithMnemonic(WindowText(key), QLatin1Char(letter)));
  };
  set(QDialogButtonBox::Ok, "Term_OK", 'O');
  set(QDialogButtonBox::Apply, "Term_Apply", 'A');
  set(QDialogButtonBox::Reset, "Term_Reset", 'R');
  set(QDialogButtonBox::RestoreDefaults, "Term_Defaults", 'D');
  set(QDialogButtonBox::Cancel, "Term_Cancel", 'C');
}

// Enter that ends the editing of a cell must not press the dialog's button as well.
void TPreferenceDialog::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || !IsInItemView(QApplication::focusWidget()))
    QDialog::keyPressEvent(event);
}

} // namespace Terminal
