#pragma once

#include "model/QuorPriceDataControl.h"

#include <QObject>

#include <map>

class QWidget;

namespace Quordetailview {
class TQuorDetailFrame;
}

namespace Quorpriceview {

/// Whether the instrument of a control has details to show.
bool AreDetailsOffered(const Quorpricedatacontrol::TCustomQuorMarketDataControl& control);

/// The detail pop-ups of a view. They are kept by window, never by symbol: each shows the symbol
/// that the view had when it was opened.
class TDetailWindows : public QObject {
public:
  /// Fills a new window of the host for the symbol of `control`, and shows it.
  void Open(QWidget* window, const Quorpricedatacontrol::TCustomQuorMarketDataControl& control);
  void SetLanguage(int language);
  /// Closes and frees the windows that are left.
  void CloseAll();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  /// Frees the content of a window that closes at once, and the window when it has closed.
  void CloseDetailForm(QWidget* sender);

  std::map<QWidget*, Quordetailview::TQuorDetailFrame*> details_; ///< by window
};

} // namespace Quorpriceview
