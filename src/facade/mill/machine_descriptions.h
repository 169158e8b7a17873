// SPDX-License-Identifier: MIT
// Reads a file of long descriptions: a number in brackets on a line of its own, then its text up to the next number.
// Lines that begin with a semicolon are comments. Knows neither the file's place nor the errors.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl::sim {

using Descriptions = std::vector<std::pair<std::int32_t, Text>>;

/// Reads UTF-8 and returns the entries in the order of the file. Blank lines at the start and end of a text are
/// dropped, also the text before the first number and entries without text.
[[nodiscard]] Descriptions ParseDescriptions(std::string_view bytes);

}  // namespace pnl::sim
