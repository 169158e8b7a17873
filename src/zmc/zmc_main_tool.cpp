// SPDX-License-Identifier: MIT
// The tool on the main tab: the box of the tools that the operation takes, what a tool changes on the screen, and a
// tool that is typed.
#include "base/format.h"
#include "zmc/zmc_main.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr int kReasons[] = {id::kReasonOption, id::kReasonDrive, id::kReasonSpindle, id::kReasonTool};

}  // namespace

void ZmcMain::FillTools() {
  std::vector<Text> tools;
  const auto& operation = desk_.data.OperacionActual();
  if (operation) {
    const auto type = ToolTypeOf(TextOf(operation->ToolType), [this](int text) { return desk_.LoadText(text); });
    if (type) tools = ToolNames(desk_.Context().cnc.Tapi(), *type);
  }
  View().FillList(id::kTool, tools);
  SelectTool(desk_.settings.kept.LastTool);
  ChangeTool();
}

/// The tool of that name, else the last one of the list. Nothing is recomputed.
void ZmcMain::SelectTool(TextView name) {
  const std::vector<Text> tools = View().ListItems(id::kTool);
  const int index = IndexOrLast(tools, name);
  View().SelectItem(id::kTool, index);
  View().SetControlText(id::kTool, index >= 0 ? tools[static_cast<std::size_t>(index)] : Text());
  if (index >= 0) desk_.settings.kept.LastTool = tools[static_cast<std::size_t>(index)];
}

void ZmcMain::ChangeTool() {
  const ZmcFields before = Collect();
  ZmcFields after = before;
  cascade_.Apply(ZmcEvent::kTool, after);
  View().SetState(id::kPicture, ToolPicture(cascade_.Tool(after)));
  ShowToolControls();
  Write(before, after);
}

ZmcTool ZmcMain::Tool() const { return ZmcToolOf(desk_.Context().cnc.Tapi(), View().ControlText(id::kTool)); }

/// What the tool's kind shows, enables and colours.
void ZmcMain::ShowToolControls() {
  const ZmcTool tool = Tool();
  ShowDmcControls(tool);
  ShowFieldControls(tool);
}

void ZmcMain::ShowDmcControls(const ZmcTool& tool) {
  const bool usable = DmcUsable(desk_.machine, tool);
  ZmcView& view = View();
  view.SetState(id::kDmcCheck, usable && desk_.settings.kept.DmcChecked ? 1 : 0);
  view.EnableControl(id::kDmcCheck, usable);
  view.ShowControl(id::kDmcCheck, usable);
  view.ShowControl(id::kDmcOffCheck, !usable);
  view.EnableControl(id::kDmcText, usable);
  view.EnableControl(id::kPower, usable);
  for (const int label : {id::kDmcLabel, id::kPowerLabel, id::kPercent}) {
    view.SetLabelColor(label, usable ? kZmcLabelColor : kZmcDmcLabelOff);
  }
  const int reason = static_cast<int>(DmcReasonOf(desk_.machine, tool));
  for (const int control : kReasons) view.ShowControl(control, control == reason);
  UpdateSoftKeys();
}

void ZmcMain::ShowFieldControls(const ZmcTool& tool) {
  const ZmcToolControls& controls = ToolControlsOf(ToolCategory(tool));
  ZmcView& view = View();
  view.EnableControl(id::kDiameter, controls.diameterEnabled);
  view.ShowControl(id::kTeeth, controls.teethShown);
  view.EnableControl(id::kTeeth, controls.teethEnabled);
  view.ShowControl(id::kTeethLabel, controls.teethShown);
  view.ShowControl(id::kTeethUnit, controls.teethShown);
  view.ShowControl(id::kDiameterLabel, !controls.partLabel);
  view.ShowControl(id::kPartLabel, controls.partLabel);
  for (const int label : {id::kDiameterLabel, id::kPartLabel, id::kTeethLabel, id::kTeethUnit, id::kDiameterUnit}) {
    view.SetLabelColor(label, controls.labelColor);
  }
}

// A tool that is typed.

void ZmcMain::TakeTypedTool() {
  toolEdited_ = false;
  const Text typed = ToUpper(View().ControlText(id::kTool));
  if (typed.empty()) return SelectTool(desk_.settings.kept.LastTool);
  const std::optional<Text> name = TypedTool(typed, View().ListItems(id::kTool));
  if (!name) {
    SelectTool(desk_.settings.kept.LastTool);
    desk_.ShowMessage(1, Format(desk_.LoadText(zmc_text::kNoSuchTool), typed));
    return;
  }
  SelectTool(*name);
  ChangeTool();
}

void ZmcMain::OnToolLeft() {
  if (toolEdited_) ResetTool();
}

void ZmcMain::ResetTool() {
  toolEdited_ = false;
  SelectTool(desk_.settings.kept.LastTool);
}

}  // namespace pnl
