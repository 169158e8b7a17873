// SPDX-License-Identifier: MIT
// The MDI/MDA command line without its window: opens a channel for manual blocks, sends blocks to the kernel, follows
// the channel's status, stores what ran. Receives the window's events as intentions and puts its subjects together:
// channels, blocks, list, menus, screen, history and settings. The window (ZCMDIWindow) owns it and implements MdiView.
#pragma once

#include <pnltools/pnltools.h>

#include <cstdint>
#include <functional>
#include <optional>

#include "host/tool_session.h"
#include "mdi/mdi_blocks.h"
#include "mdi/mdi_channels.h"
#include "mdi/mdi_colors.h"
#include "mdi/mdi_history.h"
#include "mdi/mdi_holding.h"
#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_settings.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// Key-downs that the window shows the logic before any control sees them. All others are the controls' own.
enum class MdiKey { kTab, kEnter, kEscape, kUp, kDown, kDelete };

class MdiSession final : public ToolSession<MdiView> {
 public:
  /// hostWindow is the parent's handle, the target of ToolNotify.
  MdiSession(const ToolContext& context, MdiView& view, WindowHandle hostWindow);

  /// The window is there, hidden, with its handle and controls: makes the channels' records, reads the settings, loads
  /// the menus and lays the window out for MDI role. Calls no callback of the host.
  void Start();
  /// The window is going, its controls are still there or not: settings and histories are stored, reports closed, menus
  /// freed. No call to the view follows.
  void End();

  /// Every message of PnlMessage, and "MDI_ENDLIST". The answer to the sender, or nothing for a message that the tool
  /// doesn't know.
  std::optional<std::intptr_t> OnMessage(const Message& message);
  /// Before the focused control sees it; true: consumed. Not for keys that the open drop list gets.
  [[nodiscard]] bool OnKey(MdiKey key);
  /// A left press on the window itself, its title or its sign. endedDropList: this very press has just ended the drop
  /// list by taking the activation from it; then the list is not opened again.
  void OnLeftPress(bool endedDropList);
  /// The window itself got the focus: hands it on to the edit or the list. Calls nobody outside.
  void OnWindowFocus();
  /// The edit got or lost the focus.
  void OnEditFocus(bool focused);
  /// The list box got the focus: an edit of an item ends. Calls nobody outside: the host may destroy the window in any
  /// call, and a widget must not be lost in the middle of its focus event.
  void OnListFocus();
  /// The change of focus that OnListFocus reported is over: the host learns of the menus.
  void OnFocusSettled();
  /// The window is out of sight, whoever hid it: the drop list goes too.
  void OnHidden();
  /// The parent's client area has another size.
  void OnParentResized();

  /// Text and background of a control for painting; nothing when it keeps its own look. Asked at every paint.
  [[nodiscard]] std::optional<MdiColorPair> ControlColors(MdiControl control, bool focused) const;

 private:
  // Messages.
  std::intptr_t OnVariableReport(const Message& message);
  std::intptr_t OnCycleStart(const Message& message);
  void StartBlock(MDIDATA_ST* record, bool fromKey);
  std::intptr_t OnToolNotify(const Message& message);
  std::intptr_t OnToolCommand(std::intptr_t code, std::intptr_t argument);
  std::intptr_t OnResultReady(const Message& message);
  std::intptr_t OnExplorerEnded(const Message& message);
  void OnMenuCommand(std::intptr_t id);
  // Opening, showing, hiding and closing in a channel. Results are those of ToolCommand.
  std::intptr_t OpenInChannel(std::intptr_t channel);
  std::intptr_t HideChannel(std::intptr_t channel);
  std::intptr_t ReshowChannel(std::intptr_t channel);
  std::intptr_t RequestClose(std::intptr_t channel, bool onlyIfInspecting);
  std::intptr_t ManualModeChanged(std::intptr_t channel, std::int32_t mode);
  void AnnounceOpening();
  void TakeAndShow(MDIDATA_ST& record);
  void TakeTextInHand();
  void ShowLargeLists(const MDIDATA_ST& record);
  void Escape();
  // The two roles, and what the screen shows.
  void SwitchRole();
  void SetRole(MDIDATA_ST& record, MdiRole role);
  void RestoreCaret();
  void SwitchLayout(bool MdiSettings::*setting);
  void InstallMenus(const MDIDATA_ST& record) { menus_.Install(record, View().ListCount()); }
  void UpdateMenus() { menus_.Update(channels_.Current(), View().ListCount()); }
  void ShowInspectHint();
  void ShowMessage(TextView text) { Host().HostShowMessage(PNL_TOOL_MDI, text); }
  // Services at the edit and the list.
  void PasteCalcResult();
  std::intptr_t AskHelp();
  void RequestProgramFile();
  std::intptr_t SaveProgram(const Text& folder, const Text& name);
  void ShowProblem(int textId, const Text& name);

  /// View and Host for the subjects, which ask for them anew each time and end with the operation as this class does.
  [[nodiscard]] MdiViewAccess ViewAccess() const {
    return [this]() -> MdiView& { return View(); };
  }
  [[nodiscard]] std::function<const HostBridge&()> HostAccess() const {
    return [this]() -> const HostBridge& { return Host(); };
  }
  /// Calls steps in which the window may end, for an operation that must still answer. False when it has.
  template <typename Steps>
  [[nodiscard]] bool Outlives(Steps&& steps) {
    return RunOperation(shared_from_this(), [&steps](const ToolSession& /*session*/) { steps(); });
  }

  const std::uint32_t endList_;
  MdiSettings settings_;
  MdiHistory history_;
  MdiChannels channels_;
  MdiMenus menus_;
  MdiScreen screen_;
  MdiList list_;
  MdiHolding holding_;
  MdiBlocks blocks_;
  XPLRDATA_ST explorerRequest_ = {};
  bool waitingForExplorer_ = false;
};

}  // namespace pnl
