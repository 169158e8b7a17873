// SPDX-License-Identifier: MIT
// Makes the kernel's binary record of an error out of named fields and typed values, as a script gives them. Reads no
// record: that is the error composer's business.
#pragma once

#include <pnltools/rig.h>

#include <optional>
#include <string>

#include "facade/error_record.h"

namespace pnl::sim {

/// The record; nothing, with problem naming the culprit ("channel", "parameters[1].value"), when a name or a value
/// doesn't fit. Texts are cut to their field, and to what a later field in the same place leaves of it. A number may be
/// given signed or unsigned. Of a code that isn't in the list above the low 32 bits of a number are kept.
[[nodiscard]] std::optional<ErrorRecord> MakeErrorRecord(const rig::ErrorSpec& spec, std::string& problem);

}  // namespace pnl::sim
