// SPDX-License-Identifier: MIT
// Makes the markup of a page harmless before a text browser gets it: only known tags and attributes pass, nothing that
// runs, and no nesting, table or number that would take the browser minutes or gigabytes. A page that is too long is
// cut. Resolves no addresses: PageSource does.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/text.h"

namespace pnl {

namespace page_limit {
inline constexpr std::size_t kBytes = 4'000'000;  // of a page's file; what comes after them isn't read
inline constexpr std::size_t kTags = 40'000;
inline constexpr std::size_t kDepth = 100;
inline constexpr std::size_t kTables = 4;        // in each other
inline constexpr std::size_t kLists = 12;        // in each other
inline constexpr int kColumns = 100;             // of a table
inline constexpr std::size_t kPictures = 1'000;  // of a page
inline constexpr std::size_t kValue = 4'096;     // characters of an attribute
inline constexpr int kNumber = 2'000;            // in a style, or a length in pixels
}  // namespace page_limit

/// The text of a page's first page_limit::kBytes bytes. A byte order mark decides the encoding, else it is UTF-8 if
/// that is well-formed, else Windows-1252.
[[nodiscard]] Text DecodePage(std::string_view bytes);

struct CleanPage {
  Text markup;
  bool cut = false;  // something was left out because a limit was reached
};
/// Returns the markup in which every tag that was opened is closed. Text outside the tags stays as it is.
[[nodiscard]] CleanPage CleanMarkup(TextView markup);

}  // namespace pnl
