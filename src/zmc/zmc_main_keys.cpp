// SPDX-License-Identifier: MIT
// Keys, focus and the two text lines of the main tab.
#include <algorithm>
#include <iterator>
#include <utility>

#include "zmc/zmc_main.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr std::pair<int, ZmcStop> kStops[] = {
    {id::kMaterial, ZmcStop::kMaterial},
    {id::kOperation, ZmcStop::kOperation},
    {id::kGrid, ZmcStop::kGrid},
    {id::kRemarkCheck, ZmcStop::kRemarkCheck},
    {id::kRemark, ZmcStop::kRemark},
    {id::kToolCheck, ZmcStop::kToolCheck},
    {id::kTool, ZmcStop::kTool},
    {id::kM6Check, ZmcStop::kM6Check},
    {id::kDiameter, ZmcStop::kD},
    {id::kTeeth, ZmcStop::kZ},
    {id::kFCheck, ZmcStop::kFCheck},
    {id::kF, ZmcStop::kF},
    {id::kFUnit, ZmcStop::kFUnit},
    {id::kSCheck, ZmcStop::kSCheck},
    {id::kS, ZmcStop::kS},
    {id::kSUnit, ZmcStop::kSUnit},
    {id::kPower, ZmcStop::kPower},
    {id::kDmcCheck, ZmcStop::kDmcCheck},
    {id::kDmcText, ZmcStop::kDmcText},
};
static_assert(std::size(kStops) == kZmcStops);

ZmcPlaceKind KindOf(int control) {
  switch (control) {
    case 0:
      return ZmcPlaceKind::kNone;
    case id::kGrid:
      return ZmcPlaceKind::kGrid;
    case id::kMaterial:
    case id::kOperation:
    case id::kFUnit:
    case id::kSUnit:
      return ZmcPlaceKind::kListBox;
    case id::kTool:
      return ZmcPlaceKind::kToolBox;
    case id::kRemark:
    case id::kDmcText:
      return ZmcPlaceKind::kTextLine;
    case id::kDiameter:
    case id::kTeeth:
    case id::kS:
    case id::kF:
    case id::kPower:
      return ZmcPlaceKind::kDataField;
    default:
      return ZmcPlaceKind::kOther;
  }
}

}  // namespace

ZmcKeyPlace ZmcMain::KeyPlace() const {
  const ZmcView& view = View();
  const int control = view.FocusedControl();
  ZmcKeyPlace place;
  place.kind = KindOf(control);
  place.toolEdited = toolEdited_;
  place.lineEdit = textEditing_ != 0;
  switch (place.kind) {
    case ZmcPlaceKind::kGrid:
      place.open = Grid().IsEditing();
      place.cell = Grid().Current();
      place.firstCell = FirstCell();
      break;
    case ZmcPlaceKind::kDataField:
      place.open = view.IsFieldEditing(control);
      break;
    case ZmcPlaceKind::kListBox:
    case ZmcPlaceKind::kToolBox:
      place.open = view.IsListOpen(control);
      break;
    case ZmcPlaceKind::kTextLine:
      place.open = textEditing_ == control;
      break;
    default:
      break;
  }
  return place;
}

ZmcKeyEnd ZmcMain::OnKey(ZmcKey key) {
  const ZmcKeyAnswer answer = AnswerToKey(key, KeyPlace());
  DoStep(answer.step, View().FocusedControl());
  return answer.end;
}

