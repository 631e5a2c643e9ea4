#pragma once

#include "host/BaseOrderData.h"
#include "model/DepthLadder.h"

#include <memory>
#include <string>
#include <string_view>

/// What a click on a cell copies to order entry.
namespace Quorpricedatacontrol {

/// The price field of a cell of the depth columns; Field::None for a cell that copies none.
int DepthCellField(TQuorMode mode, int row, int column);

/// Quantity in shares that goes with a click on `field` (a price field, or the column identifier
/// of a best-size cell); 0 when none applies or the record is null.
double CopyPriceQuantity(const TCustomSubItem* record, TCopyPriceQtyMode mode, int field);

/// Where a copied order takes its figures from.
struct TCopySource {
  const TCustomSubItem& Record;
  TCopyPriceQtyMode Mode;
  TMarketDataType DepthType;
};

/// The order that copy operations fill and send.
class TCopiedOrder {
public:
  /// Takes an order object from the host.
  TCopiedOrder();

  /// Empties the order but for its symbol.
  void Start(std::string_view symbol);
  /// In shares.
  void SetQuantity(double quantity) { order_->SetQuantity(quantity); }
  /// Price and quantity of a clicked field; neither when the field is no price.
  void FillFromField(const TCopySource& source, int field, int column);
  /// Price of a header field; the quantity only where one board lot is copied.
  void FillFromHeader(const TCopySource& source, int field);
  /// To order entry. `group`: the sender's linking group.
  void Send(System::TObject* sender, const std::string& group);

private:
  void FillFromLevel(const TCopySource& source, int field, TLevelPosition position, int column);

  std::unique_ptr<Baseorderdata::TCustomOrder> order_;
};

} // namespace Quorpricedatacontrol
