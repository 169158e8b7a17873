// SPDX-License-Identifier: MIT
// The path of a block: start key, kernel, status reports, history and list. Between the kernel's acceptance and the
// next report the record's State is what the panel believes; nothing here asks the time.
#include <utility>

#include "mdi/mdi_session.h"

namespace pnl {

/// Takes the block to run into the record. False when there is none.
bool MdiSession::PickBlock(MDIDATA_ST& record) {
  if (record.TypesInEdit()) {
    if (!View().IsDropListOpen()) {
      record.Text = View().EditText();
      return !record.Text.empty();
    }
    const std::optional<Text> selected = View().DropListSelection();
    screen_.CloseDropList();
    record.Text = selected.value_or(Text());
    if (selected) View().SetEditText(*selected);
    return !record.Text.empty();
  }
  record.MDASelection = View().ListSelection();
  // Text may still contain a block that ran before; without a selection it must not run again.
  if (record.MDASelection < 0) return false;
  record.Text = View().ListItem(record.MDASelection);
  return !record.Text.empty();
}

void MdiSession::SendBlock(MDIDATA_ST& record) {
  if (!PickBlock(record)) return UpdateMenus();
  if (Kapi().CogerPlcFree(0, record.Channel) == 0) return;
  if (Kapi().MDILine(0, record.Text, 0, 4, 0) == 0) {
    record.State = mdi_state::kRunning;
    screen_.ShowRunning(record);
    return UpdateMenus();
  }
  // Why it was refused the operator learns from the error tool; the edit keeps the text for correction.
  Kapi().LiberarPlcFree(0, record.Channel, 1);
  record.Text.clear();
  record.MDASelection = -1;
  UpdateMenus();
}

/// The start key, or with fromKey false the control's own start during an inspection. Channel 0 is the current one.
std::intptr_t MdiSession::StartBlock(std::intptr_t channel, bool fromKey) {
  MDIDATA_ST* record = channel == 0 ? channels_.Current() : channels_.Record(channel);
  if (record == nullptr || !channels_.IsCurrent(*record)) return kDone;
  if (record->Opened == 0 || record->InMDI == 0 || waitingForExplorer_) return kDone;
  const std::optional<std::int32_t> status = MdiChannels::Status(*record);
  if (!status) return kDone;
  const std::int32_t byte = MdiStatusByte(*status);
  const std::int32_t detail = MdiStatusDetail(*status);
  if (fromKey && MdiChannels::DivertsStart(byte, *record)) return kDone;
  if (byte == 1) {
    // A second press before the block's first report finds the channel still ready: it must not send again.
    if (record->IsReady()) SendBlock(*record);
  } else if (byte == 2) {
    if (!record->IsReady() && detail == 1) Kapi().NextSingleStep(0);
  } else if (byte == 4) {
    if (detail == 4 || detail == 6) Kapi().NextSingleStep(0);
    if (detail == 5 || detail == 15) Kapi().ClearFeedhold(0);
  }
  return kDone;
}

/// kRefused when the status can't be read; then nothing changes.
std::intptr_t MdiSession::OnStatusReport(MDIDATA_ST& record) {
  const std::optional<std::int32_t> status = MdiChannels::Status(record);
  if (!status) return kRefused;
  switch (MdiStatusByte(*status)) {
    case 1:
      OnReady(record);
      break;
    case 2:
      ChangeState(record, mdi_state::kInterrupted, mdi_state::kRunning);
      break;
    case 4:
      ChangeState(record, mdi_state::kRunning, mdi_state::kInterrupted);
      break;
    case 8:
      OnAborted(record);
      break;
    default:
      break;
  }
  return kDone;
}

void MdiSession::OnReady(MDIDATA_ST& record) {
  if (record.IsReady()) {
    if (record.InMDI == 0) EnterChannel(record);
    LeaveIfWanted(record);
  } else {
    OnBlockDone(record);
  }
}

void MdiSession::OnBlockDone(MDIDATA_ST& record) {
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  const bool shown = channels_.IsCurrent(record);
  const bool hadBlock = !record.Text.empty();
  // First of all: the host may end the window when it gets the menus, and with the window's end the lists are written.
  MdiHistory::AddToHistory(record, record.Text);
  const std::optional<MdiListChange> change = list_.Store(record, shown);
  if (old == mdi_state::kInterrupted) ReinstallMenus(record);
  if (shown && hadBlock) View().SetEditText({});
  if (shown && change) list_.Show(record, *change);
  if (LeaveIfWanted(record) || !shown) return;
  screen_.ShowReady(record);
  UpdateMenus();
}

void MdiSession::OnAborted(MDIDATA_ST& record) {
  // Between the kernel's acceptance and the first report of our block, an abort is that of something before it.
  if (record.State == mdi_state::kRunning) return;
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  MdiHistory::AddToHistory(record, std::exchange(record.Text, {}));
  if (old == mdi_state::kInterrupted) ReinstallMenus(record);
  if (!channels_.IsCurrent(record)) return;
  screen_.ShowAborted(record);
  UpdateMenus();
}

void MdiSession::ChangeState(MDIDATA_ST& record, std::int32_t from, std::int32_t to) {
  if (record.State != from) return;
  record.State = to;
  ReinstallMenus(record);
}

void MdiSession::ReinstallMenus(const MDIDATA_ST& record) {
  if (channels_.IsCurrent(record)) InstallMenus(record);
}

/// False when the channel stays open: nobody wants it, or the interlock was refused.
bool MdiSession::LeaveIfWanted(MDIDATA_ST& record) {
  if (record.ClosePending == 0 && !channels_.AutomaticWaits(record)) return false;
  return LeaveChannel(record) == kDone;
}

}  // namespace pnl
