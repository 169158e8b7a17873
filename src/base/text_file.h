// SPDX-License-Identifier: MIT
// A text file, read line by line or written whole. Written text is kept until Close and then replaces the file at once,
// so that a panel killed in between leaves the old file. Reading follows DecodeFile; writing is UTF-8 and adds no line
// endings of its own.
#pragma once

#include <cstdint>
#include <string>

#include "base/files.h"
#include "base/text.h"

namespace pnl {

class CStdioFileEx {
 public:
  /// Flags of Open, as the tools combine them.
  static constexpr unsigned kRead = 0x4000;             // text read
  static constexpr unsigned kCreate = 0x5001;           // text, create, write
  static constexpr unsigned kCreateExclusive = 0x1021;  // create, write, deny others' writes

  explicit CStdioFileEx(Files& files) : files_(files) {}
  /// Closes; what Close would have told is lost.
  ~CStdioFileEx();
  CStdioFileEx(const CStdioFileEx&) = delete;
  CStdioFileEx& operator=(const CStdioFileEx&) = delete;

  /// Opens for reading, or for writing an initially empty file. False when the file can't be opened that way.
  [[nodiscard]] bool Open(TextView panelPath, unsigned flags, int zero = 0);
  /// Gives one line without its ending (LF, CR LF or a lone CR ends a line; NUL is an ordinary character). False at
  /// the end of the file.
  bool ReadString(Text& line);
  /// Takes text as it is. False when the file isn't open for writing.
  bool WriteString(TextView text);
  /// Stores what was written. False when that failed; the file is then as it was before Open.
  bool Close();
  [[nodiscard]] bool IsOpen() const { return mode_ != Mode::kClosed; }

 private:
  enum class Mode { kClosed, kReading, kWriting };
  Files& files_;
  Mode mode_ = Mode::kClosed;
  Text path_;
  Text content_;              // decoded text being read
  std::size_t position_ = 0;  // in content_
  std::string written_;
};

}  // namespace pnl
