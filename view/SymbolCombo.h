#pragma once

#include "platform/Controls.h"

namespace Quorpriceview {

/// A box of symbols. Its open list has beside each what the host says of it; what is chosen is the
/// symbol alone. A wheel that passes over the box must not change the view's symbol, and that of
/// its whole group: only the open list can be turned.
class TSymbolCombo : public Platform::TcxComboBox {
public:
  TSymbolCombo();

  void showPopup() override;

protected:
  void wheelEvent(QWheelEvent* event) override;
};

} // namespace Quorpriceview
