// SPDX-License-Identifier: MIT
#include "host/tool_factory_entry.h"

#if __has_include("mdi/mdi_window.h")
#include "mdi/mdi_window.h"
#endif

namespace pnl {

ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent) {
  if (parent == nullptr) return nullptr;
  switch (toolId) {
#if __has_include("mdi/mdi_window.h")
    case tool_id::kMdi:
      return new ZCMDIWindow(context, parent);
#endif
    default:
      static_cast<void>(context);
      return nullptr;
  }
}

}  // namespace pnl
