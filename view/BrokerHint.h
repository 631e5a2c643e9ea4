#pragma once

#include "model/QuorPriceDataControl.h"

#include <QPoint>

namespace Quorpriceview {

class TQuorPriceForm;

/// The hint that follows the mouse over the broker queue. It is keyed by row: along one row it
/// stays as it is. It goes after a number of ticks of the host's timer.
class TBrokerHint {
public:
  /// `form` must outlive it.
  explicit TBrokerHint(TQuorPriceForm& form) : form_(form) {}

  /// `position`: in the coordinates of the depth grid.
  void PriceGridViewMouseMove(const Quorpricedatacontrol::TCustomQuorMarketDataControl& control,
                              const QPoint& position);
  /// The next move over the queue shows a hint, also in the row of the last one.
  void ForgetRow() { row_ = -1; }
  void ShowHintTimer();
  void Hide();
  void SetFontSize(int points);

private:
  TQuorPriceForm& form_;
  int row_ = -1; ///< of the last hint
  bool shown_ = false;
  int ticks_ = 0;
};

} // namespace Quorpriceview
