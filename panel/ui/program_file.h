// SPDX-License-Identifier: MIT
// A program file on its way into the editor and back: what may be read, in which encoding and with which line ends, and
// where a line begins in its bytes. Paths here are this machine's. It knows no widget, and any thread may call it.
#pragma once

#include <pnltools/rig.h>

#include <QByteArray>
#include <QString>
#include <QStringConverter>

namespace panel {

enum class FileOutcome { kDone, kCannotOpen, kCannotSave, kNotAText, kTooBig };

/// How a text lies in its file.
struct ProgramLayout {
  /// What Save makes: UTF-8 without a mark, each line but the last ended by carriage return and line feed.
  QStringConverter::Encoding encoding = QStringConverter::Utf8;
  int markBytes = 0;
  /// How many characters end each line, in order, where not all have two.
  QByteArray ends;

  [[nodiscard]] qint64 BytesOf(QStringView text) const;
  /// Bytes of the end of a line.
  [[nodiscard]] qint64 EndBytes(int line) const;
};

struct ProgramText {
  FileOutcome outcome = FileOutcome::kDone;
  QString text;  // lines end with \n, whatever ended them in the file: \r\n, \n or \r
  ProgramLayout layout;
};

inline constexpr qint64 kMostProgramBytes = 32LL * 1024 * 1024;
/// A line that is longer belongs to no program, and would take the editor minutes to draw.
inline constexpr qsizetype kLongestProgramLine = 100'000;

/// A byte order mark decides the encoding, else UTF-8 if it is that, else Latin-1. A file with a NUL, or with a line
/// that is too long, is no text.
[[nodiscard]] ProgramText ReadProgram(const QString& path);
/// Replaces the file whole, in the layout that ProgramLayout has at first. text: its lines end with \n or a paragraph
/// separator. On failure the old file stays.
[[nodiscard]] FileOutcome WriteProgram(const pnl::rig::Storage& storage, const QString& path, const QString& text);

}  // namespace panel
