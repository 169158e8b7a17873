// SPDX-License-Identifier: MIT
// The result of an operation on a file, and the source of a content that is written piece by piece.
#pragma once

#include <functional>
#include <string_view>

namespace pnl {

enum class FileStatus {
  kOk,
  kNotFound,    // its folder was searched: nothing in it has that name
  kOutOfReach,  // it can't be found out what is there: see FileInfo
  kDenied,
  kIsFolder,
  kDiscFull,
  kFailed
};

/// Returns the next piece of a content; an empty piece marks the end. A piece is valid until the next call.
using PieceSource = std::function<std::string_view()>;

}  // namespace pnl
