// SPDX-License-Identifier: MIT
// The computation of the machining calculator a second time, for comparison: straight from C's own functions over
// narrow text, without a line of the calculator's. ASCII texts only.
#pragma once

#include <string>

namespace pnl::test {

struct PlainScreen {
  std::string vc, fz, ap, ae, fzMin, fzMax, d, z, s, f, power, dmc;
  bool material = false;
  bool kcKnown = false;
  double kc = 0;
  int fUnit = 0;
  int sUnit = 0;
};

struct PlainMachine {
  bool inch = false;
  int sPrecision = 0;
  int fPrecision = 0;
  int ratedPower = 0;
  bool dmcUsable = false;
  bool oneTooth = false;
};

/// The four results, computed into the screen.
void PlainRecalc(PlainScreen& screen, const PlainMachine& machine);
void PlainS(PlainScreen& screen, const PlainMachine& machine);
void PlainF(PlainScreen& screen, const PlainMachine& machine);
void PlainPower(PlainScreen& screen, const PlainMachine& machine);
void PlainDmc(PlainScreen& screen, const PlainMachine& machine);
std::string PlainSpeedFromS(const PlainScreen& screen, const PlainMachine& machine);

}  // namespace pnl::test
