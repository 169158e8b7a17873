// SPDX-License-Identifier: MIT
#include "facade/mill/machine_variables.h"

namespace pnl::sim {

namespace {

using enum rig::VariableType;

struct StartValue {
  TextView name;
  rig::VariableType type;
  int number;  // for a text variable of no meaning
  TextView text;
};

// clang-format off
constexpr StartValue kStartValues[] = {
    // The channel: ready, in manual mode, no inspection.
    {machine_variable::kFullStatus, kInt, 0x100, {}},
    {machine_variable::kStatus,     kInt, 1, {}},
    {u"[1].G.CNCAUTSTATUS",         kInt, 0, {}},
    {u"[1].G.CNCMANSTATUS",         kInt, 0, {}},
    {u"[1].E.APISTATUS",            kInt, 0, {}},
    {machine_variable::kPanelMode,  kInt, 0, {}},
    {machine_variable::kManualMode, kInt, 1, {}},
    {machine_variable::kInspection, kInt, 0, {}},
    {machine_variable::kStartOnMdi, kInt, 0, {}},
    {u"[1].MPG.CHTYPE",             kInt, 0, {}},
    {u"DM.MDI.ENABLEC1",            kInt, 1, {}},
    {u"MPG.NCHANNEL",               kInt, 1, {}},
    {u"G.FOCUSCHANNEL",             kInt, 1, {}},
    {machine_variable::kPositions[0], kDouble, 0, {}},
    {machine_variable::kPositions[1], kDouble, 0, {}},
    {machine_variable::kPositions[2], kDouble, 0, {}},
    // What tools hand to each other, messages and errors.
    {u"E.CALCRESUL",                kDouble, 0, {}},
    {u"E.HELPDATA",                 kText, 0, {}},
    {u"E.XPLRDATA",                 kInt, 0, {}},
    {u"E.PLCMSGDATA",               kInt, 0, {}},
    {u"E.NERRORS",                  kInt, 0, {}},
    {u"E.ERRORPRI",                 kInt, 0, {}},
    {u"DM.HMI.ERROR.CURRENT",       kText, 0, {}},
    // Settings of the machining calculator, of the types that it writes.
    {u"DM.ZMC.S",                   kDouble, 0, {}},
    {u"DM.ZMC.F",                   kDouble, 0, {}},
    {u"DM.ZMC.T",                   kInt, 0, {}},
    {u"DM.ZMC.M6",                  kInt, 0, {}},
    {u"DM.ZMC.DMC",                 kText, 0, {}},
    {u"DM.ZMC.FUNIT",               kInt, 0, {}},
    {u"DM.ZMC.SUNIT",               kInt, 0, {}},
    {u"DM.ZMC.COMMENT",             kText, 0, {}},
    {u"DM.ZMC.INFO",                kText, 0, {}},
    {u"DM.SFORMAT.WIDTH",           kInt, 5, {}},
    {u"DM.SFORMAT.PRECISION",       kInt, 0, {}},
    {u"DM.FFORMAT.WIDTH",           kInt, 5, {}},
    {u"DM.FFORMAT.PRECISION",       kInt, 3, {}},
    // Facts of the machine: a mill in millimetres whose spindle can hold the cutting power.
    {u"DM.CNC.MODELID",             kInt, 2, {}},
    {u"DM.OPTION.DUALPURPOSE",      kInt, 0, {}},
    {u"DM.OPTION.DMC",              kInt, 1, {}},
    {u"DM.DMC.RATEDPOWER",          kInt, 15, {}},
    {u"SP.DMCSPDL",                 kInt, 1, {}},
    {u"MPG.INCHES",                 kInt, 0, {}},
    {u"[1].G.MASTERSP",             kInt, 1, {}},
    {u"G.GSPDLNAME1",               kText, 0, u"S"},
    {u"MPA.DRIVETYPE.S",            kInt, 2, {}},
};
// clang-format on

rig::Value ValueOf(const StartValue& entry) {
  if (entry.type == kText) return std::u16string(entry.text);
  if (entry.type == kDouble) return static_cast<double>(entry.number);
  return static_cast<std::int64_t>(entry.number);
}

}  // namespace

void DefineMachineVariables(MachineEnvironment& environment) {
  for (const StartValue& entry : kStartValues) environment.Define(entry.name, entry.type, ValueOf(entry));
}

}  // namespace pnl::sim
