// SPDX-License-Identifier: MIT
// Where the window of the command line and its controls lie in each role, and where the drop list opens: pure functions
// of the parent's size and the settings. Nothing here touches a window. The numbers are pixels of the panel's dialogs.
#pragma once

#include "base/text.h"
#include "window/window.h"

namespace pnl {

/// The low nibble of a channel's role.
enum class MdiRole { kMdi = 1, kMda = 2 };

/// Rectangles: window in the parent's client area, the others in the window's. Never of negative size.
struct MdiLayout {
  Rect window;
  Rect title;
  Rect edit;
  Rect list;
  Rect sign;
  bool listShown = false;
  bool signShown = false;
};

/// What the layouts depend on.
struct MdiLayoutInput {
  Rect parent;  // the parent's client rectangle
  bool fullLength = true;
  bool below = true;
  int channelCount = 1;
};

/// One line for MDI, the whole parent for MDA.
[[nodiscard]] MdiLayout LayOutMdi(MdiRole role, const MdiLayoutInput& input);

/// "MDI" or "MDA", with the channel's number where there is more than one.
[[nodiscard]] Text MdiTitleText(MdiRole role, int channelCount, int channel);

/// The title's blinking in milliseconds; 0 in MDA role.
[[nodiscard]] int MdiTitleBlink(MdiRole role);

/// The drop list's rectangle on the screen: under the edit, or over it when the window lies at the bottom.
[[nodiscard]] Rect MdiDropListRect(const Rect& editOnScreen, bool below);

}  // namespace pnl
