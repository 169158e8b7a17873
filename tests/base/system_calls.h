// SPDX-License-Identifier: MIT
// Lets a test step in where this program is about to change what lies on the disc.
#pragma once

#include <functional>

namespace pnl::test {

/// Called in front of every system call that changes a file, a name or a mode, and of every flush; nothing when empty.
inline std::function<void()> beforeChange;

}  // namespace pnl::test
