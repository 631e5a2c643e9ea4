#pragma once

#include <cstdint>
#include <random>

namespace Market {

/// Random numbers that are the same on every machine for the same seed. The distributions are made
/// here because the library's are its own choice.
class TRandom {
public:
  /// Streams of one seed are independent of each other.
  TRandom(std::uint64_t seed, std::uint64_t stream);

  /// 0 <= u < 1.
  double Uniform() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }
  bool Chance(double probability) { return Uniform() < probability; }
  /// 0 to count - 1.
  int Below(int count) { return static_cast<int>(Uniform() * count); }
  /// Mean 1.
  double Exponential();
  /// Mean 0, deviation 1.
  double Normal();
  /// At least 0, with P(above x) = (1 + x / scale)^-exponent: a Pareto tail that begins at 0.
  double Lomax(double scale, double exponent);

private:
  std::mt19937_64 engine_;
};

} // namespace Market
