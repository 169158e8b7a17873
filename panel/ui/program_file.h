// SPDX-License-Identifier: MIT
// Reads a program file for the editor and writes it back: which files may be read, in which encoding and with which
// line ends, and where a line begins in the file. Paths here are host paths. It knows no widget, and any thread may
// call it.
#pragma once

#include <pnltools/rig.h>

#include <QByteArray>
#include <QString>
#include <QStringConverter>
#include <functional>

namespace panel {

enum class FileOutcome { kDone, kCannotOpen, kCannotSave, kNotAText, kTooBig };

/// The layout of a text in its file. The default is what Save writes: UTF-8 without a mark, each line but the last
/// ended by carriage return and line feed.
struct ProgramLayout {
  QStringConverter::Encoding encoding = QStringConverter::Utf8;
  int markBytes = 0;
  /// The number of characters that end each line, in order. Empty when each line ends with two.
  QByteArray ends;

  [[nodiscard]] qint64 BytesOf(QStringView text) const;
  /// The number of bytes that end that line.
  [[nodiscard]] qint64 EndBytes(int line) const;
};

struct ProgramText {
  FileOutcome outcome = FileOutcome::kDone;
  QString text;  // lines end with \n, whether the file has \r\n, \n or \r
  ProgramLayout layout;
  qint64 bytes = 0;  // the size of the file; 0 when it couldn't be opened
};

/// What is known of a file that is still being read.
struct ReadNews {
  QString first;     // whole lines from its beginning; only in the first news
  qint64 bytes = 0;  // the size of the file
  int percent = 0;   // how much has been read
};
/// Takes the news. Returns false when the file isn't wanted any more.
using ReadTell = std::function<bool(ReadNews)>;

/// The editor keeps each line apart, which takes many times the size of the file.
inline constexpr qint64 kMostProgramBytes = 32LL * 1024 * 1024;
/// A file that is no bigger is read without news.
inline constexpr qint64 kFirstBytes = 64LL * 1024;
/// In characters. A longer line belongs to no program, and the editor would take minutes to draw it.
inline constexpr qsizetype kLongestProgramLine = 100'000;

/// Reads a file. A byte order mark decides the encoding; without one it is UTF-8 if the bytes are valid, else Latin-1.
/// A file with a NUL or with a line that is too long is not a text. The news of a big file tell its first page before
/// the rest is read. Once tell returns false, reading ends and the result means nothing.
[[nodiscard]] ProgramText ReadProgram(const QString& path, const ReadTell& tell = {});
/// Does the same with the bytes of a file of the network, which come at once. A file that is too big reads as one byte
/// bigger than it may be.
[[nodiscard]] ProgramText ReadProgram(const pnl::rig::Rig::FileStart& file);
/// The line, counted from 0, in which a byte of the program's file lies. The first line for a negative position, the
/// last one for a position past the end.
[[nodiscard]] int LineAt(const ProgramText& program, qint64 position);
/// Replaces the whole file, in the default ProgramLayout. The lines of text end with \n or a paragraph separator. On
/// failure the old file stays.
[[nodiscard]] FileOutcome WriteProgram(const pnl::rig::Storage& storage, const QString& path, const QString& text);

}  // namespace panel
