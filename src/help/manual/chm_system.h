// SPDX-License-Identifier: MIT
// The table of a compiled manual in which it says what it is: object "#SYSTEM". No content of it is an error. The texts
// are bytes of the manual's code page, which follows from the language id.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pnl {

struct ChmSystem {
  std::string title;
  std::string page;  // the default page
  std::string contents;
  std::string index;
  std::uint32_t language = 0;  // 0: not said
};

/// What the table says, as far as it goes. Of two entries for the same thing the first that isn't empty counts.
[[nodiscard]] ChmSystem ParseChmSystem(std::string_view bytes);

}  // namespace pnl
