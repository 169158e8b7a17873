// SPDX-License-Identifier: MIT
// The factorial of the language, from a table. The table has all factorials that a double can hold. Its products are
// made in the order of a loop, so that they are rounded in the same way.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "base/numbers.h"

namespace pnl {

inline constexpr int kFiniteFactorials = 171;  // 0! to 170!

inline constexpr std::array<double, kFiniteFactorials> kFactorials = [] {
  std::array<double, kFiniteFactorials> table{};
  double product = 1.0;
  for (int n = 0; n < kFiniteFactorials; ++n) {
    if (n >= 2) product *= n;
    table[static_cast<std::size_t>(n)] = product;
  }
  return table;
}();

/// Computes the factorial of the value, which is first truncated to a 32-bit integer. It is infinite from 171 on.
/// Returns false if the integer is negative.
inline bool Factorial(double value, double& result) {
  const std::int32_t n = TruncateToInt32(value);
  if (n < 0) return false;
  result = n < kFiniteFactorials ? kFactorials[static_cast<std::size_t>(n)] : std::numeric_limits<double>::infinity();
  return true;
}

}  // namespace pnl
