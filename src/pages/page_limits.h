// SPDX-License-Identifier: MIT
// How much of a page reaches the text browser. Beyond these numbers it takes minutes or gigabytes, so a page is cut and
// a value is limited there.
#pragma once

#include <cstddef>

namespace pnl::page_limit {

inline constexpr std::size_t kBytes = 1'000'000;  // of a page's file; what comes after them isn't read
inline constexpr std::size_t kWord = 1'000;       // characters without a blank; a longer word is broken
inline constexpr std::size_t kTags = 10'000;
inline constexpr std::size_t kDepth = 100;
inline constexpr std::size_t kTables = 3;        // in each other
inline constexpr std::size_t kLists = 12;        // in each other
inline constexpr int kColumns = 100;             // of a table
inline constexpr std::size_t kPictures = 1'000;  // of a page
inline constexpr std::size_t kValue = 4'096;     // characters of an attribute
inline constexpr int kNumber = 2'000;            // in a style, or a length in pixels
inline constexpr std::size_t kStyle = 16'000;    // characters of a style sheet
inline constexpr std::size_t kRules = 500;       // of a style sheet

}  // namespace pnl::page_limit
