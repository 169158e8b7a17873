// SPDX-License-Identifier: MIT
// The panel's own soft keys, which stand in a bar while no tool has one there: a key for each tool, the program, the
// view. It only makes the items and tells what a pressed one means.
#pragma once

#include <optional>
#include <vector>

#include "host/operator.h"
#include "ui/soft_key_bar.h"

namespace panel {

[[nodiscard]] std::vector<SoftKeyItem> PanelMainItems(const HostSession& session, const Operator& op);
[[nodiscard]] std::vector<SoftKeyItem> PanelSideItems(const HostSession& session, const Operator& op);

/// The faults of the demo machine, which stand in the main bar's place once their key was pressed.
[[nodiscard]] std::vector<SoftKeyItem> PanelFaultItems(const Operator& op);

/// The action behind an item; nothing for an item that stands for something else.
[[nodiscard]] std::optional<Action> ActionOfItem(int id);
/// The tool behind an item; -1 for one that stands for an action.
[[nodiscard]] int ToolOfItem(int id);
/// The fault behind an item; null for another.
[[nodiscard]] const DemoFault* FaultOfItem(int id);
/// The item that leads to the faults.
inline constexpr int kFaultsItem = 3000;

}  // namespace panel
