// SPDX-License-Identifier: MIT
#include "base/row_file.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/text_file.h"

namespace pnl {
namespace {

constexpr char16_t kByteOrderMark = u'\uFEFF';
constexpr std::string_view kMarkBytes = "\xEF\xBB\xBF";
/// Files are written in pieces of this size, so that a list of a hundred megabytes isn't in memory twice.
constexpr std::size_t kPieceBytes = std::size_t{1} << 16;
constexpr std::string_view kLineEnd = "\r\n";

TextRows Merged(const RowsToStore& rows, const TextRows& found) {
  TextRows merged = rows.added;
  std::unordered_set<std::string_view> own;
  if (rows.unique) {
    for (auto row = rows.added.begin(); row != rows.added.end(); ++row) own.insert(row.Utf8());
  }
  for (auto row = found.begin(); row != found.end(); ++row) {
    if (own.count(row.Utf8()) == 0) merged.push_back(*row);
  }
  return merged;
}

}  // namespace

RowsRead ReadRows(Files& files, TextView path, std::size_t most) {
  RowsRead read;
  const FileInfo info = files.Query(path);
  CStdioFileEx file(files);
  if (!file.Open(path, CStdioFileEx::kRead)) {
    if (!info.exists && !info.outOfReach) read.known = FileKnown::kAbsent;
    return read;
  }
  Text line;
  while (read.rows.size() < most && file.ReadString(line)) read.rows.push_back(line);
  if (!file.ReadFailed()) read.known = FileKnown::kWhole;
  read.bytes = read.rows.TextBytes() + read.rows.size();
  return read;
}

FileStatus WriteRows(Files& files, TextView path, const TextRows& rows, std::size_t most) {
  // Reading drops one byte order mark at the file's start, so a first row that begins with one gets another before it.
  const bool marked = most != 0 && !rows.empty() && rows.front().starts_with(kByteOrderMark);
  std::string piece(marked ? kMarkBytes : std::string_view());
  auto row = rows.begin();
  std::size_t left = std::min(most, rows.size());
  return files.ReplaceInPieces(path, [&, first = true]() mutable -> std::string_view {
    if (!std::exchange(first, false)) piece.clear();
    for (; left != 0 && piece.size() < kPieceBytes; --left, ++row) {
      const std::size_t begin = piece.size();
      piece += row.Utf8();
      // A line break would make two rows of this one when the file is read again.
      std::replace_if(
          piece.begin() + static_cast<std::ptrdiff_t>(begin), piece.end(),
          [](char c) { return c == '\r' || c == '\n'; }, ' ');
      piece += kLineEnd;
    }
    return piece;
  });
}

TextRows RowsOf(const TextRows& all, const TextRows& added) {
  std::unordered_map<std::string_view, int> left;
  for (auto row = added.begin(); row != added.end(); ++row) ++left[row.Utf8()];
  TextRows inOrder;
  if (left.empty()) return inOrder;
  for (auto row = all.begin(); row != all.end(); ++row) {
    const auto found = left.find(row.Utf8());
    if (found != left.end() && found->second-- > 0) inOrder.push_back(*row);
  }
  return inOrder;
}

FileStatus StoreRows(Files& files, TextView path, FileKnown known, const RowsToStore& rows) {
  if (known == FileKnown::kWhole) return WriteRows(files, path, rows.all, rows.most);
  // The file may have come back or been created since: a share is mounted now, or a folder has its name again.
  const RowsRead found = ReadRows(files, path);
  if (found.known == FileKnown::kAbsent) return WriteRows(files, path, rows.all, rows.most);
  if (rows.added.empty()) return FileStatus::kOk;
  if (found.known == FileKnown::kWhole) return WriteRows(files, path, Merged(rows, found.rows), rows.most);
  const FileStatus status = files.CanReplace(path);
  return status == FileStatus::kOk ? FileStatus::kDenied : status;
}

bool StoreRowsEarly(Files& files, TextView path, FileKnown& known, const RowsToStore& rows, std::uint64_t mostBytes) {
  if (known == FileKnown::kUnknown || rows.all.TextBytes() + rows.all.size() > mostBytes) return true;
  if (known == FileKnown::kAbsent) {
    const FileInfo info = files.Query(path);
    if (info.exists || info.outOfReach) return true;
  }
  if (WriteRows(files, path, rows.all, rows.most) != FileStatus::kOk) return false;
  known = FileKnown::kWhole;
  return true;
}

}  // namespace pnl
