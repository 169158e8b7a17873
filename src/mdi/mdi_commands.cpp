// SPDX-License-Identifier: MIT
// The part of the session that carries out what the host and the soft keys ask for: the codes of both, then opening,
// showing, hiding and closing in a channel, and switching between the two roles.
#include "host/storage_messages.h"
#include "mdi/mdi_availability.h"
#include "mdi/mdi_session.h"

namespace pnl {

namespace {

constexpr int kTextHintMdi = 38;
constexpr int kTextHintMda = 39;

}  // namespace

/// Handles ToolCommand. Returns 0 for an unknown code.
std::intptr_t MdiSession::OnToolCommand(std::intptr_t code, std::intptr_t argument) {
  switch (code) {
    case PNL_COMMAND_OPEN:
      return OpenInChannel(argument);
    case PNL_COMMAND_HIDE:
      return HideChannel(argument);
    case PNL_COMMAND_SHOW:
      return ReshowChannel(argument);
    case PNL_COMMAND_CLOSE:
      return RequestClose(argument, false);
    case PNL_COMMAND_LEAVE:
      return RequestClose(argument, true);
    case PNL_COMMAND_RESTORE_FOCUS:
      RestoreCaret();
      return PNL_DONE;
    case PNL_COMMAND_SWITCH_ROLE:
      SwitchRole();
      return PNL_DONE;
    case PNL_COMMAND_MANUAL_MODE_CHANGED:
      // The low byte is the channel, and the high half is the new mode.
      return ManualModeChanged(argument & 0xFF, PnlHighHalf(argument));
    default:
      return PNL_DONE;
  }
}

/// Handles a soft key. Does nothing for an unknown id, or if the command may not run now.
void MdiSession::OnMenuCommand(std::intptr_t id) {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !MdiMenus::MayRun(id, *record)) return;
  switch (id) {
    case mdi_command::kDeleteItem:
      return list_.Delete(*record);
    case mdi_command::kChangeItem:
      return list_.Change(*record);
    case mdi_command::kNewItem:
      return list_.New(*record);
    case mdi_command::kEndEdit:
      return list_.EndEdit(*record);
    case mdi_command::kSaveProgram:
      return RequestProgramFile();
    case mdi_command::kClearList:
      return list_.Clear(*record);
    case mdi_command::kCancelBlock:
      Kapi().MDICancel(record->Channel);
      return;
    case mdi_command::kMoveUp:
      return list_.Move(*record, true);
    case mdi_command::kMoveDown:
      return list_.Move(*record, false);
    case mdi_command::kSwitchPosition:
      return SwitchLayout(&MdiSettings::Below);
    case mdi_command::kSwitchLength:
      return SwitchLayout(&MdiSettings::FullLength);
    default:
      return;
  }
}

// Opening, showing, hiding and closing in a channel.

void MdiSession::AnnounceOpening() {
  Host().HostToolOpening(PNL_TOOL_MDI);
  ShowMessage({});
}

/// Takes the channel and shows its role.
void MdiSession::TakeAndShow(MDIDATA_ST& record) {
  holding_.Enter(record);
  screen_.ShowRole(record);
  InstallMenus(record);
  channels_.MakeCurrent(record);
  ShowInspectHint();
}

/// Shows a message for each list whose file is very large. To be called after everything that clears the message line.
void MdiSession::ShowLargeLists(const MDIDATA_ST& record) {
  const auto tell = [this](const Text& name, std::uint64_t bytes) {
    // Throws if the tool has ended: the host must get no message from a window that it has destroyed.
    static_cast<void>(Host());
    ShowLargeFile(Context(), PNL_TOOL_MDI, name, bytes);
  };
  tell(MdiHistoryName(record.Channel), record.HistorySize);
  tell(MdiListName(record.Channel), record.ListSize);
}

/// Returns PNL_REFUSED and changes nothing if there is no such channel or it doesn't allow the command line.
std::intptr_t MdiSession::OpenInChannel(std::intptr_t channel) {
  MDIDATA_ST* record = channels_.Record(channel);
  const bool held = record != nullptr && record->InMDI != 0;
  if (!held && !IsMDIAvailable(Context().cnc, static_cast<int>(channel))) return PNL_REFUSED;
  if (record == nullptr) return PNL_REFUSED;
  // The host may destroy the window when it hears of the opening. The answer must then be that nothing was opened.
  const bool there = Outlives([&] {
    AnnounceOpening();
    if (!channels_.IsCurrent(*record)) {
      screen_.SetSelection({0, 0});
      history_.LoadLists(*record);
      pins_.Load(*record);
      if (record->LowRole() != screen_.DisplayedRole()) screen_.LayOut(record->LowRole(), record);
      screen_.FillList(*record);
    }
    TakeAndShow(*record);
  });
  if (!there) return PNL_REFUSED;
  View().Show();
  View().BringToTop();
  View().FocusWindow();
  record->Opened = 1;
  record->ClosePending = 0;
  ShowLargeLists(*record);
  return PNL_DONE;
}

