// SPDX-License-Identifier: MIT
// Numbers as the calculator shows them: a result in the base in use, a value handed over with the digits that its size
// lets be significant. Every double has an answer, NaN and infinities included. Not the texts around them.
#pragma once

#include <string>

#include "base/text.h"

namespace pnl {

namespace number_base {
inline constexpr int kHexadecimal = 0;
inline constexpr int kDecimal = 1;
inline constexpr int kBinary = 2;
}  // namespace number_base

/// The digits of the low 32 bits of the value truncated toward zero, without leading zeros; "0" for none.
[[nodiscard]] Text BinaryDigits(double value);
/// "$%X", "%.15g" or "B%s" by base; the scanner reads each of them again.
[[nodiscard]] Text FormatResult(double value, int base);
/// Without trailing zeros; a negative value too small for a digit is "-0".
[[nodiscard]] Text FormatValue(double value);

/// The digits of a fraction's size with so many decimals, rounded to nearest, without leading zeros; place is where the
/// point is before them, negative for zeros dropped after it. A fraction that rounds up to 1 has a digit more.
struct FractionDigits {
  std::string digits;
  int place = 0;
};
[[nodiscard]] FractionDigits DigitsOfFraction(double fraction, int decimals);

}  // namespace pnl
