#pragma once

#include "host/view/ViewInterface.h"
#include "view/ViewState.h"

#include <map>
#include <memory>
#include <vector>

namespace Quorpriceview {

class TQuorPriceForm;

/// What a caption button is for, in the order in which the buttons stand.
enum class TCaptionKind { DisplayMode, Refresh, ShowHide, Lock, Chart, BrokerQueue, QtyButtons };

/// The buttons on a view's caption. They show what a click will do.
class TCaptionButtons {
public:
  /// `form` must outlive it.
  explicit TCaptionButtons(TQuorPriceForm& form) : form_(form) {}

  void Add(TCaptionKind kind, System::TNotifyEvent onClick);
  std::vector<Viewinterface::TCaptionButton*> List() const;
  /// Gives the buttons image, text and number, and shows or hides what they are for.
  void Update(const TViewState& state);

private:
  TQuorPriceForm& form_;
  std::map<TCaptionKind, std::unique_ptr<Viewinterface::TCaptionButton>> buttons_;
};

} // namespace Quorpriceview
