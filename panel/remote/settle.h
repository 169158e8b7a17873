// SPDX-License-Identifier: MIT
// Brings the panel to rest: everything posted is handled, what was to be deleted later is gone, windows that became
// active have the focus. Timers that aren't due stay.
#pragma once

namespace panel {

/// False when there was still something posted after a great many rounds: someone posts to himself without end.
bool Settle();

}  // namespace panel
