// SPDX-License-Identifier: MIT
#include "host/tool_factory_entry.h"

#include "mdi/mdi_window.h"

namespace pnl {

ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent) {
  if (parent == nullptr) return nullptr;
  switch (toolId) {
    case tool_id::kMdi:
      return new ZCMDIWindow(context, parent);
    default:
      return nullptr;
  }
}

}  // namespace pnl
