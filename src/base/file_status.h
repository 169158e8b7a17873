// SPDX-License-Identifier: MIT
// How an operation on a file ended, and how a content comes that is written piece by piece.
#pragma once

#include <functional>
#include <string_view>

namespace pnl {

enum class FileStatus {
  kOk,
  kNotFound,    // its folder was looked through: nothing in it has that name
  kOutOfReach,  // nobody can say what is there: see FileInfo
  kDenied,
  kIsFolder,
  kDiscFull,
  kFailed
};

/// Gives a content piece by piece; an empty piece is its end. What it gave last is valid until it is asked again.
using PieceSource = std::function<std::string_view()>;

}  // namespace pnl
