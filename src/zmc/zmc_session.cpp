// SPDX-License-Identifier: MIT
#include "zmc/zmc_session.h"

#include <iterator>
#include <utility>

#include "host/storage_messages.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_MACHINING_CALCULATOR;
constexpr int kMostLines = 3;

}  // namespace

ZmcSession::ZmcSession(const ToolContext& context, ZmcView& view)
    : ToolSession(context, view),
      desk_(
          Context(), [this]() -> ZmcView& { return View(); }, [this]() -> const HostBridge& { return Host(); }),
      main_(desk_, [this] { return tabShown_ && tab_ == ZmcTab::kMain; }),
      materials_(desk_, [this] { main_.ReloadMaterials(); }),
      operations_(desk_, [this] { main_.ReloadOperations(); }),
      exchange_(desk_, [this] { ReloadAll(); }) {}

// Opening and closing.

void ZmcSession::Start() {
  desk_.settings.Open();
  started_ = true;
  open_ = true;
  Host().HostToolOpening(kTool);
  if (!CanOpen()) {
    ReportClosed(PNL_CLOSED);
    View().Destroy();
    return;
  }
  desk_.machine = ReadZmcMachine(Context().cnc.Vars());
  View().Show();
  View().BringToTop();
  OpenMain();
}

bool ZmcSession::CanOpen() {
  if (desk_.data.Open() != FileStatus::kOk) return false;
  if (CondicionesCorteParser::IsXml6DllRegistered() != 0) return true;
  desk_.ShowInfo(zmc_text::kDamaged);
  return false;
}

void ZmcSession::OpenMain() {
  const MenuHandle menu = desk_.menus.LoadFrameMenu();
  ShowTab(ZmcTab::kMain);
  Context().windows.Send(View().Handle(),
                         {RegisterMessage(zmc_message::kShowMenu), static_cast<std::intptr_t>(menu), 0});
  menuGiven_ = true;
}

void ZmcSession::OnShownAgain() {
  if (!started_ || open_) return;
  open_ = true;
  Host().HostToolOpening(kTool);
  if (!CanOpen()) {
    ReportClosed(PNL_CLOSED);
    View().Hide();
    return;
  }
  View().BringToTop();
  OpenMain();
}

bool ZmcSession::Close(int reason) {
  if (!CanLeave()) return false;
  // The question may have been open while somebody else closed the tool.
  if (!std::exchange(open_, false)) return true;
  desk_.ResetMessage();
  ReportClosed(reason);
  View().Hide();
  return true;
}

void ZmcSession::ReportClosed(int reason) {
  open_ = false;
  menuGiven_ = false;
  Host().HostToolClosed(kTool, reason);
}

void ZmcSession::End() {
  if (HasEnded()) return;
  MarkEnded();
  if (started_ && !desk_.settings.Save()) ShowNotSaved(Context(), kTool, {Text(kZmcIniName)});
  desk_.menus.Destroy();
}

void ZmcSession::OpenCalculator() {
  if (Close(PNL_CLOSED)) Host().HostOpenCalculator();
}

// Tabs.

ZmcTable* ZmcSession::TableOf(ZmcTab tab) {
  if (tab == ZmcTab::kMaterials) return &materials_;
  return tab == ZmcTab::kOperations ? static_cast<ZmcTable*>(&operations_) : nullptr;
}

bool ZmcSession::CanLeave() {
  ZmcTable* table = tabShown_ ? TableOf(tab_) : nullptr;
  return table == nullptr || table->CanLeave();
}

bool ZmcSession::ShowTab(ZmcTab tab) {
  const bool open = open_;
  // Somebody may close the tool while the question is open.
  if (!CanLeave() || open_ != open) return false;
  if (tab == ZmcTab::kMain && !main_.IsOpen()) main_.Open();
  View().MakeTab(tab);
  View().ShowTab(tab);
  for (const ZmcTab other : kZmcTabs) {
    if (other != tab) View().HideTab(other);
  }
  tab_ = tab;
  tabShown_ = true;
  desk_.menus.CheckTab(tab);
  if (menuGiven_) Host().HostUpdateMainMenu(kTool);
  if (ZmcTable* table = TableOf(tab)) {
    table->OnShown();
  } else {
    main_.OnShown();
  }
  return true;
}

// Messages.

std::optional<std::intptr_t> ZmcSession::OnMessage(const Message& message) {
  if (message.number == PNL_MSG_TOOL_COMMAND) return OnToolCommand(message.first);
  if (message.number == PNL_MSG_COMMAND) {
    OnMenuCommand(static_cast<int>(message.first));
  } else if (message.number == PNL_MSG_RESULT_READY) {
    exchange_.OnExplorerEnded(message.first == PNL_READY_FILE);
  } else if (message.number == PNL_MSG_HELP_KEY) {
    ZCVariable(Context().cnc.Vars(), u"E.HELPDATA").WriteTxt(kZmcHelpMark);
  } else if (message.number == RegisterMessage(zmc_message::kCancel)) {
    Close(static_cast<int>(message.first));
  } else if (message.number == RegisterMessage(zmc_message::kShow)) {
    ShowGivenMessage(message.first, message.second);
  } else if (message.number == RegisterMessage(zmc_message::kReset)) {
    Host().HostShowMessage(kTool, {}, zmc_color::kNoMessage, zmc_color::kNoMessage);
  } else if (message.number == RegisterMessage(zmc_message::kShowMenu)) {
    Host().HostSetMainMenu(kTool, static_cast<MenuHandle>(message.first));
  } else if (message.number == RegisterMessage(zmc_message::kUpdateMenu)) {
    Host().HostUpdateMainMenu(kTool);
  } else {
    return std::nullopt;
  }
  return 0;
}

