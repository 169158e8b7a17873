// SPDX-License-Identifier: MIT
// The two soft-key menus of the explorer: the frame's own (pin, refresh, moving the focus) and the list's (sorting and
// searching), which of their items are shown, checked and enabled. What the commands do is elsewhere.
#pragma once

#include "explorer/xplr_order.h"
#include "explorer/xplr_state.h"
#include "host/language.h"

namespace pnl {

class XplrMenus {
 public:
  explicit XplrMenus(Language& language) : language_(language) {}

  /// Loads the frame's menu for a request, with its bitmaps and helpers.
  void LoadFrameMenu(const XplrState& state);
  /// Loads the list's menu. Without folderSearch its command isn't in it.
  void LoadListMenu(bool folderSearch);
  void Destroy();
  [[nodiscard]] MenuHandle FrameMenu() const { return frame_; }
  [[nodiscard]] MenuHandle ListMenu() const { return list_; }

  /// Refreshes the frame's items that depend on pin and layout.
  void UpdatePin(const XplrState& state);
  /// Refreshes checks, enabled and hidden items of the list's menu.
  void UpdateList(const XplrState& state, const SortState& sort);

  /// The search commands become the previous and the next hit, and back.
  void BeginFind(bool canSearch);
  void EndFind();
  /// Next and previous can be pressed while there is a text.
  void EnableSteps(bool enabled);

 private:
  [[nodiscard]] MenuTable& Table() { return language_.Menus(); }
  void SetFrameItem(int id, int bitmap, TextView helper);
  void Exchange(int from, int to, const Text& text);
  [[nodiscard]] const Text& TextOf(int id, Text& kept);

  Language& language_;
  // A menu that the language doesn't have is 0.
  MenuHandle frame_ = 0;
  MenuHandle list_ = 0;
  // The texts of the four search commands, fetched when they are first needed.
  Text find_;
  Text findFolder_;
  Text next_;
  Text previous_;
};

}  // namespace pnl
