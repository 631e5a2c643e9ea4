#include "host/BaseLanguageManager.h"
#include "view/QuorDetailView.h"
#include "view/QuorPriceView.h"

#include <QEvent>
#include <QPointer>
#include <QVBoxLayout>

// The detail pop-ups. They are kept by window, never by symbol: each shows the symbol that the view
// had when it was opened.

namespace Quorpriceview {

using Baselanguagemanager::TCustomLanguageManager;
using Quordetailview::TQuorDetailFrame;

namespace {

constexpr int PopupWidth = 210;
constexpr int PopupHeight = 100;
constexpr int WarrantPopupHeight = 200;

std::int64_t KeyOf(const QWidget* form) { return reinterpret_cast<std::int64_t>(form); }

QString DetailCaption() {
  return QString::fromStdString(
      TCustomLanguageManager::GetInstance()->GetResource("Res_DetailInfo"));
}

QString CaptionWithSymbol(const std::string& symbol) {
  return QString::fromStdString(symbol) + QLatin1Char(' ') + DetailCaption();
}

} // namespace

void TQuorPriceFrame::SymbolProductTypeUpdate(TObject*) {
  const int type = priceControl_ ? priceControl_->ProductType() : -1;
  mDetail->setVisible(type == Constdef::ProductType_Stock || type == Constdef::ProductType_Warrant);
}

void TQuorPriceFrame::mDetailClick() {
  auto* form = Baseview::GetDialogForm(this, this);
  form->installEventFilter(this);
  // A window that the host frees without closing it is forgotten all the same.
  connect(form, &QObject::destroyed, this, [this, key = KeyOf(form)] {
    detailForms_.erase(key);
    detailFrames_.erase(key);
  });
  form->setWindowTitle(DetailCaption());
  auto* detail = new TQuorDetailFrame;
  auto* layout = new QVBoxLayout(form);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(detail);
  form->resize(PopupWidth, PopupHeight);
  if (priceControl_) {
    if (priceControl_->ProductType() == Constdef::ProductType_Warrant)
      form->resize(PopupWidth, WarrantPopupHeight);
    detail->SetSymbol(priceControl_->Symbol());
    form->setWindowTitle(CaptionWithSymbol(detail->Symbol()));
  }
  form->show();
  detailForms_[KeyOf(form)] = form;
  detailFrames_[KeyOf(form)] = detail;
}

bool TQuorPriceFrame::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) {
    auto* form = qobject_cast<QWidget*>(watched);
    auto action = TCloseAction::Hide;
    CloseDetailForm(form, action);
    form->setAttribute(Qt::WA_DeleteOnClose, action == TCloseAction::Free);
  }
  return TQuorPriceForm::eventFilter(watched, event);
}

void TQuorPriceFrame::CloseDetailForm(QWidget* sender, TCloseAction& action) {
  if (sender) {
    detailForms_.erase(KeyOf(sender));
    // The window is freed later, maybe after the view and the services; its content goes at once.
    if (const auto detail = detailFrames_.extract(KeyOf(sender)))
      delete detail.mapped();
  }
  action = TCloseAction::Free;
}

void TQuorPriceFrame::SetDetailLanguage(int language) {
  for (const auto& [key, detail] : detailFrames_) {
    detail->SetLanguage(language);
    if (const auto form = detailForms_.find(key); form != detailForms_.end())
      form->second->setWindowTitle(CaptionWithSymbol(detail->Symbol()));
  }
}

void TQuorPriceFrame::CloseDetailForms() {
  // Closing takes a window out of the dictionaries, and may free it and others with it. One that
  // is left is freed here and not later: nothing of the view may outlive it.
  while (!detailForms_.empty()) {
    const QPointer<QWidget> form(detailForms_.begin()->second);
    form->close();
    delete form;
  }
}

} // namespace Quorpriceview
