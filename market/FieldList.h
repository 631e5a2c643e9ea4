#pragma once

#include "market/MarketTypes.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Market {

/// What a record holds: texts by field number, ascending.
using TFieldTexts = std::vector<std::pair<int, std::string>>;

/// "0.25": currency units without needless zeros.
std::string PriceText(TPrice price);

/// Collects a record's fields in any order, each number once. A value that there is not leaves the
/// field out.
class TFieldList {
public:
  void Text(int field, std::string_view text); ///< an empty text: there is none
  void Price(int field, std::optional<TPrice> price);
  void Count(int field, std::int64_t count);
  void Number(int field, double number); ///< without needless zeros, at most six decimals

  TFieldTexts Sorted() &&;

private:
  TFieldTexts fields_;
};

/// The fields of both; where both have one, the second's.
TFieldTexts Merged(const TFieldTexts& first, TFieldTexts second);

/// The fields of which the two states of a record differ; those that only `before` has without a
/// text.
std::vector<std::pair<int, std::optional<std::string>>> Difference(const TFieldTexts& before,
                                                                   const TFieldTexts& after);

} // namespace Market
