// SPDX-License-Identifier: MIT
#include "explorer/xplr_path.h"

#include <algorithm>

namespace pnl {

std::vector<PathPiece> PathPieces(TextView path) {
  std::vector<PathPiece> pieces;
  std::size_t begin = 0;
  while (begin < path.size()) {
    const bool server = begin == 0 && path.starts_with(u"\\\\");
    const std::size_t end = std::min(path.find(u'\\', server ? 2 : begin), path.size());
    if (end > begin) pieces.push_back({begin, end});
    begin = end + 1;
  }
  return pieces;
}

Text FolderOfPiece(TextView path, std::size_t at) {
  if (at >= path.size()) return {};
  Text folder;
  for (const PathPiece& piece : PathPieces(path)) {
    if (piece.begin > at) break;
    folder = path.substr(0, piece.end);
  }
  return folder;
}

}  // namespace pnl
