// SPDX-License-Identifier: MIT
// Why the kernel refused a block, as far as it concerns the block's text: which word of it the kernel's error names.
// MdiRefusals asks the kernel's queue for the error. Both know no window and change nothing.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"
#include "facade/error_record.h"
#include "facade/kernel.h"
#include "facade/variables.h"
#include "window/tool_view.h"

namespace pnl {

/// A block that the kernel has refused.
struct MdiRefusal {
  Text block;
  std::optional<TextSelection> word;  // the word at fault, if the error names one that is in the block
};

/// The place in the block of the word that the record names. Letters compare without regard to case, and blanks of the
/// block don't count. If the word is there several times, it is the one where the record's mark is, else the last one:
/// a word that is given twice is at fault where it is repeated. A word in a comment counts only if the comment itself
/// is named.
[[nodiscard]] std::optional<TextSelection> FindRefusedWord(TextView block, const ErrorRecord& record);

class MdiRefusals {
 public:
  MdiRefusals(Kernel& kernel, Variables& variables) : kernel_(kernel), variables_(variables) {}

  /// The number of errors in the kernel's queue. To be asked before a block is sent.
  [[nodiscard]] std::int32_t ErrorCount() const;
  /// Looks for the error with which the kernel has refused the block. before is ErrorCount from before the block was
  /// sent: if the queue hasn't grown since, no error is about the block and the kernel isn't asked for one.
  [[nodiscard]] MdiRefusal Read(std::int8_t channel, const Text& block, std::int32_t before) const;

 private:
  Kernel& kernel_;
  Variables& variables_;
};

}  // namespace pnl
