// SPDX-License-Identifier: MIT
#include "mdi/mdi_channel.h"

#include "mdi/mdi_block.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

constexpr std::uint32_t kMdiBit = 0x10000000;
constexpr std::int32_t kAutomaticPending = 0x3F000;
constexpr std::int32_t kManual = 1;
constexpr std::int32_t kPanelModeMdi = 2;

/// Holds the channel in MDI state, unless the manual mode can't be set to 0.
void HoldChannel(MdiSession& session, MDIDATA_ST& record) {
  const std::int8_t channel = record.Channel;
  ZCVariable manualMode = session.ChannelVariable(channel, u"E.MANUALMODE");
  record.SavedManualMode = ReadPresent(manualMode).value_or(record.SavedManualMode);
  if (!manualMode.IsValid() || manualMode.WriteInt(0) != 0) return;
  ZCVariable panelMode = session.ChannelVariable(channel, u"E.PNLMODE");
  if (panelMode.IsValid()) panelMode.WriteInt(kPanelModeMdi);
  session.Kapi().SetMdi(channel, 1);
  MarkStatusWord(session, channel, record.SavedManualMode, true);
  record.InMDI = 1;
}

void ReleaseChannel(MdiSession& session, MDIDATA_ST& record) {
  const std::int8_t channel = record.Channel;
  session.Kapi().SetMdi(channel, 0);
  session.Kapi().EndMDIMode(channel);
  session.Kapi().SetMode(channel, record.SavedManualMode);
  session.Kapi().LiberarPlcFree(0, channel, 1);
  MarkStatusWord(session, channel, record.SavedManualMode, false);
  if (record.InspectVar.IsValid()) record.InspectVar.WriteInt(0);
  record.InMDI = 0;
}

}  // namespace

void NotifyHost(MdiSession& session, int code, int channel) {
  PnlToolNotify record = {channel, session.View().Handle()};
  session.context.windows.Send(session.HostWindow, {kMsgToolNotify, code, reinterpret_cast<std::intptr_t>(&record)});
}

void EnterChannel(MdiSession& session, int channel) {
  NotifyHost(session, kNotifyTaken, channel);
  MDIDATA_ST* record = session.Record(channel);
  // The host may have destroyed the window at the news: nobody would give the channel back then.
  if (record == nullptr || session.Ended()) return;
  if (record->InMDI == 0) HoldChannel(session, *record);
  if (record->StatusVar.IsValid() && !record->StatusVar.IsReportOpened()) {
    record->StatusVar.OpenReport(session.View().Handle());
  }
}

std::intptr_t LeaveChannel(MdiSession& session, int channel) {
  if (session.Kapi().CogerPlcFree(0, channel) == 0) return kRefused;
  MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kRefused;
  if (record->StatusVar.IsReportOpened()) record->StatusVar.CloseReport();
  if (record->Opened == 0) return kDone;
  record->Opened = 0;
  record->ClosePending = 0;
  NotifyHost(session, kNotifyGiven, channel);
  // The interlock taken above is given back with the MDI state only: a channel that was not held keeps it, and that is
  // meant so.
  if (record->InMDI != 0) ReleaseChannel(session, *record);
  if (session.IsCurrent(*record)) {
    HideWindow(session);
    ClearMessage(session);
    session.Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
  }
  return kDone;
}

void MarkStatusWord(MdiSession& session, int channel, std::int32_t mode, bool on) {
  if (mode != 0 && mode != kManual) return;
  ZCVariable word = session.ChannelVariable(channel, mode == 0 ? u"G.CNCAUTSTATUS" : u"G.CNCMANSTATUS");
  const std::optional<std::int32_t> present = ReadPresent(word);
  if (!present) return;
  const auto bits = static_cast<std::uint32_t>(*present);
  if (on) {
    word.WriteInt(static_cast<std::int32_t>(bits | kMdiBit), 1);
  } else if ((bits & kMdiBit) != 0) {
    word.WriteInt(static_cast<std::int32_t>(bits ^ kMdiBit), 1);
  }
}

bool AutomaticWaits(MdiSession& session, const MDIDATA_ST& record) {
  if (record.SavedManualMode == kManual) return false;
  ZCVariable status = session.ChannelVariable(record.Channel, u"G.CNCAUTSTATUS");
  return (ReadPresent(status).value_or(0) & kAutomaticPending) != 0;
}

bool IsIdle(MDIDATA_ST& record) {
  const std::optional<std::int32_t> status = ReadPresent(record.StatusVar);
  return !status || StatusByte(*status) == 1;
}

void CloseLater(MdiSession& session, MDIDATA_ST& record) {
  HideWindow(session);
  record.ClosePending = 1;
  session.Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
}

}  // namespace pnl::mdi
