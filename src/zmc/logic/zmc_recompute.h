// SPDX-License-Identifier: MIT
// Which event clears and recomputes what on the screen of the machining calculator, as a table. Clears fields, but
// computes nothing: the cascade carries the steps out.
#pragma once

#include "zmc/logic/zmc_fields.h"

namespace pnl {

/// What an operator can change.
enum class ZmcEvent {
  kSelectedCell,  // a cell of column 3
  kFzLimitCell,   // the minimum or maximum of the feed per tooth
  kOtherCell,
  kD,
  kZ,
  kS,
  kF,
  kPower,
  kFUnit,
  kSUnit,
  kTool,
  kPair,  // the material or the operation
};

/// Sets of fields that an event clears, and of steps that it runs, as bits.
namespace zmc_clear {
inline constexpr unsigned kDmcText = 1, kPower = 2, kF = 4, kS = 8, kD = 16, kZ = 32, kGrid = 64, kRemark = 128;
}
namespace zmc_step {
inline constexpr unsigned kS = 1, kF = 2, kPower = 4, kDmcText = 8;
inline constexpr unsigned kConditions = kS | kF | kPower | kDmcText;
}  // namespace zmc_step

struct ZmcRecompute {
  ZmcEvent event;
  unsigned cleared;
  unsigned steps;
};
[[nodiscard]] const ZmcRecompute& RecomputeOf(ZmcEvent event);
/// Empties the fields that the event clears.
void ClearFields(ZmcEvent event, ZmcFields& fields);
/// The event of a committed grid cell.
[[nodiscard]] ZmcEvent ZmcCellEvent(int row, int column);

}  // namespace pnl
