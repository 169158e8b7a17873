// SPDX-License-Identifier: MIT
#include "calc/expr/power.h"

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

}  // namespace pnl
