#include "market/FieldList.h"

#include <algorithm>
#include <charconv>

namespace Market {

namespace {

void DropTrailingZeros(std::string& text) {
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.'))
    text.pop_back();
}

} // namespace

std::string PriceText(TPrice price) {
  const std::string decimals = std::to_string(PriceUnit + price % PriceUnit);
  std::string text = std::to_string(price / PriceUnit) + "." + decimals.substr(1);
  DropTrailingZeros(text);
  return text;
}

void TFieldList::Text(int field, std::string_view text) {
  if (!text.empty())
    fields_.emplace_back(field, text);
}

void TFieldList::Price(int field, std::optional<TPrice> price) {
  if (price)
    fields_.emplace_back(field, PriceText(*price));
}

void TFieldList::Count(int field, std::int64_t count) {
  fields_.emplace_back(field, std::to_string(count));
}

void TFieldList::Number(int field, double number) {
  constexpr int mostDecimals = 6;
  char digits[64];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number,
                                 std::chars_format::fixed, mostDecimals);
  std::string text(std::begin(digits), end.ptr);
  DropTrailingZeros(text);
  fields_.emplace_back(field, std::move(text));
}

TFieldTexts TFieldList::Sorted() && {
  std::sort(fields_.begin(), fields_.end(),
            [](const auto& one, const auto& other) { return one.first < other.first; });
  return std::move(fields_);
}

TFieldTexts Merged(const TFieldTexts& first, TFieldTexts second) {
  TFieldTexts merged;
  merged.reserve(first.size() + second.size());
  std::set_union(std::make_move_iterator(second.begin()), std::make_move_iterator(second.end()),
                 first.begin(), first.end(), std::back_inserter(merged),
                 [](const auto& one, const auto& other) { return one.first < other.first; });
  return merged;
}

std::vector<std::pair<int, std::optional<std::string>>> Difference(const TFieldTexts& before,
                                                                   const TFieldTexts& after) {
  std::vector<std::pair<int, std::optional<std::string>>> changes;
  auto old = before.begin();
  for (const auto& [field, text] : after) {
    for (; old != before.end() && old->first < field; ++old)
      changes.emplace_back(old->first, std::nullopt);
    const bool wasThere = old != before.end() && old->first == field;
    if (!wasThere || old->second != text)
      changes.emplace_back(field, text);
    old += wasThere ? 1 : 0;
  }
  for (; old != before.end(); ++old)
    changes.emplace_back(old->first, std::nullopt);
  return changes;
}

} // namespace Market
