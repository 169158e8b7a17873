// SPDX-License-Identifier: MIT
// The item roles that carry what Qt has no role for, from the models of grids and trees to the remote control. Only the
// numbers are here; both sides use them.
#pragma once

namespace panel {

/// For a grid's vertical header: 0 factory row, 1 normal row, 2 row that failed its check.
inline constexpr int kRowStateRole = 0x0100 + 1;
/// For a tree's node: its kind, and the number of its picture.
inline constexpr int kNodeKindRole = 0x0100 + 2;
inline constexpr int kNodeImageRole = 0x0100 + 3;

}  // namespace panel
