// SPDX-License-Identifier: MIT
// Which tool a number stands for.
#pragma once

#include <QWidget>

#include "host/tool_context.h"
#include "window/qt/tool_window.h"

namespace pnl {

/// The tool with that number as a child of parent, hidden; null for a number without a tool, or a dialog tool without a
/// parent. It belongs to its parent.
[[nodiscard]] ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent);

}  // namespace pnl
