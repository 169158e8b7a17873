// SPDX-License-Identifier: MIT
// Parses one block of program text into words: letter, number and place. Recognises comments, blanks, the skip sign and
// the block number. machine_request decides what a word means and which words exclude each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "base/text.h"
#include "facade/mill/machine_errors.h"

namespace pnl::sim {

/// A letter and its number, with its place in the block.
struct Word {
  char16_t letter = u' ';  // upper case
  double value = 0;        // from -1e9 to 1e9
  Text text;               // upper case, without blanks
  std::size_t begin = 0;
  std::size_t length = 0;
};

struct Block {
  bool skip = false;                 // the block begins with '/'
  std::optional<std::int32_t> line;  // the block number
  std::vector<Word> words;           // without the block number
};

/// Returns the words of the text, or the first fault in it. A comment is in brackets or follows a semicolon. A number
/// has an optional sign, digits and a point; several numbers may be divided by "/". Blanks may be anywhere but inside a
/// number.
[[nodiscard]] std::variant<Block, Fault> ParseBlock(TextView text);

/// Makes a fault about that word.
[[nodiscard]] Fault FaultOf(FaultCode code, const Word& word);

/// The block as one line for tests and logs: "/ N10 G1 X10.5".
[[nodiscard]] Text Print(const Block& block);

}  // namespace pnl::sim
