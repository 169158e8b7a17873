// SPDX-License-Identifier: MIT
// The string type of the whole library: UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace pnl {

using Text = std::u16string;
using TextView = std::u16string_view;

}  // namespace pnl
