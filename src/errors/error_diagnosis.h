// SPDX-License-Identifier: MIT
// Composes the line that says what the kernel's block preparation found wrong. The kinds of findings are one table.
#pragma once

#include "base/text.h"
#include "errors/error_words.h"
#include "facade/error_record.h"
#include "facade/kernel.h"

namespace pnl {

/// The line, which begins with a line feed. It is empty for a kind that has no row in the table.
[[nodiscard]] Text ComposeDiagnosis(const ErrorRecord& record, const ErrorWords& words, Kernel& kapi);

}  // namespace pnl
