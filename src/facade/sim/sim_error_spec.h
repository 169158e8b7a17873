// SPDX-License-Identifier: MIT
// Makes the kernel's binary record of an error from named fields and typed values, as a script gives them. Reads no
// records; the error composer does.
#pragma once

#include <pnltools/rig.h>

#include <optional>
#include <string>

#include "facade/error_record.h"

namespace pnl::sim {

/// Returns the record. Returns nothing when a name or a value doesn't fit; problem then names it ("channel",
/// "parameters[1].value"). A text is cut to its field, and to the room before another given field that begins inside
/// it. A number may be signed or unsigned. A value whose type isn't in value_type is stored as a number of 32 bits.
[[nodiscard]] std::optional<ErrorRecord> MakeErrorRecord(const rig::ErrorSpec& spec, std::string& problem);

}  // namespace pnl::sim
