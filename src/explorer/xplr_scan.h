// SPDX-License-Identifier: MIT
// Reads whole numbers from a text by a pattern, as C's sscanf does with %d. For the texts that the list shows and the
// explorer's own file; the locale plays no part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/text.h"

namespace pnl {

/// In the pattern "%d" is a number with optional white space and a sign in front of it, a blank is any amount of white
/// space, also none, and every other character is itself. Reading ends at the first difference. Returns how many
/// numbers were read; the others stay as they were. A number beyond 32 bits becomes the nearest one that fits.
std::size_t ScanNumbers(TextView text, TextView pattern, std::span<std::int32_t> numbers);

}  // namespace pnl
