// SPDX-License-Identifier: MIT
// The first start: makes the user's file of cutting data when there is none. It never touches a file that exists. The
// factory's file is never made.
#pragma once

#include "base/files.h"

namespace pnl {

/// Makes the folder and the empty user file unless the file exists. Returns kOk when the file is there afterwards. If
/// it can't be found out whether the file exists, makes nothing.
[[nodiscard]] FileStatus EnsureUserFile(Files& files, TextView userPath);

}  // namespace pnl
