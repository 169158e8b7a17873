// SPDX-License-Identifier: MIT
// A text file of rows, one a line: what histories and lists are stored in. Reading says how much it can vouch for, and
// storing keeps to that: a file that wasn't read, or wasn't there, is never written over with what a session happens to
// hold; the session's own rows are put in front of it instead.
#pragma once

#include <cstdint>
#include <limits>

#include "base/files.h"
#include "base/text.h"
#include "base/text_rows.h"

namespace pnl {

/// What was learnt of a file.
enum class FileKnown {
  kWhole,    // it was read, to its end or to the limit
  kAbsent,   // it doesn't exist
  kUnknown,  // it is out of reach, can't be read, or only a part of it could
};

struct RowsRead {
  FileKnown known = FileKnown::kUnknown;
  TextRows rows;            // as far as they could be read
  std::uint64_t bytes = 0;  // of what was read, about
};

inline constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

/// The first rows of the file, at most so many.
[[nodiscard]] RowsRead ReadRows(Files& files, TextView path, std::size_t most = kAllRows);
/// Replaces the file with the first rows, at most so many, each ended by CR LF. A line break in a row becomes a blank.
[[nodiscard]] FileStatus WriteRows(Files& files, TextView path, const TextRows& rows, std::size_t most = kAllRows);

/// Those of all rows that the session brought in, in their order among them. A row that it brought in may be gone
/// again.
[[nodiscard]] TextRows RowsOf(const TextRows& all, const TextRows& added);

/// The rows of a session on their way to the disc.
struct RowsToStore {
  const TextRows& all;
  /// Those that the session brought in, in their order.
  const TextRows& added;
  std::size_t most = kAllRows;
  /// A row that the session brought in takes equal ones behind it away.
  bool unique = false;
};
/// Replaces the file with all rows if the session had it whole, or if it doesn't exist now. Else the rows that the
/// session brought in come in front of those found there now; without any the file stays as it is. A failure leaves the
/// file as it was: one that still can't be read is kOutOfReach or kDenied.
[[nodiscard]] FileStatus StoreRows(Files& files, TextView path, FileKnown known, const RowsToStore& rows);

}  // namespace pnl
