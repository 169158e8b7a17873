// SPDX-License-Identifier: MIT
// The encodings of manuals. A manual's language id decides the code page of its title, contents, index and pages; a
// page may have an encoding of its own. Conversions are the system's (iconv); an encoding that it doesn't have is read
// as Latin-1, so that no byte is lost.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace pnl {

inline constexpr int kWesternCodePage = 1252;

/// The code page of a language id, by its primary language and, where that has several scripts, its country; 1252 for
/// an id that isn't known.
[[nodiscard]] int CodePageOfLanguage(std::uint32_t language);

/// Converts bytes of a code page to text. A byte that has no meaning there becomes U+FFFD.
[[nodiscard]] Text DecodeCodePage(std::string_view bytes, int codePage);

/// The encoding that a page names in its first kilobytes ("<meta ... charset=...>"); nothing when it names none.
[[nodiscard]] std::optional<std::string> DeclaredCharset(std::string_view page);

/// Converts a page's bytes to text: a byte order mark decides, else what the page declares, if the system has it, else
/// the code page.
[[nodiscard]] Text DecodePage(std::string_view bytes, int codePage);

}  // namespace pnl
