// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_formula.h"

#include "base/format.h"

namespace pnl {

namespace {

constexpr int kMinimumColumn = 1;
constexpr int kMaximumColumn = 2;
constexpr int kSelectedColumn = 3;

/// A number without zeros at its end.
Text Short(const Text& number) {
  if (number.find(u'.') == Text::npos) return number;
  const Text cut = number.substr(0, number.find_last_not_of(u'0') + 1);
  return cut.back() == u'.' ? cut.substr(0, cut.size() - 1) : cut;
}

Text Short(double number) { return Short(CellText(number)); }

/// The number in a field, as it is read.
Text ShortOf(TextView field) { return Short(DecimalOf(field)); }

Text SpeedFormula(const ZmcCascade& cascade, const ZmcFields& fields, TextView revolutions) {
  const auto value = cascade.SpindleSpeed(fields);
  if (!value) return {};
  const ZmcUnits& units = cascade.Machine().units;
  const Text result = Short(ResultText(*value, cascade.Machine().SFormat.precision));
  if (fields.SUnit != 0) return Format(u"S = Vc = %s %s", result, units.SpeedText());
  if (DecimalOf(fields.D) == 0) return {};
  const Text speed = ShortOf(fields.Vc());
  const Text diameter = ShortOf(fields.D);
  if (units.inches) {
    return Format(
        u"S = Vc / 3.28084 · 1000 / (π · D / 0.03937) = %s sfm / 3.28084 · 1000 / (3.14159 · %s in / 0.03937) = %s %s",
        speed, diameter, result, revolutions);
  }
  return Format(u"S = Vc · 1000 / (π · D) = %s m/min · 1000 / (3.14159 · %s mm) = %s %s", speed, diameter, result,
                revolutions);
}

Text FeedFormula(const ZmcCascade& cascade, const ZmcFields& fields, TextView revolutions) {
  const auto value = cascade.Feed(fields);
  if (!value) return {};
  const TextView length = cascade.Machine().units.LengthText();
  const Text feed = ShortOf(fields.Fz());
  const Text teeth = ShortOf(cascade.TeethText(fields));
  const Text result = Short(ResultText(*value, cascade.Machine().FFormat.precision));
  if (fields.FUnit == 1) {
    return Format(u"F = Fz · z = %s %s · %s = %s %s/rev", feed, length, teeth, result, length);
  }
  const Text speed = ShortOf(cascade.SpindleRpmText(fields));
  return Format(u"F = n · Fz · z = %s %s · %s %s · %s = %s %s/min", speed, revolutions, feed, length, teeth, result,
                length);
}

/// In millimetres also on a machine with inches, as the material's constant is per mm².
Text PowerFormula(const ZmcCascade& cascade, const ZmcFields& fields) {
  const auto value = cascade.CuttingPower(fields);
  if (!value || cascade.Machine().RatedPower == 0) return {};
  const ZmcUnits& units = cascade.Machine().units;
  const auto metric = [&units](TextView text) { return Short(units.LengthToMetric(DecimalOf(text))); };
  return Format(
      u"P = Ae / 100 · D · Ap · F · Kc / (51000 · Pn) = %s / 100 · %s mm · %s mm · %s mm/%s · %s N/mm² / (51000 · %d) "
      u"= %s %%",
      ShortOf(fields.Ae()), metric(fields.D), metric(fields.Ap()), metric(fields.F),
      fields.FUnit == 1 ? u"rev" : u"min", Short(*fields.Kc), cascade.Machine().RatedPower,
      Short(Format(u"%.2f", *value)));
}

}  // namespace

Text FormulaText(ZmcField field, const ZmcCascade& cascade, const ZmcFields& fields, TextView revolutions) {
  switch (field) {
    case ZmcField::kS:
      return SpeedFormula(cascade, fields, revolutions);
    case ZmcField::kF:
      return FeedFormula(cascade, fields, revolutions);
    case ZmcField::kPower:
      return PowerFormula(cascade, fields);
    case ZmcField::kD:
    case ZmcField::kZ:
      break;
  }
  return {};
}

bool OutsideLimits(int row, const ZmcFields& fields) {
  if (row < 1 || row > kZmcGridRows) return false;
  const auto cell = [&](int column) -> const Text& {
    return fields.Cells[static_cast<std::size_t>((row - 1) * kZmcGridColumns + column - 1)];
  };
  const Text& selected = cell(kSelectedColumn);
  if (BlankCell(selected)) return false;
  const double value = DecimalOf(selected);
  const Text& least = cell(kMinimumColumn);
  const double most = DecimalOf(cell(kMaximumColumn));
  return (!BlankCell(least) && value < DecimalOf(least)) || (most != 0 && value > most);
}

}  // namespace pnl
