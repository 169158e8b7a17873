// SPDX-License-Identifier: MIT
// The names of a manual's pages and pictures: which ones they may have, and what a reference in a page means.
// Touches no file. A name is relative to the manual, with slashes: "sub/Page.htm".
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace pnl {

inline constexpr std::size_t kLongestManualName = 500;  // bytes of UTF-8
inline constexpr std::size_t kDeepestManualName = 16;   // folders and the file

/// The name by which an object of the manual is known. Its own name is bytes with a slash at the start; those that
/// aren't UTF-8 are taken as Latin-1. Returns nothing for a name that could lead elsewhere: without that slash, with an
/// empty part, ".", "..", a backslash, a colon, a control character, or too long.
[[nodiscard]] std::optional<Text> NameOfObject(std::string_view object);
/// True for a name that NameOfObject may return.
[[nodiscard]] bool IsManualName(TextView name);

/// What a reference means in the page from, which is empty for references of contents and index: a name, which may be
/// empty, and an anchor. Percent signs, backslashes, "." and ".." are resolved, and a manual's name with "::" before
/// the page is dropped. Returns nothing for references that leave the manual ("http:", "..") or are empty.
struct ManualReference {
  Text name;
  Text anchor;
};
[[nodiscard]] std::optional<ManualReference> ResolveManualReference(TextView from, TextView reference);
/// The file name of the manual that a reference names before "::", with its percent signs decoded; empty when it names
/// none.
[[nodiscard]] Text ManualNamedIn(TextView reference);

/// True for names of HTML pages, by their ending.
[[nodiscard]] bool IsPageName(TextView name);
[[nodiscard]] bool IsStyleName(TextView name);
[[nodiscard]] bool IsSitemapName(TextView name);

/// The references of a page, style sheet, contents file or index, as they are written; at most so many, in their order.
inline constexpr std::size_t kMostReferences = 20'000;
[[nodiscard]] std::vector<Text> ReferencesOf(TextView name, TextView markup);

}  // namespace pnl
