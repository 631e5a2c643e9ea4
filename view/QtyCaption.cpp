#include "view/QtyCaption.h"

#include "model/RecordText.h"

#include <cctype>
#include <cstdint>
#include <string>

namespace Quorpriceview {

int QuantityOfCaption(std::string_view caption) {
  std::string text(caption);
  std::erase(text, ',');
  if (text.empty())
    return 0;

  std::uint32_t multiplier = 1;
  const int last = std::toupper(static_cast<unsigned char>(text.back()));
  if (last == 'K' || last == 'M') {
    multiplier = last == 'K' ? 1'000 : 1'000'000;
    text.pop_back();
  }
  return static_cast<int>(
      static_cast<std::uint32_t>(Quorpricedatacontrol::ParseInteger(text).value_or(0)) *
      multiplier);
}

} // namespace Quorpriceview
