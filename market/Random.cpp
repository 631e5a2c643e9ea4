#include "market/Random.h"

#include "market/Mathematics.h"

#include <cmath>

namespace Market {

namespace {

/// Scatters neighbouring numbers over the whole range (the mixing step of SplitMix64), so that
/// streams of neighbouring numbers have nothing in common.
std::uint64_t Scattered(std::uint64_t number) {
  number += 0x9e3779b97f4a7c15;
  number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9;
  number = (number ^ (number >> 27)) * 0x94d049bb133111eb;
  return number ^ (number >> 31);
}

} // namespace

TRandom::TRandom(std::uint64_t seed, std::uint64_t stream)
    : engine_(Scattered(Scattered(seed) ^ stream)) {}

double TRandom::Exponential() { return -Log(1 - Uniform()); }

double TRandom::Normal() {
  // The polar method of G. Marsaglia, T. A. Bray, SIAM Review 6 (1964); its second number is
  // left, so that nothing is kept between calls.
  double x = 0, square = 0;
  do {
    x = 2 * Uniform() - 1;
    const double y = 2 * Uniform() - 1;
    square = x * x + y * y;
  } while (square >= 1 || square == 0);
  return x * std::sqrt(-2 * Log(square) / square);
}

double TRandom::Lomax(double scale, double exponent) {
  return scale * (Exp(-Log(1 - Uniform()) / exponent) - 1);
}

} // namespace Market
