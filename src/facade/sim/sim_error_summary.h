// SPDX-License-Identifier: MIT
// What a record in the kernel's queue tells an operator at a glance: its fields, the best text that its source's table
// or the record itself has, and its parameters as plain values. Not the error display's text: that is composed in the
// language of the panel, with captions and units, and elsewhere.
#pragma once

#include <pnltools/rig.h>

#include "facade/error_record.h"
#include "facade/sim/sim_error_texts.h"

namespace pnl::sim {

[[nodiscard]] rig::CncControl::ErrorSummary Summarize(const ErrorRecord& record, std::int64_t serial,
                                                      const SimErrorTexts& texts);

/// The value as it is stored, without caption, unit and scale; empty for a type that has none.
[[nodiscard]] Text PlainValue(std::int32_t valueType, const unsigned char* bytes, std::size_t size);

}  // namespace pnl::sim
