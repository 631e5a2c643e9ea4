#include "feed/exchange/Layouts.h"

#include <algorithm>

namespace Feed::Exchange::Layouts {

const TMessageLayout* Find(std::uint16_t type) {
  const auto found = std::ranges::lower_bound(All, type, {}, &TMessageLayout::Type);
  return found != All.end() && (*found)->Type == type ? *found : nullptr;
}

} // namespace Feed::Exchange::Layouts
