// SPDX-License-Identifier: MIT
// A folder of this machine with everything below it, as an operator walks it: the folder of a drive, or the one that a
// share leads to. Names lead into it one by one and never out of it, but for links that the machine's owner has made.
// Knows no drive letters. May be used on any thread; each call may take as long as the disc needs.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "places/places.h"

namespace pnl {

/// The place_error that an errno value means.
[[nodiscard]] int PlaceErrorOf(int error);

class HostTree {
 public:
  /// kDrive: the folder itself has no entries "." and ".."; the folders in it have. kShare: it has them too.
  enum class Root { kDrive, kShare };
  using Names = std::vector<Text>;

  HostTree(std::string folder, Root root) : folder_(std::move(folder)), root_(root) {}

  /// See FolderReader, for the names that lead from the folder to the place. Names that no panel path can contain,
  /// those with a backslash, are not listed. An entry that can't be looked at is listed by its name alone.
  [[nodiscard]] int List(const Names& names, const FolderReader::Take& take) const;
  [[nodiscard]] int Probe(const Names& names) const;
  [[nodiscard]] bool Exists(const Names& names) const;
  [[nodiscard]] bool IsReadOnly(const Names& names) const;
  /// Never makes the folder of the tree: kPathNotFound when that is missing.
  [[nodiscard]] int MakeFolder(const Names& names) const;
  [[nodiscard]] std::optional<std::string> ReadStart(const Names& names, std::size_t most) const;
  /// True when the folder of the tree doesn't exist, as that of a disc that isn't mounted.
  [[nodiscard]] bool IsMissing() const;

 private:
  [[nodiscard]] int ListInBatches(const Names& names, std::size_t first, const FolderReader::Take& take) const;

  std::string folder_;
  Root root_;
};

}  // namespace pnl
