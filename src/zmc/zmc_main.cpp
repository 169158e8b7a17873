// SPDX-License-Identifier: MIT
#include "zmc/zmc_main.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "zmc/logic/zmc_block.h"
#include "zmc/logic/zmc_formula.h"

namespace pnl {
namespace {

namespace id = zmc_control;

struct LabelRow {
  int control;
  int text;
};

constexpr LabelRow kLabels[] = {
    {id::kTitle, zmc_text::kTitle},
    {id::kMaterialLabel, zmc_text::kMaterial},
    {id::kOperationLabel, zmc_text::kOperation},
    {id::kRemarkLabel, zmc_text::kRemark},
    {id::kToolLabel, zmc_text::kTool},
    {id::kDiameterLabel, zmc_text::kDiameter},
    {id::kPartLabel, zmc_text::kPartDiameter},
    {id::kTeethLabel, zmc_text::kTeeth},
    {id::kBandTitle, zmc_text::kBandTitle},
    {id::kFLabel, zmc_text::kF},
    {id::kPowerLabel, zmc_text::kPower},
    {id::kDmcLabel, zmc_text::kDmc},
};

constexpr std::pair<int, ZmcField> kDataFields[] = {{id::kDiameter, ZmcField::kD},
                                                    {id::kTeeth, ZmcField::kZ},
                                                    {id::kS, ZmcField::kS},
                                                    {id::kF, ZmcField::kF},
                                                    {id::kPower, ZmcField::kPower}};

constexpr TextView kMinute = u"/min";
constexpr TextView kRevolution = u"/rev";

Text Joined(TextView first, TextView second) { return Text(first).append(second); }

/// What is being typed into a cell belongs to the pair on the screen. A text that the grid refuses is dropped.
void EndCellEdit(const ZmcDesk& desk) {
  const auto grid = [&desk]() -> ZmcGrid& { return desk.View().Grid(ZmcTab::kMain); };
  if (grid().IsEditing()) grid().CommitEdit();
  // Asked for anew: whoever hears of the commit may destroy the window.
  if (grid().IsEditing()) grid().CancelEdit();
}

}  // namespace

ZmcMain::ZmcMain(ZmcDesk& desk, std::function<bool()> shown)
    : desk_(desk), shown_(std::move(shown)), cascade_(desk.machine, desk.Context().cnc.Tapi()) {}

// Opening.

void ZmcMain::Open() {
  open_ = true;
  View().MakeTab(ZmcTab::kMain);
  (void)desk_.menus.RebuildTabMenu(ZmcTab::kMain);
  const ZmcMachine& machine = desk_.machine;
  for (const auto& [control, field] : kDataFields) View().SetDigits(control, FieldDigits(field, machine));
  SetUpLabels();
  SetUpChecks();
  SetUpGrid();
  SetUpUnits();
  // Whatever becomes of the lists, controls that lie on each other aren't shown together.
  ShowToolControls();
  if (!FillMaterials() || !FillOperations()) return;
  FillTools();
  if (!LoadPair()) return;
  ForceSUnit();
}

void ZmcMain::SetUpLabels() {
  for (const LabelRow& row : kLabels) View().SetControlText(row.control, desk_.LoadText(row.text));
  View().SetControlText(id::kDiameterUnit, desk_.machine.units.LengthText());
  View().SetControlText(id::kTeethUnit, u"z");
  View().SetControlText(id::kM6Label, u"M6");
  View().SetControlText(id::kPercent, u"%");
  View().SetControlText(id::kSLabel, desk_.machine.MasterSpindleName);
}

void ZmcMain::SetUpChecks() {
  const ZmcKept& settings = desk_.settings.kept;
  View().SetState(id::kRemarkCheck, settings.CommentsChecked ? 1 : 0);
  View().SetState(id::kToolCheck, settings.ToolChecked ? 1 : 0);
  View().SetState(id::kFCheck, settings.FChecked ? 1 : 0);
  View().SetState(id::kSCheck, settings.SChecked ? 1 : 0);
  View().SetState(id::kDmcCheck, settings.DmcChecked ? 1 : 0);
  View().SetState(id::kDmcOffCheck, 0);
  View().EnableControl(id::kDmcOffCheck, false);
  ShowM6();
}

void ZmcMain::SetUpGrid() {
  const ZmcUnits& units = desk_.machine.units;
  ZmcGrid& grid = Grid();
  for (int col = 1; col <= kZmcGridColumns; ++col) {
    grid.SetCellText(0, col, desk_.LoadText(zmc_text::kMinimum + col - 1));
  }
  const Text names[] = {Joined(desk_.LoadText(zmc_text::kCuttingSpeed), u" (").append(units.SpeedText()) + u")",
                        Joined(desk_.LoadText(zmc_text::kFeedPerTooth), u" (").append(units.LengthText()) + u"/z)",
                        Joined(desk_.LoadText(zmc_text::kDepth), u" (").append(units.LengthText()) + u")",
                        desk_.LoadText(zmc_text::kRadialPass) + u" (%)"};
  for (int row = 1; row <= kZmcGridRows; ++row) grid.SetCellText(row, 0, names[row - 1]);
  // Nothing can be typed into the grid of a tab whose lists can't be read.
  SetCellRights();
}

void ZmcMain::SetUpUnits() {
  const ZmcMachine& machine = desk_.machine;
  const Text length(machine.units.LengthText());
  View().FillList(id::kFUnit, {Joined(length, kMinute), Joined(length, kRevolution)});
  View().SelectItem(id::kFUnit, SelectableIndex(desk_.settings.kept.FUnit, kZmcFUnitCount));
  std::vector<Text> speeds = {desk_.LoadText(zmc_text::kRevolutions)};
  if (machine.DualPurpose) speeds.emplace_back(machine.units.SpeedText());
  View().FillList(id::kSUnit, speeds);
  View().SelectItem(id::kSUnit, SelectableIndex(desk_.settings.kept.SUnit, machine.SUnitCount()));
}

/// Fills a box and selects what was selected last, else the last item; returns the selected text.
Text ZmcMain::FillBox(int control, const std::vector<Text>& names, Text& last) {
  const int selected = IndexOrLast(names, last);
  View().FillList(control, names);
  View().SelectItem(control, selected);
  if (selected < 0) return {};
  last = names[static_cast<std::size_t>(selected)];
  return last;
}

bool ZmcMain::FillMaterials() {
  const bool loaded = desk_.CheckLoaded(desk_.data.LoadMaterials());
  ZmcKept& kept = desk_.settings.kept;
  desk_.data.SelectMaterial(FillBox(id::kMaterial, desk_.data.MaterialNames(kept), kept.LastMat));
  return loaded;
}

bool ZmcMain::FillOperations() {
  const bool loaded = desk_.CheckLoaded(desk_.data.LoadOperations());
  ZmcKept& kept = desk_.settings.kept;
  desk_.data.SelectOperation(FillBox(id::kOperation, desk_.data.OperationNames(kept), kept.LastOpe));
  return loaded;
}

void ZmcMain::ForceSUnit() {
  Compute([this](ZmcFields& fields) { cascade_.ForceSUnit(desk_.settings.kept.SUnit, fields); });
}

void ZmcMain::OnShown() {
  (void)desk_.menus.RebuildTabMenu(ZmcTab::kMain);
  (void)EnableSoftKeys();
  desk_.Host().HostSetSideMenu(PNL_TOOL_MACHINING_CALCULATOR, desk_.menus.TabMenu(ZmcTab::kMain));
  View().FocusControl(id::kTool);
  View().FocusControl(id::kMaterial);
}

void ZmcMain::ReloadMaterials() {
  if (!open_) return;
  EndCellEdit(desk_);
  (void)FillMaterials();
  (void)LoadPair();
}

void ZmcMain::ReloadOperations() {
  if (!open_) return;
  EndCellEdit(desk_);
  (void)FillOperations();
  (void)LoadPair();
  FillTools();
}

// What the operator did.

void ZmcMain::OnListSelected(int control) {
  const int selected = View().ListSelection(control);
  const std::vector<Text> items = View().ListItems(control);
  if (selected < 0 || selected >= static_cast<int>(items.size())) return;
  const Text& name = items[static_cast<std::size_t>(selected)];
  EndCellEdit(desk_);
  switch (control) {
    case id::kMaterial:
      desk_.settings.kept.LastMat = name;
      desk_.data.SelectMaterial(name);
      (void)LoadPair();
      break;
    case id::kOperation:
      desk_.settings.kept.LastOpe = name;
      desk_.data.SelectOperation(name);
      (void)LoadPair();
      FillTools();
      break;
    case id::kTool:
      toolEdited_ = false;
      desk_.settings.kept.LastTool = name;
      ChangeTool();
      break;
    case id::kFUnit:
      desk_.settings.kept.FUnit = selected;
      Compute([this](ZmcFields& fields) { cascade_.Apply(ZmcEvent::kFUnit, fields); });
      break;
    case id::kSUnit:
      desk_.settings.kept.SUnit = selected;
      Compute([this](ZmcFields& fields) { cascade_.Apply(ZmcEvent::kSUnit, fields); });
      break;
    default:
      break;
  }
}

void ZmcMain::OnFieldChanged(int control) {
  constexpr std::pair<int, ZmcEvent> kEvents[] = {{id::kDiameter, ZmcEvent::kD},
                                                  {id::kTeeth, ZmcEvent::kZ},
                                                  {id::kS, ZmcEvent::kS},
                                                  {id::kF, ZmcEvent::kF},
                                                  {id::kPower, ZmcEvent::kPower}};
  for (const auto& [field, event] : kEvents) {
    if (field == control) Compute([this, event = event](ZmcFields& fields) { cascade_.Apply(event, fields); });
  }
}

void ZmcMain::OnCheckChanged(int control) {
  ZmcKept& settings = desk_.settings.kept;
  const bool on = View().State(control) != 0;
  switch (control) {
    case id::kRemarkCheck:
      settings.CommentsChecked = on;
      break;
    case id::kToolCheck:
      settings.ToolChecked = on;
      ShowM6();
      break;
    case id::kM6Check:
      settings.M6Checked = on;
      break;
    case id::kFCheck:
      settings.FChecked = on;
      break;
    case id::kSCheck:
      settings.SChecked = on;
      break;
    case id::kDmcCheck:
      settings.DmcChecked = on;
      break;
    default:
      return;
  }
  UpdateSoftKeys();
}

/// Without the tool's line there is no M6, but what was chosen is kept.
void ZmcMain::ShowM6() {
  const bool shown = View().State(id::kToolCheck) != 0;
  View().SetState(id::kM6Check, shown && desk_.settings.kept.M6Checked ? 1 : 0);
  View().ShowControl(id::kM6Check, shown);
  View().ShowControl(id::kM6Label, shown);
}

bool ZmcMain::EnableSoftKeys() {
  const bool any = Checks().AnyWord();
  const bool insert = desk_.menus.Enable(ZmcTab::kMain, zmc_command::kInsert, any);
  return desk_.menus.Enable(ZmcTab::kMain, zmc_command::kCopy, any) || insert;
}

/// While another tab is shown, its menu is in the bar; OnShown brings this one's up to date.
void ZmcMain::UpdateSoftKeys() {
  if (EnableSoftKeys() && shown_()) desk_.Host().HostUpdateSideMenu(PNL_TOOL_MACHINING_CALCULATOR);
}

ZmcChecks ZmcMain::Checks() const {
  const ZmcView& view = View();
  ZmcChecks checks;
  checks.Comments = view.State(id::kRemarkCheck) != 0;
  checks.Tool = view.State(id::kToolCheck) != 0;
  checks.M6 = view.State(id::kM6Check);
  checks.F = view.State(id::kFCheck) != 0;
  checks.S = view.State(id::kSCheck) != 0;
  checks.Dmc = view.State(id::kDmcCheck) != 0;
  return checks;
}

// Fields.

ZmcFields ZmcMain::Collect() const {
  ZmcView& view = View();
  ZmcFields fields;
  for (int cell = 0; cell < kZmcCells; ++cell) {
    const ZmcParameter& parameter = kZmcParameters[cell];
    fields.Cells[static_cast<std::size_t>(cell)] = Grid().CellText(parameter.row, parameter.column);
  }
  fields.D = view.ControlText(id::kDiameter);
  fields.Z = view.ControlText(id::kTeeth);
  fields.S = view.ControlText(id::kS);
  fields.F = view.ControlText(id::kF);
  fields.Power = view.ControlText(id::kPower);
  fields.DmcText = view.ControlText(id::kDmcText);
  fields.Remark = view.ControlText(id::kRemark);
  fields.Tool = view.ControlText(id::kTool);
  if (desk_.data.MaterialActual()) fields.Material = view.ControlText(id::kMaterial);
  if (desk_.data.OperacionActual()) fields.Operation = view.ControlText(id::kOperation);
  fields.Kc = desk_.data.Kc();
  fields.FUnit = view.ListSelection(id::kFUnit);
  fields.SUnit = view.ListSelection(id::kSUnit);
  fields.LastPartDiameter = desk_.settings.kept.LastPartDiameter;
  return fields;
}

void ZmcMain::Write(const ZmcFields& before, const ZmcFields& after) {
  constexpr std::pair<int, Text ZmcFields::*> kFields[] = {
      {id::kDiameter, &ZmcFields::D},   {id::kTeeth, &ZmcFields::Z},     {id::kS, &ZmcFields::S},
      {id::kF, &ZmcFields::F},          {id::kPower, &ZmcFields::Power}, {id::kDmcText, &ZmcFields::DmcText},
      {id::kRemark, &ZmcFields::Remark}};
  for (int cell = 0; cell < kZmcCells; ++cell) {
    const auto at = static_cast<std::size_t>(cell);
    const ZmcParameter& parameter = kZmcParameters[cell];
    if (before.Cells[at] != after.Cells[at]) Grid().SetCellText(parameter.row, parameter.column, after.Cells[at]);
  }
  for (const auto& [control, field] : kFields) {
    if (before.*field != after.*field) View().SetControlText(control, after.*field);
  }
  if (before.FUnit != after.FUnit) View().SelectItem(id::kFUnit, after.FUnit);
  if (before.SUnit != after.SUnit) View().SelectItem(id::kSUnit, after.SUnit);
  desk_.settings.kept.LastPartDiameter = after.LastPartDiameter;
  Explain(after);
}

void ZmcMain::Explain(const ZmcFields& fields) {
  constexpr int kSelected = 3;
  const int focused = View().FocusedControl();
  const auto field = std::find_if(std::begin(kDataFields), std::end(kDataFields),
                                  [focused](const auto& row) { return row.first == focused; });
  View().SetControlText(id::kFormula,
                        field == std::end(kDataFields)
                            ? Text()
                            : FormulaText(field->second, cascade_, fields, desk_.LoadText(zmc_text::kRevolutions)));
  const bool power = !fields.Power.empty() && cascade_.DmcUsable(fields);
  View().SetPowerBar(power ? std::optional(DecimalOf(fields.Power)) : std::nullopt);
  for (int row = 1; row <= kZmcGridRows; ++row) Grid().SetTint(row, kSelected, OutsideLimits(row, fields));
}

void ZmcMain::Compute(const std::function<void(ZmcFields&)>& work) {
  const ZmcFields before = Collect();
  ZmcFields after = before;
  work(after);
  Write(before, after);
}

// The block.

Text ZmcMain::GenerateBlock() {
  const ZmcFields fields = Collect();
  const ZmcChecks checks = Checks();
  return pnl::GenerateBlock(
      {fields, checks, desk_.machine.MasterSpindleName, [this, &fields] { return cascade_.DmcUsable(fields); }},
      desk_.Context().cnc.Vars());
}

void ZmcMain::CopyBlock() {
  const Text block = GenerateBlock();
  desk_.Context().cnc.Util().UTIL7340_CopyToClipboard_Text(View().TabHandle(ZmcTab::kMain), block);
}

void ZmcMain::InsertBlock() {
  CopyBlock();
  desk_.Host().HostInsertBlock();
  desk_.Context().windows.Send(View().Handle(), {RegisterMessage(zmc_message::kCancel), PNL_CLOSED, 0});
}

}  // namespace pnl
