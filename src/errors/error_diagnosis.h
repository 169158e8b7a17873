// SPDX-License-Identifier: MIT
// What the kernel's block preparation found wrong, as one line. The table of kinds and nothing else.
#pragma once

#include "base/text.h"
#include "errors/error_words.h"
#include "facade/error_record.h"
#include "facade/kernel.h"

namespace pnl {

/// Begins with its line feed; empty for a kind that has no line.
[[nodiscard]] Text ComposeDiagnosis(const ErrorRecord& record, const ErrorWords& words, Kernel& kapi);

}  // namespace pnl
