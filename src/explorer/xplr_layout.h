// SPDX-License-Identifier: MIT
// Where the explorer's controls are, for each of its three layouts, in pixels of the form's client area.
#pragma once

#include "explorer/xplr_state.h"
#include "window/window.h"

namespace pnl {

struct XplrLayout {
  Rect caption;            // 1101
  Rect filter;             // 1102
  Rect folder;             // 1103
  Rect label;              // 1104
  Rect name;               // 1105
  Rect tree;               // 1106
  Rect list;               // 1107
  bool showsTree = false;  // tree and filter are shown, and the tree enabled
  bool pathLeads = false;  // a piece of the path leads to its folder
  friend bool operator==(const XplrLayout&, const XplrLayout&) = default;
};

/// The layout for the flags of a request: the request's own list mode goes before the pin.
[[nodiscard]] LayoutMode LayoutOf(const XplrState& state);
[[nodiscard]] XplrLayout LayOutXplr(int width, int height, LayoutMode mode);

}  // namespace pnl
