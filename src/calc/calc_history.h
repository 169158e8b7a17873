// SPDX-License-Identifier: MIT
// The file of confirmed expressions: one a line, newest first. What can't be read is an empty list, silently. A file
// that was out of reach when it was loaded, or that came into being since, gets the session's expressions in front.
#pragma once

#include "base/files.h"
#include "base/row_file.h"
#include "base/text.h"
#include "base/text_rows.h"
#include "facade/utilities.h"

namespace pnl {

class CalcHistory {
 public:
  static constexpr TextView kName = u"calc.htr";

  CalcHistory(Files& files, Utilities& utilities) : files_(files), utilities_(utilities) {}

  /// The rows of the file in order, as far as they can be read.
  [[nodiscard]] TextRows Load();
  /// The session confirmed this expression; its row is the list's first one.
  void NoteAdded(TextView expression) { added_.push_front(expression); }
  /// Stores the rows that the list has now; without any the file stays as it is. False when they couldn't be stored:
  /// the file is then as it was.
  [[nodiscard]] bool Save(const TextRows& rows);

 private:
  [[nodiscard]] Text Path() const;

  Files& files_;
  Utilities& utilities_;
  FileKnown known_ = FileKnown::kUnknown;
  TextRows added_;
};

}  // namespace pnl
