// SPDX-License-Identifier: MIT
// The MDI/MDA command line without its window: opens a channel for manual blocks, sends blocks to the kernel, follows
// the channel's status, keeps history and list. The window (ZCMDIWindow) owns it, calls one intention for each event
// and implements MdiView; nothing here knows a widget.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "host/tool_context.h"
#include "mdi/mdi_colors.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// Key-downs that the window shows the logic before any control sees them. All others are the controls' own.
enum class MdiKey { kTab, kEnter, kEscape, kUp, kDown, kDelete };

/// Made by Make, when the window's handle and controls exist (fonts set, window hidden); kept by the window in the
/// returned pointer. An intention may end in a call of the host that destroys the window: the object then lives until
/// the intention returns, but asks nothing more of the view.
class MdiExecution : public std::enable_shared_from_this<MdiExecution> {
 public:
  /// Makes the channels' records, reads the settings, loads the menus and lays the window out for MDI role.
  /// hostWindow is the parent's handle, the target of ToolNotify.
  [[nodiscard]] static std::shared_ptr<MdiExecution> Make(const ToolContext& context, MdiView& view,
                                                          WindowHandle hostWindow);
  ~MdiExecution();
  MdiExecution(const MdiExecution&) = delete;
  MdiExecution& operator=(const MdiExecution&) = delete;

  /// The window is being destroyed, its controls are still there or not: settings and histories are stored, reports
  /// closed, menus freed. From now on the view isn't asked any more and every intention does nothing.
  void OnDestroy();
  /// True from OnDestroy on.
  [[nodiscard]] bool Ended() const;

  /// Messages: VariableReport 0x700, cycle start 0x800, ToolNotify 0x801, ToolCommand 0x802, 0x804, the help key 0x805,
  /// 0x806, menu commands (kMsgCommand) and "MDI_ENDLIST". The answer to the sender, or nothing for a message that the
  /// tool doesn't know.
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
  /// The change of focus that OnListFocus told of is over: the host learns of the menus.
  void OnFocusSettled();
  /// The window is out of sight, whoever hid it: the drop list goes too.
  void OnHidden();
  /// The parent's client area has another size.
  void OnParentResized();

  /// Text and background of a control for painting; nothing when it keeps its own look. Asked at every paint.
  [[nodiscard]] std::optional<MdiColorPair> ControlColors(MdiControl control, bool focused) const;

 private:
  class Parts;
  explicit MdiExecution(std::unique_ptr<Parts> parts);
  std::unique_ptr<Parts> parts_;
};

}  // namespace pnl