void ZmcMain::DoStep(ZmcKeyStep step, int control) {
  switch (step) {
    case ZmcKeyStep::kNothing:
      break;
    case ZmcKeyStep::kCommitCell:
      Grid().CommitEdit();
      break;
    case ZmcKeyStep::kBeginCell:
      Grid().BeginEdit(Grid().Current());
      break;
    case ZmcKeyStep::kFirstCellOfRow:
    case ZmcKeyStep::kLastCellOfRow:
      SelectEdgeCell(step == ZmcKeyStep::kFirstCellOfRow);
      break;
    case ZmcKeyStep::kResetTool:
      View().OpenList(control, false);
      ResetTool();
      break;
    case ZmcKeyStep::kTakeTool:
      View().OpenList(control, false);
      TakeTypedTool();
      break;
    case ZmcKeyStep::kToggleLine:
      ToggleLine(control);
      break;
    case ZmcKeyStep::kBlankLine:
      BeginLine(control, true);
      break;
    case ZmcKeyStep::kRestoreLine:
      RestoreLine(control);
      break;
    case ZmcKeyStep::kOpenList:
    case ZmcKeyStep::kCloseList:
      View().OpenList(control, step == ZmcKeyStep::kOpenList);
      break;
    case ZmcKeyStep::kAcceptItem:
      if (View().AcceptItem(control)) OnListSelected(control);
      break;
    case ZmcKeyStep::kPreviousItem:
    case ZmcKeyStep::kNextItem:
      View().MoveInList(control, step == ZmcKeyStep::kNextItem ? 1 : -1);
      break;
    case ZmcKeyStep::kInsertBlock:
      InsertBlock();
      break;
  }
}

ZmcCell ZmcMain::FirstCell() const {
  const ZmcGridCell first = FirstEditableCell(desk_.data.IsFactorySelection());
  return {first.row, first.column};
}

void ZmcMain::SelectEdgeCell(bool first) {
  const int row = Grid().Current().row;
  int edge = 0;
  for (int col = 1; col <= kZmcGridColumns; ++col) {
    if (!Grid().IsReadOnly(row, col) && (edge == 0 || !first)) edge = col;
  }
  if (edge != 0) Grid().Select({row, edge});
}

// Focus.

ZmcFocusState ZmcMain::FocusState() const {
  const ZmcTool tool = Tool();
  const ZmcToolControls& controls = ToolControlsOf(ToolCategory(tool));
  ZmcFocusState state;
  state.operationsEmpty = View().ListItems(id::kOperation).empty();
  state.m6Shown = View().State(id::kToolCheck) != 0;
  state.diameterEnabled = controls.diameterEnabled;
  state.teethShown = controls.teethShown;
  state.teethEnabled = controls.teethEnabled;
  state.dmcUsable = DmcUsable(desk_.machine, tool);
  return state;
}

void ZmcMain::MoveFocus(bool forward) {
  const int from = View().FocusedControl();
  // Which stops there are depends on the tool, and a tool that is only typed isn't one.
  if (from == id::kTool && toolEdited_) ResetTool();
  const auto at =
      std::find_if(std::begin(kStops), std::end(kStops), [from](const auto& stop) { return stop.first == from; });
  const ZmcStop next = at == std::end(kStops) ? ZmcStop::kMaterial : NextStop(at->second, forward, FocusState());
  const auto to =
      std::find_if(std::begin(kStops), std::end(kStops), [next](const auto& stop) { return stop.second == next; });
  if (next == ZmcStop::kGrid) Grid().Select(FirstCell());
  View().FocusControl(to->first);
}

// The text lines.

void ZmcMain::OnLineFocus(int control, bool focused) {
  if (!focused) {
    if (textEditing_ == control) RestoreLine(control);
    return;
  }
  View().SelectAllText(control);
  if (Grid().IsEditing()) Grid().CommitEdit();
}

void ZmcMain::ToggleLine(int control) {
  if (textEditing_ != control) return BeginLine(control, false);
  textEditing_ = 0;
  if (control != id::kRemark) return;
  if (desk_.data.MaterialActual() && desk_.data.OperacionActual()) {
    StoreParameter(kZmcRemarkId, 0.0, View().ControlText(control));
  }
}

void ZmcMain::BeginLine(int control, bool blank) {
  textEditing_ = control;
  textBackup_ = View().ControlText(control);
  if (blank) View().SetControlText(control, u" ");
}

void ZmcMain::RestoreLine(int control) {
  textEditing_ = 0;
  View().SetControlText(control, textBackup_);
}

}  // namespace pnl
