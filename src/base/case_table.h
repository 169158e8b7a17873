// SPDX-License-Identifier: MIT
// The capitals of the letters beyond ASCII, as data. For ToUpper of base/text.h only, which handles ASCII itself.
#pragma once

namespace pnl {

/// The capital of a Latin, Greek or Cyrillic small letter above U+007F. Returns any other unit as it is.
[[nodiscard]] char16_t CapitalBeyondAscii(char16_t c);

}  // namespace pnl
