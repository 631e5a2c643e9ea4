#include "market/TickSet.h"

#include <bit>

namespace Market {

namespace {

using TWords = std::vector<std::uint64_t>;

constexpr int WordBits = 64;

std::size_t WordOf(int bit) { return static_cast<std::size_t>(bit / WordBits); }
std::uint64_t MaskOf(int bit) { return std::uint64_t{1} << (bit % WordBits); }
int LowestIn(std::uint64_t word) { return std::countr_zero(word); }
int HighestIn(std::uint64_t word) { return WordBits - 1 - std::countl_zero(word); }

/// The bits of the word of `bit` from `bit` up or down.
std::uint64_t UpFrom(const TWords& words, int bit) {
  return words[WordOf(bit)] & ~(MaskOf(bit) - 1);
}
std::uint64_t DownFrom(const TWords& words, int bit) {
  return words[WordOf(bit)] & (MaskOf(bit) | (MaskOf(bit) - 1));
}

int FirstFrom(const TWords& words, int bit) {
  int word = bit / WordBits;
  for (std::uint64_t bits = UpFrom(words, bit);; bits = words[static_cast<std::size_t>(word)]) {
    if (bits)
      return word * WordBits + LowestIn(bits);
    if (++word == std::ssize(words))
      return TTickSet::None;
  }
}

int LastTo(const TWords& words, int bit) {
  int word = bit / WordBits;
  for (std::uint64_t bits = DownFrom(words, bit);; bits = words[static_cast<std::size_t>(word)]) {
    if (bits)
      return word * WordBits + HighestIn(bits);
    if (--word < 0)
      return TTickSet::None;
  }
}

} // namespace

TTickSet::TTickSet(int count) : words_(WordOf(count) + 1), summary_(words_.size() / WordBits + 1) {}

void TTickSet::Insert(int tick) {
  words_[WordOf(tick)] |= MaskOf(tick);
  summary_[WordOf(tick / WordBits)] |= MaskOf(tick / WordBits);
}

void TTickSet::Erase(int tick) {
  words_[WordOf(tick)] &= ~MaskOf(tick);
  if (!words_[WordOf(tick)])
    summary_[WordOf(tick / WordBits)] &= ~MaskOf(tick / WordBits);
}

int TTickSet::AtOrAbove(int tick) const {
  const int own = tick / WordBits;
  if (const std::uint64_t bits = UpFrom(words_, tick))
    return own * WordBits + LowestIn(bits);
  const int word = FirstFrom(summary_, own + 1);
  return word == None ? None : word * WordBits + LowestIn(words_[static_cast<std::size_t>(word)]);
}

int TTickSet::AtOrBelow(int tick) const {
  if (tick < 0)
    return None;
  const int own = tick / WordBits;
  if (const std::uint64_t bits = DownFrom(words_, tick))
    return own * WordBits + HighestIn(bits);
  const int word = own == 0 ? None : LastTo(summary_, own - 1);
  return word == None ? None : word * WordBits + HighestIn(words_[static_cast<std::size_t>(word)]);
}

} // namespace Market
