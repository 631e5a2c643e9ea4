#include "model/BrokerQueue.h"

#include "host/BaseLanguageManager.h"
#include "host/BaseMarketAdapter.h"
#include "model/RecordText.h"
#include "text/Strings.h"

#include <algorithm>

namespace Quorpricedatacontrol {

using Baselanguagemanager::TCustomLanguageManager;
using Basemarketadapter::TCustomBroker;
using Basemarketadapter::TCustomMarketAdapter;

namespace {

constexpr std::size_t IDDigits = 4;

bool BeginsWithSign(std::string_view entry) {
  return !entry.empty() && (entry.front() == '+' || entry.front() == '-');
}

std::string_view WithoutFirstCharacter(std::string_view text) {
  do
    text.remove_prefix(1);
  while (!text.empty() && Text::IsContinuation(text.front()));
  return text;
}

std::string FourDigitID(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  std::string id(IDDigits - std::min(IDDigits, digits.size()), '0');
  return id.append(digits);
}

std::string IDText(std::string_view entry) {
  if (entry.empty() || entry == "0")
    return {};
  if (BeginsWithSign(entry))
    return std::string(entry);
  if (Text::IsDigits(entry))
    return FourDigitID(entry);
  if (entry.find('s') == std::string_view::npos)
    if (const auto digits = WithoutFirstCharacter(entry); Text::IsDigits(digits))
      return FourDigitID(digits);
  return std::string(entry);
}

std::string NameText(const TCustomBroker& broker) {
  return std::string(broker.NameIn(TCustomLanguageManager::GetInstance()->CurrentLanguage()));
}

} // namespace

std::optional<TQueueColumn> QueueColumnOf(int column) {
  if (column >= Column::BidQueue1 && column <= Column::BidQueue4)
    return TQueueColumn{Side::Bid, column - Column::BidQueue1};
  if (column >= Column::AskQueue1 && column <= Column::AskQueue4)
    return TQueueColumn{Side::Ask, column - Column::AskQueue1};
  return std::nullopt;
}

std::ptrdiff_t QueueIndex(TQueueColumn column, int row, int rowCount) {
  if (row <= 0)
    return -1;
  return std::ptrdiff_t{row} - 1 + std::ptrdiff_t{column.Place} * (rowCount - 1);
}

void TBrokerQueue::TEntries::Update(std::string_view text) {
  if (text == Text)
    return;
  Text = text;
  Pieces.clear();
  Text::ForEachPiece(Text, [this](std::string_view piece) {
    if (const auto entry = Text::Trim(piece); !entry.empty())
      Pieces.push_back(entry);
  });
}

void TBrokerQueue::Update(std::string_view bidText, std::string_view askText) {
  sides_[Side::Bid].Update(bidText);
  sides_[Side::Ask].Update(askText);
}

int TBrokerQueue::Size(int side) const {
  if (side != Side::Bid && side != Side::Ask)
    return 0;
  return static_cast<int>(sides_[static_cast<std::size_t>(side)].Pieces.size());
}

std::string_view TBrokerQueue::Entry(std::ptrdiff_t index, int side) const {
  if (index < 0 || index >= Size(side))
    return {};
  return sides_[static_cast<std::size_t>(side)].Pieces[static_cast<std::size_t>(index)];
}

std::string TBrokerQueue::Text(std::ptrdiff_t index, int side, TBrokerStyle style) const {
  std::string text = IDText(Entry(index, side));
  if (style == TBrokerStyle::Name && !text.empty() && !BeginsWithSign(text))
    if (const auto* broker = TCustomMarketAdapter::GetInstance()->GetBroker(text))
      return NameText(*broker);
  return text;
}

bool TBrokerQueue::IsLevelMarker(std::ptrdiff_t index, int side) const {
  return BeginsWithSign(Entry(index, side));
}

} // namespace Quorpricedatacontrol
