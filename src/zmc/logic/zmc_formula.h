// SPDX-License-Identifier: MIT
// How a result of the machining calculator comes about, as one line for the operator: the formula, the same with its
// numbers and units, and the value. Also whether a selected value lies outside its limits. Explains only: the values
// are the cascade's, and nothing is clamped.
#pragma once

#include "base/text.h"
#include "zmc/logic/zmc_cascade.h"
#include "zmc/logic/zmc_formats.h"

namespace pnl {

/// The line for `S`, `F` or `Power` as it would be computed now, for instance
/// "S = Vc · 1000 / (π · D) = 120 m/min · 1000 / (3.14159 · 10 mm) = 3819 rev/min". `revolutions` is the unit of
/// revolutions in the operator's language. Empty for another field, and if an input is missing or the formula has no
/// value.
[[nodiscard]] Text FormulaText(ZmcField field, const ZmcCascade& cascade, const ZmcFields& fields,
                               TextView revolutions);

/// Whether the selected value of a grid row, 1 to 4, is below its minimum or above its maximum. A blank cell, and a
/// maximum of 0, limit nothing.
[[nodiscard]] bool OutsideLimits(int row, const ZmcFields& fields);

}  // namespace pnl
