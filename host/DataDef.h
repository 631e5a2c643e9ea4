#pragma once

#include "host/System.h"

namespace Datadef {

/// What travels on channel 18016: an order copied to order entry (its object is a TCustomOrder),
/// or the order that order entry works on (a TCustomClientOrder). Valid during the call only.
class QUOR_EXPORT TCopyOrderRecord : public System::TObject {
public:
  ~TCopyOrderRecord() override;

  System::TObject* Order = nullptr; ///< the sender's; null when the message carries no order
  int Kind = 0;                     ///< what is asked: Constdef::View_QuorPrice for a copied order
  std::string Source;               ///< the sender's linking group; empty when it is in none
};

} // namespace Datadef
