// SPDX-License-Identifier: MIT
// Reads numbers from text and turns doubles into integers. Each function has one defined result for every input. The
// locale plays no part.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl {

/// Rounds toward zero. NaN, infinities and values out of range give the lowest integer.
[[nodiscard]] std::int32_t TruncateToInt32(double value);
[[nodiscard]] std::int64_t TruncateToInt64(double value);
/// The low 32 bits of TruncateToInt64; 0 for a value that doesn't fit there.
[[nodiscard]] std::uint32_t TruncateToLowWord(double value);

/// The integer at the start of a text, after optional white space and a sign, as C's atoi reads it. Returns 0 when
/// there is none. A number beyond 32 bits becomes the nearest one that fits.
[[nodiscard]] std::int32_t ParseIntPrefix(TextView text);
/// The whole text as an integer, with optional white space at both ends. Returns nothing when the text contains
/// anything else or the number doesn't fit in 32 bits.
[[nodiscard]] std::optional<std::int32_t> ParseInt(TextView text);
/// The number at the start of a text, after optional white space, as C's strtod reads it in the C locale. Returns 0
/// when there is none. ParseDouble reads the whole text and returns nothing when the text contains anything else.
[[nodiscard]] double ParseDoublePrefix(TextView text);
[[nodiscard]] std::optional<double> ParseDouble(TextView text);

}  // namespace pnl
