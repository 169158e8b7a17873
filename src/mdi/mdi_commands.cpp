// SPDX-License-Identifier: MIT
// What the host and the soft keys ask of the command line: tables of the codes, each with its precondition, then
// opening, showing, hiding and closing in a channel, taking the channel and giving it back, and the two roles.
#include "host/storage_messages.h"
#include "mdi/mdi_availability.h"
#include "mdi/mdi_session.h"

namespace pnl {

namespace {

constexpr int kNotifyTaken = 41;
constexpr int kNotifyGiven = 42;
/// Reason of HostToolClosed: the ordinary close.
constexpr int kOrdinaryClose = 2;
/// A close was asked for, but the block of the channel has to end first.
constexpr std::intptr_t kClosesLater = 1;
constexpr int kTextHintMdi = 38;
constexpr int kTextHintMda = 39;

/// What a soft key needs. The list's commands are grey while a block is in the machine's hands, for every sender.
enum class Need { kNothing, kInterrupted, kReady, kReadyMda };

bool IsGiven(Need need, const MDIDATA_ST& record) {
  switch (need) {
    case Need::kNothing:
      return true;
    case Need::kInterrupted:
      return record.State == mdi_state::kInterrupted;
    case Need::kReady:
      return record.IsReady();
    case Need::kReadyMda:
      return record.IsReady() && record.LowRole() == MdiRole::kMda;
  }
  return false;
}

}  // namespace

/// ToolCommand: 0 for a code that isn't known.
std::intptr_t MdiSession::OnToolCommand(std::intptr_t code, std::intptr_t argument) {
  switch (code) {
    case 2:
      return OpenInChannel(argument);
    case 3:
      return HideChannel(argument);
    case 4:
      return ReshowChannel(argument);
    case 5:
      return RequestClose(argument, false);
    case 6:
      return RequestClose(argument, true);
    case 7:
      RestoreCaret();
      return kDone;
    case 8:
      SwitchRole();
      return kDone;
    case 10:
      // The low byte is the channel, the high half the new mode.
      return ManualModeChanged(argument & 0xFF, static_cast<std::int32_t>(argument >> 16 & 0xFFFF));
    default:
      return kDone;
  }
}

/// A soft key. Nothing happens for an id that isn't known, or whose precondition isn't given.
void MdiSession::OnMenuCommand(std::intptr_t id) {
  struct Row {
    int id;
    Need need;
    void (*run)(MdiSession& session, MDIDATA_ST& record);
  };
  static constexpr Row kMenuCommands[] = {
      {mdi_command::kDeleteItem, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.Delete(record); }},
      {mdi_command::kChangeItem, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.Change(record); }},
      {mdi_command::kNewItem, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.New(record); }},
      {mdi_command::kEndEdit, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.EndEdit(record); }},
      {mdi_command::kSaveProgram, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST&) { session.RequestProgramFile(); }},
      {mdi_command::kClearList, Need::kReadyMda,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.Clear(record); }},
      {mdi_command::kCancelBlock, Need::kInterrupted,
       [](MdiSession& session, MDIDATA_ST& record) { session.Kapi().MDICancel(record.Channel); }},
      {mdi_command::kMoveUp, Need::kReady,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.Move(record, true); }},
      {mdi_command::kMoveDown, Need::kReady,
       [](MdiSession& session, MDIDATA_ST& record) { session.list_.Move(record, false); }},
      {mdi_command::kSwitchPosition, Need::kNothing,
       [](MdiSession& session, MDIDATA_ST&) { session.SwitchLayout(&MdiSettings::Below); }},
      {mdi_command::kSwitchLength, Need::kNothing,
       [](MdiSession& session, MDIDATA_ST&) { session.SwitchLayout(&MdiSettings::FullLength); }},
  };
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr) return;
  for (const Row& row : kMenuCommands) {
    if (row.id != id) continue;
    if (IsGiven(row.need, *record)) row.run(*this, *record);
    return;
  }
}

// Opening, showing, hiding and closing in a channel.

void MdiSession::AnnounceOpening() {
  Host().HostToolOpening(tool_id::kMdi);
  ShowMessage({});
}

