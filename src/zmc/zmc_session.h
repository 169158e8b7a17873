// SPDX-License-Identifier: MIT
// The machining calculator without its window: the frame with its three tabs, the settings, the values read once from
// the CNC, and the bridge to the host. The tabs' own logic is in zmc/zmc_main.h and zmc/zmc_table.h. The window
// (ZCZelorMacCalc) owns it and implements ZmcView.
#pragma once

#include <cstdint>
#include <optional>

#include "host/tool_session.h"
#include "zmc/zmc_desk.h"
#include "zmc/zmc_exchange.h"
#include "zmc/zmc_main.h"
#include "zmc/zmc_tables.h"

namespace pnl {

class ZmcSession final : public ToolSession<ZmcView> {
 public:
  ZmcSession(const ToolContext& context, ZmcView& view);

  /// The frame is there, hidden: makes the user file, reads the CNC, and opens the main tab.
  void Start();
  /// The window is going: stores the settings.
  void End();
  /// The host shows the frame again after it was closed.
  void OnShownAgain();

  /// The answer to the sender, or nothing for a message that the frame doesn't know.
  std::optional<std::intptr_t> OnMessage(const Message& message);
  /// A key that the tab sees before its controls. True when the control isn't to get it.
  bool OnKey(ZmcKey key);

  // Events of the main tab's controls.
  void OnListSelected(int id) { main_.OnListSelected(id); }
  void OnToolTyped() { main_.OnToolTyped(); }
  void OnToolLeft() { main_.OnToolLeft(); }
  void OnCheckChanged(int id) { main_.OnCheckChanged(id); }
  void OnFieldChanged(int id) { main_.OnFieldChanged(id); }
  void OnLineFocus(int id, bool focused) { main_.OnLineFocus(id, focused); }
  void OnFocusMoved();
  // Events of the grids.
  void OnCellCommitted(ZmcTab tab, int row, int col);
  void OnCellMoved(ZmcTab tab);
  void OnHeaderClicked(ZmcTab tab, int col);

 private:
  std::intptr_t OnToolCommand(std::intptr_t code);
  void OnMenuCommand(int id);
  void ShowGivenMessage(std::intptr_t selector, std::intptr_t text);
  /// Opens the tab unless the visible one can't be left.
  bool ShowTab(ZmcTab tab);
  /// Makes the user file if there is none. False when the tool can't be opened.
  [[nodiscard]] bool CanOpen();
  void OpenMain();
  [[nodiscard]] bool CanLeave();
  /// Beyond the tabs: export, import and the view of what the user's data change.
  void OnExchangeCommand(int id);
  void ReloadAll();
  /// False when a table refused to be left.
  bool Close(int reason);
  void ReportClosed(int reason);
  void OpenCalculator();
  [[nodiscard]] ZmcTable* TableOf(ZmcTab tab);
  /// Does something with the visible table if it is that one.
  template <typename Work>
  void WithTable(ZmcTab tab, Work work);

  ZmcDesk desk_;
  ZmcMain main_;
  ZmcMaterials materials_;
  ZmcOperations operations_;
  ZmcExchange exchange_;
  ZmcTab tab_ = ZmcTab::kMain;
  bool tabShown_ = false;
  bool menuGiven_ = false;  // the frame's menu is in the bar
  bool open_ = false;       // reported as opening and not as closed
  bool started_ = false;    // the settings are read, and are to be stored
};

}  // namespace pnl
