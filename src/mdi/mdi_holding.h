// SPDX-License-Identifier: MIT
// Takes a channel from the other modes and gives it back, and reports both to the host. The CNC and the host rely on
// the order of these calls. A hidden window still holds its channel. Only Leave gives it back.
#pragma once

#include <functional>
#include <utility>

#include "host/tool_context.h"
#include "mdi/mdi_channels.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiHolding {
 public:
  /// Returns the host. Throws WindowGone if the tool has ended.
  using HostAccess = std::function<const HostBridge&()>;

  /// hostWindow gets ToolNotify. channels and screen must outlive the object.
  MdiHolding(const ToolContext& context, WindowHandle hostWindow, MdiViewAccess view, HostAccess host,
             MdiChannels& channels, MdiScreen& screen)
      : kernel_(context.cnc.Kapi()),
        windows_(context.windows),
        hostWindow_(hostWindow),
        view_(std::move(view)),
        host_(std::move(host)),
        channels_(channels),
        screen_(screen) {}

  /// Reports the channel as taken, then holds it.
  void Enter(MDIDATA_ST& record);
  /// Gives the channel back and hides the window if the channel is the current one. Returns false and changes nothing
  /// if the interlock isn't granted.
  bool Leave(MDIDATA_ST& record);
  /// Calls Leave if somebody waits for the channel. Returns false if nobody waits or the interlock isn't granted; then
  /// the channel stays open.
  bool LeaveIfWanted(MDIDATA_ST& record);
  /// Hides the window and marks the channel, so that it is given back when its block ends.
  void CloseLater(MDIDATA_ST& record);
  /// Hides the window. The channel stays held.
  void Hide(const MDIDATA_ST& record);
  /// Sends ToolNotify to the host's window: the channel is taken.
  void ReportTaken(const MDIDATA_ST& record);

 private:
  void Notify(int code, const MDIDATA_ST& record);

  Kernel& kernel_;
  WindowSystem& windows_;
  const WindowHandle hostWindow_;
  const MdiViewAccess view_;
  const HostAccess host_;
  MdiChannels& channels_;
  MdiScreen& screen_;
};

}  // namespace pnl
