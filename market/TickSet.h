#pragma once

#include <cstdint>
#include <vector>

namespace Market {

/// A set of tick numbers, a bit each, that finds its next member up or down in a few steps.
class TTickSet {
public:
  static constexpr int None = -1;

  /// For the numbers 0 to count - 1.
  explicit TTickSet(int count);

  void Insert(int tick);
  void Erase(int tick);
  /// The least member that is at least `tick` (0 to count); None when there is none.
  int AtOrAbove(int tick) const;
  /// The greatest member that is at most `tick` (-1 to count - 1); None when there is none.
  int AtOrBelow(int tick) const;

private:
  std::vector<std::uint64_t> words_;   ///< a bit a tick
  std::vector<std::uint64_t> summary_; ///< a bit a word that is not zero
};

} // namespace Market
