// SPDX-License-Identifier: MIT
#include "mdi/mdi_inspection.h"

#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {
constexpr int kTextHintMdi = 38;
constexpr int kTextHintMda = 39;
}  // namespace

bool IsInspecting(MdiSession& session, int channel) {
  if (session.Kapi().IsNewInspecAllowed(0) == 0) return false;
  if (session.Kapi().EnProcesoInspec(channel) != 0) return true;
  ZCVariable status = session.ChannelVariable(channel, u"E.INSPECSTATUS");
  return ReadPresent(status).value_or(0) != 0;
}

bool InspectionIsOn(MDIDATA_ST& record) { return ReadPresent(record.InspectVar).value_or(0) != 0; }

bool IsInspectionDiversion(std::int32_t statusByte, MDIDATA_ST& record) {
  if (!InspectionIsOn(record)) return false;
  const bool startable = statusByte == 1 || statusByte == 2 || statusByte == 4;
  if (!startable) return false;
  if (record.StartVar.IsValid()) record.StartVar.WriteInt(1);
  return true;
}

void ShowInspectHint(MdiSession& session) {
  MDIDATA_ST* record = session.Current();
  if (record == nullptr || !InspectionIsOn(*record)) {
    ClearMessage(session);
    return;
  }
  const int text = record->LowRole() == MdiRole::kMdi ? kTextHintMdi : kTextHintMda;
  ShowMessage(session, session.context.language.LoadToolText(text));
}

}  // namespace pnl::mdi