/// Takes the channel and puts its role on the screen.
void MdiSession::TakeAndShow(MDIDATA_ST& record) {
  EnterChannel(record);
  screen_.ShowRole(record);
  InstallMenus(record);
  channels_.MakeCurrent(record);
  ShowInspectHint();
}

/// After everything that clears the message line.
void MdiSession::TellLargeLists(const MDIDATA_ST& record) {
  const auto tell = [this](const Text& name, std::uint64_t bytes) {
    // The host hears nothing more of a window that it has ended.
    if (!HasEnded()) TellLargeFile(Context(), tool_id::kMdi, name, bytes);
  };
  tell(MdiHistoryName(record.Channel), record.HistorySize);
  tell(MdiListName(record.Channel), record.ListSize);
}

/// kRefused, and nothing changed, when the channel doesn't allow it or isn't there.
std::intptr_t MdiSession::OpenInChannel(std::intptr_t channel) {
  MDIDATA_ST* record = channels_.Record(channel);
  const bool held = record != nullptr && record->InMDI != 0;
  if (!held && !IsMDIAvailable(Context().cnc, static_cast<int>(channel))) return kRefused;
  if (record == nullptr) return kRefused;
  // The host may answer the news by destroying the window. It must then hear that nothing was opened.
  const bool there = Outlives([&] {
    AnnounceOpening();
    if (!channels_.IsCurrent(*record)) {
      screen_.SetSelection({0, 0});
      history_.LoadLists(*record);
      if (record->LowRole() != screen_.DisplayedRole()) screen_.LayOut(record->LowRole(), record);
      screen_.FillList(*record);
    }
    TakeAndShow(*record);
  });
  if (!there) return kRefused;
  View().Show();
  View().BringToTop();
  View().FocusWindow();
  record->Opened = 1;
  record->ClosePending = 0;
  TellLargeLists(*record);
  return kDone;
}

/// Only for the current channel, which stays held.
std::intptr_t MdiSession::HideChannel(std::intptr_t channel) {
  const MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return kRefused;
  if (!channels_.IsCurrent(*record)) return kDone;
  screen_.Hide();
  if (record->Opened != 0) Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
  return kDone;
}

/// The block in hand, as far as it is still the operator's: a block that runs stays what it is.
void MdiSession::TakeTextInHand() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  if (record->TypesInEdit()) record->Text = View().EditText();
  if (record->LowRole() == MdiRole::kMda) record->MDASelection = View().ListSelection();
}

std::intptr_t MdiSession::ReshowChannel(std::intptr_t channel) {
  TakeTextInHand();
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return kRefused;
  if (record->Opened == 0) return kDone;
  if (!Outlives([&] { AnnounceOpening(); })) return kRefused;
  screen_.SetSelection({0, 0});
  history_.LoadLists(*record);
  screen_.LayOut(record->LowRole(), record);
  screen_.FillList(*record);
  TakeAndShow(*record);
  View().Show();
  return kDone;
}

/// kDone: given back at once, or no such channel; kClosesLater; kRefused.
std::intptr_t MdiSession::RequestClose(std::intptr_t channel, bool onlyIfInspecting) {
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return kDone;
  if (onlyIfInspecting && !MdiChannels::InspectionIsOn(*record)) return kRefused;
  if (channels_.IsCurrent(*record) && record->IsReady()) {
    if (record->LowRole() == MdiRole::kMdi) {
      screen_.CloseDropList();
    } else if (record->Edit() != mdi_edit::kNone) {
      list_.EndEdit(*record);
    }
  }
  if (record->IsReady() && MdiChannels::IsIdle(*record)) {
    // Done even when the interlock was refused: the host asks again if it must.
    LeaveChannel(*record);
    return kDone;
  }
  CloseLater(*record);
  return kClosesLater;
}

std::intptr_t MdiSession::ManualModeChanged(std::intptr_t channel, std::int32_t mode) {
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return kRefused;
  if (record->InMDI == 0) return kDone;
  channels_.ChangeManualMode(*record, mode);
  if (!channels_.AutomaticWaits(*record)) return kDone;
  if (record->IsReady() && MdiChannels::IsIdle(*record)) {
    LeaveChannel(*record);
  } else {
    CloseLater(*record);
  }
  return kDone;
}

