// SPDX-License-Identifier: MIT
#include "facade/mill/machine_variables.h"

#include "base/format.h"
#include "facade/variable_names.h"

namespace pnl::sim {

namespace {

constexpr TextView kSpindle = u"S";

/// A start value that all machines have.
struct StartValue {
  TextView pattern;  // as in kVariableNames
  int number;
};

/// All other variables start at 0 or with an empty text.
constexpr StartValue kStartValues[] = {
    // The channel: ready, in manual mode, no inspection.
    {u"[%d].G.FULLSTATUS", 0x100}, {u"[%d].G.STATUS", 1},  {u"[%d].E.MANUALMODE", 1}, {u"DM.MDI.ENABLEC%d", 1},
    {u"MPG.NCHANNEL", 1},          {u"G.FOCUSCHANNEL", 1}, {u"[%d].G.MASTERSP", 1},   {u"DM.CNC.MODELID", 2},
};

/// A start value by the kind of the machine.
struct MachineValue {
  TextView pattern;  // as in kVariableNames
  std::array<int, kMachineKinds> numbers;
};

// clang-format off
constexpr MachineValue kMachineValues[] = {
    //                          mill  mill-turn  inch mill
    {u"MPG.INCHES",             {  0,         0,         1}},
    {u"DM.OPTION.DUALPURPOSE",  {  0,         1,         0}},
    // The digits of a number on the screen. A cutting speed has a decimal, a spindle speed has none; a feed in inches
    // has one decimal more than one in millimetres.
    {u"DM.SFORMAT.WIDTH",       {  5,         5,         5}},
    {u"DM.SFORMAT.PRECISION",   {  0,         1,         0}},
    {u"DM.FFORMAT.WIDTH",       {  5,         5,         4}},
    {u"DM.FFORMAT.PRECISION",   {  3,         3,         4}},
    // Control of the cutting power: the option, the spindle that has it, and the type of the spindle's drive.
    {u"DM.OPTION.DMC",          {  1,         0,         1}},
    {u"SP.DMCSPDL",             {  1,         0,         1}},
    {u"MPA.DRIVETYPE.%s",       {  2,        16,         8}},
    // In tenths of a kilowatt: 15 kW, 11 kW and 20 hp. The machining calculator's percentage is right with this unit:
    // its divisor is that of kilowatts, for an efficiency of 0.85, with ten times the power.
    {u"DM.DMC.RATEDPOWER",      {150,       110,       149}},
};
// clang-format on

int NumberOf(TextView pattern, MachineKind kind) {
  for (const StartValue& start : kStartValues) {
    if (start.pattern == pattern) return start.number;
  }
  for (const MachineValue& value : kMachineValues) {
    if (value.pattern == pattern) return value.numbers[static_cast<std::size_t>(kind)];
  }
  return 0;
}

rig::Value StartOf(const VariableName& variable, MachineKind kind) {
  if (variable.pattern == u"G.GSPDLNAME%d") return Text(kSpindle);
  const int number = NumberOf(variable.pattern, kind);
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

void DefineMachineVariables(MachineEnvironment& environment, MachineKind kind) {
  for (const VariableName& variable : kVariableNames) {
    const bool named = variable.pattern.find(u"%s") != TextView::npos;
    // One channel and one spindle.
    const Text name = named ? Format(variable.pattern, kSpindle) : Format(variable.pattern, 1);
    environment.Define(name, variable.type, StartOf(variable, kind));
  }
  for (const TextView position : machine_variable::kPositions) {
    environment.Define(position, rig::VariableType::kDouble, 0.0);
  }
}

}  // namespace pnl::sim
