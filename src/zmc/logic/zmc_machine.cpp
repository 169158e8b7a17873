// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_machine.h"

#include <algorithm>
#include <iterator>

#include "base/format.h"

namespace pnl {

namespace {

constexpr std::int32_t kUnknown = -1;
constexpr std::int32_t kDriveBit = 2;
constexpr std::int32_t kDriveTypes[] = {8, 16};
/// The models that mill and turn without an option.
constexpr std::int32_t kDualPurposeModels[] = {1, 5, 6, 9, 11, 15};

template <std::size_t N>
bool Contains(const std::int32_t (&values)[N], std::int32_t value) {
  return std::find(std::begin(values), std::end(values), value) != std::end(values);
}

std::int32_t IntOf(Variables& variables, TextView name, std::int32_t fallback) {
  std::int32_t value = fallback;
  ZCVariable variable(variables, name);
  variable.UpdateCache();
  // A failed read leaves the value as it is.
  return variable.ReadInt(value) == variable_code::kDone ? value : fallback;
}

Text TextOf(Variables& variables, TextView name) {
  Text value;
  ZCVariable variable(variables, name);
  variable.UpdateCache();
  return variable.ReadTxt(value) == variable_code::kDone ? value : Text();
}

/// A number that counts only above 0.
std::int32_t NumberOf(Variables& variables, TextView name) {
  const std::int32_t value = IntOf(variables, name, kUnknown);
  return value > 0 ? value : kUnknown;
}

void ReadSpindle(Variables& variables, ZmcMachine& machine) {
  machine.FocusChannel = NumberOf(variables, u"G.FOCUSCHANNEL");
  if (machine.FocusChannel == kUnknown) return;
  machine.MasterSpindle = NumberOf(variables, Format(u"[%d].G.MASTERSP", machine.FocusChannel));
  if (machine.MasterSpindle == kUnknown) return;
  machine.MasterSpindleName = TextOf(variables, Format(u"G.GSPDLNAME%d", machine.MasterSpindle));
  machine.DriveType = IntOf(variables, Format(u"MPA.DRIVETYPE.%s", machine.MasterSpindleName), 0);
}

}  // namespace

bool ZmcMachine::DriveTypeAllowsDmc() const { return (DriveType & kDriveBit) != 0 || Contains(kDriveTypes, DriveType); }

ZmcMachine ReadZmcMachine(Variables& variables) {
  ZmcMachine machine;
  machine.units.inches = IntOf(variables, u"MPG.INCHES", 0) != 0;
  ReadSpindle(variables, machine);
  machine.RatedPower = IntOf(variables, u"DM.DMC.RATEDPOWER", 0);
  machine.FFormat.width = IntOf(variables, u"DM.FFORMAT.WIDTH", 0);
  machine.FFormat.precision = IntOf(variables, u"DM.FFORMAT.PRECISION", 0);
  machine.SFormat.width = IntOf(variables, u"DM.SFORMAT.WIDTH", 0);
  machine.SFormat.precision = IntOf(variables, u"DM.SFORMAT.PRECISION", 0);
  // Any other value than 1 leaves DMC off.
  machine.DmcOption = IntOf(variables, u"DM.OPTION.DMC", 0) == 1;
  const std::int32_t model = IntOf(variables, u"DM.CNC.MODELID", kUnknown);
  const std::int32_t option = IntOf(variables, u"DM.OPTION.DUALPURPOSE", 0);
  machine.DualPurpose = Contains(kDualPurposeModels, model) || option != 0;
  machine.ForcedSUnit = IntOf(variables, u"DM.ZMC.SUNIT", 0);
  machine.DmcSpindle = IntOf(variables, u"SP.DMCSPDL", 0);
  return machine;
}

}  // namespace pnl
