#pragma once

#include "feed/SourceKind.h"

namespace Feed {

/// Every kind of source, in the order in which the menu and the help name them.
const std::vector<TSourceKind>& SourceKinds();

/// The one that is played where no other is asked for.
const TSourceKind& DefaultSource();

} // namespace Feed
