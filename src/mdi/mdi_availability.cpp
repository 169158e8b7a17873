// SPDX-License-Identifier: MIT
#include "mdi/mdi_availability.h"

#include <optional>

#include "base/format.h"

namespace pnl {

namespace {

enum class Verdict { kNext, kAllow, kRefuse };

constexpr std::int32_t kAutomaticPending = 0x3F000;
constexpr std::int32_t kChannelWithoutMdi = 1;
constexpr std::int32_t kUnknownChannelType = 2;

struct Reading {
  bool valid = false;
  std::optional<std::int32_t> value;  // nothing if the variable isn't valid or can't be read
};

Reading Read(CncFacade& cnc, TextView format, int channel) {
  ZCVariable variable(cnc.Vars(), Format(format, channel));
  if (!variable.IsValid()) return {};
  variable.UpdateCache();
  std::int32_t value = 0;
  if (variable.ReadInt(value) != 0) return {true, std::nullopt};
  return {true, value};
}

Verdict EnabledBySetup(CncFacade& cnc, int channel) {
  // A machine without the variable has MDI. A machine with a variable that can't be read does not.
  const Reading enable = Read(cnc, u"DM.MDI.ENABLEC%d", channel);
  return enable.valid && enable.value.value_or(0) == 0 ? Verdict::kRefuse : Verdict::kNext;
}

Verdict KernelThere(CncFacade& cnc, int /*channel*/) {
  return cnc.Kapi().ExisteKernel() != 0 ? Verdict::kRefuse : Verdict::kNext;
}

Verdict ChannelType(CncFacade& cnc, int channel) {
  const std::int32_t type = Read(cnc, u"[%d].MPG.CHTYPE", channel).value.value_or(kUnknownChannelType);
  return type == kChannelWithoutMdi ? Verdict::kRefuse : Verdict::kNext;
}

Verdict NoAutomaticWork(CncFacade& cnc, int channel) {
  if (Read(cnc, u"[%d].E.PNLMODE", channel).value.value_or(0) != 0) return Verdict::kNext;
  const std::int32_t status = Read(cnc, u"[%d].G.CNCAUTSTATUS", channel).value.value_or(0);
  return (status & kAutomaticPending) != 0 ? Verdict::kRefuse : Verdict::kNext;
}

Verdict AllowedInResetInspect(CncFacade& cnc, int channel) {
  return cnc.Kapi().IsMDIAllowedInResetInspect(channel) != 0 ? Verdict::kAllow : Verdict::kNext;
}

Verdict ApiAtRest(CncFacade& cnc, int channel) {
  const Reading status = Read(cnc, u"[%d].E.APISTATUS", channel);
  return !status.valid || status.value.value_or(0) != 0 ? Verdict::kRefuse : Verdict::kNext;
}

Verdict ChannelAtRest(CncFacade& cnc, int channel) {
  const Reading status = Read(cnc, u"[%d].G.STATUS", channel);
  if (!status.value) return Verdict::kRefuse;
  const bool busy = *status.value == 2 || *status.value == 4 || *status.value == 8;
  return busy ? Verdict::kRefuse : Verdict::kAllow;
}

using Check = Verdict (*)(CncFacade&, int);
constexpr Check kChecks[] = {EnabledBySetup,        KernelThere, ChannelType,  NoAutomaticWork,
                             AllowedInResetInspect, ApiAtRest,   ChannelAtRest};

}  // namespace

bool IsMDIAvailable(CncFacade& cnc, int channel) {
  for (const Check check : kChecks) {
    const Verdict verdict = check(cnc, channel);
    if (verdict != Verdict::kNext) return verdict == Verdict::kAllow;
  }
  return true;
}

}  // namespace pnl