/// Hides the window if the channel is the current one. The channel stays held.
std::intptr_t MdiSession::HideChannel(std::intptr_t channel) {
  const MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return PNL_REFUSED;
  if (channels_.IsCurrent(*record)) holding_.Hide(*record);
  return PNL_DONE;
}

/// Keeps what the operator has typed and selected in the current channel. A block that is running stays as it is.
void MdiSession::TakeTextInHand() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  if (record->TypesInEdit()) record->Text = View().EditText();
  if (record->LowRole() == MdiRole::kMda) record->MDASelection = View().ListSelection();
}

std::intptr_t MdiSession::ReshowChannel(std::intptr_t channel) {
  TakeTextInHand();
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return PNL_REFUSED;
  if (record->Opened == 0) return PNL_DONE;
  if (!Outlives([&] { AnnounceOpening(); })) return PNL_REFUSED;
  // The lists and pins were read when the channel was opened.
  screen_.SetSelection({0, 0});
  screen_.LayOut(record->LowRole(), record);
  screen_.FillList(*record);
  TakeAndShow(*record);
  View().Show();
  return PNL_DONE;
}

/// Returns PNL_DONE if the channel could be given back at once or doesn't exist, PNL_CLOSES_LATER if it is given back
/// later, and PNL_REFUSED if onlyIfInspecting is set and no inspection is on.
std::intptr_t MdiSession::RequestClose(std::intptr_t channel, bool onlyIfInspecting) {
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return PNL_DONE;
  if (onlyIfInspecting && !MdiChannels::InspectionIsOn(*record)) return PNL_REFUSED;
  if (channels_.IsCurrent(*record) && record->IsReady()) {
    if (record->LowRole() == MdiRole::kMdi) {
      screen_.CloseDropList();
    } else if (record->Edit() != mdi_edit::kNone) {
      list_.EndEdit(*record);
    }
  }
  if (record->IsReady() && MdiChannels::IsIdle(*record)) {
    // The answer is the same if the interlock was refused. The host asks again if it must.
    holding_.Leave(*record);
    return PNL_DONE;
  }
  holding_.CloseLater(*record);
  return PNL_CLOSES_LATER;
}

std::intptr_t MdiSession::ManualModeChanged(std::intptr_t channel, std::int32_t mode) {
  MDIDATA_ST* record = channels_.Record(channel);
  if (record == nullptr) return PNL_REFUSED;
  if (record->InMDI == 0) return PNL_DONE;
  channels_.ChangeManualMode(*record, mode);
  if (!channels_.AutomaticWaits(*record)) return PNL_DONE;
  if (record->IsReady() && MdiChannels::IsIdle(*record)) {
    holding_.Leave(*record);
  } else {
    holding_.CloseLater(*record);
  }
  return PNL_DONE;
}

/// Handles the Escape key while no drop list is open.
void MdiSession::Escape() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || record->InMDI == 0) return;
  if (record->IsReady()) {
    if (record->LowRole() == MdiRole::kMda && record->Edit() != mdi_edit::kNone) return list_.EndEdit(*record);
    if (MdiChannels::IsIdle(*record)) {
      holding_.Leave(*record);
      return;
    }
  }
  if (!channels_.IsInspecting(record->Channel)) HideChannel(record->Channel);
}

// The two roles, and what the screen shows.

/// Switches between MDI and MDA. Does nothing in another state than 1.
void MdiSession::SwitchRole() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  SetRole(*record, record->LowRole() == MdiRole::kMdi ? MdiRole::kMda : MdiRole::kMdi);
  ShowInspectHint();
}

void MdiSession::SetRole(MDIDATA_ST& record, MdiRole role) {
  record.Role = (record.Role & 0xF0) | static_cast<std::int32_t>(role);
  View().ClearFocus();
  // A text that was typed in MDI role becomes a new item of the list.
  const bool typed = role == MdiRole::kMda && !View().EditText().empty();
  menus_.SetEdit(record, typed ? mdi_edit::kNewItem : mdi_edit::kNone);
  screen_.LayOut(role, &record);
  screen_.ShowTitle(record, View().IsVisible());
  screen_.SetCaretToEnd();
  screen_.FocusForRoleFirstItem(&record);
  InstallMenus(record);
}

/// Sets the caret after the text and gives the focus to the control that has it in this role.
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

/// Shows the hint for the current role while an inspection is on in the channel. Else it empties the message line.
void MdiSession::ShowInspectHint() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !MdiChannels::InspectionIsOn(*record)) return ShowMessage({});
  const int text = record->LowRole() == MdiRole::kMdi ? kTextHintMdi : kTextHintMda;
  ShowMessage(Context().language.LoadToolText(text));
}

}  // namespace pnl
