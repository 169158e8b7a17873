// SPDX-License-Identifier: MIT
// The roles by which the models of grids and trees tell the remote control what Qt has no role for. Numbers that both
// sides keep; no model is known here.
#pragma once

namespace panel {

/// Of a grid's vertical header: 0 factory row, 1 normal row, 2 row that failed its check.
inline constexpr int kRowStateRole = 0x0100 + 1;
/// Of a tree's node: what it stands for, and the number of its picture.
inline constexpr int kNodeKindRole = 0x0100 + 2;
inline constexpr int kNodeImageRole = 0x0100 + 3;

}  // namespace panel
