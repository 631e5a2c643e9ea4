#include "view/BrokerHint.h"

#include "view/QuorPriceForm.h"

namespace Quorpriceview {

using namespace Quorpricedatacontrol;

namespace {

constexpr int Lifetime = 10; // ticks of the host's shared timer

} // namespace

void TBrokerHint::PriceGridViewMouseMove(const TCustomQuorMarketDataControl& control,
                                         const QPoint& position) {
  const auto hit = form_.PriceGridView->HitTest(position);
  if (hit.Record < 0)
    return;
  if (!hit.Column) {
    ForgetRow();
    return;
  }
  if (!QueueColumnOf(hit.Column->Tag) || hit.Record == row_)
    return;
  row_ = hit.Record;
  shown_ = true;
  ticks_ = 0;
  const auto screen = form_.PriceGrid->mapToGlobal(position);
  const auto name = control.GetBrokerName(hit.Record, hit.Column->Tag);
  if (!name.empty())
    form_.HintCtrl->ShowHint(screen.x(), screen.y(), QString::fromStdString(name), {}, 0);
}

void TBrokerHint::ShowHintTimer() {
  if (shown_ && ++ticks_ >= Lifetime)
    Hide();
}

void TBrokerHint::Hide() {
  ticks_ = 0;
  shown_ = false;
  form_.HintCtrl->HideHint();
}

void TBrokerHint::SetFontSize(int points) {
  form_.HintCtrl->Font.setPointSize(points);
  form_.HintCtrl->CaptionFont.setPointSize(points);
}

} // namespace Quorpriceview
