// SPDX-License-Identifier: MIT
#include "mdi/mdi_channels.h"

#include <cstddef>

#include "base/format.h"

namespace pnl {

namespace {

constexpr std::uint32_t kMdiBit = 0x10000000;
constexpr std::int32_t kAutomaticPending = 0x3F000;
constexpr std::int32_t kAutomatic = 0;
constexpr std::int32_t kManual = 1;
constexpr std::int32_t kPanelModeMdi = 2;
constexpr std::int32_t kStartAsked = 1;
constexpr std::int32_t kStartGranted = 2;

/// The present value of an integer variable, or nothing if it isn't valid or can't be read.
std::optional<std::int32_t> ReadPresent(ZCVariable& variable) {
  if (!variable.IsValid()) return std::nullopt;
  variable.UpdateCache();
  std::int32_t value = 0;
  if (variable.ReadInt(value) != 0) return std::nullopt;
  return value;
}

}  // namespace

int MdiChannels::NumberOfChannels() const {
  ZCVariable variable(cnc_.Vars(), u"MPG.NCHANNEL");
  const std::int32_t count = ReadPresent(variable).value_or(1);
  // Not a mistake: the tool uses one channel at most, although all data is kept by channel.
  return count == 0 ? 0 : 1;
}

void MdiChannels::MakeRecords(WindowHandle window) {
  const int count = NumberOfChannels();
  records_.reserve(static_cast<std::size_t>(count));
  for (int channel = 1; channel <= count; ++channel) {
    MDIDATA_ST& record = records_.emplace_back(cnc_.Vars(), static_cast<std::int8_t>(channel));
    record.StatusVar.SetNombre(Format(u"[%d].G.FULLSTATUS", channel));
    if (cnc_.Kapi().IsNewInspecAllowed(0) == 0) continue;
    record.InspectVar.SetNombre(Format(u"[%d].E.INSPECSTATUS", channel));
    record.StartVar.SetNombre(Format(u"[%d].E.STARTONMDI", channel));
    if (record.InspectVar.IsValid()) record.InspectVar.OpenReport(window);
    if (record.StartVar.IsValid()) record.StartVar.WriteInt(0);
  }
}

void MdiChannels::CloseReports() {
  for (MDIDATA_ST& record : records_) {
    if (record.StatusVar.IsReportOpened()) record.StatusVar.CloseReport();
    if (record.InspectVar.IsReportOpened()) record.InspectVar.CloseReport();
  }
}

MDIDATA_ST* MdiChannels::Record(std::intptr_t channel) {
  const bool known = channel >= 1 && channel <= static_cast<std::intptr_t>(records_.size());
  return known ? &records_[static_cast<std::size_t>(channel - 1)] : nullptr;
}

const MDIDATA_ST* MdiChannels::Current() const {
  return current_ == 0 ? nullptr : &records_[static_cast<std::size_t>(current_ - 1)];
}

ZCVariable MdiChannels::ChannelVariable(int channel, TextView name) const {
  return {cnc_.Vars(), Format(u"[%d].%s", channel, name)};
}

void MdiChannels::Hold(MDIDATA_ST& record, WindowHandle window) {
  if (record.InMDI == 0) HoldInMdiState(record);
  if (record.StatusVar.IsValid() && !record.StatusVar.IsReportOpened()) record.StatusVar.OpenReport(window);
}

void MdiChannels::HoldInMdiState(MDIDATA_ST& record) {
  const std::int8_t channel = record.Channel;
  ZCVariable manualMode = ChannelVariable(channel, u"E.MANUALMODE");
  record.SavedManualMode = ReadPresent(manualMode).value_or(record.SavedManualMode);
  if (!manualMode.IsValid() || manualMode.WriteInt(0) != 0) return;
  ZCVariable panelMode = ChannelVariable(channel, u"E.PNLMODE");
  if (panelMode.IsValid()) panelMode.WriteInt(kPanelModeMdi);
  cnc_.Kapi().SetMdi(channel, 1);
  MarkStatusWord(channel, record.SavedManualMode, true);
  record.InMDI = 1;
}

void MdiChannels::Release(MDIDATA_ST& record) {
  const std::int8_t channel = record.Channel;
  Kernel& kernel = cnc_.Kapi();
  kernel.SetMdi(channel, 0);
  kernel.EndMDIMode(channel);
  kernel.SetMode(channel, record.SavedManualMode);
  kernel.LiberarPlcFree(0, channel, 1);
  MarkStatusWord(channel, record.SavedManualMode, false);
  if (record.InspectVar.IsValid()) record.InspectVar.WriteInt(0);
  record.InMDI = 0;
}

void MdiChannels::ChangeManualMode(MDIDATA_ST& record, std::int32_t mode) {
  const std::int32_t old = record.SavedManualMode;
  record.SavedManualMode = mode;
  MarkStatusWord(record.Channel, old, false);
  MarkStatusWord(record.Channel, mode, true);
}

void MdiChannels::MarkStatusWord(int channel, std::int32_t mode, bool on) const {
  if (mode != kAutomatic && mode != kManual) return;
  ZCVariable word = ChannelVariable(channel, mode == kAutomatic ? u"G.CNCAUTSTATUS" : u"G.CNCMANSTATUS");
  const std::optional<std::int32_t> present = ReadPresent(word);
  if (!present) return;
  const auto bits = static_cast<std::uint32_t>(*present);
  if (on) {
    word.WriteInt(static_cast<std::int32_t>(bits | kMdiBit), 1);
  } else if ((bits & kMdiBit) != 0) {
    word.WriteInt(static_cast<std::int32_t>(bits ^ kMdiBit), 1);
  }
}

bool MdiChannels::AutomaticWaits(const MDIDATA_ST& record) const {
  if (record.SavedManualMode == kManual) return false;
  ZCVariable status = ChannelVariable(record.Channel, u"G.CNCAUTSTATUS");
  return (ReadPresent(status).value_or(0) & kAutomaticPending) != 0;
}

std::optional<std::int32_t> MdiChannels::Status(MDIDATA_ST& record) { return ReadPresent(record.StatusVar); }

bool MdiChannels::IsIdle(MDIDATA_ST& record) {
  const std::optional<std::int32_t> status = Status(record);
  return !status || MdiStatusByte(*status) == 1;
}

bool MdiChannels::IsInspecting(int channel) const {
  if (cnc_.Kapi().IsNewInspecAllowed(0) == 0) return false;
  if (cnc_.Kapi().EnProcesoInspec(channel) != 0) return true;
  ZCVariable status = ChannelVariable(channel, u"E.INSPECSTATUS");
  return ReadPresent(status).value_or(0) != 0;
}

bool MdiChannels::InspectionIsOn(MDIDATA_ST& record) { return ReadPresent(record.InspectVar).value_or(0) != 0; }

bool MdiChannels::DivertsStart(std::int32_t statusByte, MDIDATA_ST& record) {
  if (!InspectionIsOn(record)) return false;
  const bool startable = statusByte == 1 || statusByte == 2 || statusByte == 4;
  if (!startable) return false;
  if (record.StartVar.IsValid()) record.StartVar.WriteInt(kStartAsked);
  return true;
}

bool MdiChannels::StartIsGranted(MDIDATA_ST& record) {
  return ReadPresent(record.InspectVar) == 1 && ReadPresent(record.StartVar) == kStartGranted;
}

}  // namespace pnl
