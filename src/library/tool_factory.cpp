// SPDX-License-Identifier: MIT
#include "library/tool_factory.h"

#include <QPointer>

#include "calc/qt/calc_window.h"
#include "errors/qt/error_window.h"
#include "mdi/qt/mdi_window.h"
#include "window/qt/window_registry.h"

namespace pnl {

ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent) {
  if (parent == nullptr) return nullptr;
  switch (toolId) {
    case PNL_TOOL_CALCULATOR: {
      // The calculator shows itself. A callback may destroy the parent meanwhile, and the calculator with it.
      const QPointer<ZCCalc7340> calculator =
          new ZCCalc7340(context, parent, WindowRegistry::Instance().HandleOf(parent));
      calculator->Open();
      return calculator;
    }
    case PNL_TOOL_ERRORS: {
      // The window is hidden until an error comes. An error in the queue shows it at once, and a callback may then
      // destroy the parent.
      const QPointer<ZCErrorManager> errors = new ZCErrorManager(context, parent);
      errors->Start();
      return errors;
    }
    case PNL_TOOL_MDI:
      return new ZCMDIWindow(context, parent);
    default:
      return nullptr;
  }
}

}  // namespace pnl
