// SPDX-License-Identifier: MIT
// Numbers from text and integers from doubles, each with one defined answer for every input. The locale plays no part.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl {

/// Toward zero; what doesn't fit (NaN, infinities, out of range) gives the indefinite value, the lowest one.
[[nodiscard]] std::int32_t TruncateToInt32(double value);
[[nodiscard]] std::int64_t TruncateToInt64(double value);
/// The low 32 bits of TruncateToInt64; 0 for what doesn't fit.
[[nodiscard]] std::uint32_t TruncateToLowWord(double value);

/// The integer at the start of a text behind white space and a sign, as C's atoi reads it; 0 when there is none.
/// Digits beyond 32 bits saturate.
[[nodiscard]] std::int32_t ParseIntPrefix(TextView text);
/// The whole text as an integer, white space at the ends allowed; nothing when something else is in it.
[[nodiscard]] std::optional<std::int32_t> ParseInt(TextView text);
/// The number at the start of a text behind white space, as C's strtod reads it in the C locale; 0 when none.
[[nodiscard]] double ParseDoublePrefix(TextView text);
[[nodiscard]] std::optional<double> ParseDouble(TextView text);

}  // namespace pnl
