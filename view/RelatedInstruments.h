#pragma once

#include "model/QuorPriceDataControl.h"
#include "platform/Controls.h"

namespace Quorpriceview {

class TQuorPriceForm;

/// Fills the boxes of warrants, related instruments and liquidity providers with those of the
/// symbol, in the record's order and none preselected, and shows the boxes that have an entry.
void UpdateRelatedInstruments(TQuorPriceForm& form,
                              const Quorpricedatacontrol::TCustomQuorMarketDataControl& control);

/// Enters the chosen entry of one of the boxes as the symbol; nothing when none is chosen.
void EnterChosen(TQuorPriceForm& form, const Platform::TcxComboBox& box);

/// The text hints of the boxes, in the host's language.
void SetRelatedTexts(TQuorPriceForm& form,
                     const Quorpricedatacontrol::TCustomQuorMarketDataControl& control);

} // namespace Quorpriceview
