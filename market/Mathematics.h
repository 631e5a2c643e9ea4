#pragma once

// The few functions that the simulation needs beyond arithmetic, made of arithmetic alone: the
// library's may differ in the last digit from one processor to the next, and a simulated day must
// not.
namespace Market {

/// e to the power of `x`, -700 to 700; within some 1e-15 of the value.
double Exp(double x);
/// Natural logarithm of `x` above 0.
double Log(double x);
/// Probability that a standard normal variable is below `x`; within 1e-7.
double NormalDistribution(double x);

} // namespace Market
