// SPDX-License-Identifier: MIT
// Taking a channel away from the other modes and giving it back, and what the host hears of it. The control and the
// host rely on the order of these calls. A hidden window still holds its channel; only Leave gives it back.
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
  /// How the host is reached. The call throws WindowGone once the tool has ended.
  using HostAccess = std::function<const HostBridge&()>;

  /// hostWindow gets ToolNotify. channels and screen outlive the object.
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
  /// Gives the channel back, and hides the window if it was in that channel. False, and nothing changed, when the
  /// interlock wasn't granted.
  bool Leave(MDIDATA_ST& record);
  /// Leave, if somebody waits for the channel. False when the channel stays open: nobody waits, or the interlock was
  /// refused.
  bool LeaveIfWanted(MDIDATA_ST& record);
  /// Hides the window and has the channel given back when its block ends.
  void CloseLater(MDIDATA_ST& record);
  /// Hides the window, which goes on holding the channel.
  void Hide(const MDIDATA_ST& record);
  /// ToolNotify to the host's window: the channel is taken.
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
