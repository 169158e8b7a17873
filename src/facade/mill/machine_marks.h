// SPDX-License-Identifier: MIT
// The help marks of a block's words: where the programming manual explains each of them. A mark is the manual's three
// letters and four digits: 1000 and the number for a G code, 2000 and the number for an M code, 3000 and the place in
// the alphabet for another letter. Knows the words of machine_request and nothing of the manual's pages.
#pragma once

#include <span>

#include "base/text.h"

namespace pnl::sim {

/// A word as it is written, and its mark. A letter whose number has no meaning of its own has kAnyNumber.
struct WordMark {
  char16_t letter;
  int number;
  TextView mark;
};
inline constexpr int kAnyNumber = -1;

/// Every word that the mill understands.
[[nodiscard]] std::span<const WordMark> WordMarks();

/// The mark of the first word in the block that the mill understands; empty when there is none. The block number counts
/// only in a block without another such word. Help may be wanted for a block that is still being typed, so the words
/// before its first mistake count, and after them the letter of the word that can't be read.
[[nodiscard]] TextView MarkOfBlock(TextView block);

}  // namespace pnl::sim
