// SPDX-License-Identifier: MIT
#include "calc/calc_menus.h"

#include <algorithm>

#include "calc/calc_closing.h"
#include "calc/calc_evaluation.h"
#include "calc/calc_ids.h"
#include "calc/calc_layout.h"
#include "calc/calc_line.h"
#include "calc/calc_list.h"
#include "calc/calc_variables.h"

namespace pnl::calc {

namespace {

constexpr TextView kMenuName = u"IDR_CALCMENU";
/// By this word a host finds help on the key that opens the machining calculator.
constexpr TextView kMachiningHelper = u"CALC_ZMC";
constexpr int kBases = 3;

MenuTable& Table(CalcState& state) { return state.context.language.Menus(); }

/// 0 when the menu has no such part.
MenuHandle SubMenu(CalcState& state, std::size_t index) {
  const Menu* menu = Table(state).Find(state.menu);
  return menu != nullptr && index < menu->items.size() ? menu->items[index].subMenu : 0;
}

void MarkCompact(CalcState& state) {
  if (MenuItem* item = Table(state).FindItem(state.menu, calc_id::kMenuCompact)) item->checked = state.minimized;
}

void RemoveMachiningItem(CalcState& state) {
  Menu* side = Table(state).Find(SubMenu(state, 1));
  if (side == nullptr) return;
  std::erase_if(side->items, [](const MenuItem& item) { return item.id == calc_id::kMenuMachining; });
}

void UpdateMenuState(CalcState& state) {
  MenuTable& table = Table(state);
  UTIL7340_SetMenuItemBitmap(table, state.menu, calc_id::kMenuBase, false,
                             calc_id::kFirstBaseBitmap + state.numberBase);
  UTIL7340_SetMenuItemBitmap(table, state.menu, calc_id::kMenuAngle, false,
                             state.radians ? calc_id::kRadiansBitmap : calc_id::kDegreesBitmap);
  UTIL7340_SetMenuItemBitmap(table, state.menu, calc_id::kMenuMachining, false, calc_id::kMachiningBitmap);
  UTIL7340_SetMenuItemHelper(table, state.menu, calc_id::kMenuMachining, false, kMachiningHelper);
  state.context.host.HostUpdateSideMenu(tool_id::kCalculator);
}

void ChangeBase(CalcState& state) {
  state.numberBase = (state.numberBase + 1) % kBases;
  RefreshPreview(state);
  state.View().SetResultText(FormatResult(state.value, state.numberBase));
  UpdateMenuState(state);
}

/// The result stays as it was computed; only what is computed from now on has the other unit.
void ChangeAngle(CalcState& state) {
  state.radians = !state.radians;
  RefreshPreview(state);
  UpdateMenuState(state);
}

void ToggleCompact(CalcState& state) {
  // Closing the list gives the line its old text, which a running confirmation has to keep.
  if (state.IsConfirming() && state.openList != CalcOpenList::kNone) return;
  CloseHistory(state, CalcKeep::kSavedLine);
  CloseVariables(state);
  state.minimized = !state.minimized;
  MarkCompact(state);
  state.context.host.HostUpdateMainMenu(tool_id::kCalculator);
  ResizeWindow(state);
}

}  // namespace

void InstallMenus(CalcState& state) {
  state.menu = state.context.language.LoadToolMenu(kMenuName);
  MarkCompact(state);
  // Each call may end the tool, and its menus with it.
  state.context.host.HostSetMainMenu(tool_id::kCalculator, SubMenu(state, 0));
  if (state.closed) return;
  state.context.host.HostSetSideMenu(tool_id::kCalculator, SubMenu(state, 1));
  if (state.closed) return;
  if (state.context.cnc.Kapi().SWOption_IsZMCON() == 0) RemoveMachiningItem(state);
  UpdateMenuState(state);
}

void DestroyMenus(CalcState& state) {
  if (state.menu != 0) Table(state).Destroy(state.menu);
  state.menu = 0;
}

void AttachMenu(CalcState& state, bool attached) {
  state.menuAttached = attached;
  state.View().AttachMenu(attached ? state.menu : 0);
  ResizeWindow(state);
}

void ResizeWindow(CalcState& state) {
  CalcView& view = state.View();
  view.SetClientHeight(CalcClientHeight(MeasureCalc(view), state.minimized));
}

void OnMenuCommand(CalcState& state, int id) {
  switch (id) {
    case calc_id::kMenuBase:
      ChangeBase(state);
      break;
    case calc_id::kMenuAngle:
      ChangeAngle(state);
      break;
    case calc_id::kMenuCompact:
      ToggleCompact(state);
      break;
    case calc_id::kMenuMachining:
      GoToMachining(state);
      break;
    default:
      OnButton(state, id);
      break;
  }
}

}  // namespace pnl::calc
