// SPDX-License-Identifier: MIT
#include "calc/calc_menus.h"

#include "calc/calc_ids.h"
#include "facade/utilities.h"

namespace pnl {

namespace {

constexpr TextView kMenuName = u"IDR_CALCMENU";
/// A host uses this word to find the help for the key that opens the machining calculator.
constexpr TextView kMachiningHelper = u"CALC_ZMC";

}  // namespace

void CalcMenus::Load() {
  Destroy();
  menu_ = language_.LoadToolMenu(kMenuName);
}

void CalcMenus::Destroy() {
  if (menu_ != 0) language_.Menus().Destroy(menu_);
  menu_ = 0;
}

MenuHandle CalcMenus::Part(std::size_t index) const {
  const Menu* menu = language_.Menus().Find(menu_);
  return menu != nullptr && index < menu->items.size() ? menu->items[index].subMenu : 0;
}

void CalcMenus::MarkCompact(bool compact) {
  if (MenuItem* item = language_.Menus().FindItem(menu_, calc_id::kMenuCompact)) item->checked = compact;
}

void CalcMenus::RemoveMachining() {
  Menu* side = language_.Menus().Find(Side());
  if (side == nullptr) return;
  std::erase_if(side->items, [](const MenuItem& item) { return item.id == calc_id::kMenuMachining; });
}

void CalcMenus::ShowState(int base, bool radians) {
  MenuTable& table = language_.Menus();
  UTIL7340_SetMenuItemBitmap(table, menu_, calc_id::kMenuBase, false, calc_id::kFirstBaseBitmap + base);
  UTIL7340_SetMenuItemBitmap(table, menu_, calc_id::kMenuAngle, false,
                             radians ? calc_id::kRadiansBitmap : calc_id::kDegreesBitmap);
  UTIL7340_SetMenuItemBitmap(table, menu_, calc_id::kMenuMachining, false, calc_id::kMachiningBitmap);
  UTIL7340_SetMenuItemHelper(table, menu_, calc_id::kMenuMachining, false, kMachiningHelper);
}

}  // namespace pnl
