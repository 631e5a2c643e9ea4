#include "market/Mathematics.h"

#include <cmath>

namespace Market {

double Exp(double x) {
  constexpr double Ln2High = 0x1.62e42fefa38p-1; // few digits, so that its multiples are exact
  constexpr double Ln2Low = 0x1.ef35793c7673p-45;
  const double doublings = std::floor(x / (Ln2High + Ln2Low) + 0.5);
  const double rest = (x - doublings * Ln2High) - doublings * Ln2Low; // at most ln 2 / 2
  double sum = 1;
  for (int term = 14; term > 0; --term)
    sum = 1 + sum * rest / term;
  return std::ldexp(sum, static_cast<int>(doublings));
}

double Log(double x) {
  constexpr double Ln2 = 0x1.62e42fefa39efp-1;
  constexpr double HalfRoot = 0.70710678118654752;
  int exponent = 0;
  double mantissa = std::frexp(x, &exponent); // 0.5 to 1
  if (mantissa < HalfRoot) {
    mantissa *= 2;
    --exponent;
  }
  // ln m = 2 artanh((m - 1) / (m + 1)), whose argument is at most 0.172.
  const double ratio = (mantissa - 1) / (mantissa + 1);
  const double square = ratio * ratio;
  double sum = 0;
  for (int power = 21; power > 0; power -= 2)
    sum = sum * square + 1.0 / power;
  return exponent * Ln2 + 2 * ratio * sum;
}

double NormalDistribution(double x) {
  // M. Abramowitz, I. Stegun, Handbook of Mathematical Functions, 26.2.17.
  constexpr double RootOfTwoPi = 2.50662827463100050;
  if (x < 0)
    return 1 - NormalDistribution(-x);
  const double t = 1 / (1 + 0.2316419 * x);
  const double tail =
      t *
      (0.319381530 + t * (-0.356563782 + t * (1.781477937 + t * (-1.821255978 + t * 1.330274429))));
  return x > 37 ? 1 : 1 - Exp(-x * x / 2) / RootOfTwoPi * tail;
}

} // namespace Market
