// SPDX-License-Identifier: MIT
#include "explorer/xplr_menus.h"

#include <algorithm>
#include <utility>

namespace pnl {
namespace {

struct FrameItem {
  int id;
  int bitmap;
  TextView helper;
};

constexpr int kPinned = 371;
constexpr int kNotPinned = 373;

/// The bitmaps and helpers that don't depend on the state.
constexpr FrameItem kFrameItems[] = {
    {xplr_command::kRefresh, 372, u"XPLR1"},
    {xplr_command::kMoveToTree, 374, u"XPLR_MOVETO_TREE"},
    {xplr_command::kMoveToList, 375, u"XPLR_MOVETO_LIST"},
    {xplr_command::kMoveToField, 376, u"XPLR_MOVETO_FIELD"},
};

void RemoveItem(MenuTable& menus, MenuHandle menu, int id) {
  if (Menu* found = menus.Find(menu)) std::erase_if(found->items, [id](const MenuItem& item) { return item.id == id; });
}

}  // namespace

void XplrMenus::LoadFrameMenu(const XplrState& state) {
  frame_ = language_.LoadToolMenu(u"3003");
  for (const FrameItem& item : kFrameItems) SetFrameItem(item.id, item.bitmap, item.helper);
  if (state.Has(XPLR_LISTONLY)) RemoveItem(Table(), frame_, xplr_command::kTogglePin);
  UpdatePin(state);
}

void XplrMenus::LoadListMenu(bool folderSearch) {
  list_ = language_.LoadToolMenu(u"IDR_XPLR_MENU");
  if (!folderSearch) RemoveItem(Table(), list_, xplr_command::kFindFolder);
}

void XplrMenus::Destroy() {
  for (MenuHandle* menu : {&frame_, &list_}) {
    UTIL7340_CleanMenu(Table(), *menu);
    Table().Destroy(std::exchange(*menu, 0));
  }
}

void XplrMenus::SetFrameItem(int id, int bitmap, TextView helper) {
  UTIL7340_SetMenuItemBitmap(Table(), frame_, id, false, bitmap);
  UTIL7340_SetMenuItemHelper(Table(), frame_, id, false, helper);
}

void XplrMenus::UpdatePin(const XplrState& state) {
  const bool pinned = state.Has(XPLR_PINNED);
  SetFrameItem(xplr_command::kTogglePin, pinned ? kPinned : kNotPinned, pinned ? u"XPLR2" : u"XPLR3");
  if (MenuItem* item = Table().FindItem(frame_, xplr_command::kTogglePin)) item->checked = pinned;
  if (state.Layout == LayoutMode::kTreeAndList) {
    UTIL7340_ShowMenuItem(Table(), frame_, xplr_command::kMoveToTree);
  } else {
    UTIL7340_HideMenuItem(Table(), frame_, xplr_command::kMoveToTree);
  }
}

void XplrMenus::UpdateList(const XplrState& state, const SortState& sort) {
  const Menu* menu = Table().Find(list_);
  if (menu == nullptr) return;
  for (int id = xplr_command::kSortByName; id <= xplr_command::kSortByExtension; ++id) {
    if (MenuItem* item = Table().FindItem(list_, id)) {
      item->checked = id - xplr_command::kSortByName == static_cast<int>(sort.column);
    }
  }
  if (MenuItem* find = Table().FindItem(list_, xplr_command::kFind)) {
    find->checked = state.FindDialog != 0;
    find->enabled = state.FolderDialog == 0;
  }
  if (MenuItem* folder = Table().FindItem(list_, xplr_command::kFindFolder)) {
    folder->enabled = !state.HasDialog();
    folder->hidden = state.Has(XPLR_PINNED);
  }
}

const Text& XplrMenus::TextOf(int id, Text& kept) {
  if (kept.empty()) kept = language_.LoadToolText(id);
  return kept;
}

void XplrMenus::Exchange(int from, int to, const Text& text) {
  MenuItem* item = Table().FindItem(list_, from);
  if (item == nullptr) return;
  item->id = to;
  item->text = text;
}

void XplrMenus::BeginFind(bool canSearch) {
  Exchange(xplr_command::kFind, xplr_command::kPrevious, TextOf(xplr_text::kPrevious, previous_));
  Exchange(xplr_command::kFindFolder, xplr_command::kNext, TextOf(xplr_text::kNext, next_));
  for (const int id : {xplr_command::kPrevious, xplr_command::kNext}) {
    if (MenuItem* item = Table().FindItem(list_, id)) item->checked = item->hidden = false;
  }
  EnableSteps(canSearch);
}

void XplrMenus::EndFind() {
  Exchange(xplr_command::kPrevious, xplr_command::kFind, TextOf(xplr_text::kFind, find_));
  Exchange(xplr_command::kNext, xplr_command::kFindFolder, TextOf(xplr_text::kFindFolder, findFolder_));
}

void XplrMenus::EnableSteps(bool enabled) {
  for (const int id : {xplr_command::kPrevious, xplr_command::kNext}) {
    if (MenuItem* item = Table().FindItem(list_, id)) item->enabled = enabled;
  }
}

}  // namespace pnl
