// SPDX-License-Identifier: MIT
// A program file on its way into the editor and back: what may be read, in which encoding and with which line ends, and
// a replacement that leaves the old file or the new one. Paths here are this machine's; it knows no widget.
#pragma once

#include <QString>

namespace panel {

enum class FileOutcome { kDone, kCannotOpen, kCannotSave, kNotAText, kTooBig };

struct ProgramText {
  FileOutcome outcome = FileOutcome::kDone;
  QString text;                  // lines end with \n
  bool carriageReturns = false;  // the file's lines end with \r\n
};

inline constexpr qint64 kMostProgramBytes = 32LL * 1024 * 1024;

/// A byte order mark decides the encoding, else UTF-8 if it is that, else Latin-1. A file with a NUL is no text.
[[nodiscard]] ProgramText ReadProgram(const QString& path);
/// Writes UTF-8 beside the file, then renames it over the old one. On failure the old file stays.
[[nodiscard]] FileOutcome WriteProgram(const QString& path, const QString& text, bool carriageReturns);

}  // namespace panel
