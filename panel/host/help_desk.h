// SPDX-License-Identifier: MIT
// The help key: the tool in front writes its help mark, the panel writes one for a tool that has none, and the help
// viewer opens the manual at it. The errors' own help is with ErrorDesk.
#pragma once

#include <pnltools/rig.h>

#include <functional>

#include "host/host_session.h"

namespace panel {

enum class HelpEnd {
  kShown,    // the viewer shows a page
  kByTool,   // the tool in front shows its help itself
  kNone,     // no page belongs to what is in front
  kMissing,  // the library has no help viewer
};

class HelpDesk {
 public:
  /// rig may be null: then no mark can be read or written.
  HelpDesk(HostSession& session, pnl::rig::Rig* rig) : session_(session), rig_(rig) {}

  /// What the help key does. shownByTool: whether the tool in front has answered the key with help of its own.
  [[nodiscard]] HelpEnd Ask(const std::function<bool()>& shownByTool);

 private:
  /// Asks the tool in front for its mark. False when it writes none.
  [[nodiscard]] bool AskFrontTool();
  [[nodiscard]] HelpEnd OpenViewer();

  HostSession& session_;
  pnl::rig::Rig* rig_;
};

}  // namespace panel
