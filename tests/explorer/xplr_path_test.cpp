// SPDX-License-Identifier: MIT
#include "explorer/xplr_path.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

TEST(XplrPath, APathHasItsDriveOrServerAndItsNames) {
  const struct {
    Text path;
    std::vector<PathPiece> pieces;
  } rows[] = {
      {u"", {}},
      {u"C:", {{0, 2}}},
      {u"C:\\", {{0, 2}}},
      {u"C:\\CNC\\SUB", {{0, 2}, {3, 6}, {7, 10}}},
      {u"C:\\\\A", {{0, 2}, {4, 5}}},
      {u"\\\\SRV", {{0, 5}}},
      {u"\\\\SRV\\JOBS\\A", {{0, 5}, {6, 10}, {11, 12}}},
      {u"Entire Network\\Net", {{0, 14}, {15, 18}}},
      {u"\\", {}},
  };
  for (const auto& row : rows) EXPECT_TRUE(PathPieces(row.path) == row.pieces) << ToUtf8(row.path);
}

TEST(XplrPath, TheFolderOfAPieceEndsWithIt) {
  const struct {
    Text path;
    std::vector<std::pair<std::size_t, Text>> touched;
  } rows[] = {
      {u"C:\\CNC\\SUB",
       {{0, u"C:"},
        {2, u"C:"},
        {3, u"C:\\CNC"},
        {6, u"C:\\CNC"},
        {7, u"C:\\CNC\\SUB"},
        {9, u"C:\\CNC\\SUB"},
        {10, u""}}},
      {u"\\\\SRV\\JOBS\\A",
       {{0, u"\\\\SRV"}, {1, u"\\\\SRV"}, {5, u"\\\\SRV"}, {6, u"\\\\SRV\\JOBS"}, {11, u"\\\\SRV\\JOBS\\A"}}},
      {u"", {{0, u""}}},
  };
  for (const auto& row : rows) {
    for (const auto& [at, folder] : row.touched) {
      EXPECT_TRUE(FolderOfPiece(row.path, at) == folder) << ToUtf8(row.path) << " at " << at;
    }
  }
}

}  // namespace
}  // namespace pnl::test
