#pragma once

#include <string_view>

namespace Quorpriceview {

class TQuorPriceForm;

/// The quantity, in shares, that a quantity button's caption stands for: an integer, with group
/// commas and a last letter K (thousands) or M (millions) in any case, in 32-bit arithmetic. 0 or
/// less when the caption names no quantity to copy.
int QuantityOfCaption(std::string_view caption);

/// Gives the quantity buttons the captions that are configured; false when none is. A button
/// without one stays blank.
bool SetQtyButtonCaption(TQuorPriceForm& form);

} // namespace Quorpriceview
