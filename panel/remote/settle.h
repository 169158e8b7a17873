// SPDX-License-Identifier: MIT
// Brings the panel to rest: everything posted is handled, what was to be deleted later is gone, windows that became
// active have the focus. Timers that aren't due stay.
#pragma once

#include <functional>

namespace panel {

/// False when there was still something posted after a great many rounds: someone posts to himself without end.
bool Settle();

/// Lets the event loop run while working says so, but no longer than that. False when it still says so.
bool WaitWhile(const std::function<bool()>& working, int milliseconds);

}  // namespace panel
