// SPDX-License-Identifier: MIT
// Messages about stored files on the host's message line: which files weren't saved, and which are so large that they
// slow the panel down.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "host/tool_context.h"

namespace pnl {

/// A list with more bytes than this gets the message that it slows the panel down.
inline constexpr std::uint64_t kLargeFile = 10u << 20;

/// Shows that the files with those names weren't saved. Does nothing without a name.
void ShowNotSaved(const ToolContext& context, int tool, const std::vector<Text>& names);
/// Shows that the file is large. Does nothing up to kLargeFile bytes.
void ShowLargeFile(const ToolContext& context, int tool, TextView name, std::uint64_t bytes);

}  // namespace pnl
