// SPDX-License-Identifier: MIT
// Soft-key menus as data, each known by a 32-bit handle. The tools fill and change them and the host draws them;
// nothing here paints. A handle is never used twice. An operation with an unknown handle does nothing or returns null.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/text.h"

namespace pnl {

using MenuHandle = std::uint32_t;

struct Menu;

struct MenuItem {
  int id = 0;
  Text text;
  bool enabled = true;
  bool checked = false;
  bool hidden = false;
  int bitmap = 0;
  Text helper;
  MenuHandle subMenu = 0;
};

struct Menu {
  std::vector<MenuItem> items;
};

class MenuTable {
 public:
  MenuHandle Create(Menu menu);
  /// Destroys the menu and its sub-menus.
  void Destroy(MenuHandle handle);
  /// Returns null for a handle that isn't in use. The pointer is valid until the next Create or Destroy.
  [[nodiscard]] Menu* Find(MenuHandle handle);
  [[nodiscard]] const Menu* Find(MenuHandle handle) const;
  /// The item with that id in the menu or its sub-menus. If byPosition is set, id is an index in the menu itself.
  /// Returns null when there is none.
  [[nodiscard]] MenuItem* FindItem(MenuHandle handle, int id, bool byPosition = false);
  /// How many menus exist, for leak checks.
  [[nodiscard]] std::size_t Count() const { return menus_.size(); }

 private:
  MenuHandle next_ = 1;
  std::map<MenuHandle, Menu> menus_;
};

}  // namespace pnl