/// The Escape key, when no drop list was open.
void MdiSession::Escape() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || record->InMDI == 0) return;
  if (record->IsReady()) {
    if (record->LowRole() == MdiRole::kMda && record->Edit() != mdi_edit::kNone) return list_.EndEdit(*record);
    if (MdiChannels::IsIdle(*record)) {
      LeaveChannel(*record);
      return;
    }
  }
  if (!channels_.IsInspecting(record->Channel)) HideChannel(record->Channel);
}

// Taking a channel and giving it back.

void MdiSession::NotifyHost(int code, const MDIDATA_ST& record) {
  PnlToolNotify notice = {record.Channel, View().Handle()};
  Context().windows.Send(hostWindow_, {kMsgToolNotify, code, reinterpret_cast<std::intptr_t>(&notice)});
}

std::intptr_t MdiSession::OnToolNotify(const Message& message) {
  if (message.first != 1) return kDone;
  const MDIDATA_ST* record = channels_.Record(message.second);
  if (record != nullptr && record->InMDI != 0) NotifyHost(kNotifyTaken, *record);
  return kDone;
}

void MdiSession::EnterChannel(MDIDATA_ST& record) {
  NotifyHost(kNotifyTaken, record);
  // The host may have destroyed the window at the news. Then View ends the operation here: nobody would give the
  // channel back.
  channels_.Hold(record, View().Handle());
}

/// kDone, or kRefused when the interlock wasn't granted; then nothing changes.
std::intptr_t MdiSession::LeaveChannel(MDIDATA_ST& record) {
  // From the interlock on, the channel is given back whole, whatever becomes of the window. Without a window nothing of
  // it is begun.
  if (HasEnded() || Kapi().CogerPlcFree(0, record.Channel) == 0) return kRefused;
  if (record.StatusVar.IsReportOpened()) record.StatusVar.CloseReport();
  if (record.Opened == 0) return kDone;
  record.Opened = 0;
  record.ClosePending = 0;
  NotifyHost(kNotifyGiven, record);
  // The interlock taken above is given back with the MDI state only: a channel that was not held keeps it, and that is
  // meant so.
  if (record.InMDI != 0) channels_.Release(record);
  if (channels_.IsCurrent(record)) {
    screen_.Hide();
    ShowMessage({});
    Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
  }
  return kDone;
}

/// Hides the window and has the channel given back when its block ends.
void MdiSession::CloseLater(MDIDATA_ST& record) {
  screen_.Hide();
  record.ClosePending = 1;
  Host().HostToolClosed(tool_id::kMdi, kOrdinaryClose);
}

// The two roles, and what the screen shows.

/// Between MDI and MDA, in State 1 only.
void MdiSession::SwitchRole() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  SetRole(*record, record->LowRole() == MdiRole::kMdi ? MdiRole::kMda : MdiRole::kMdi);
  ShowInspectHint();
}

void MdiSession::SetRole(MDIDATA_ST& record, MdiRole role) {
  record.Role = (record.Role & 0xF0) | static_cast<std::int32_t>(role);
  View().ClearFocus();
  // What was typed in MDI role becomes a new item of the list.
  const bool typed = role == MdiRole::kMda && !View().EditText().empty();
  menus_.SetEdit(record, typed ? mdi_edit::kNewItem : mdi_edit::kNone);
  screen_.LayOut(role, &record);
  screen_.ShowTitle(record, View().IsVisible());
  screen_.SetCaretToEnd();
  screen_.FocusForRoleFirstItem(&record);
  InstallMenus(record);
}

/// Caret after the text, focus where the role has it.
void MdiSession::RestoreCaret() {
  const MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  screen_.SetCaretToEnd();
  screen_.FocusForRoleFirstItem(record);
}

void MdiSession::SwitchLayout(bool MdiSettings::*setting) {
  settings_.*setting = !(settings_.*setting);
  screen_.LayOutAgain(channels_.Current());
  menus_.UpdatePositionItems(settings_);
  menus_.InstallPositionMenu();
}

/// The hint of the current channel's role while an inspection is on, else an empty message line.
void MdiSession::ShowInspectHint() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !MdiChannels::InspectionIsOn(*record)) return ShowMessage({});
  const int text = record->LowRole() == MdiRole::kMdi ? kTextHintMdi : kTextHintMda;
  ShowMessage(Context().language.LoadToolText(text));
}

}  // namespace pnl
