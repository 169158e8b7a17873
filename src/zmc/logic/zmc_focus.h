// SPDX-License-Identifier: MIT
// The order in which the keyboard walks through the main tab of the machining calculator. Names the stops; which
// control is one, and what a key means, is the window's and the session's.
#pragma once

namespace pnl {

/// The stops in forward order. After the last one comes the first.
enum class ZmcStop {
  kMaterial,
  kOperation,
  kGrid,
  kRemarkCheck,
  kRemark,
  kToolCheck,
  kTool,
  kM6Check,
  kD,
  kZ,
  kFCheck,
  kF,
  kFUnit,
  kSCheck,
  kS,
  kSUnit,
  kPower,
  kDmcCheck,
  kDmcText,
};
inline constexpr int kZmcStops = 19;

/// What decides which stops there are.
struct ZmcFocusState {
  bool operationsEmpty = false;  // no operation to choose, so no grid to fill
  bool m6Shown = false;
  bool diameterEnabled = false;
  bool teethShown = false;
  bool teethEnabled = false;
  bool dmcUsable = false;
};

[[nodiscard]] bool HasStop(ZmcStop stop, const ZmcFocusState& state);
/// The stop after the given one, or before it. The given one needn't be there itself.
[[nodiscard]] ZmcStop NextStop(ZmcStop from, bool forward, const ZmcFocusState& state);

/// The cell that is selected when the focus enters the grid: the limits of a pair of the factory lists are read-only.
struct ZmcGridCell {
  int row;
  int column;
};
[[nodiscard]] ZmcGridCell FirstEditableCell(bool factoryPair);

}  // namespace pnl
