// SPDX-License-Identifier: MIT
// A short view of a record in the kernel's queue for an operator: its fields, the best text that its source's table or
// the record itself has, and its parameters as plain values. The error display's text is composed elsewhere, in the
// panel's language, with captions and units.
#pragma once

#include <pnltools/rig.h>

#include "facade/error_record.h"
#include "facade/sim/sim_error_texts.h"

namespace pnl::sim {

[[nodiscard]] rig::CncControl::ErrorSummary Summarize(const ErrorRecord& record, std::int64_t serial,
                                                      const SimErrorTexts& texts);

/// The value as it is stored, without caption, unit and scale. Empty for an unknown type.
[[nodiscard]] Text PlainValue(std::int32_t valueType, const unsigned char* bytes, std::size_t size);

}  // namespace pnl::sim
