// SPDX-License-Identifier: MIT
// A text file of rows, one per line, in which histories and lists are stored. Reading reports how much of the file is
// known. Storing depends on that: a file that exists now but wasn't read whole is never overwritten with the session's
// rows alone. The rows that the session added are put in front of it instead.
#pragma once

#include <cstdint>
#include <limits>

#include "base/files.h"
#include "base/text.h"
#include "base/text_rows.h"

namespace pnl {

/// What reading found out about a file.
enum class FileKnown {
  kWhole,    // it was read to its end or to the limit
  kAbsent,   // it doesn't exist
  kUnknown,  // it is out of reach, can't be read, or only a part of it could
};

struct RowsRead {
  FileKnown known = FileKnown::kUnknown;
  TextRows rows;            // as far as they could be read
  std::uint64_t bytes = 0;  // approximate size of what was read
};

inline constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

/// Reads the first rows of the file, at most `most` of them.
[[nodiscard]] RowsRead ReadRows(Files& files, TextView path, std::size_t most = kAllRows);
/// Replaces the file with the first rows, at most `most` of them, each ended by CR LF. A line break inside a row
/// becomes a blank.
[[nodiscard]] FileStatus WriteRows(Files& files, TextView path, const TextRows& rows, std::size_t most = kAllRows);

/// The rows of all that are in added, in the order that they have in all. Rows of added that were removed from all
/// since are left out.
[[nodiscard]] TextRows RowsOf(const TextRows& all, const TextRows& added);

/// The rows of a session that StoreRows is to store.
struct RowsToStore {
  const TextRows& all;
  /// The rows that the session added, in their order.
  const TextRows& added;
  std::size_t most = kAllRows;
  /// When true, a row of the file that equals a row of added is dropped.
  bool unique = false;
};
/// Stores the rows of a session, at most rows.most of them. If known is kWhole, or the file doesn't exist now, all rows
/// replace the file. Otherwise the added rows are put in front of the rows that the file has now; without added rows
/// the file stays as it is. On failure the file stays as it was. A file that still can't be read gives kOutOfReach,
/// kDenied or the failure that CanReplace reports.
[[nodiscard]] FileStatus StoreRows(Files& files, TextView path, FileKnown known, const RowsToStore& rows);

/// Stores the rows before the session ends and sets known to kWhole. Does nothing and returns true if the file wasn't
/// read whole, if another file is there now, or if the rows have more than mostBytes: StoreRows deals with these cases
/// when the session ends. Returns false if the file couldn't be written. The file is then as it was before.
[[nodiscard]] bool StoreRowsEarly(Files& files, TextView path, FileKnown& known, const RowsToStore& rows,
                                  std::uint64_t mostBytes);

}  // namespace pnl
