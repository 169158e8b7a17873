// SPDX-License-Identifier: MIT
// The language's power: the C library's pow with a rule for roots of negative numbers, and its square, which is the
// same double sooner.
#pragma once

namespace pnl {

/// False, with the result untouched, when a negative base has an even root or the exponent 0.
[[nodiscard]] bool Power(double a, double b, double& result);

/// pow(a, 2.0), the very same double.
[[nodiscard]] double Square(double a);

}  // namespace pnl
