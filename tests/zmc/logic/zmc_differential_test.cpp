// SPDX-License-Identifier: MIT
// Random screens, computed by the cascade and by a second implementation beside it; every text must be the same. Some
// events follow one another, so that what one leaves is what the next one reads.
#include <gtest/gtest.h>

#include <random>

#include "zmc/logic/zmc_cascade.h"
#include "zmc/logic/zmc_plain_cascade.h"
#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

constexpr int kComputations = 100000;

/// Texts as operators, files and mishaps write them.
class RandomTexts {
 public:
  explicit RandomTexts(unsigned seed) : random_(seed) {}

  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  bool Often() { return Below(8) != 0; }
  std::string Field() {
    static const char* const kOdd[] = {"",       "0",    " 0",    "0.0", "0.0000000", "-1",  "1e999", "nan",
                                       "inf",    "0x10", "1e308", " 12", "12 ",       "abc", "1,5",   "-",
                                       "1e-320", "+5",   "5.",    ".5",  "1e3",       "00",  "1e",    "- 1"};
    switch (Below(8)) {
      case 0:
        return kOdd[Below(static_cast<int>(std::size(kOdd)))];
      case 1:
        return std::to_string(Below(5000));
      case 2:
        return Number("%f", 0.001, 5);
      case 3:
        return Number("%.9g", 0.0001, 50000);
      default:
        return Number("%.7f", 0.01, 500);
    }
  }

 private:
  std::string Number(const char* format, double least, double most) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, std::uniform_real_distribution<double>(least, most)(random_));
    return buffer;
  }
  std::mt19937 random_;
};

struct Machines {
  ZmcMachine machine;
  PlainMachine plain;
};

Machines RandomMachine(RandomTexts& random, TextView tool) {
  Machines made;
  made.plain.inch = made.machine.units.inches = random.Below(2) == 0;
  made.plain.sPrecision = made.machine.SFormat.precision = random.Below(4);
  made.plain.fPrecision = made.machine.FFormat.precision = random.Below(4);
  made.plain.ratedPower = made.machine.RatedPower = random.Often() ? random.Below(60) - 2 : 0;
  made.machine.DmcOption = random.Often();
  made.machine.DmcSpindle = random.Often() ? 1 : 0;
  made.machine.DriveType = random.Often() ? 16 : 4;
  made.plain.oneTooth = tool == u"T5";
  made.plain.dmcUsable = made.machine.DmcOption && made.machine.DmcSpindle == 1 && made.machine.DriveType == 16 &&
                         (tool == u"T1" || tool == u"T3");
  return made;
}

struct Screens {
  ZmcFields fields;
  PlainScreen plain;
};

Screens RandomScreen(RandomTexts& random) {
  Screens made;
  PlainScreen& plain = made.plain;
  const auto both = [&random](std::string& narrow, Text& wide) {
    narrow = random.Field();
    wide = FromUtf8(narrow);
  };
  both(plain.vc, made.fields.Cells[2]);
  both(plain.fzMin, made.fields.Cells[3]);
  both(plain.fzMax, made.fields.Cells[4]);
  both(plain.fz, made.fields.Cells[5]);
  both(plain.ap, made.fields.Cells[8]);
  both(plain.ae, made.fields.Cells[11]);
  both(plain.d, made.fields.D);
  both(plain.z, made.fields.Z);
  both(plain.s, made.fields.S);
  both(plain.f, made.fields.F);
  both(plain.power, made.fields.Power);
  plain.material = random.Often();
  made.fields.Material = plain.material ? u"Steel" : u"";
  plain.kcKnown = random.Often();
  plain.kc = random.Below(4000);
  if (plain.kcKnown) made.fields.Kc = plain.kc;
  plain.fUnit = made.fields.FUnit = random.Below(3) - 1;
  plain.sUnit = made.fields.SUnit = random.Below(3) - 1;
  return made;
}

std::string Shown(const ZmcFields& fields) {
  return ToUtf8(fields.S) + "|" + ToUtf8(fields.F) + "|" + ToUtf8(fields.Power) + "|" + ToUtf8(fields.DmcText);
}

std::string Shown(const PlainScreen& x) { return x.s + "|" + x.f + "|" + x.power + "|" + x.dmc; }

void PlainEvent(ZmcEvent event, PlainScreen& x, const PlainMachine& m) {
  switch (event) {
    case ZmcEvent::kSelectedCell:
      x.s = x.f = x.power = x.dmc = "";
      return PlainRecalc(x, m);
    case ZmcEvent::kS:
      x.f = x.power = x.dmc = "";
      PlainF(x, m);
      PlainPower(x, m);
      return PlainDmc(x, m);
    case ZmcEvent::kF:
      x.power = x.dmc = "";
      PlainPower(x, m);
      return PlainDmc(x, m);
    case ZmcEvent::kFUnit:
      x.f = x.dmc = "";
      PlainF(x, m);
      return PlainDmc(x, m);
    default:
      return PlainS(x, m);
  }
}

TEST(ZmcDifferential, TheCascadeComputesWhatASecondImplementationComputesTextForText) {
  NotedTools tables;
  tables.tools = {{1, {1, 1, 100000, 4}}, {3, {3, 8, 100000, 2}}, {4, {4, 9, 0, 0}}, {5, {5, 10, 0, 0}}};
  const TextView tools[] = {u"T1", u"T1", u"T3", u"T3", u"T4", u"T5", u"T9", u"", u"1"};
  const ZmcEvent events[] = {ZmcEvent::kSelectedCell, ZmcEvent::kS, ZmcEvent::kF, ZmcEvent::kFUnit, ZmcEvent::kSUnit};
  RandomTexts random(20260101);
  Machines made;
  Screens screen;
  int lines = 0;
  for (int i = 0; i < kComputations; ++i) {
    // Three events follow one another on a screen.
    if (i % 3 == 0) {
      const TextView tool = tools[random.Below(static_cast<int>(std::size(tools)))];
      made = RandomMachine(random, tool);
      screen = RandomScreen(random);
      screen.fields.Tool = tool;
    }
    const ZmcCascade cascade(made.machine, tables);
    const ZmcEvent event = events[random.Below(static_cast<int>(std::size(events)))];
    cascade.Apply(event, screen.fields);
    PlainEvent(event, screen.plain, made.plain);
    ASSERT_EQ(Shown(screen.fields), Shown(screen.plain)) << i << " event " << static_cast<int>(event);
    ASSERT_EQ(ToUtf8(cascade.CuttingSpeedFromS(screen.fields)), PlainSpeedFromS(screen.plain, made.plain)) << i;
    screen.fields.SUnit = screen.plain.sUnit = random.Below(3) - 1;
    screen.fields.FUnit = screen.plain.fUnit = random.Below(3) - 1;
    if (!screen.plain.dmc.empty()) ++lines;
  }
  EXPECT_GT(lines, kComputations / 10) << "the screens must reach the last step often enough";
}

}  // namespace
}  // namespace pnl::test
