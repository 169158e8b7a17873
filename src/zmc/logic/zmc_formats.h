// SPDX-License-Identifier: MIT
// How many digits each field and grid cell of the machining calculator shows and takes, and within which limits, by the
// unit system and the machine's number formats. A control paints and accepts by it; the text that was written to it
// stays as it is.
#pragma once

#include <optional>

#include "zmc/logic/zmc_machine.h"

namespace pnl {

struct ZmcDigits {
  int integerDigits = 0;  // 0: as many as there are
  int decimals = 0;
  std::optional<double> least;  // nothing: no limit
  std::optional<double> most;
};

enum class ZmcField { kD, kZ, kS, kF, kPower };

[[nodiscard]] ZmcDigits FieldDigits(ZmcField field, const ZmcMachine& machine);
/// For the cells of a row of the grid, 1 to 4.
[[nodiscard]] ZmcDigits CellDigits(int row, const ZmcUnits& units);

}  // namespace pnl
