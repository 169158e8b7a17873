// SPDX-License-Identifier: MIT
// The calculator's two files on the disc. "calc.htr" has the confirmed expressions, one a line, newest first.
// "Calc7340.ini" has the window's place and whether it is compact, in two copies: the user's (path id 108) and the
// machine's (path id 52). What can't be read is an empty list or the default, silently.
#pragma once

#include "base/files.h"
#include "base/row_file.h"
#include "base/text.h"
#include "base/text_rows.h"
#include "facade/utilities.h"

namespace pnl {

/// A file that was out of reach when it was loaded, or that came into being since, gets the new expressions in front.
class CalcHistory {
 public:
  static constexpr TextView kName = u"calc.htr";

  CalcHistory(Files& files, Utilities& utilities) : files_(files), utilities_(utilities) {}

  /// The rows of the file in order, as far as they can be read.
  [[nodiscard]] TextRows Load();
  /// This expression was confirmed since Load; its row is the list's first one.
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

struct CalcSettings {
  int left = 0;  // of the window, in the parent's client area
  int top = 0;
  bool minimized = false;
  friend bool operator==(const CalcSettings&, const CalcSettings&) = default;
};

inline constexpr TextView kCalcIniName = u"Calc7340.ini";

struct CalcSettingsRead {
  CalcSettings settings;
  /// The user's copy couldn't be looked at, so that it may hold others.
  bool usersUnknown = false;
};

/// From the user's copy, while its drive can be used and it is there, else from the machine's; defaults without one.
[[nodiscard]] CalcSettingsRead LoadCalcSettings(Files& files, Utilities& utilities);
/// Into both copies, the user's unless its drive can't be written. Everything else in the files stays, and so does a
/// file that is there but can't be read. A setting that is as it was loaded isn't written over the user's copy if that
/// couldn't be looked at then. False when the copy that will be read first couldn't be written.
[[nodiscard]] bool SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings,
                                    const CalcSettingsRead& loaded);

}  // namespace pnl
