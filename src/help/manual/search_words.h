// SPDX-License-Identifier: MIT
// How the full-text search sees words: without case and accents. What is typed and what is indexed go through the same
// function, so they can't differ.
#pragma once

#include <vector>

#include "base/text.h"

namespace pnl {

/// Longer words are cut.
inline constexpr std::size_t kLongestSearchWord = 64;

/// The letter or digit as the search compares it: a capital without accent. 0 for a mark that only belongs to the
/// letter before it. Returns other characters as they are.
[[nodiscard]] char16_t FoldForSearch(char16_t c);

/// The words of a text in its order, folded. A word is a run of letters and digits; "_" counts as a letter, as in names
/// of programs and variables. A character of a script without blanks (Chinese, Japanese, Korean) is a word of its own.
[[nodiscard]] std::vector<Text> SearchWordsOf(TextView text);

}  // namespace pnl
