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
    case tool_id::kCalculator: {
      // Shows itself; a callback on the way may destroy the parent, and it with it.
      const QPointer<ZCCalc7340> calculator =
          new ZCCalc7340(context, parent, WindowRegistry::Instance().HandleOf(parent));
      calculator->Open();
      return calculator;
    }
    case tool_id::kErrorManager: {
      // Hidden until an error comes; one that stands already shows it, and a callback may destroy the parent.
      const QPointer<ZCErrorManager> errors = new ZCErrorManager(context, parent);
      errors->Start();
      return errors;
    }
    case tool_id::kMdi:
      return new ZCMDIWindow(context, parent);
    default:
      return nullptr;
  }
}

}  // namespace pnl
