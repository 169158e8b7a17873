// SPDX-License-Identifier: MIT
// The pieces of a path that is shown in a heading: the operator touches one to go to its folder. Knows no folder.
#pragma once

#include <cstddef>
#include <vector>

#include "base/text.h"

namespace pnl {

/// A name in a path, by the places of its first character and of the one after its last. A drive has its colon; a
/// server has its two backslashes.
struct PathPiece {
  std::size_t begin = 0;
  std::size_t end = 0;
  friend bool operator==(const PathPiece&, const PathPiece&) = default;
};

[[nodiscard]] std::vector<PathPiece> PathPieces(TextView path);
/// The folder of the piece with the character at that place; a backslash belongs to the piece before it. Empty beyond
/// the path's end.
[[nodiscard]] Text FolderOfPiece(TextView path, std::size_t at);

}  // namespace pnl
