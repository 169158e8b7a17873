// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_plain_cascade.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace pnl::test {
namespace {

std::string Print(const char* format, ...) {
  char buffer[1024];
  va_list args;
  va_start(args, format);
  const int length = std::vsnprintf(buffer, sizeof buffer, format, args);
  va_end(args);
  return std::string(buffer, static_cast<std::size_t>(length));
}

double Number(const std::string& text) {
  // strtod also reads hexadecimal numbers, infinity and nan, which all begin with a letter or contain an x.
  std::string decimal;
  for (const char c : text) {
    const bool part = (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-' || c == 'e' || c == 'E' || c == ' ';
    if (!part) break;
    decimal += c;
  }
  return std::strtod(decimal.c_str(), nullptr);
}

std::string ByFormat(double value, int precision) {
  if (precision != 0) return Print("%f", value);
  const bool fits = value > -2147483649.0 && value < 2147483648.0;
  return Print("%i", fits ? static_cast<int>(value) : std::numeric_limits<int>::min());
}

bool Blank3(const std::string& text) { return text.empty() || text == "0" || text == " 0"; }
bool Blank2(const std::string& text) { return text.empty() || text == "0"; }

double MmOf(const std::string& text, bool inch) { return inch ? Number(text) / 0.03937 : Number(text); }
double MetresOf(const std::string& text, bool inch) { return inch ? Number(text) / 3.28084 : Number(text); }

std::string Revolutions(const PlainScreen& x, const PlainMachine& m) {
  if (x.s.empty() || x.s == "0" || x.vc == "0" || Blank3(x.d)) return "";
  if (x.sUnit == 0) return ByFormat(Number(x.s), m.sPrecision);
  if (Number(x.d) == 0) return ByFormat(0, m.sPrecision);
  return ByFormat(MetresOf(x.s, m.inch) * 1000.0 / (3.14159 * MmOf(x.d, m.inch)), m.sPrecision);
}

}  // namespace

void PlainS(PlainScreen& x, const PlainMachine& m) {
  if (Blank2(x.vc) || Blank3(x.d)) return;
  double s = 0;
  if (x.sUnit != 0) {
    s = Number(x.vc);
  } else if (Number(x.d) != 0) {
    s = MetresOf(x.vc, m.inch) * 1000.0 / (3.14159 * MmOf(x.d, m.inch));
  }
  x.s = ByFormat(s, m.sPrecision);
}

void PlainF(PlainScreen& x, const PlainMachine& m) {
  const std::string teeth = m.oneTooth ? "1" : x.z;
  const std::string revolutions = Revolutions(x, m);
  if (Blank2(x.fz) || Blank3(teeth) || Blank3(revolutions)) return;
  const double n = x.fUnit == 1 ? 1.0 : Number(revolutions);
  double f = n * MmOf(x.fz, m.inch) * Number(teeth);
  if (m.inch) f = f * 0.03937;
  x.f = ByFormat(f, m.fPrecision);
}

void PlainPower(PlainScreen& x, const PlainMachine& m) {
  if (!m.dmcUsable || Blank2(x.ap) || Blank3(x.ae) || !x.material || !x.kcKnown || Blank3(x.d)) return;
  const double ae = Number(x.ae) * MmOf(x.d, m.inch) / 100.0;
  const double p = ae * MmOf(x.ap, m.inch) * MmOf(x.f, m.inch) * x.kc / 51000.0;
  x.power = Print("%f", m.ratedPower == 0 ? 0.0 : p / m.ratedPower);
}

void PlainDmc(PlainScreen& x, const PlainMachine& m) {
  if (!m.dmcUsable) return;
  std::string power = x.power;
  while (!power.empty() && power.front() == ' ') power.erase(0, 1);
  while (!power.empty() && power.back() == ' ') power.pop_back();
  x.dmc.clear();
  if (!(Number(power) > 0)) return;
  if (!x.fzMin.empty() && !x.fzMax.empty()) {
    x.dmc = Print("#DMC ON [PWRSP = %s, FZMIN = %s, FZMAX = %s]", power.c_str(), x.fzMin.c_str(), x.fzMax.c_str());
  } else if (!x.fzMin.empty()) {
    x.dmc = Print("#DMC ON [PWRSP = %s, FZMIN = %s]", power.c_str(), x.fzMin.c_str());
  } else if (!x.fzMax.empty()) {
    x.dmc = Print("#DMC ON [PWRSP = %s, FZMAX = %s]", power.c_str(), x.fzMax.c_str());
  } else {
    x.dmc = Print("#DMC ON [PWRSP = %s]", power.c_str());
  }
}

void PlainRecalc(PlainScreen& x, const PlainMachine& m) {
  PlainS(x, m);
  PlainF(x, m);
  PlainPower(x, m);
  PlainDmc(x, m);
}

std::string PlainSpeedFromS(const PlainScreen& x, const PlainMachine& m) {
  if (x.s.empty() || x.s == "0" || x.vc == "0" || Blank3(x.d)) return "";
  const double v = MetresOf(x.vc, m.inch);
  double r = 0;
  if (Number(x.d) != 0) r = 3.14159 * MmOf(x.d, m.inch) * MetresOf(x.s, m.inch) / 1000.0;
  if (std::fabs(r - v) < 0.05) r = v;
  return ByFormat(r, m.sPrecision);
}

}  // namespace pnl::test
