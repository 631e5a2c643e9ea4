#include "view/DetailWindows.h"

#include "host/ConstDef.h"
#include "view/QuorDetailView.h"
#include "view/Texts.h"

#include <QEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace Quorpriceview {

using Quordetailview::TQuorDetailFrame;
using Quorpricedatacontrol::TCustomQuorMarketDataControl;

namespace {

constexpr QSize PopupSize(210, 100);
constexpr QSize WarrantPopupSize(210, 200);

void SetCaption(QWidget& window, const TQuorDetailFrame& detail) {
  window.setWindowTitle(QString::fromStdString(detail.Symbol()) + QLatin1Char(' ') +
                        Translated("Res_DetailInfo"));
}

} // namespace

bool AreDetailsOffered(const TCustomQuorMarketDataControl& control) {
  const int type = control.ProductType();
  return type == Constdef::ProductType_Stock || type == Constdef::ProductType_Warrant;
}

void TDetailWindows::Open(QWidget* window, const TCustomQuorMarketDataControl& control) {
  window->installEventFilter(this);
  // A window that the host frees without closing it is forgotten all the same.
  connect(window, &QObject::destroyed, this, [this, window] { details_.erase(window); });
  auto* detail = new TQuorDetailFrame;
  auto* layout = new QVBoxLayout(window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(detail);
  const bool warrant = control.ProductType() == Constdef::ProductType_Warrant;
  window->resize(warrant ? WarrantPopupSize : PopupSize);
  detail->SetSymbol(control.Symbol());
  SetCaption(*window, *detail);
  window->show();
  details_[window] = detail;
}

bool TDetailWindows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close)
    CloseDetailForm(static_cast<QWidget*>(watched));
  return false;
}

void TDetailWindows::CloseDetailForm(QWidget* sender) {
  // The window is freed later, maybe after the view and the services; its content goes at once.
  if (const auto detail = details_.extract(sender))
    delete detail.mapped();
  sender->setAttribute(Qt::WA_DeleteOnClose);
}

void TDetailWindows::SetLanguage(int language) {
  for (const auto& [window, detail] : details_) {
    detail->SetLanguage(language);
    SetCaption(*window, *detail);
  }
}

void TDetailWindows::CloseAll() {
  // Closing forgets a window, and may free it and others with it. One that is left is freed here
  // and not later: nothing of the view may outlive it.
  while (!details_.empty()) {
    const QPointer<QWidget> window(details_.begin()->first);
    window->close();
    delete window;
  }
}

} // namespace Quorpriceview