std::intptr_t ZmcSession::OnToolCommand(std::intptr_t code) {
  switch (code) {
    case PNL_COMMAND_LEAVE:
      open_ = false;
      View().Hide();
      View().Destroy();
      return 0;
    case PNL_COMMAND_RESTORE_FOCUS:
      View().PostTab();
      return 0;
    case PNL_COMMAND_ASK_UNSAVED: {
      const ZmcTable* table = tabShown_ ? TableOf(tab_) : nullptr;
      return table != nullptr && table->IsDirty() ? PNL_UNSAVED_WORK : 0;
    }
    case PNL_COMMAND_CLOSE_TOOL:
    case PNL_COMMAND_CLOSE_FOR_OTHER:
      return Close(PNL_CLOSED) ? 0 : PNL_CLOSE_REFUSED;
    default:
      return 0;
  }
}

template <typename Work>
void ZmcSession::WithTable(ZmcTab tab, Work work) {
  if (tabShown_ && tab_ == tab) work(*TableOf(tab));
}

void ZmcSession::OnMenuCommand(int id) {
  switch (id) {
    case zmc_command::kMainTab:
      ShowTab(ZmcTab::kMain);
      break;
    case zmc_command::kMaterialsTab:
      ShowTab(ZmcTab::kMaterials);
      break;
    case zmc_command::kOperationsTab:
      ShowTab(ZmcTab::kOperations);
      break;
    case zmc_command::kInsert:
      if (main_.IsOpen()) main_.InsertBlock();
      break;
    case zmc_command::kCopy:
      if (main_.IsOpen()) main_.CopyBlock();
      break;
    case zmc_command::kAddMaterial:
    case zmc_command::kAddOperation:
      WithTable(id == zmc_command::kAddMaterial ? ZmcTab::kMaterials : ZmcTab::kOperations,
                [](ZmcTable& table) { table.AddRow(); });
      break;
    case zmc_command::kDeleteMaterials:
    case zmc_command::kDeleteOperations:
      WithTable(id == zmc_command::kDeleteMaterials ? ZmcTab::kMaterials : ZmcTab::kOperations,
                [](ZmcTable& table) { table.DeleteRows(); });
      break;
    case zmc_command::kSaveMaterials:
    case zmc_command::kSaveOperations:
      WithTable(id == zmc_command::kSaveMaterials ? ZmcTab::kMaterials : ZmcTab::kOperations,
                [](ZmcTable& table) { table.SaveTable(true); });
      break;
    case zmc_command::kCalculator:
      OpenCalculator();
      break;
    default:
      OnExchangeCommand(id);
  }
}

void ZmcSession::OnExchangeCommand(int id) {
  if (id != PNL_ZMC_EXPORT && id != PNL_ZMC_IMPORT && id != PNL_ZMC_CHANGES) return;
  // What the table has changed is stored first, or it would be neither exported nor kept.
  if (!open_ || !CanLeave()) return;
  if (id == PNL_ZMC_EXPORT) {
    exchange_.Export();
  } else if (id == PNL_ZMC_IMPORT) {
    exchange_.Import();
  } else {
    exchange_.ShowChanges();
  }
}

void ZmcSession::ReloadAll() {
  main_.ReloadMaterials();
  main_.ReloadOperations();
  materials_.Refill();
  operations_.Refill();
}

/// Selector: the colour in the low half, the line in the high half.
void ZmcSession::ShowGivenMessage(std::intptr_t selector, std::intptr_t text) {
  const std::uint16_t color = PnlLowHalf(selector);
  const std::uint16_t line = PnlHighHalf(selector);
  Host().HostShowMessage(kTool, TextAt(text), zmc_color::kMessages[color < std::size(zmc_color::kMessages) ? color : 0],
                         0, line >= 1 && line <= kMostLines ? line : 1);
}

// Keys and the grids.

bool ZmcSession::OnKey(ZmcKey key) {
  if (!tabShown_) return false;
  if (ZmcTable* table = TableOf(tab_)) return table->OnKey(key, [this] { Close(PNL_CLOSED); });
  switch (main_.OnKey(key)) {
    case ZmcKeyEnd::kControl:
      return false;
    case ZmcKeyEnd::kForward:
      main_.MoveFocus(true);
      break;
    case ZmcKeyEnd::kBackward:
      main_.MoveFocus(false);
      break;
    case ZmcKeyEnd::kClose:
      Close(PNL_CLOSED);
      break;
    case ZmcKeyEnd::kDone:
      break;
  }
  return true;
}

void ZmcSession::OnFocusMoved() {
  if (main_.IsOpen()) main_.OnFocusMoved();
}

void ZmcSession::OnCellCommitted(ZmcTab tab, int row, int col) {
  if (ZmcTable* table = TableOf(tab)) {
    table->OnCommitted(row, col);
  } else {
    main_.OnCellCommitted(row, col);
  }
}

void ZmcSession::OnCellMoved(ZmcTab tab) {
  if (ZmcTable* table = TableOf(tab); table != nullptr && tabShown_ && tab_ == tab) table->OnMoved();
}

void ZmcSession::OnHeaderClicked(ZmcTab tab, int col) {
  if (ZmcTable* table = TableOf(tab)) table->OnHeaderClicked(col);
}

}  // namespace pnl
