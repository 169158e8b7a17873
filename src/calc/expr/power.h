// SPDX-License-Identifier: MIT
// The language's power: the C library's pow with a rule for roots of negative numbers; and small whole exponents, which
// give the same double sooner.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace pnl {

/// False, with the result untouched, when a negative base has an even root or the exponent 0.
[[nodiscard]] bool Power(double a, double b, double& result);

/// Whether value is what the C library's pow gives for value + rest, which is exact but for far less than matters here.
/// glibc's pow is within 0.515 units in the last place in this range, so a rest of up to 0.48 leaves it no other
/// double.
[[nodiscard]] inline bool IsOnlyPower(double value, double rest) {
#ifdef __GLIBC__
  constexpr auto kLeast = std::bit_cast<std::uint64_t>(1E-30);
  constexpr auto kMost = std::bit_cast<std::uint64_t>(1E30);
  const std::uint64_t size = std::bit_cast<std::uint64_t>(value) & ~(std::uint64_t{1} << 63);
  // The sum rounds back to value when what is added is less than half a unit.
  return size - kLeast < kMost - kLeast && value + rest * (0.5 / 0.48) == value;
#else
  static_cast<void>(value);
  static_cast<void>(rest);
  return false;
#endif
}

/// A number of twice the digits: a double and what is missing.
struct WideNumber {
  double value;
  double rest;
};
[[nodiscard]] inline WideNumber Multiply(double a, double b) {
  // Halves multiply exactly, but for a last bit of the product of the low ones.
  constexpr std::uint64_t kHigh = ~((std::uint64_t{1} << 27) - 1);
  const double highA = std::bit_cast<double>(std::bit_cast<std::uint64_t>(a) & kHigh);
  const double highB = std::bit_cast<double>(std::bit_cast<std::uint64_t>(b) & kHigh);
  const double lowA = a - highA;
  const double lowB = b - highB;
  const double value = a * b;
  return {value, ((highA * highB - value) + highA * lowB + lowA * highB) + lowA * lowB};
}
/// The product with what was missing in its factors, together.
[[nodiscard]] inline WideNumber Multiply(double a, double b, double missing) {
  const WideNumber product = Multiply(a, b);
  const double rest = product.rest + missing;
  const double value = product.value + rest;
  return {value, rest - (value - product.value)};
}

// pow(a, 2.0), pow(a, 3.0) and pow(a, 4.0), the very same doubles. The exponent isn't written as a constant, for the
// compiler would then make a product of the call.
[[nodiscard]] inline double Square(double a, double two) {
  const WideNumber square = Multiply(a, a);
  return IsOnlyPower(square.value, square.rest) ? square.value : std::pow(a, two);
}
[[nodiscard]] inline double Cube(double a, double three) {
  const WideNumber square = Multiply(a, a);
  const WideNumber cube = Multiply(square.value, a, square.rest * a);
  return IsOnlyPower(cube.value, cube.rest) ? cube.value : std::pow(a, three);
}
[[nodiscard]] inline double Fourth(double a, double four) {
  const WideNumber square = Multiply(a, a);
  const WideNumber fourth = Multiply(square.value, square.value, 2 * square.rest * square.value);
  return IsOnlyPower(fourth.value, fourth.rest) ? fourth.value : std::pow(a, four);
}

}  // namespace pnl
