// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_units.h"

namespace pnl {

using namespace zmc_constant;

double ZmcUnits::SpeedToMetric(double value) const { return inches ? value / kFeetPerMetre : value; }

double ZmcUnits::LengthToMetric(double value) const { return inches ? value / kInchesPerMillimetre : value; }

double ZmcUnits::LengthFromMetric(double value) const { return inches ? value * kInchesPerMillimetre : value; }

double ZmcUnits::InternalLengthToScreen(double value) const {
  return inches ? value * kInchesPerMillimetre / kInternalLength : value / kInternalLength;
}

double ZmcUnits::InternalSpeedToScreen(double value) const {
  return inches ? value / kInternalSpeed * kFeetPerMetre : value / kInternalSpeed;
}

double ZmcUnits::ScreenLengthToInternal(double value) const {
  return inches ? value * kInternalLength / kInchesPerMillimetre : value * kInternalLength;
}

double ZmcUnits::ScreenSpeedToInternal(double value) const {
  return inches ? value / kFeetPerMetre * kInternalSpeed : value * kInternalSpeed;
}

TextView ZmcUnits::LengthText() const { return inches ? u"in" : u"mm"; }

TextView ZmcUnits::SpeedText() const { return inches ? u"sfm" : u"m/min"; }

namespace {

ZmcQuantity QuantityOf(int id) {
  const bool known = id >= 0 && id <= kZmcRemarkId;
  return known ? kZmcParameters[id].quantity : ZmcQuantity::kPlain;
}

}  // namespace

std::optional<int> ZmcParameterOf(int row, int column) {
  if (row < 1 || row > kZmcGridRows || column < 1 || column > kZmcGridColumns) return std::nullopt;
  return (row - 1) * kZmcGridColumns + (column - 1);
}

double ZmcToStored(const ZmcUnits& units, int id, double value) {
  switch (QuantityOf(id)) {
    case ZmcQuantity::kSpeed:
      return units.ScreenSpeedToInternal(value);
    case ZmcQuantity::kLength:
      return units.ScreenLengthToInternal(value);
    case ZmcQuantity::kPlain:
      break;
  }
  return value;
}

double ZmcToScreen(const ZmcUnits& units, int id, double value) {
  switch (QuantityOf(id)) {
    case ZmcQuantity::kSpeed:
      return units.InternalSpeedToScreen(value);
    case ZmcQuantity::kLength:
      return units.InternalLengthToScreen(value);
    case ZmcQuantity::kPlain:
      break;
  }
  return value;
}

}  // namespace pnl
