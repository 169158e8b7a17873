// SPDX-License-Identifier: MIT
#include "facade/mill/machine_variables.h"

#include "base/format.h"
#include "facade/variable_names.h"

namespace pnl::sim {

namespace {

constexpr TextView kSpindle = u"S";

/// The start value of the variable with that pattern in kVariableNames.
struct StartValue {
  TextView pattern;
  int number;
};

/// All other variables start at 0 or with an empty text.
constexpr StartValue kStartValues[] = {
    // The channel: ready, in manual mode, no inspection.
    {u"[%d].G.FULLSTATUS", 0x100},
    {u"[%d].G.STATUS", 1},
    {u"[%d].E.MANUALMODE", 1},
    {u"DM.MDI.ENABLEC%d", 1},
    {u"MPG.NCHANNEL", 1},
    {u"G.FOCUSCHANNEL", 1},
    {u"DM.SFORMAT.WIDTH", 5},
    {u"DM.FFORMAT.WIDTH", 5},
    {u"DM.FFORMAT.PRECISION", 3},
    // A mill in millimetres. Its spindle can control the cutting power.
    {u"DM.CNC.MODELID", 2},
    {u"DM.OPTION.DMC", 1},
    {u"DM.DMC.RATEDPOWER", 15},
    {u"SP.DMCSPDL", 1},
    {u"[%d].G.MASTERSP", 1},
    {u"MPA.DRIVETYPE.%s", 2},
};

rig::Value StartOf(const VariableName& variable) {
  if (variable.pattern == u"G.GSPDLNAME%d") return Text(kSpindle);
  int number = 0;
  for (const StartValue& start : kStartValues) {
    if (start.pattern == variable.pattern) number = start.number;
  }
  switch (variable.type) {
    case rig::VariableType::kText:
      return Text();
    case rig::VariableType::kDouble:
      return static_cast<double>(number);
    case rig::VariableType::kInt:
      break;
  }
  return static_cast<std::int64_t>(number);
}

}  // namespace

void DefineMachineVariables(MachineEnvironment& environment) {
  for (const VariableName& variable : kVariableNames) {
    const bool named = variable.pattern.find(u"%s") != TextView::npos;
    // One channel and one spindle.
    const Text name = named ? Format(variable.pattern, kSpindle) : Format(variable.pattern, 1);
    environment.Define(name, variable.type, StartOf(variable));
  }
  for (const TextView position : machine_variable::kPositions) {
    environment.Define(position, rig::VariableType::kDouble, 0.0);
  }
}

}  // namespace pnl::sim
