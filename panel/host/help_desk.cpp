// SPDX-License-Identifier: MIT
#include "host/help_desk.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

constexpr const char16_t* kHelpVariable = u"E.HELPDATA";
constexpr int kProgram = -1;

struct MarkRow {
  int tool;
  const char16_t* mark;
};

/// The pages of the operating manual about tools that write no mark themselves, and about the program. The error tool
/// isn't among them: no page may lie over an error that has to be seen.
constexpr std::array kMarks = {
    MarkRow{kProgram, u"OPT0140"},          MarkRow{PNL_TOOL_PLC_MESSAGES, u"OPT0500"},
    MarkRow{PNL_TOOL_HELP, u"OPT0600"},     MarkRow{PNL_TOOL_CALCULATOR, u"OPT0300"},
    MarkRow{PNL_TOOL_EXPLORER, u"OPT0400"},
};

}  // namespace

bool HelpDesk::AskFrontTool() {
  // The variable may still contain an older mark from another tool, so only a write during this call counts.
  bool written = false;
  const int watch = rig_->Cnc().Watch(kHelpVariable, [&written] { written = true; });
  PnlSendMessage(session_.ToolWindow(session_.FrontTool()), PNL_MSG_HELP_KEY, 0, 0);
  rig_->Cnc().Unwatch(watch);
  const auto mark = written ? rig_->Cnc().Get(kHelpVariable) : std::nullopt;
  const auto* text = mark ? std::get_if<std::u16string>(&*mark) : nullptr;
  return text != nullptr && !text->empty();
}

HelpEnd HelpDesk::Ask(const std::function<bool()>& shownByTool) {
  if (rig_ == nullptr) {
    PnlSendMessage(session_.ToolWindow(session_.FrontTool()), PNL_MSG_HELP_KEY, 0, 0);
    return shownByTool() ? HelpEnd::kByTool : HelpEnd::kNone;
  }
  const bool written = AskFrontTool();
  if (shownByTool()) return HelpEnd::kByTool;
  if (!written) {
    const auto row = std::find_if(kMarks.begin(), kMarks.end(),
                                  [this](const MarkRow& each) { return each.tool == session_.FrontTool(); });
    if (row == kMarks.end() || !rig_->Cnc().Set(kHelpVariable, std::u16string(row->mark))) return HelpEnd::kNone;
  }
  return OpenViewer();
}

HelpEnd HelpDesk::OpenViewer() {
  PnlWindow window = session_.ToolWindow(PNL_TOOL_HELP);
  if (window == 0) window = session_.LoadTool(PNL_TOOL_HELP, session_.ToolArea());
  if (window == 0) return HelpEnd::kMissing;
  const bool shown = PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_OPEN, 0) == 0;
  return shown ? HelpEnd::kShown : HelpEnd::kNone;
}

}  // namespace panel
