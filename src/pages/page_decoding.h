// SPDX-License-Identifier: MIT
// Turns the bytes of a page into its text. The markup itself says nothing about the encoding here: manuals name the
// wrong one too often.
#pragma once

#include <string_view>

#include "base/text.h"

namespace pnl {

/// The text of a page's first page_limit::kBytes bytes. A byte order mark decides the encoding, else it is UTF-8 if
/// that is well-formed, else Windows-1252.
[[nodiscard]] Text DecodePage(std::string_view bytes);

}  // namespace pnl
