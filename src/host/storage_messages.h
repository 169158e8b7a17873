// SPDX-License-Identifier: MIT
// What the operator is told about stored files, on the host's message line: which weren't saved, and which are so large
// that the panel is slow with them.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "host/tool_context.h"

namespace pnl {

/// Beyond this the panel says that a list makes it slow.
inline constexpr std::uint64_t kLargeFile = 10u << 20;

/// Nothing without a name.
void TellNotSaved(const ToolContext& context, int tool, const std::vector<Text>& names);
/// Nothing up to kLargeFile bytes.
void TellLargeFile(const ToolContext& context, int tool, TextView name, std::uint64_t bytes);

}  // namespace pnl
