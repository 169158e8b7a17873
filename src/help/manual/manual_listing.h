// SPDX-License-Identifier: MIT
// The listing of an unpacked manual: what pnl-chm found in it, what it wrote, and what it had to leave out. Written by
// that program and read by Manual; docs/formats/manual-listing.md has the format. The pages themselves are in one file
// beside it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace pnl {

struct ListedObject {
  Text name;  // with slashes
  std::uint64_t size = 0;
  std::uint64_t start = 0;  // in the file of all objects
  friend bool operator==(const ListedObject&, const ListedObject&) = default;
};

struct ManualListing {
  static constexpr const char* kFile = "listing.txt";
  static constexpr const char* kObjectFile = "objects.bin";
  /// A longer listing, and more objects, aren't read.
  static constexpr std::uint64_t kMostBytes = 20'000'000;
  static constexpr std::size_t kMostObjects = 20'000;

  Text title;
  Text page;                          // the default page, as the manual names it
  Text contents;                      // the contents file
  Text index;                         // the index file
  std::uint32_t language = 0;         // the language id; 0: the manual doesn't say
  int codePage = 1252;                // by the language id
  std::uint64_t bytes = 0;            // of all objects
  std::size_t refused = 0;            // objects with names that no page may have here
  std::size_t unreadable = 0;         // objects that the manual lists and that couldn't be read
  std::size_t crashes = 0;            // how often reading the manual ended its process
  bool overrun = false;               // a limit of size, number or time was reached
  std::vector<ListedObject> objects;  // in the order in which they were unpacked

  [[nodiscard]] bool IsDamaged() const { return refused > 0 || unreadable > 0 || crashes > 0 || overrun; }
};

/// The listing's text in UTF-8.
[[nodiscard]] std::string WriteManualListing(const ManualListing& listing);
/// Reads a listing. Returns nothing for another version, or when the end is missing. Lines that make no sense are
/// skipped, and so are objects whose names no manual may have.
[[nodiscard]] std::optional<ManualListing> ReadManualListing(std::string_view bytes);

}  // namespace pnl
