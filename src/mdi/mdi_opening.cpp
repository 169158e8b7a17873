// SPDX-License-Identifier: MIT
#include "mdi/mdi_opening.h"

#include "host/storage_messages.h"
#include "mdi/mdi_availability.h"
#include "mdi/mdi_channel.h"
#include "mdi/mdi_inspection.h"
#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

void AnnounceOpening(MdiSession& session) {
  session.Host().HostToolOpening(tool_id::kMdi);
  ClearMessage(session);
}

/// Takes the channel and puts its role on the screen.
void TakeAndShow(MdiSession& session, MDIDATA_ST& record) {
  EnterChannel(session, record.Channel);
  ShowRole(session, record);
  InstallMenus(session, record);
  session.CurrentChannel = record.Channel;
  ShowInspectHint(session);
}

/// After everything that clears the message line.
void TellLargeLists(MdiSession& session, const MDIDATA_ST& record) {
  TellLargeFile(session.context, tool_id::kMdi, MdiHistoryName(record.Channel), record.HistorySize);
  TellLargeFile(session.context, tool_id::kMdi, MdiListName(record.Channel), record.ListSize);
}

std::intptr_t ShowInChannel(MdiSession& session, std::intptr_t channel) {
  MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kRefused;
  AnnounceOpening(session);
  // The host may answer the news by destroying the window.
  if (session.Ended()) return kRefused;
  if (channel != session.CurrentChannel) {
    SetSelection(session, {0, 0});
    session.history.LoadLists(*record);
    if (record->LowRole() != session.DisplayedRole) LayOut(session, record->LowRole(), record);
    FillList(session, *record);
  }
  TakeAndShow(session, *record);
  if (session.Ended()) return kRefused;
  session.View().Show();
  session.View().BringToTop();
  session.View().FocusWindow();
  record->Opened = 1;
  record->ClosePending = 0;
  TellLargeLists(session, *record);
  return kDone;
}

/// The block in hand, as far as it is still the operator's: a block that runs stays what it is.
void TakeTextInHand(MdiSession& session) {
  MDIDATA_ST* record = session.Current();
  if (record == nullptr || !record->IsReady()) return;
  if (record->TypesInEdit()) record->Text = session.View().EditText();
  if (record->LowRole() == MdiRole::kMda) record->MDASelection = session.View().ListSelection();
}

void SetRole(MdiSession& session, MDIDATA_ST& record, MdiRole role) {
  session.DisplayedRole = role;
  record.Role = (record.Role & 0xF0) | static_cast<std::int32_t>(role);
  session.View().ClearFocus();
  // What was typed in MDI role becomes a new item of the list.
  const bool typed = role == MdiRole::kMda && !session.View().EditText().empty();
  SetEdit(session, record, typed ? mdi_edit::kNewItem : mdi_edit::kNone);
  LayOut(session, role, &record);
  ShowTitle(session, record, session.View().IsVisible());
  SetCaretToEnd(session);
  FocusForRoleFirstItem(session);
  InstallMenus(session, record);
}

}  // namespace

std::intptr_t OpenInChannel(MdiSession& session, std::intptr_t channel) {
  const MDIDATA_ST* record = session.Record(channel);
  const bool held = record != nullptr && record->InMDI != 0;
  if (!held && !IsMDIAvailable(session.context.cnc, static_cast<int>(channel))) return kRefused;
  return ShowInChannel(session, channel);
}

std::intptr_t HideChannel(MdiSession& session, std::intptr_t channel) {
  const MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kRefused;
  if (!session.IsCurrent(*record)) return kDone;
  HideWindow(session);
  if (record->Opened != 0) session.Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
  return kDone;
}

std::intptr_t ReshowChannel(MdiSession& session, std::intptr_t channel) {
  TakeTextInHand(session);
  MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kRefused;
  if (record->Opened == 0) return kDone;
  AnnounceOpening(session);
  if (session.Ended()) return kRefused;
  SetSelection(session, {0, 0});
  session.history.LoadLists(*record);
  LayOut(session, record->LowRole(), record);
  FillList(session, *record);
  TakeAndShow(session, *record);
  session.View().Show();
  return kDone;
}

std::intptr_t RequestClose(MdiSession& session, std::intptr_t channel, bool onlyIfInspecting) {
  MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kDone;
  if (onlyIfInspecting && !InspectionIsOn(*record)) return kRefused;
  if (session.IsCurrent(*record) && record->IsReady()) {
    if (record->LowRole() == MdiRole::kMdi) {
      CloseDropList(session);
    } else if (record->Edit() != mdi_edit::kNone) {
      EndEdit(session, *record);
    }
  }
  if (record->IsReady() && IsIdle(*record)) {
    // Done even when the interlock was refused: the host asks again if it must.
    LeaveChannel(session, record->Channel);
    return kDone;
  }
  CloseLater(session, *record);
  return kClosesLater;
}

std::intptr_t ManualModeChanged(MdiSession& session, std::intptr_t channel, std::int32_t mode) {
  MDIDATA_ST* record = session.Record(channel);
  if (record == nullptr) return kRefused;
  if (record->InMDI == 0) return kDone;
  const std::int32_t old = record->SavedManualMode;
  record->SavedManualMode = mode;
  MarkStatusWord(session, record->Channel, old, false);
  MarkStatusWord(session, record->Channel, mode, true);
  if (!AutomaticWaits(session, *record)) return kDone;
  if (record->IsReady() && IsIdle(*record)) {
    LeaveChannel(session, record->Channel);
  } else {
    CloseLater(session, *record);
  }
  return kDone;
}

void RestoreCaret(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  if (record == nullptr || !record->IsReady()) return;
  SetCaretToEnd(session);
  FocusForRoleFirstItem(session);
}

void SwitchRole(MdiSession& session) {
  MDIDATA_ST* record = session.Current();
  if (record == nullptr || !record->IsReady()) return;
  SetRole(session, *record, record->LowRole() == MdiRole::kMdi ? MdiRole::kMda : MdiRole::kMdi);
  ShowInspectHint(session);
}

void Escape(MdiSession& session) {
  MDIDATA_ST* record = session.Current();
  if (record == nullptr || record->InMDI == 0) return;
  if (record->IsReady()) {
    if (record->LowRole() == MdiRole::kMda && record->Edit() != mdi_edit::kNone) {
      EndEdit(session, *record);
      return;
    }
    if (IsIdle(*record)) {
      LeaveChannel(session, record->Channel);
      return;
    }
  }
  if (!IsInspecting(session, record->Channel)) HideChannel(session, record->Channel);
}

}  // namespace pnl::mdi
