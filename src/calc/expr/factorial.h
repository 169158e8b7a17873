// SPDX-License-Identifier: MIT
// The factorial of the language, out of a table: as many products as a double holds, made in the order in which a loop
// would make them.
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

/// The product of 2 to n in doubles, n the value cut to 32 bits; infinite from 171 on. False for a negative n.
inline bool Factorial(double value, double& result) {
  const std::int32_t n = TruncateToInt32(value);
  if (n < 0) return false;
  result = n < kFiniteFactorials ? kFactorials[static_cast<std::size_t>(n)] : std::numeric_limits<double>::infinity();
  return true;
}

}  // namespace pnl
