#pragma once

#include "host/BaseSubscribeData.h"

#include <string>
#include <string_view>

/// Reading a record that may be null, and the texts of its fields.
namespace Quorpricedatacontrol {

using Basesubscribedata::TCustomSubItem;

/// True when there is a record and it holds data.
bool IsReady(const TCustomSubItem* record);

/// Empty without a record.
std::string_view TextOf(const TCustomSubItem* record, int field);

/// The field as the host formats prices; empty unless the record holds data.
std::string PriceText(const TCustomSubItem* record, int field);
/// The same for sizes and volumes. Zero is "0".
std::string VolumeText(const TCustomSubItem* record, int field);
/// The field as a quantity in shares; empty when the record does not give it.
std::string QuantityText(const TCustomSubItem* record, int field);

} // namespace Quorpricedatacontrol
