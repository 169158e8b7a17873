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

/// The action behind an item of the two; nothing for an item that opens a tool.
[[nodiscard]] std::optional<Action> ActionOfItem(int id);
/// The tool behind an item; -1 for one that stands for an action.
[[nodiscard]] int ToolOfItem(int id);

}  // namespace panel
