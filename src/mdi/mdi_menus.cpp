// SPDX-License-Identifier: MIT
#include "mdi/mdi_menus.h"

#include "base/format.h"
#include "host/tool_context.h"

namespace pnl {

namespace {

constexpr int kCanBeCancelled = 2;
constexpr int kTextEndEdit = 7;
constexpr int kTextProgramTitle = 8;
constexpr int kBitmapMoveUp = 3019;

// Not a mistake: the blanks differ between these four. People search the black box for the exact texts.
constexpr TextView kMdiCanCancel = u"MDI: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE (PosibleMDICancel = %d)";
constexpr TextView kMdiCannotCancel =
    u"MDI: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";
constexpr TextView kMdaCanCancel = u"MDA: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";
constexpr TextView kMdaCannotCancel =
    u"MDA: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = %d)";

constexpr int kListCommands[] = {mdi_command::kDeleteItem, mdi_command::kChangeItem,  mdi_command::kNewItem,
                                 mdi_command::kEndEdit,    mdi_command::kSaveProgram, mdi_command::kClearList,
                                 mdi_command::kMoveUp,     mdi_command::kMoveDown};

/// What a command needs. The commands of the list need that no block is running or interrupted.
enum class Need { kNothing, kInterrupted, kReady, kReadyMda };

struct MenuCommand {
  int id;
  Need need;
};

constexpr MenuCommand kMenuCommands[] = {
    {mdi_command::kDeleteItem, Need::kReadyMda},     {mdi_command::kChangeItem, Need::kReadyMda},
    {mdi_command::kNewItem, Need::kReadyMda},        {mdi_command::kEndEdit, Need::kReadyMda},
    {mdi_command::kSaveProgram, Need::kReadyMda},    {mdi_command::kClearList, Need::kReadyMda},
    {mdi_command::kCancelBlock, Need::kInterrupted}, {mdi_command::kMoveUp, Need::kReady},
    {mdi_command::kMoveDown, Need::kReady},          {mdi_command::kSwitchPosition, Need::kNothing},
    {mdi_command::kSwitchLength, Need::kNothing},
};

}  // namespace

bool MdiMenus::MayRun(std::intptr_t id, const MDIDATA_ST& record) {
  const bool mda = record.LowRole() == MdiRole::kMda;
  for (const MenuCommand& command : kMenuCommands) {
    if (command.id != id) continue;
    switch (command.need) {
      case Need::kNothing:
        return true;
      case Need::kInterrupted:
        return record.State == mdi_state::kInterrupted;
      case Need::kReady:
        return record.IsReady();
      case Need::kReadyMda:
        return record.IsReady() && mda;
    }
  }
  return false;
}

void MdiMenus::Load(const MdiSettings& settings) {
  cancel_ = language_.LoadToolMenu(u"3015");
  mda_ = language_.LoadToolMenu(u"IDR_MDAMENU");
  position_ = language_.LoadToolMenu(u"3025");
  endEdit_ = language_.LoadToolText(kTextEndEdit);
  programTitle_ = language_.LoadToolText(kTextProgramTitle);
  SetItem(cancel_, mdi_command::kCancelBlock, 3017, u"MDI1");
  SetItem(mda_, mdi_command::kMoveUp, kBitmapMoveUp, u"MDA1");
  SetItem(mda_, mdi_command::kMoveDown, 3020, u"MDA2");
  UpdatePositionItems(settings);
}

void MdiMenus::Destroy() {
  for (MenuHandle* menu : {&cancel_, &mda_, &position_}) {
    if (*menu != 0) Table().Destroy(*menu);
    *menu = 0;
  }
}

void MdiMenus::SetItem(MenuHandle menu, int id, int bitmap, TextView helper) {
  UTIL7340_SetMenuItemBitmap(Table(), menu, id, false, bitmap);
  UTIL7340_SetMenuItemHelper(Table(), menu, id, false, helper);
}

void MdiMenus::EnableListCommands(bool enabled) {
  for (const int id : kListCommands) {
    if (MenuItem* item = Table().FindItem(mda_, id)) item->enabled = enabled;
  }
}

void MdiMenus::EnableOnly(int id) {
  EnableListCommands(false);
  if (MenuItem* item = Table().FindItem(mda_, id)) item->enabled = true;
}

/// Puts "end edit" in the place of "move up" and hides "move down".
void MdiMenus::PutEndEditIn() {
  UTIL7340_HideMenuItem(Table(), mda_, mdi_command::kMoveDown);
  UTIL7340_CleanMenuItem(Table(), mda_, mdi_command::kMoveUp, false);
  if (MenuItem* item = Table().FindItem(mda_, mdi_command::kMoveUp)) {
    moveUpCaption_ = item->text;
    item->id = mdi_command::kEndEdit;
    item->text = endEdit_;
  }
}

void MdiMenus::PutMoveUpBack() {
  if (MenuItem* item = Table().FindItem(mda_, mdi_command::kEndEdit)) {
    item->id = mdi_command::kMoveUp;
    item->text = moveUpCaption_;
  }
  SetItem(mda_, mdi_command::kMoveUp, kBitmapMoveUp, u"MDA1");
  UTIL7340_ShowMenuItem(Table(), mda_, mdi_command::kMoveDown);
}

void MdiMenus::SetEdit(MDIDATA_ST& record, std::int32_t edit) {
  if (record.Edit() == edit) return;
  if (record.Edit() == mdi_edit::kNone) {
    PutEndEditIn();
  } else if (edit == mdi_edit::kNone) {
    PutMoveUpBack();
  }
  record.Role = (record.Role & 0x0F) | edit;
}

/// Decides by state, edit and list which items can be pressed.
void MdiMenus::GreyItems(const MDIDATA_ST& record, int listCount) {
  if (!record.IsReady()) {
    EnableListCommands(false);
  } else if (record.Edit() != mdi_edit::kNone) {
    EnableOnly(mdi_command::kEndEdit);
  } else if (listCount == 0) {
    EnableOnly(mdi_command::kNewItem);
  } else {
    EnableListCommands(true);
  }
}

/// Whether the block can be cancelled. Asks the kernel only in State 4, and writes its answer to the black box.
bool MdiMenus::CancelIsOffered(const MDIDATA_ST& record) {
  if (record.State != mdi_state::kInterrupted) return false;
  const int possible = kernel_.PosibleMDICancel(record.Channel);
  const bool offered = possible == kCanBeCancelled;
  const TextView format = record.LowRole() == MdiRole::kMdi ? (offered ? kMdiCanCancel : kMdiCannotCancel)
                                                            : (offered ? kMdaCanCancel : kMdaCannotCancel);
  kernel_.WriteTxtInBlackBox(Format(format, possible), 0);
  return offered;
}

void MdiMenus::Install(const MDIDATA_ST& record, int listCount) {
  if (record.LowRole() == MdiRole::kMdi) {
    InstallPositionMenu();
    const bool cancel = CancelIsOffered(record);
    host_().HostSetMainMenu(PNL_TOOL_MDI, cancel ? cancel_ : 0);
  } else {
    GreyItems(record, listCount);
    const bool cancel = CancelIsOffered(record);
    host_().HostSetMainMenu(PNL_TOOL_MDI, cancel ? cancel_ : mda_);
    host_().HostSetSideMenu(PNL_TOOL_MDI, 0);
  }
}

void MdiMenus::Update(const MDIDATA_ST* record, int listCount) {
  if (record == nullptr || record->LowRole() != MdiRole::kMda) return;
  GreyItems(*record, listCount);
  // In State 4 the bar may have the cancel menu, and that hasn't changed.
  if (record->State != mdi_state::kInterrupted) host_().HostUpdateMainMenu(PNL_TOOL_MDI);
}

void MdiMenus::UpdatePositionItems(const MdiSettings& settings) {
  const bool below = settings.Below;
  const bool full = settings.FullLength;
  SetItem(position_, mdi_command::kSwitchPosition, below ? 3026 : 3027, below ? u"MDI_Above" : u"MDI_Below");
  SetItem(position_, mdi_command::kSwitchLength, full ? 3029 : 3028, full ? u"MDI_Shrink" : u"MDI_Stretch");
}

void MdiMenus::InstallPositionMenu() { host_().HostSetSideMenu(PNL_TOOL_MDI, position_); }

}  // namespace pnl
