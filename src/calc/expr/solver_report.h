// SPDX-License-Identifier: MIT
// What an evaluation reports of its solver (INTEGRAL, ZERO) besides the value.
#pragma once

#include <cstdint>

namespace pnl {

/// The report of a solver, for a hint to the operator.
struct SolverReport {
  enum class Kind { kNone, kIntegral, kZero };
  Kind kind = Kind::kNone;
  std::int32_t steps = 0;        // intervals of INTEGRAL, iterations of ZERO
  bool reachedTolerance = true;  // false if ZERO stopped at its limit of iterations or at a NaN
  double residual = 0;           // the operand's value at the X that ZERO found
};

}  // namespace pnl
