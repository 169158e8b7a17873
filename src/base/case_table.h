// SPDX-License-Identifier: MIT
// The capitals of the letters behind ASCII, as data. Only ToUpper of base/text.h asks for them; ASCII is its own
// business, and comparisons go through it.
#pragma once

namespace pnl {

/// The capital of a Latin, Greek or Cyrillic small letter above U+007F; any other unit as it is.
[[nodiscard]] char16_t CapitalBehindAscii(char16_t c);

}  // namespace pnl
