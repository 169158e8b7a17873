// SPDX-License-Identifier: MIT
// The references to documents that messages, files and errors bring: "valve.txt#3", "C:\P61\pump.htm#oil". Finds the
// file, and what kind of document it is. Reads no document.
#pragma once

#include <cstdint>
#include <vector>

#include "base/files.h"
#include "facade/utilities.h"

namespace pnl {

enum class DocumentKind { kText, kPage, kVideo, kPicture };

/// The parts of a reference.
struct DocumentReference {
  Text path;       // without the part from '#' on
  Text anchor;     // after the '#'
  Text extension;  // in capitals, without the point
  std::int32_t number = kNoNumber;

  static constexpr std::int32_t kNoNumber = -1;
  [[nodiscard]] DocumentKind Kind() const;
  [[nodiscard]] Text Folder() const;
};

[[nodiscard]] DocumentReference SplitReference(TextView reference);

/// True when the text before a '#' names a file that can be opened for reading.
[[nodiscard]] bool IsReadable(const Files& files, TextView reference);
/// A reference without a folder is looked for in the folders of path ids 61 and 15; the first readable file wins. A
/// reference that isn't found, has a folder or is empty is returned as it is.
[[nodiscard]] Text ResolveFile(const Files& files, Utilities& utilities, TextView reference);
/// Where ResolveFile looks for a reference: the folders, or the reference's own folder.
[[nodiscard]] std::vector<Text> PlacesOfFile(Utilities& utilities, TextView reference);

}  // namespace pnl
