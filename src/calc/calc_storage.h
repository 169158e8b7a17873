// SPDX-License-Identifier: MIT
// The calculator's two files on the disc. "calc.htr" has the confirmed expressions, one in each line, the newest first.
// "Calc7340.ini" has the window's place and whether it is compact, in two copies: the user's (path id 108) and the
// machine's (path id 52). If a file can't be read, the list is empty or the settings are the defaults, and nothing is
// reported.
#pragma once

#include "base/files.h"
#include "base/row_file.h"
#include "base/text.h"
#include "base/text_rows.h"
#include "facade/utilities.h"

namespace pnl {

/// The file of confirmed expressions. If it couldn't be read completely by Load, or didn't exist then and does now,
/// Save puts only the new expressions in front of its rows.
class CalcHistory {
 public:
  static constexpr TextView kName = u"calc.htr";

  CalcHistory(Files& files, Utilities& utilities) : files_(files), utilities_(utilities) {}

  /// Returns the rows of the file in order, as far as they can be read.
  [[nodiscard]] TextRows Load();
  /// Notes an expression that was confirmed after Load. The caller puts it at the front of the list.
  void NoteAdded(TextView expression) {
    added_.push_front(expression);
    changed_ = true;
  }
  /// Stores the rows of the list. Without rows the file stays as it is. Returns false and leaves the file as it was if
  /// they can't be stored.
  [[nodiscard]] bool Save(const TextRows& rows);
  /// Notes that the list isn't what was stored last.
  void NoteChanged() { changed_ = true; }
  /// Stores the rows before the end if they have changed since they were stored. Without rows the file stays as it is.
  /// Returns false if they can't be stored.
  [[nodiscard]] bool StoreEarly(const TextRows& rows);

 private:
  [[nodiscard]] Text Path() const;

  Files& files_;
  Utilities& utilities_;
  FileKnown known_ = FileKnown::kUnknown;
  TextRows added_;
  bool changed_ = false;
};

struct CalcSettings {
  int left = 0;  // the place of the window in the client area of the parent
  int top = 0;
  bool minimized = false;
  friend bool operator==(const CalcSettings&, const CalcSettings&) = default;
};

inline constexpr TextView kCalcIniName = u"Calc7340.ini";

struct CalcSettingsRead {
  CalcSettings settings;
  /// Whether the user's copy couldn't be read and so may have other settings.
  bool usersUnknown = false;
};

/// Reads the settings from the user's copy, or from the machine's copy if the user's isn't found or its drive can't be
/// used. Returns defaults if that copy can't be read.
[[nodiscard]] CalcSettingsRead LoadCalcSettings(Files& files, Utilities& utilities);
/// Writes the settings into both copies, but not into the user's if its drive can't be written. Keeps everything else
/// in the files. Does not write a file that exists and can't be read. If the user's copy couldn't be read when the
/// settings were loaded, only those that have changed are written there. Returns false if the copy that is read first
/// couldn't be written.
[[nodiscard]] bool SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings,
                                    const CalcSettingsRead& loaded);

}  // namespace pnl
