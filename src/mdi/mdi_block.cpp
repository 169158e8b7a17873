// SPDX-License-Identifier: MIT
#include "mdi/mdi_block.h"

#include <utility>

#include "mdi/mdi_channel.h"
#include "mdi/mdi_inspection.h"
#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

/// Takes the block to run into the record. False when there is none.
bool PickBlock(MdiSession& session, MDIDATA_ST& record) {
  MdiView& view = session.View();
  if (record.TypesInEdit()) {
    if (!view.IsDropListOpen()) {
      record.Text = view.EditText();
      return !record.Text.empty();
    }
    const std::optional<Text> selected = view.DropListSelection();
    CloseDropList(session);
    record.Text = selected.value_or(Text());
    if (selected) view.SetEditText(*selected);
    return !record.Text.empty();
  }
  record.MDASelection = view.ListSelection();
  // Text may still hold a block that ran before; without a selection it must not run again.
  if (record.MDASelection < 0) return false;
  record.Text = view.ListItem(record.MDASelection);
  return !record.Text.empty();
}

void ShowRunning(MdiSession& session, MDIDATA_ST& record) {
  MdiView& view = session.View();
  record.State = mdi_state::kRunning;
  view.ClearFocus();
  view.RedrawEdit();
  view.SetEditReadOnly(true);
  if (record.LowRole() != MdiRole::kMdi) view.SetListEnabled(false);
  view.FocusWindow();
  UpdateMenus(session);
}

void SendBlock(MdiSession& session, MDIDATA_ST& record) {
  if (!PickBlock(session, record)) {
    UpdateMenus(session);
    return;
  }
  Kernel& kernel = session.Kapi();
  if (kernel.CogerPlcFree(0, record.Channel) == 0) return;
  if (kernel.MDILine(0, record.Text, 0, 4, 0) == 0) {
    ShowRunning(session, record);
    return;
  }
  // Why it was refused the operator learns from the error tool; the edit keeps the text for correction.
  kernel.LiberarPlcFree(0, record.Channel, 1);
  record.Text.clear();
  record.MDASelection = -1;
  UpdateMenus(session);
}

void BlockDone(MdiSession& session, MDIDATA_ST& record) {
  if (record.Text.empty()) return;
  MdiHistory::AddToHistory(record, record.Text);
  if (session.IsCurrent(record)) session.View().SetEditText({});
  StoreBlock(session, record);
}

void ReinstallMenus(MdiSession& session, const MDIDATA_ST& record) {
  if (session.IsCurrent(record)) InstallMenus(session, record);
}

/// The host may have ended the window when it got the menus: the lists were stored then, without this block.
void StoreIfEnded(MdiSession& session, MDIDATA_ST& record) {
  if (session.Ended()) session.history.SaveLists(record);
}

/// False when the channel stays open: nobody wants it, or the interlock was refused.
bool LeaveIfWanted(MdiSession& session, const MDIDATA_ST& record) {
  if (record.ClosePending == 0 && !AutomaticWaits(session, record)) return false;
  return LeaveChannel(session, record.Channel) == kDone;
}

void ShowReady(MdiSession& session, const MDIDATA_ST& record) {
  session.View().RedrawEdit();
  ShowAccess(session, record.LowRole(), &record);
  if (session.View().IsVisible()) FocusForRole(session);
  UpdateMenus(session);
}

void OnReady(MdiSession& session, MDIDATA_ST& record) {
  if (record.IsReady()) {
    if (record.InMDI == 0) EnterChannel(session, record.Channel);
    LeaveIfWanted(session, record);
    return;
  }
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  if (old == mdi_state::kInterrupted) ReinstallMenus(session, record);
  BlockDone(session, record);
  StoreIfEnded(session, record);
  if (LeaveIfWanted(session, record)) return;
  if (session.IsCurrent(record)) ShowReady(session, record);
}

