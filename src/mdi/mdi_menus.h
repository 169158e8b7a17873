// SPDX-License-Identifier: MIT
// The soft-key menus of the command line: loading them, which one stands in which bar, which items can be pressed, and
// the exchange of one item while an item of the list is edited. What the commands do is elsewhere.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

namespace command {
inline constexpr int kDeleteItem = 32771;
inline constexpr int kChangeItem = 32772;
inline constexpr int kNewItem = 32773;
inline constexpr int kEndEdit = 32774;
inline constexpr int kSaveProgram = 32775;
inline constexpr int kClearList = 32776;
inline constexpr int kCancelBlock = 40000;
inline constexpr int kMoveUp = 40003;
inline constexpr int kMoveDown = 40004;
inline constexpr int kSwitchPosition = 40005;
inline constexpr int kSwitchLength = 40006;
}  // namespace command

/// Loads the three menus with their bitmaps and helpers, and texts 7 and 8.
void LoadMenus(MdiSession& session);
void DestroyMenus(MdiSession& session);

/// Begins, changes or ends the editing of a list item (mdi_edit), with the menu's exchange of items.
void SetEdit(MdiSession& session, MDIDATA_ST& record, std::int32_t edit);
/// Hands the bars their menus by role and state; in State 4 the black box learns whether the block can be cancelled.
void InstallMenus(MdiSession& session, const MDIDATA_ST& record);
/// Greys and enables the items of the MDA menu for the current channel; nothing in MDI role.
void UpdateMenus(MdiSession& session);
/// Bitmaps and helpers of the position menu by the settings.
void UpdatePositionItems(MdiSession& session);
void InstallPositionMenu(MdiSession& session);

}  // namespace pnl::mdi
