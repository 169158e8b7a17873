// SPDX-License-Identifier: MIT
#include "calc/expr/power.h"

#include <bit>
#include <cmath>
#include <cstdint>

#include "base/numbers.h"

namespace pnl {
namespace {

/// A root of a negative number, 0 < |b| < 1 or b = 0.
bool RootOfNegative(double a, double b, double& result) {
  const double y = std::fabs(1 / b);
  const std::int32_t n = TruncateToInt32(y + 0.5);
  // b = 0 ends here too: y is infinite, and the indefinite value is even. So (-8)^0 fails instead of giving 1.
  if (n % 2 == 0) return false;
  result = std::fabs(n - y) < 1E-6 ? -std::pow(-a, b) : std::pow(a, b);
  return true;
}

}  // namespace

bool Power(double a, double b, double& result) {
  if (a < 0 && std::fabs(b) < 1) return RootOfNegative(a, b, result);
  result = std::pow(a, b);
  return true;
}

double Square(double a) {
#ifdef __GLIBC__
  // glibc's pow is within 0.55 units in the last place. So the rounded product, when it is within 0.44, is the only
  // double that pow can give. The product's error comes from halves of a that multiply exactly.
  const double product = a * a;
  if (product > 1E-280 && product < 1E280) {
    const double high = std::bit_cast<double>(std::bit_cast<std::uint64_t>(a) & ~((std::uint64_t{1} << 27) - 1));
    const double low = a - high;
    const double error = ((high * high - product) + 2 * high * low) + low * low;
    // The power of two at or below the product; below it when the product is one itself, where the unit changes.
    constexpr std::uint64_t kExponent = 0xFFF0'0000'0000'0000;
    const double scale = std::bit_cast<double>((std::bit_cast<std::uint64_t>(product) - 1) & kExponent);
    if (std::fabs(error) < scale * (0.44 * 0x1p-52)) return product;
  }
#endif
  return std::pow(a, 2.0);
}

}  // namespace pnl
