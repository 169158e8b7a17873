// SPDX-License-Identifier: MIT
#include "mdi/mdi_holding.h"

namespace pnl {

void MdiHolding::Notify(int code, const MDIDATA_ST& record) {
  PnlToolNotify notice = {record.Channel, view_().Handle()};
  windows_.Send(hostWindow_, {PNL_MSG_TOOL_NOTIFY, code, reinterpret_cast<std::intptr_t>(&notice)});
}

void MdiHolding::ReportTaken(const MDIDATA_ST& record) { Notify(PNL_NOTIFY_CHANNEL_TAKEN, record); }

void MdiHolding::Enter(MDIDATA_ST& record) {
  ReportTaken(record);
  // The host may have destroyed the window in the report. Then view_() throws and the channel isn't taken, because
  // nobody would give it back.
  channels_.Hold(record, view_().Handle());
}

bool MdiHolding::Leave(MDIDATA_ST& record) {
  // Throws if there is no window, so that nothing is begun without one. After the interlock is taken, the channel is
  // given back completely, even if the window is destroyed meanwhile.
  static_cast<void>(view_());
  if (kernel_.CogerPlcFree(0, record.Channel) == 0) return false;
  if (record.StatusVar.IsReportOpened()) record.StatusVar.CloseReport();
  if (record.Opened == 0) return true;
  record.Opened = 0;
  record.ClosePending = 0;
  Notify(PNL_NOTIFY_CHANNEL_GIVEN, record);
  // Not a mistake: the interlock that was taken above is given back together with the MDI state. If the channel wasn't
  // held, the interlock stays taken.
  if (record.InMDI != 0) channels_.Release(record);
  if (!channels_.IsCurrent(record)) return true;
  screen_.Hide();
  host_().HostShowMessage(PNL_TOOL_MDI, {});
  host_().HostToolClosed(PNL_TOOL_MDI, PNL_CLOSED);
  return true;
}

bool MdiHolding::LeaveIfWanted(MDIDATA_ST& record) {
  return (record.ClosePending != 0 || channels_.AutomaticWaits(record)) && Leave(record);
}

void MdiHolding::CloseLater(MDIDATA_ST& record) {
  screen_.Hide();
  record.ClosePending = 1;
  host_().HostToolClosed(PNL_TOOL_MDI, PNL_CLOSED);
}

void MdiHolding::Hide(const MDIDATA_ST& record) {
  screen_.Hide();
  if (record.Opened != 0) host_().HostToolClosed(PNL_TOOL_MDI, PNL_CLOSED);
}

}  // namespace pnl
