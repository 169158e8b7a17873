// SPDX-License-Identifier: MIT
#include "library/tool_factory.h"

#include <QPointer>
#include <algorithm>
#include <iterator>

#include "calc/qt/calc_window.h"
#include "errors/qt/error_window.h"
#include "explorer/qt/xplr_window.h"
#include "help/manual_shelf.h"
#include "help/qt/help_window.h"
#include "library/own_file.h"
#include "mdi/qt/mdi_window.h"
#include "plc/qt/plc_window.h"
#include "window/qt/window_registry.h"
#include "zmc/qt/zmc_window.h"

namespace pnl {
namespace {

template <typename Window>
ToolWindow* Make(const ToolContext& context, QWidget* parent) {
  return new Window(context, parent);
}

template <>
ToolWindow* Make<ZCCalc7340>(const ToolContext& context, QWidget* parent) {
  return new ZCCalc7340(context, parent, WindowRegistry::Instance().HandleOf(parent));
}

template <>
ToolWindow* Make<ZCHelpHTML>(const ToolContext& context, QWidget* parent) {
  return new ZCHelpHTML(context, MakeManualShelf(context.worker, context.files, OwnFile()), parent);
}

struct ToolRow {
  int id;
  bool isFrame;
  ToolWindow* (*make)(const ToolContext& context, QWidget* parent);
};

constexpr ToolRow kTools[] = {
    {PNL_TOOL_CALCULATOR, false, &Make<ZCCalc7340>},
    {PNL_TOOL_ERRORS, false, &Make<ZCErrorManager>},
    {PNL_TOOL_EXPLORER, true, &Make<ZCExplorer>},
    {PNL_TOOL_HELP, false, &Make<ZCHelpHTML>},
    {PNL_TOOL_MACHINING_CALCULATOR, true, &Make<ZCZelorMacCalc>},
    {PNL_TOOL_MDI, false, &Make<ZCMDIWindow>},
    {PNL_TOOL_PLC_MESSAGES, false, &Make<ZCPLCMsgView>},
};

/// Null for a number without a tool.
const ToolRow* RowOf(int toolId) {
  const auto* const row =
      std::find_if(std::begin(kTools), std::end(kTools), [toolId](const ToolRow& tool) { return tool.id == toolId; });
  return row == std::end(kTools) ? nullptr : row;
}

}  // namespace

bool HasTool(int toolId) { return RowOf(toolId) != nullptr; }

ToolWindow* MakeTool(int toolId, ToolContext& context, QWidget* parent) {
  const ToolRow* row = RowOf(toolId);
  if (row == nullptr) return nullptr;
  if (parent == nullptr) {
    // A frame tool calls the host before it looks for its parent.
    if (row->isFrame) {
      context.host.HostToolOpening(toolId);
      context.host.HostToolClosed(toolId, PNL_CLOSED);
    }
    return nullptr;
  }
  // A callback may destroy the parent while the tool starts, and the tool with it.
  const QPointer<ToolWindow> tool = row->make(context, parent);
  tool->Start();
  return tool;
}

}  // namespace pnl
