// SPDX-License-Identifier: MIT
// What the parts of the command line share: the tool's context, the view, the channels' records, settings and menus.
// State only; the rules are free functions over it, a file for each concern. Owned by MdiExecution.
#pragma once

#include <pnltools/pnltools.h>

#include <cstdint>
#include <vector>

#include "host/tool_context.h"
#include "mdi/mdi_data.h"
#include "mdi/mdi_history.h"
#include "mdi/mdi_settings.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// The menus and the two texts kept for the window's life; a menu that the language doesn't have is 0.
struct MdiMenuSet {
  MenuHandle cancel = 0;
  MenuHandle mda = 0;
  MenuHandle position = 0;
  Text endEdit;        // language text 7
  Text programTitle;   // language text 8
  Text moveUpCaption;  // what item 40003 reads when no edit has its place
};

struct MdiSession {
  MdiSession(const ToolContext& toolContext, MdiView& window, WindowHandle host);
  MdiSession(const MdiSession&) = delete;
  MdiSession& operator=(const MdiSession&) = delete;

  [[nodiscard]] MdiView& View() const { return *view_; }
  /// The window is gone, or going: whatever is still asked of the view does nothing from now on, and the explorer
  /// can't reach the request any more.
  void DetachView();
  [[nodiscard]] bool Ended() const { return ended_; }

  /// Makes the records of all channels, with the inspection variables where the control has them.
  void MakeRecords();
  /// Null for a channel that there isn't.
  [[nodiscard]] MDIDATA_ST* Record(std::intptr_t channel);
  /// The current channel's, null before the first one was opened.
  [[nodiscard]] MDIDATA_ST* Current() { return Record(CurrentChannel); }
  [[nodiscard]] bool IsCurrent(const MDIDATA_ST& record) const { return record.Channel == CurrentChannel; }
  /// A variable of a channel, by its name behind the channel's prefix.
  [[nodiscard]] ZCVariable ChannelVariable(int channel, TextView name) const;
  [[nodiscard]] int ChannelCount() const { return static_cast<int>(records.size()); }
  [[nodiscard]] Kernel& Kapi() const { return context.cnc.Kapi(); }
  /// The host. Once the window has ended it hears nothing more of it.
  [[nodiscard]] const HostBridge& Host() const { return ended_ ? noHost_ : context.host; }

  ToolContext context;
  MdiSettings settings;
  MdiHistory history;
  MdiMenuSet menus;
  std::vector<MDIDATA_ST> records;  // by channel minus 1
  std::int8_t CurrentChannel = 0;
  WindowHandle HostWindow = 0;
  MdiRole DisplayedRole = MdiRole::kMdi;
  std::int32_t WaitingForExplorer = 0;
  MdiSelection selection;  // SelStart and SelEnd: what the edit gets back with the focus
  XPLRDATA_ST ExplorerRequest = {};

 private:
  [[nodiscard]] int NumberOfChannels() const;
  MdiView* view_;
  HostBridge noHost_;  // offers no service
  bool ended_ = false;
};

/// An integer variable as it is now; nothing when it isn't valid or can't be read.
[[nodiscard]] std::optional<std::int32_t> ReadPresent(ZCVariable& variable);

}  // namespace pnl
