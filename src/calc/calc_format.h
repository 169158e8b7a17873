// SPDX-License-Identifier: MIT
// Formats numbers as the calculator shows them: a result in the base in use, and a value from outside with as many
// digits as are significant for its size. Every double is formatted, also NaN and infinities. The words around the
// numbers are in calc_words.
#pragma once

#include <string>

#include "base/text.h"

namespace pnl {

namespace number_base {
inline constexpr int kHexadecimal = 0;
inline constexpr int kDecimal = 1;
inline constexpr int kBinary = 2;
}  // namespace number_base

/// The binary digits of the value: of the low 32 bits after truncation toward zero, without leading zeros. At least
/// "0".
[[nodiscard]] Text BinaryDigits(double value);
/// The value as "$%X", "%.15g" or "B%s", by the base. The scanner of expressions can read each of them.
[[nodiscard]] Text FormatResult(double value, int base);
/// The value with its significant decimals and without trailing zeros. A negative value too small for a digit is "-0".
[[nodiscard]] Text FormatValue(double value);

/// The digits of a fraction, and its size: the fraction is 0.digits times ten to the power of place.
struct FractionDigits {
  std::string digits;
  int place = 0;
};
/// The absolute value of the fraction, rounded to that number of decimals. digits has no leading zeros. If the fraction
/// is rounded up to 1, it has one digit more than decimals.
[[nodiscard]] FractionDigits DigitsOfFraction(double fraction, int decimals);

}  // namespace pnl