void ShowAborted(MdiSession& session, const MDIDATA_ST& record) {
  MdiView& view = session.View();
  if (record.LowRole() == MdiRole::kMdi) view.SetEditText({});
  view.SetEditReadOnly(false);
  view.SetListEnabled(true);
  if (view.IsVisible()) FocusForRole(session);
  // Not through view: the focus on the list calls the host, which may end the window.
  session.View().RedrawEdit();
  UpdateMenus(session);
}

void OnAborted(MdiSession& session, MDIDATA_ST& record) {
  // Between the kernel's acceptance and the first report of our block, an abort is that of something before it.
  if (record.State == mdi_state::kRunning) return;
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  if (old == mdi_state::kInterrupted) ReinstallMenus(session, record);
  MdiHistory::AddToHistory(record, record.Text);
  StoreIfEnded(session, record);
  record.Text.clear();
  if (session.IsCurrent(record)) ShowAborted(session, record);
}

void ChangeState(MdiSession& session, MDIDATA_ST& record, std::int32_t from, std::int32_t to) {
  if (record.State != from) return;
  record.State = to;
  ReinstallMenus(session, record);
}

}  // namespace

std::intptr_t Start(MdiSession& session, std::intptr_t channel, bool fromKey) {
  MDIDATA_ST* record = channel == 0 ? session.Current() : session.Record(channel);
  if (record == nullptr || !session.IsCurrent(*record)) return kDone;
  if (record->Opened == 0 || record->InMDI == 0 || session.WaitingForExplorer != 0) return kDone;
  const std::optional<std::int32_t> status = ReadPresent(record->StatusVar);
  if (!status) return kDone;
  const std::int32_t byte = StatusByte(*status);
  const std::int32_t detail = StatusDetail(*status);
  if (fromKey && IsInspectionDiversion(byte, *record)) return kDone;
  if (byte == 1) {
    // A second press before the block's first report finds the channel still ready: it must not send again.
    if (record->IsReady()) SendBlock(session, *record);
  } else if (byte == 2) {
    if (!record->IsReady() && detail == 1) session.Kapi().NextSingleStep(0);
  } else if (byte == 4) {
    if (detail == 4 || detail == 6) session.Kapi().NextSingleStep(0);
    if (detail == 5 || detail == 15) session.Kapi().ClearFeedhold(0);
  }
  return kDone;
}

std::intptr_t OnStatusReport(MdiSession& session, MDIDATA_ST& record) {
  const std::optional<std::int32_t> status = ReadPresent(record.StatusVar);
  if (!status) return kRefused;
  switch (StatusByte(*status)) {
    case 1:
      OnReady(session, record);
      break;
    case 2:
      ChangeState(session, record, mdi_state::kInterrupted, mdi_state::kRunning);
      break;
    case 4:
      ChangeState(session, record, mdi_state::kRunning, mdi_state::kInterrupted);
      break;
    case 8:
      OnAborted(session, record);
      break;
    default:
      break;
  }
  return kDone;
}

void OnInspectReport(MdiSession& session, MDIDATA_ST& record) {
  if (ReadPresent(record.InspectVar) != 1) return;
  if (ReadPresent(record.StartVar) == 2) Start(session, record.Channel, false);
}

void StoreBlock(MdiSession& session, MDIDATA_ST& record) {
  if (record.Text.empty()) return;
  if (record.LowRole() == MdiRole::kMdi) {
    AppendItem(session, record, record.Text);
  } else if (record.Edit() == mdi_edit::kNewItem) {
    InsertBeforeSelected(session, record, record.Text);
  } else if (record.Edit() == mdi_edit::kChangeItem) {
    ReplaceChanged(session, record, record.Text);
  } else {
    // Run straight from the list: it stands there already, and Text keeps it.
    return;
  }
  record.Text.clear();
  record.LoadState = mdi_load::kChanged;
  if (session.IsCurrent(record)) SetEdit(session, record, mdi_edit::kNone);
}

}  // namespace pnl::mdi
