// SPDX-License-Identifier: MIT
#include "mdi/mdi_commands.h"

#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_opening.h"
#include "mdi/mdi_program_file.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

struct ToolCommandRow {
  std::intptr_t code;
  std::intptr_t (*run)(MdiSession&, std::intptr_t argument);
};

constexpr ToolCommandRow kToolCommands[] = {
    {2, OpenInChannel},
    {3, HideChannel},
    {4, ReshowChannel},
    {5, [](MdiSession& session, std::intptr_t channel) { return RequestClose(session, channel, false); }},
    {6, [](MdiSession& session, std::intptr_t channel) { return RequestClose(session, channel, true); }},
    {7,
     [](MdiSession& session, std::intptr_t) {
       RestoreCaret(session);
       return kDone;
     }},
    {8,
     [](MdiSession& session, std::intptr_t) {
       SwitchRole(session);
       return kDone;
     }},
    // The low byte is the channel, the high half the new mode.
    {10,
     [](MdiSession& session, std::intptr_t argument) {
       return ManualModeChanged(session, argument & 0xFF, static_cast<std::int32_t>(argument >> 16 & 0xFFFF));
     }},
};

void SwitchLayout(MdiSession& session, bool MdiSettings::*setting) {
  session.settings.*setting = !(session.settings.*setting);
  LayOut(session, session.DisplayedRole, session.Current());
  UpdatePositionItems(session);
  InstallPositionMenu(session);
}

/// What a soft key needs. The list's commands are grey while a block is in the machine's hands, for every sender.
enum class Need { kNothing, kInterrupted, kReady, kReadyMda };

struct MenuCommandRow {
  int id;
  Need need;
  void (*run)(MdiSession&, MDIDATA_ST&);
};

constexpr MenuCommandRow kMenuCommands[] = {
    {command::kDeleteItem, Need::kReadyMda, [](MdiSession& session, MDIDATA_ST&) { DeleteItem(session); }},
    {command::kChangeItem, Need::kReadyMda, ChangeItem},
    {command::kNewItem, Need::kReadyMda, NewItem},
    {command::kEndEdit, Need::kReadyMda, EndEdit},
    {command::kSaveProgram, Need::kReadyMda, [](MdiSession& session, MDIDATA_ST&) { RequestProgramFile(session); }},
    {command::kClearList, Need::kReadyMda, ClearList},
    {command::kCancelBlock, Need::kInterrupted,
     [](MdiSession& session, MDIDATA_ST&) { session.Kapi().MDICancel(session.CurrentChannel); }},
    {command::kMoveUp, Need::kReady, [](MdiSession& session, MDIDATA_ST& record) { MoveItem(session, record, true); }},
    {command::kMoveDown, Need::kReady,
     [](MdiSession& session, MDIDATA_ST& record) { MoveItem(session, record, false); }},
    {command::kSwitchPosition, Need::kNothing,
     [](MdiSession& session, MDIDATA_ST&) { SwitchLayout(session, &MdiSettings::Below); }},
    {command::kSwitchLength, Need::kNothing,
     [](MdiSession& session, MDIDATA_ST&) { SwitchLayout(session, &MdiSettings::FullLength); }},
};

bool Holds(Need need, const MDIDATA_ST& record) {
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

std::intptr_t OnToolCommand(MdiSession& session, std::intptr_t code, std::intptr_t argument) {
  for (const ToolCommandRow& row : kToolCommands) {
    if (row.code == code) return row.run(session, argument);
  }
  return kDone;
}

void OnMenuCommand(MdiSession& session, std::intptr_t id) {
  MDIDATA_ST* record = session.Current();
  if (record == nullptr) return;
  for (const MenuCommandRow& row : kMenuCommands) {
    if (row.id != id) continue;
    if (Holds(row.need, *record)) row.run(session, *record);
    return;
  }
}

}  // namespace pnl::mdi
