// SPDX-License-Identifier: MIT
// The letters below the accents, as data. For FoldForSearch of help/manual/search_words.h only.
#pragma once

namespace pnl {

/// The letter without its accents, for a Latin, Greek or Cyrillic capital above U+007F. Returns any other character as
/// it is.
[[nodiscard]] char16_t WithoutAccent(char16_t c);

}  // namespace pnl
