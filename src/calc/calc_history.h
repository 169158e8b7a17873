// SPDX-License-Identifier: MIT
// The file of confirmed expressions: one a line, newest first. Failures are silent: what can't be read is an empty
// list, what can't be written leaves the file as it was.
#pragma once

#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"

namespace pnl {

class CalcHistory {
 public:
  CalcHistory(Files& files, Utilities& utilities) : files_(files), utilities_(utilities) {}

  /// The rows of the file in order, as far as they can be read.
  [[nodiscard]] std::vector<Text> Load();
  /// Replaces the file. Without rows it stays as it is, and so does a file that Load couldn't read to its end.
  void Save(const std::vector<Text>& rows) const;

 private:
  [[nodiscard]] Text Path() const;

  Files& files_;
  Utilities& utilities_;
  bool unreadable_ = false;
};

}  // namespace pnl
