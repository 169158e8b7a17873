// SPDX-License-Identifier: MIT
// The panel's own soft keys, shown in a bar while no tool has a menu there: keys for the tools, the program and the
// view. This file only makes the items and knows what an item means.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "host/operator.h"
#include "ui/soft_key_bar.h"

namespace panel {

[[nodiscard]] std::vector<SoftKeyItem> PanelMainItems(const HostSession& session, const Operator& op);
/// The side bar belongs to the program editor. can says what the editor would do now. While the error window shows an
/// error of a program, its key leads to the place of the error.
[[nodiscard]] std::vector<SoftKeyItem> PanelSideItems(const std::function<bool(Action)>& can, bool atError = false);

/// The panel's side keys while a tool without side keys is worked in: at most the one that leads to an error.
[[nodiscard]] std::vector<SoftKeyItem> PanelSideItemsOverTool(bool atError);

/// The faults of the demo machine, shown in the main bar after their key was pressed.
[[nodiscard]] std::vector<SoftKeyItem> PanelFaultItems(const Operator& op);

/// The messages that the demo machine's PLC can raise, likewise.
[[nodiscard]] std::vector<SoftKeyItem> PanelPlcItems(const Operator& op);

/// The panel's keys after those of a tool's menu in the main bar: what the keyboard's Enter and Escape do, for a tool
/// that has no keys of its own for it, and commands of the tool that its menus don't have.
/// video says whether the PLC message view shows one; without it the keys for it are dim.
[[nodiscard]] std::vector<SoftKeyItem> PanelItemsOf(int tool, bool video);
/// Whether the main bar has only these for that tool, because the tool has no menu.
[[nodiscard]] bool HasPanelItemsAlone(int tool);
/// Returns the key of the keyboard that does the same as an item; 0 for any other item.
[[nodiscard]] int KeyOfItem(int id);
/// Whether the item is such a command, which the tool gets.
[[nodiscard]] bool IsToolItem(int id);
/// Whether the item closes the tool. Unlike Escape it doesn't end an edit first.
[[nodiscard]] bool IsCloseItem(int id);

/// Returns the action of an item; nothing for an item without one.
[[nodiscard]] std::optional<Action> ActionOfItem(int id);
/// Returns the tool that an item opens; -1 for any other item.
[[nodiscard]] int ToolOfItem(int id);
/// Returns the fault of an item; null for any other item.
[[nodiscard]] const DemoFault* FaultOfItem(int id);
/// Returns the code of the PLC message of an item; nothing for any other item.
[[nodiscard]] std::optional<std::uint32_t> PlcMessageOfItem(const Operator& op, int id);
/// The property of the PLC message view's widget that is true while a video is shown.
inline constexpr const char* kVideoProperty = "pnlVideo";

/// The items that show the faults and the PLC messages.
inline constexpr int kFaultsItem = 3000;
inline constexpr int kPlcItem = 3004;
/// The item that shows the place of the error.
inline constexpr int kErrorPlaceItem = 3005;
/// The item that opens the question about the width of the screen.
inline constexpr int kScreenItem = 3006;
[[nodiscard]] SoftKeyItem ScreenItem();

}  // namespace panel
