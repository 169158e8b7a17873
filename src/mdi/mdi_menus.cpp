// SPDX-License-Identifier: MIT
#include "mdi/mdi_menus.h"

#include <algorithm>
#include <iterator>

#include "base/format.h"

namespace pnl::mdi {

namespace {

constexpr int kCanBeCancelled = 2;
constexpr int kTextEndEdit = 7;
constexpr int kTextProgramTitle = 8;
constexpr int kBitmapMoveUp = 3019;

// The spacing differs between these four; whoever searches the trace log does it by the exact texts.
constexpr TextView kMdiCanCancel = u"MDI: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE (PosibleMDICancel = %d)";
constexpr TextView kMdiCannotCancel =
    u"MDI: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";
constexpr TextView kMdaCanCancel = u"MDA: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";
constexpr TextView kMdaCannotCancel =
    u"MDA: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";

constexpr int kListCommands[] = {command::kDeleteItem,  command::kChangeItem, command::kNewItem, command::kEndEdit,
                                 command::kSaveProgram, command::kClearList,  command::kMoveUp,  command::kMoveDown};

MenuTable& Table(MdiSession& session) { return session.context.language.Menus(); }

void SetItem(MdiSession& session, MenuHandle menu, int id, int bitmap, TextView helper) {
  UTIL7340_SetMenuItemBitmap(Table(session), menu, id, false, bitmap);
  UTIL7340_SetMenuItemHelper(Table(session), menu, id, false, helper);
}

void EnableListCommands(MdiSession& session, bool enabled) {
  for (const int id : kListCommands) {
    if (MenuItem* item = Table(session).FindItem(session.menus.mda, id)) item->enabled = enabled;
  }
}

void EnableOnly(MdiSession& session, int id) {
  EnableListCommands(session, false);
  if (MenuItem* item = Table(session).FindItem(session.menus.mda, id)) item->enabled = true;
}

/// The place of "move up" is given to "end edit": the key that the operator's finger is on then.
void PutEndEditIn(MdiSession& session) {
  UTIL7340_HideMenuItem(Table(session), session.menus.mda, command::kMoveDown);
  UTIL7340_CleanMenuItem(Table(session), session.menus.mda, command::kMoveUp, false);
  if (MenuItem* item = Table(session).FindItem(session.menus.mda, command::kMoveUp)) {
    session.menus.moveUpCaption = item->text;
    item->id = command::kEndEdit;
    item->text = session.menus.endEdit;
  }
}

void PutMoveUpBack(MdiSession& session) {
  if (MenuItem* item = Table(session).FindItem(session.menus.mda, command::kEndEdit)) {
    item->id = command::kMoveUp;
    item->text = session.menus.moveUpCaption;
  }
  SetItem(session, session.menus.mda, command::kMoveUp, kBitmapMoveUp, u"MDA1");
  UTIL7340_ShowMenuItem(Table(session), session.menus.mda, command::kMoveDown);
}

/// Which items can be pressed, by state, edit and list.
void GreyItems(MdiSession& session, const MDIDATA_ST& record) {
  if (!record.IsReady()) {
    EnableListCommands(session, false);
  } else if (record.Edit() != mdi_edit::kNone) {
    EnableOnly(session, command::kEndEdit);
  } else if (session.View().ListCount() == 0) {
    EnableOnly(session, command::kNewItem);
  } else {
    EnableListCommands(session, true);
  }
}

/// In State 4: whether the interrupted block can be cancelled, told to the black box as well.
bool CancelIsOffered(MdiSession& session, const MDIDATA_ST& record) {
  if (record.State != mdi_state::kInterrupted) return false;
  const int possible = session.Kapi().PosibleMDICancel(record.Channel);
  const bool offered = possible == kCanBeCancelled;
  const TextView format = record.LowRole() == MdiRole::kMdi ? (offered ? kMdiCanCancel : kMdiCannotCancel)
                                                            : (offered ? kMdaCanCancel : kMdaCannotCancel);
  session.Kapi().WriteTxtInBlackBox(Format(format, possible), 0);
  return offered;
}

}  // namespace

void LoadMenus(MdiSession& session) {
  Language& language = session.context.language;
  MdiMenuSet& menus = session.menus;
  menus.cancel = language.LoadToolMenu(u"3015");
  menus.mda = language.LoadToolMenu(u"IDR_MDAMENU");
  menus.position = language.LoadToolMenu(u"3025");
  menus.endEdit = language.LoadToolText(kTextEndEdit);
  menus.programTitle = language.LoadToolText(kTextProgramTitle);
  SetItem(session, menus.cancel, command::kCancelBlock, 3017, u"MDI1");
  SetItem(session, menus.mda, command::kMoveUp, kBitmapMoveUp, u"MDA1");
  SetItem(session, menus.mda, command::kMoveDown, 3020, u"MDA2");
  UpdatePositionItems(session);
}

void DestroyMenus(MdiSession& session) {
  for (MenuHandle* menu : {&session.menus.cancel, &session.menus.mda, &session.menus.position}) {
    if (*menu != 0) Table(session).Destroy(*menu);
    *menu = 0;
  }
}

void UpdatePositionItems(MdiSession& session) {
  const bool below = session.settings.Below;
  const bool full = session.settings.FullLength;
  const MenuHandle menu = session.menus.position;
  SetItem(session, menu, command::kSwitchPosition, below ? 3026 : 3027, below ? u"MDI_Above" : u"MDI_Below");
  SetItem(session, menu, command::kSwitchLength, full ? 3029 : 3028, full ? u"MDI_Shrink" : u"MDI_Stretch");
}

void InstallPositionMenu(MdiSession& session) { session.Host().HostSetSideMenu(tool_id::kMdi, session.menus.position); }

void SetEdit(MdiSession& session, MDIDATA_ST& record, std::int32_t edit) {
  if (record.Edit() == edit) return;
  if (record.Edit() == mdi_edit::kNone) {
    PutEndEditIn(session);
  } else if (edit == mdi_edit::kNone) {
    PutMoveUpBack(session);
  }
  record.Role = (record.Role & 0x0F) | edit;
}

void InstallMenus(MdiSession& session, const MDIDATA_ST& record) {
  if (record.LowRole() == MdiRole::kMdi) {
    InstallPositionMenu(session);
    const bool cancel = CancelIsOffered(session, record);
    session.Host().HostSetMainMenu(tool_id::kMdi, cancel ? session.menus.cancel : 0);
  } else {
    GreyItems(session, record);
    const bool cancel = CancelIsOffered(session, record);
    session.Host().HostSetMainMenu(tool_id::kMdi, cancel ? session.menus.cancel : session.menus.mda);
    session.Host().HostSetSideMenu(tool_id::kMdi, 0);
  }
}

void UpdateMenus(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  if (record == nullptr || record->LowRole() != MdiRole::kMda) return;
  GreyItems(session, *record);
  // In State 4 the bar may hold the cancel menu, which hasn't changed.
  if (record->State != mdi_state::kInterrupted) session.Host().HostUpdateMainMenu(tool_id::kMdi);
}

}  // namespace pnl::mdi
