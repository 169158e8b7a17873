// SPDX-License-Identifier: MIT
// Computes the places of the command line's window and of its controls in each role, and of the drop list. These are
// pure functions of the parent's size and the settings. They touch no window. All numbers are pixels.
#pragma once

#include "base/text.h"
#include "window/window.h"

namespace pnl {

/// The low nibble of a channel's role.
enum class MdiRole { kMdi = 1, kMda = 2 };

/// The rectangle `window` is in the client area of the parent, the others are in that of the window. Their sizes are
/// never negative.
struct MdiLayout {
  Rect window;
  Rect title;
  Rect edit;
  Rect list;
  Rect sign;
  bool listShown = false;
  bool signShown = false;
};

/// The values on which a layout depends.
struct MdiLayoutInput {
  Rect parent;  // the parent's client rectangle
  bool fullLength = true;
  bool below = true;
  int channelCount = 1;
};

/// The layout of a role: one line for MDI, the whole parent for MDA.
[[nodiscard]] MdiLayout LayOutMdi(MdiRole role, const MdiLayoutInput& input);

/// "MDI" or "MDA". The number of the channel follows if there is more than one.
[[nodiscard]] Text MdiTitleText(MdiRole role, int channelCount, int channel);

/// The period in which the title blinks, in milliseconds. It is 0 in MDA role, where the title doesn't blink.
[[nodiscard]] int MdiTitleBlink(MdiRole role);

/// The place of the drop list on the screen: below the edit, or above it if the window is at the bottom.
[[nodiscard]] Rect MdiDropListRect(const Rect& editOnScreen, bool below);

}  // namespace pnl
