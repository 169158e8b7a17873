// SPDX-License-Identifier: MIT
// The words of one block of program text: letter, number and place. Comments, blanks, the skip sign and the block
// number are told apart here. Not what a word means nor whether it may stand beside another: that is machine_request.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "base/text.h"
#include "facade/mill/machine_errors.h"

namespace pnl::sim {

/// A letter and its number, as it stands in the block.
struct Word {
  char16_t letter = u' ';  // upper case
  double value = 0;        // 1e9 at most, either way
  Text text;               // upper case, without blanks
  std::size_t begin = 0;
  std::size_t length = 0;
};

struct Block {
  bool skip = false;                 // a '/' stands in front
  std::optional<std::int32_t> line;  // the block number
  std::vector<Word> words;           // without the block number
};

/// The words of the text, or the first fault in it. Comments stand in brackets or behind a semicolon. Numbers have a
/// sign, digits and a point; blanks may stand anywhere but inside a number.
[[nodiscard]] std::variant<Block, Fault> ParseBlock(TextView text);

/// A fault of that word.
[[nodiscard]] Fault FaultOf(FaultCode code, const Word& word);

/// One line for tests and logs: "/ N10 G1 X10.5".
[[nodiscard]] Text Print(const Block& block);

}  // namespace pnl::sim
