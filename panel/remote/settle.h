// SPDX-License-Identifier: MIT
// Brings the panel to rest: posted events are handled, objects to be deleted later are gone, and a window that became
// active has the focus. Timers that aren't due yet don't fire.
#pragma once

#include <functional>

namespace panel {

/// Returns false when events were still coming after a great many rounds, because something posts to itself without
/// end.
bool Settle();

/// Runs the event loop while working returns true, for at most that many milliseconds. Returns false when it still
/// does.
bool WaitWhile(const std::function<bool()>& working, int milliseconds);

}  // namespace panel
