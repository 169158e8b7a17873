// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_formats.h"

#include <algorithm>

namespace pnl {

namespace {

/// A double has no more digits than this. A machine may say anything.
constexpr int kMostDigits = 15;
constexpr int kPercentRow = 4;

/// A machine that doesn't say how wide its values are limits nothing.
ZmcDigits OfMachine(const ZmcNumberFormat& format) {
  return {std::clamp(format.width, 0, kMostDigits), std::clamp(format.precision, 0, kMostDigits), {}, {}};
}

}  // namespace

ZmcDigits FieldDigits(ZmcField field, const ZmcMachine& machine) {
  switch (field) {
    case ZmcField::kD:
      return machine.Inches() ? ZmcDigits{4, 5, {}, {}} : ZmcDigits{5, 4, {}, {}};
    case ZmcField::kZ:
      return {3, 0, 0.0, 100.0};
    case ZmcField::kS:
      return OfMachine(machine.SFormat);
    case ZmcField::kF:
      return OfMachine(machine.FFormat);
    case ZmcField::kPower:
      break;
  }
  return {4, 2, 0.0, 1000.0};
}

ZmcDigits CellDigits(int row, const ZmcUnits& units) {
  if (row == kPercentRow) return {3, 2, 0.0, 100.0};
  return units.inches ? ZmcDigits{4, 5, -9999.99999, 9999.99999} : ZmcDigits{5, 4, -99999.9999, 99999.9999};
}

}  // namespace pnl
