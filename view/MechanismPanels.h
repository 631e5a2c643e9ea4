#pragma once

#include "model/QuorPriceDataControl.h"

namespace Quorpriceview {

class TQuorPriceForm;

/// Fills the message line, the volatility-control or closing-auction panel and the pre-opening
/// panel, and shows those and the markers in the symbol line that apply to the symbol. True when
/// the line or a panel came or went: the view has another height.
bool UpdateMechanismPanels(TQuorPriceForm& form,
                           const Quorpricedatacontrol::TCustomQuorMarketDataControl& control);

/// The texts of panels and markers that do not depend on the symbol, in the host's language.
void SetMechanismTexts(TQuorPriceForm& form);

/// The colours of the markers, by the host's skin.
void SetMarkerColours(TQuorPriceForm& form);

} // namespace Quorpriceview
