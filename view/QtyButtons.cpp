#include "view/QtyButtons.h"

#include "host/BaseConfigManager.h"
#include "host/ConstDef.h"
#include "model/RecordText.h"
#include "platform/ToolTip.h"
#include "text/Numbers.h"
#include "view/QuorPriceForm.h"

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
  return static_cast<int>(static_cast<std::uint32_t>(Text::ParseInteger(text).value_or(0)) *
                          multiplier);
}

bool SetQtyButtonCaption(TQuorPriceForm& form) {
  auto* config = Baseconfigmanager::TCustomConfigManager::GetInstance();
  bool found = false;
  int number = 0;
  for (auto* button : form.btnQty) {
    const auto key = std::string(Constdef::KeyPrefix_QtyButton) + std::to_string(++number);
    const auto caption = config->ReadString(Constdef::Section_QtyButtonCaption, key);
    // A single '&' would give the button a key that copies.
    button->setText(QString::fromStdString(caption).replace(QLatin1Char('&'), QLatin1String("&&")));
    button->setToolTip(Platform::ToolTipOf(QString::fromStdString(caption)));
    found = found || !caption.empty();
  }
  return found;
}

} // namespace Quorpriceview
