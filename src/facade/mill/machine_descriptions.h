// SPDX-License-Identifier: MIT
// Reads a file of long descriptions: a number in brackets on a line of its own, then its text up to the next one. Lines
// that begin with a semicolon are left out. Knows nothing of where the file lies nor of the errors.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl::sim {

using Descriptions = std::vector<std::pair<std::int32_t, Text>>;

/// From UTF-8, in the order of the file, each text without blank lines before and behind it. What stands before the
/// first number is left out; so is an entry without text.
[[nodiscard]] Descriptions ParseDescriptions(std::string_view bytes);

}  // namespace pnl::sim
