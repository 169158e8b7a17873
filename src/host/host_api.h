// SPDX-License-Identifier: MIT
// The host's callback table and its guarded wrappers. Tools call the wrappers only. A null slot means that the host
// doesn't offer the service; its wrapper then does nothing, or returns 0.
#pragma once

#include <pnltools/pnltools.h>

#include <array>
#include <string_view>

#include "base/text.h"
#include "facade/variables.h"

namespace pnl {

/// Exactly 19 pointers in slot order, all null until SetPNLApi has run.
struct HostApiTable {
  HostMayOpenToolFn mayOpenTool;
  HostToolOpeningFn toolOpening;
  HostToolClosedFn toolClosed;
  HostSetMainMenuFn setMainMenu;
  HostSetSideMenuFn setSideMenu;
  HostUpdateMainMenuFn updateMainMenu;
  HostUpdateSideMenuFn updateSideMenu;
  HostShowMessageFn showMessage;
  HostExplorerRequestFn explorerRequest;
  HostCalcResultAcceptedFn calcResultAccepted;
  HostExplorerAcceptedFn explorerAccepted;
  HostExplorerAcceptedAltFn explorerAcceptedAlt;
  HostInsertBlockFn insertBlock;
  HostShowErrorFn showError;
  HostErrorsGoneFn errorsGone;
  HostForwardKeyFn forwardKey;
  HostToolWantsCloseFn toolWantsClose;
  HostOpenCalculatorFn openCalculator;
  HostOpenMachiningCalculatorFn openMachiningCalculator;
};
static_assert(sizeof(HostApiTable) == 19 * sizeof(void*));

/// The slots' names, in slot order: "HostMayOpenTool", ...
extern const std::array<std::string_view, 19> kHostSlotNames;

/// The callback table of the process, which SetPNLApi fills. It is in a data section named ".PNLTOOL".
extern HostApiTable HostApi;

/// The default look of a message line: green with black text.
inline constexpr std::uint32_t kMessageBack = 0x2C8064;
inline constexpr std::uint32_t kMessageText = 0;

/// The wrappers. One object serves all tools.
class HostBridge {
 public:
  HostBridge(const HostApiTable& table, Variables& variables) : table_(table), variables_(variables) {}

  [[nodiscard]] int HostMayOpenTool(int tool) const;
  void HostToolOpening(int tool) const;
  void HostToolClosed(int tool, int reason) const;
  /// Menu handle 0 clears the bar.
  void HostSetMainMenu(int tool, std::uint32_t menu) const;
  void HostSetSideMenu(int tool, std::uint32_t menu) const;
  void HostUpdateMainMenu(int tool) const;
  void HostUpdateSideMenu(int tool) const;
  /// Shows a text on a line of the message zone. An empty text clears the line. A text is cut after 255 units.
  void HostShowMessage(int tool, TextView text, std::uint32_t back = kMessageBack, std::uint32_t fore = kMessageText,
                       int line = 1) const;
  /// Writes the record's number to "E.XPLRDATA", if that variable exists, and calls the host in either case. Without
  /// slot 8 it does nothing. The record must outlive the request.
  void HostExplorerRequest(XPLRDATA_ST& record) const;
  void HostCalcResultAccepted() const;
  void HostExplorerAccepted() const;
  void HostExplorerAcceptedAlt() const;
  void HostInsertBlock() const;
  [[nodiscard]] int HostShowError(const HostErrorLine& line) const;
  void HostErrorsGone() const;
  void HostForwardKey(int key) const;
  void HostToolWantsClose(int tool) const;
  void HostOpenCalculator() const;
  void HostOpenMachiningCalculator() const;

  /// True while one of the host's callbacks runs. A tool's code is then on the call stack.
  [[nodiscard]] bool InCallback() const { return depth_ != 0; }

 private:
  template <typename Slot, typename... Args>
  auto Call(Slot slot, const Args&... args) const;

  const HostApiTable& table_;
  Variables& variables_;
  mutable int depth_ = 0;
};

}  // namespace pnl
