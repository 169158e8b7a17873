// SPDX-License-Identifier: MIT
// What the tabs of the machining calculator share: the window, the host, the data, the settings, the machine, the
// menus, the message line and the boxes. The session owns one. Its calls end with WindowGone when the tool has ended.
#pragma once

#include <functional>
#include <utility>

#include "host/tool_context.h"
#include "zmc/logic/zmc_machine.h"
#include "zmc/logic/zmc_settings.h"
#include "zmc/zmc_data.h"
#include "zmc/zmc_menus.h"
#include "zmc/zmc_view.h"

namespace pnl {

class ZmcDesk {
 public:
  using ViewAccess = std::function<ZmcView&()>;
  using HostAccess = std::function<const HostBridge&()>;
  ZmcDesk(const ToolContext& context, ViewAccess view, HostAccess host);

  [[nodiscard]] ZmcView& View() const { return view_(); }
  [[nodiscard]] const HostBridge& Host() const { return host_(); }
  [[nodiscard]] const ToolContext& Context() const { return context_; }
  [[nodiscard]] Text LoadText(int id) const { return context_.language.LoadToolText(id); }

  /// The tool's message box. It runs an event loop.
  void ShowInfo(int text) const;
  [[nodiscard]] bool AskYesNo(int text) const;
  [[nodiscard]] bool AskYesNoWith(int text, TextView inserted) const;
  [[nodiscard]] bool AskYesNoMany(int text) const { return AskYesNo(text); }
  /// The same with a text that isn't in the pack.
  void ShowText(Text text) const { (void)Ask(std::move(text), BoxStyle::kInfo); }
  [[nodiscard]] bool AskText(Text text) const { return Ask(std::move(text), BoxStyle::kQuestion) == BoxAnswer::kYes; }

  /// Sends the frame its own message: a text for the first line of the message zone, in one of three
  /// colours.
  void ShowMessage(int color, TextView text) const;
  void ResetMessage() const;
  /// Shows box 278 for a damaged file. Returns true when there was no failure.
  bool CheckRead(CuttingError error) const;
  /// The same for an update; every other failure is named on the message line. Returns true when it is stored.
  bool CheckStored(CuttingError error) const;
  /// Shows box 285 or 278. Returns true unless a file is damaged or can't be read; without the factory's the lists are
  /// empty.
  bool CheckLoaded(const ZmcLoad& load) const;

  ZmcData data;
  ZmcSettings settings;
  ZmcMachine machine;
  ZmcMenus menus;

 private:
  [[nodiscard]] BoxAnswer Ask(Text text, BoxStyle style) const;
  const ToolContext& context_;
  const ViewAccess view_;
  const HostAccess host_;
};

}  // namespace pnl
