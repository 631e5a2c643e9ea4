#pragma once

#include "platform/Controls.h"

#include <string>

namespace Quorpriceview {

/// What an instrument is, in the host's language: its name and, of a warrant or a CBBC, call or
/// put, strike and expiry. As much of it as the host knows at once; empty when that is nothing.
QString InstrumentDescription(const std::string& symbol);

/// A box of symbols. Its open list says beside each what it is; what is chosen is the symbol alone.
/// A wheel that passes over the box must not change the view's symbol, and that of its whole group:
/// only the open list can be turned.
class TSymbolCombo : public Platform::TcxComboBox {
public:
  TSymbolCombo();

  void showPopup() override;

protected:
  void wheelEvent(QWheelEvent* event) override;
};

} // namespace Quorpriceview
