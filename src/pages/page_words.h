// SPDX-License-Identifier: MIT
// Breaks the words of a page that are longer than page_limit::kWord, because the browser takes minutes for a very long
// one. Knows no markup: whoever cleans a page says where a word ends.
#pragma once

#include <cstddef>

#include "base/text.h"

namespace pnl {

/// Writes the text of a page in pieces and puts a blank into every word that is too long. A word may go on from one
/// piece to the next.
class WordBreaker {
 public:
  void Write(TextView text, Text& to);
  /// Writes a part of a word that must stay together.
  void WriteWhole(TextView part, Text& to);
  void EndWord() { length_ = 0; }

 private:
  void MakeRoom(std::size_t size, Text& to);
  std::size_t length_ = 0;  // of the word so far
};

/// The text with a blank in every word that is too long.
[[nodiscard]] Text BreakLongWords(TextView text);

}  // namespace pnl
