// SPDX-License-Identifier: MIT
// What the solver of an expression (INTEGRAL, ZERO) came to, beside the value.
#pragma once

#include <cstdint>

namespace pnl {

/// What the solver of an expression came to, for a hint beside the value.
struct SolverReport {
  enum class Kind { kNone, kIntegral, kZero };
  Kind kind = Kind::kNone;
  std::int32_t steps = 0;        // intervals of INTEGRAL, iterations of ZERO
  bool reachedTolerance = true;  // false when ZERO stopped at its cap, or at a value that is no number
  double residual = 0;           // ZERO: the operand's value at the x that was found
};

}  // namespace pnl
