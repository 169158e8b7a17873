// SPDX-License-Identifier: MIT
// The soft-key menus of the machining calculator: the frame's with the three tabs, and one for each tab. Changes only
// the menus' data; the session hands them to the bars and has them drawn again.
#pragma once

#include <array>

#include "host/language.h"
#include "zmc/zmc_ids.h"

namespace pnl {

class ZmcMenus {
 public:
  explicit ZmcMenus(Language& language) : language_(language) {}
  ~ZmcMenus() { Destroy(); }
  ZmcMenus(const ZmcMenus&) = delete;
  ZmcMenus& operator=(const ZmcMenus&) = delete;

  /// Loads the frame's menu, unless it is there, and returns it; 0 when the language has none.
  MenuHandle LoadFrameMenu();
  /// Makes the menu of a tab anew, with its bitmaps and helpers, and returns it.
  MenuHandle RebuildTabMenu(ZmcTab tab);
  [[nodiscard]] MenuHandle TabMenu(ZmcTab tab) const { return tabs_[static_cast<std::size_t>(tab)]; }
  void Destroy();

  /// The check mark of the tab that is shown.
  void CheckTab(ZmcTab tab);
  /// Returns true when the item's state changes.
  bool Enable(ZmcTab tab, int id, bool on);

 private:
  Language& language_;
  MenuHandle frame_ = 0;
  std::array<MenuHandle, 3> tabs_ = {};
};

}  // namespace pnl
