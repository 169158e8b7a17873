// SPDX-License-Identifier: MIT
// Makes the tool that belongs to a number.
#pragma once

#include <QWidget>

#include "host/tool_context.h"
#include "window/qt/tool_window.h"

namespace pnl {

/// Makes the tool with that number as a child of parent, which owns it, and starts it. The calculator shows itself; the
/// others are hidden until they have something to show. Returns null for a null parent, a number without a tool, or a
/// tool whose parent was destroyed in a callback meanwhile.
[[nodiscard]] ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent);

/// Whether there is a tool with that number.
[[nodiscard]] bool HasTool(int toolId);

}  // namespace pnl
