// SPDX-License-Identifier: MIT
// The MDI/MDA command line without its window. It opens a channel for manual blocks, sends blocks to the kernel,
// follows the channel's status and stores the blocks that have run. It gets the window's events as intentions and
// connects its parts: channels, blocks, list, menus, screen, history and settings. The window (ZCMDIWindow) implements
// MdiView.
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
#include "mdi/mdi_pins.h"
#include "mdi/mdi_recall.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_settings.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// The keys that the session gets before any control. All other keys go to the controls only.
enum class MdiKey { kTab, kEnter, kEscape, kUp, kDown, kDelete };

class MdiSession final : public ToolSession<MdiView> {
 public:
  /// hostWindow is the handle of the parent. It gets ToolNotify.
  MdiSession(const ToolContext& context, MdiView& view, WindowHandle hostWindow);

  /// Makes the records of the channels, reads the settings, loads the menus and lays the window out for MDI role. The
  /// window must be hidden and have its handle and controls. Calls no callback of the host.
  void Start();
  /// Ends the tool before its window is destroyed: stores settings and lists, closes reports and destroys menus. Calls
  /// nothing of the view.
  void End();

  /// Handles the messages of PnlMessage, and "MDI_ENDLIST". Returns the answer to the sender, or nothing for a message
  /// that the tool doesn't know.
  std::optional<std::intptr_t> OnMessage(const Message& message);
  /// Handles a key before the control with the focus gets it. Returns true if the control must not get it. The keys of
  /// the open drop list don't come here.
  [[nodiscard]] bool OnKey(MdiKey key);
  /// Handles a left press on the window itself, its title or its sign: opens or cancels the drop list. endedDropList
  /// says that this same press has just ended the drop list by taking the activation from it. Then it isn't opened
  /// again.
  void OnLeftPress(bool endedDropList);
  // The open drop list. Its verdict comes as "MDI_ENDLIST".
  /// The operator types while the list has the focus. The text goes into the edit, and the list shows what begins so.
  void OnDropListTyped(TextView text);
  void OnDropListErased();
  /// Handles the key that changes between the history and the arranged rows, and the one that pins.
  void OnDropListSwitched();
  void OnDropListPin();
  void OnDropListSelection();
  /// The window itself got the focus. Hands it on to the edit or the list. Calls nobody outside.
  void OnWindowFocus();
  /// The edit got or lost the focus.
  void OnEditFocus(bool focused);
  /// The list box got the focus. Ends the edit of an item. Calls nobody outside, because the host may destroy the
  /// window in any call, and a widget must not be destroyed in its focus event.
  void OnListFocus();
  /// The change of focus that OnListFocus reported is over. Updates the menus, which calls the host.
  void OnFocusSettled();
  /// The window was hidden, by the tool or by somebody else. Closes the drop list.
  void OnHidden();
  /// The parent's client area has another size. Lays the window out again.
  void OnParentResized();

  /// The number of the last removal from the list that can be put back, or 0.
  [[nodiscard]] int RemovalNumber() const { return list_.Removed().Number(); }

  /// The colours of text and background of a control, or nothing if it keeps its own. focused counts for the edit
  /// alone.
  [[nodiscard]] std::optional<MdiColorPair> ControlColors(MdiControl control, bool focused = false) const;

 private:
  // Messages.
  std::intptr_t OnVariableReport(const Message& message);
  std::intptr_t OnCycleStart(const Message& message);
  void StartBlock(MDIDATA_ST* record, bool fromKey);
  void OpenDropList();
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
  // What a host keeps for the operator: what he has typed and not finished, and what he has removed.
  std::optional<std::intptr_t> OnKeptWork(const Message& message);
  bool StoreRowsNow();
  void ReadUnfinished(PnlUnfinished& into) const;
  bool RestoreUnfinished(const PnlUnfinished& from);
  void RestoreItem(MDIDATA_ST& record, const PnlUnfinished& from);
  // Services at the edit and the list.
  void PasteCalcResult();
  std::intptr_t AskHelp();
  void RequestProgramFile();
  std::intptr_t SaveProgram(const Text& folder, const Text& name);
  void ShowProblem(int textId, const Text& name);

  /// View and Host as functions, for the parts of the session. They call them for each use, so that WindowGone ends the
  /// operation there too.
  [[nodiscard]] MdiViewAccess ViewAccess() const {
    return [this]() -> MdiView& { return View(); };
  }
  [[nodiscard]] std::function<const HostBridge&()> HostAccess() const {
    return [this]() -> const HostBridge& { return Host(); };
  }
  /// Calls steps in which the window may end. Returns false if it has, so that the operation can still return an
  /// answer.
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
  MdiPins pins_;
  MdiRecall recall_;
  MdiList list_;
  MdiHolding holding_;
  MdiBlocks blocks_;
  XPLRDATA_ST explorerRequest_ = {};
  bool waitingForExplorer_ = false;
};

}  // namespace pnl
