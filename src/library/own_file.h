// SPDX-License-Identifier: MIT
// Where this code is on the disc: the shared library, or a program that contains it. What is installed beside it is
// found from there.
#pragma once

#include <string>

namespace pnl {

/// The file from which this code was loaded; empty when that can't be found out.
[[nodiscard]] std::string OwnFile();

}  // namespace pnl
