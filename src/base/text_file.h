// SPDX-License-Identifier: MIT
// A text file, read line by line or written whole. Written text is kept until Close and then replaces the file at once,
// so that a panel killed in between leaves the old file. Reading follows DecodeFile, piece by piece; writing is UTF-8
// and adds no line endings of its own.
#pragma once

#include <cstdint>
#include <memory>

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"

namespace pnl {

class CStdioFileEx {
 public:
  /// Flags of Open, as the tools combine them. What has neither 0x1 nor 0x1000 reads. Writing without 0x1000 wants the
  /// file to be there.
  static constexpr unsigned kRead = 0x4000;             // text read
  static constexpr unsigned kCreate = 0x5001;           // text, create, write
  static constexpr unsigned kCreateExclusive = 0x1021;  // create, write, deny others' writes
  /// Origins of TCHAR_Seek.
  static constexpr int kBegin = 0;
  static constexpr int kCurrent = 1;
  static constexpr int kEnd = 2;

  explicit CStdioFileEx(Files& files) : files_(files) {}
  /// Closes; what Close would have told is lost.
  ~CStdioFileEx();
  CStdioFileEx(const CStdioFileEx&) = delete;
  CStdioFileEx& operator=(const CStdioFileEx&) = delete;

  /// Opens for reading, or for writing an initially empty file. False when the file can't be opened that way; for
  /// reading and writing at once, or for writing behind what is there, none can. Closes what was open.
  [[nodiscard]] bool Open(TextView panelPath, unsigned flags, int zero = 0);
  /// Gives one line without its ending (LF, CR LF or a lone CR ends a line; NUL is an ordinary character). False at
  /// the end of the file.
  bool ReadString(Text& line);
  /// Puts a line, or as much of it as size - 1 units hold, into buffer, terminated. Its ending, if it was reached, is
  /// one line feed, whichever it is in the file. Null at the end of the file, or when size is not positive; buffer then
  /// stays as it was.
  char16_t* ReadString(char16_t* buffer, int size);
  /// Takes text as it is. False when the file isn't open for writing.
  bool WriteString(TextView text);
  /// Moves in a file being read, by 16-bit units of its text (CR LF counts as two). The new position, or -1 with the
  /// place unchanged when it lies outside the file or the file isn't being read.
  std::int64_t TCHAR_Seek(std::int64_t offset, int origin);
  /// Goes to the character that has that byte of the file being read; a byte of the mark is the text's start. False,
  /// with the place unchanged, when it lies outside the file or the file isn't being read.
  bool SeekByte(std::int64_t byte);
  /// Stores what was written. False when that failed; the file is then as it was before Open.
  bool Close();

  [[nodiscard]] bool IsOpen() const { return mode_ != Mode::kClosed; }
  /// True once the file being read couldn't be read further: the lines that it gave are then not all that it has.
  [[nodiscard]] bool ReadFailed() const { return reader_ != nullptr && reader_->ReadFailed(); }
  /// False for a file being read as Latin-1 and when nothing is open.
  [[nodiscard]] bool IsFileUnicodeText() const;
  /// No encrypted format is known here, so never.
  [[nodiscard]] bool IsFileEncryptedText() const { return false; }
  /// May others change the file while it is open here? Not when it was opened to deny that.
  [[nodiscard]] bool IsFileModifiableByExt() const { return IsOpen() && !denyWrites_; }

 private:
  enum class Mode { kClosed, kReading, kWriting };
  bool OpenForWriting(TextView panelPath, bool create);
  /// Takes the LF of a CR LF whose CR has just been taken.
  void FinishEnding(char16_t ending);

  Files& files_;
  Mode mode_ = Mode::kClosed;
  bool denyWrites_ = false;
  Text path_;
  std::unique_ptr<TextReader> reader_;
  Text written_;
};

}  // namespace pnl
