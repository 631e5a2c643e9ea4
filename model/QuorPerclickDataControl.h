#pragma once

#include "model/QuorPriceDataControl.h"

namespace Quorpricedatacontrol {

/// Model behind the best-price grid of a user who asks for each quote: best prices, price steps
/// and best sizes in the depth grid's price and size columns. Its OnRelatedChange tells that the
/// last price may have changed.
class TPerclickQuorMarketDataControl : public TCustomQuorMarketDataControl {
public:
  using TCustomQuorMarketDataControl::TCustomQuorMarketDataControl;

  int GetCount() const override;
  std::string GetDisplayValue(int row, int column) const override;
  std::string GetPriceValue(int row, int side) const override;
  std::string GetSizeValue(int row, int side) const override;
  void UpdateRelated() override;
  void CopyPrice(int row, int column) override;

  /// As the feed gives it; empty without a record.
  std::string GetLastUpdateTime() const;
  /// Asks the host for a fresh snapshot; nothing without a record.
  void RefreshPrice();
};

/// Model behind the summary grid of the same user: ten figures under their labels.
class TPerclickQuorInfoMarketDataControl : public TCustomQuorMarketDataControl {
public:
  using TCustomQuorMarketDataControl::TCustomQuorMarketDataControl;

  int GetCount() const override;
  std::string GetDisplayValue(int row, int column) const override;
  void CopyPrice(int row, int column) override;
};

} // namespace Quorpricedatacontrol
