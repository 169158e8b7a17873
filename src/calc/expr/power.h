// SPDX-License-Identifier: MIT
// The language's power: the C library's pow with a rule for roots of negative numbers, and its square, which is the
// same double sooner.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace pnl {

/// False, with the result untouched, when a negative base has an even root or the exponent 0.
[[nodiscard]] bool Power(double a, double b, double& result);

/// Whether a double is the only one within 0.55 units in the last place of the exact value, which lies at that
/// distance. glibc's pow is that near, so what passes here is what pow gives.
[[nodiscard]] inline bool IsOnlyPower(double value, double distance) {
#ifdef __GLIBC__
  // Away from the ends of the range, where distances themselves are not exact.
  if (!(std::fabs(value) > 1E-280 && std::fabs(value) < 1E280)) return false;
  // The power of two at or below the value; below it when the value is one itself, where the unit changes.
  constexpr std::uint64_t kExponent = 0x7FF0'0000'0000'0000;
  const double scale = std::bit_cast<double>((std::bit_cast<std::uint64_t>(value) - 1) & kExponent);
  return std::fabs(distance) < scale * (0.44 * 0x1p-52);
#else
  static_cast<void>(value);
  static_cast<void>(distance);
  return false;
#endif
}

/// The product of two numbers as a double and what is missing to the exact product.
struct ExactProduct {
  double value;
  double rest;
};
[[nodiscard]] inline ExactProduct Multiply(double a, double b) {
  // Halves multiply exactly, but for a last bit of the product of the low ones, far below what matters here.
  constexpr std::uint64_t kHigh = ~((std::uint64_t{1} << 27) - 1);
  const double highA = std::bit_cast<double>(std::bit_cast<std::uint64_t>(a) & kHigh);
  const double highB = std::bit_cast<double>(std::bit_cast<std::uint64_t>(b) & kHigh);
  const double lowA = a - highA;
  const double lowB = b - highB;
  const double value = a * b;
  return {value, ((highA * highB - value) + highA * lowB + lowA * highB) + lowA * lowB};
}

/// pow(a, two), the very same double, where two is 2. It isn't written as a constant, for the compiler would then make
/// a product of the call.
[[nodiscard]] inline double Square(double a, double two) {
  const ExactProduct square = Multiply(a, a);
  return IsOnlyPower(square.value, square.rest) ? square.value : std::pow(a, two);
}
[[nodiscard]] inline double Cube(double a, double three) {
  const ExactProduct square = Multiply(a, a);
  const ExactProduct cube = Multiply(square.value, a);
  // The rounded sum of both rests may be off by far less than what IsOnlyPower leaves over.
  const double rest = cube.rest + square.rest * a;
  const double value = cube.value + rest;
  return IsOnlyPower(value, rest - (value - cube.value)) ? value : std::pow(a, three);
}

}  // namespace pnl
