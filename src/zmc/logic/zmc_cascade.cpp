// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_cascade.h"

#include <cmath>

#include "base/format.h"

namespace pnl {

using namespace zmc_constant;

namespace {

constexpr int kRevolutions = 0;
constexpr int kPerRevolution = 1;
/// A forced unit of `S` is this and its index.
constexpr std::int32_t kForcedBase = 10;

/// Revolutions for a cutting speed in m/min and a diameter in mm. Without a diameter there are none.
double RpmFor(double speed, double diameter) { return diameter != 0 ? speed * 1000.0 / (kPi * diameter) : 0; }

}  // namespace

// The values.

std::optional<double> ZmcCascade::SpindleSpeed(const ZmcFields& fields) const {
  if (BlankCell(fields.Vc()) || BlankField(fields.D)) return std::nullopt;
  const double speed = DecimalOf(fields.Vc());
  // Without a selected unit too: a block then says that `S` is a cutting speed, and it must be one.
  if (fields.SUnit != kRevolutions) return speed;
  const ZmcUnits& units = machine_.units;
  return RpmFor(units.SpeedToMetric(speed), units.LengthToMetric(DecimalOf(fields.D)));
}

Text ZmcCascade::SpindleRpmText(const ZmcFields& fields) const {
  if (BlankCell(fields.S) || fields.Vc() == u"0" || BlankField(fields.D)) return {};
  double revolutions = DecimalOf(fields.S);
  if (fields.SUnit != kRevolutions) {
    const ZmcUnits& units = machine_.units;
    revolutions = RpmFor(units.SpeedToMetric(revolutions), units.LengthToMetric(DecimalOf(fields.D)));
  }
  // Without decimals this cuts the revolutions, and the feed is computed from the cut number, which is what the
  // operator reads.
  return ResultText(revolutions, machine_.SFormat.precision);
}

Text ZmcCascade::TeethText(const ZmcFields& fields) const {
  return ToolCategory(fields) == tool_category::kOnPart ? Text(u"1") : fields.Z;
}

std::optional<double> ZmcCascade::Feed(const ZmcFields& fields) const {
  const Text teeth = TeethText(fields);
  const Text revolutions = SpindleRpmText(fields);
  if (BlankCell(fields.Fz()) || BlankField(teeth) || BlankField(revolutions)) return std::nullopt;
  const double feed = machine_.units.LengthToMetric(DecimalOf(fields.Fz()));
  const double n = fields.FUnit == kPerRevolution ? 1.0 : DecimalOf(revolutions);
  return machine_.units.LengthFromMetric(n * feed * DecimalOf(teeth));
}

std::optional<double> ZmcCascade::CuttingPower(const ZmcFields& fields) const {
  if (!DmcUsable(fields)) return std::nullopt;
  if (BlankCell(fields.Ap()) || BlankField(fields.Ae()) || fields.Material.empty() || !fields.Kc ||
      BlankField(fields.D)) {
    return std::nullopt;
  }
  const ZmcUnits& units = machine_.units;
  const double ap = units.LengthToMetric(DecimalOf(fields.Ap()));
  // Not a mistake: the feed counts as the field has it, also when it is per revolution, and an empty one is 0.
  const double feed = units.LengthToMetric(DecimalOf(fields.F));
  const double ae = DecimalOf(fields.Ae()) * units.LengthToMetric(DecimalOf(fields.D)) / 100.0;
  if (machine_.RatedPower == 0) return 0;
  return ae * ap * feed * *fields.Kc / kPowerDivisor / machine_.RatedPower;
}

Text ZmcCascade::CuttingSpeedFromS(const ZmcFields& fields) const {
  if (BlankCell(fields.S) || fields.Vc() == u"0" || BlankField(fields.D)) return {};
  const ZmcUnits& units = machine_.units;
  // Not a mistake: with inches the revolutions are divided as if they were a speed.
  const double revolutions = units.SpeedToMetric(DecimalOf(fields.S));
  const double wanted = units.SpeedToMetric(DecimalOf(fields.Vc()));
  const double diameter = units.LengthToMetric(DecimalOf(fields.D));
  double speed = diameter != 0 ? kPi * diameter * revolutions / 1000.0 : 0;
  // A speed that differs only because `S` was rounded keeps the figure of the table.
  if (std::fabs(speed - wanted) < kSpeedTolerance) speed = wanted;
  return ResultText(speed, machine_.SFormat.precision);
}

// The fields.

std::optional<double> ZmcCascade::UpdateS(ZmcFields& fields) const {
  const auto value = SpindleSpeed(fields);
  if (value) fields.S = ResultText(*value, machine_.SFormat.precision);
  return value;
}

std::optional<double> ZmcCascade::UpdateF(ZmcFields& fields) const {
  const auto value = Feed(fields);
  if (value) fields.F = ResultText(*value, machine_.FFormat.precision);
  return value;
}

std::optional<double> ZmcCascade::UpdatePower(ZmcFields& fields) const {
  const auto value = CuttingPower(fields);
  if (value) fields.Power = Format(u"%f", *value);
  return value;
}

void ZmcCascade::UpdateDmcText(ZmcFields& fields) const {
  if (!DmcUsable(fields)) return;
  const TextView power = Trim(fields.Power);
  const Text& least = fields.FzMin();
  const Text& most = fields.FzMax();
  Text line;
  if (DecimalOf(power) > 0) {
    line = Format(u"#DMC ON [PWRSP = %s", power);
    // Not a mistake: a limit of 0 is printed; only an empty cell is none.
    if (!least.empty()) line += Format(u", FZMIN = %s", least);
    if (!most.empty()) line += Format(u", FZMAX = %s", most);
    line += u"]";
  }
  fields.DmcText = line;
}

void ZmcCascade::RecalcConditions(ZmcFields& fields) const {
  UpdateS(fields);
  UpdateF(fields);
  UpdatePower(fields);
  UpdateDmcText(fields);
}

void ZmcCascade::ForceSUnit(int storedSUnit, ZmcFields& fields) const {
  const std::int32_t forced = machine_.ForcedSUnit;
  if (forced < kForcedBase) return;
  fields.SUnit = SelectableIndex(forced - kForcedBase, machine_.SUnitCount());
  if (forced > kForcedBase && storedSUnit != 1) fields.S = CuttingSpeedFromS(fields);
}

void ZmcCascade::TakeToolValues(ZmcFields& fields) const {
  const ZmcTool tool = Tool(fields);
  // A tool that isn't there has no values. The operator gives them.
  if (!tool.found) return;
  const bool onPart = pnl::ToolCategory(tool) == tool_category::kOnPart;
  const double diameter = onPart ? fields.LastPartDiameter : tool.data.diameter;
  fields.D = Format(u"%f", machine_.units.InternalLengthToScreen(diameter));
  fields.Z = Format(u"%d", tool.data.teeth);
}

// The events.

void ZmcCascade::Recompute(ZmcEvent event, ZmcFields& fields) const {
  const unsigned steps = RecomputeOf(event).steps;
  if ((steps & zmc_step::kS) != 0) UpdateS(fields);
  if ((steps & zmc_step::kF) != 0) UpdateF(fields);
  if ((steps & zmc_step::kPower) != 0) UpdatePower(fields);
  if ((steps & zmc_step::kDmcText) != 0) UpdateDmcText(fields);
}

void ZmcCascade::Apply(ZmcEvent event, ZmcFields& fields) const {
  ClearFields(event, fields);
  if (event == ZmcEvent::kTool) TakeToolValues(fields);
  if (event == ZmcEvent::kD && ToolCategory(fields) == tool_category::kOnPart) {
    fields.LastPartDiameter = machine_.units.ScreenLengthToInternal(DecimalOf(fields.D));
  }
  Recompute(event, fields);
}

}  // namespace pnl
