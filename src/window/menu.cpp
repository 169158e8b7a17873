// SPDX-License-Identifier: MIT
#include "window/menu.h"

namespace pnl {
namespace {

/// Menus nest a level or two. The limit ends the search in a menu that was made its own sub-menu.
constexpr int kMaxDepth = 16;

MenuItem* FindById(MenuTable& table, MenuHandle handle, int id, int depth) {
  Menu* menu = table.Find(handle);
  if (menu == nullptr || depth > kMaxDepth) return nullptr;
  for (MenuItem& item : menu->items) {
    if (item.id == id) return &item;
    if (item.subMenu == 0) continue;
    if (MenuItem* found = FindById(table, item.subMenu, id, depth + 1)) return found;
  }
  return nullptr;
}

}  // namespace

MenuHandle MenuTable::Create(Menu menu) {
  menus_.emplace(next_, std::move(menu));
  return next_++;
}

void MenuTable::Destroy(MenuHandle handle) {
  const auto found = menus_.find(handle);
  if (found == menus_.end()) return;
  // Remove the menu before its sub-menus, so that the recursion ends for a menu that contains itself.
  const Menu menu = std::move(found->second);
  menus_.erase(found);
  for (const MenuItem& item : menu.items) {
    if (item.subMenu != 0) Destroy(item.subMenu);
  }
}

Menu* MenuTable::Find(MenuHandle handle) {
  const auto found = menus_.find(handle);
  return found == menus_.end() ? nullptr : &found->second;
}

const Menu* MenuTable::Find(MenuHandle handle) const {
  const auto found = menus_.find(handle);
  return found == menus_.end() ? nullptr : &found->second;
}

MenuItem* MenuTable::FindItem(MenuHandle handle, int id, bool byPosition) {
  if (!byPosition) return FindById(*this, handle, id, 0);
  Menu* menu = Find(handle);
  if (menu == nullptr || id < 0 || static_cast<std::size_t>(id) >= menu->items.size()) return nullptr;
  return &menu->items[static_cast<std::size_t>(id)];
}

}  // namespace pnl
