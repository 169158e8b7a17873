// SPDX-License-Identifier: MIT
// A text file that is read line by line or written whole. Written text is kept in memory until Close, which replaces
// the file at once: a panel that is killed before that leaves the old file. Reading decodes as DecodeFile does, piece
// by piece. Writing is in UTF-8 and adds no line endings.
#pragma once

#include <cstdint>
#include <memory>

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"

namespace pnl {

class CStdioFileEx {
 public:
  /// Flags of Open, in the combinations that the tools use. Flags with neither 0x1 nor 0x1000 open for reading. Writing
  /// without 0x1000 requires that the file exists.
  static constexpr unsigned kRead = 0x4000;             // text read
  static constexpr unsigned kCreate = 0x5001;           // text, create, write
  static constexpr unsigned kCreateExclusive = 0x1021;  // create, write, deny others' writes
  /// Origins of TCHAR_Seek.
  static constexpr int kBegin = 0;
  static constexpr int kCurrent = 1;
  static constexpr int kEnd = 2;

  explicit CStdioFileEx(Files& files) : files_(files) {}
  /// Closes. The result of Close is lost.
  ~CStdioFileEx();
  CStdioFileEx(const CStdioFileEx&) = delete;
  CStdioFileEx& operator=(const CStdioFileEx&) = delete;

  /// Closes what was open, then opens for reading, or for writing a file that is empty at first. Returns false when the
  /// file can't be opened that way. No file can be opened for reading and writing at once, or for appending.
  [[nodiscard]] bool Open(TextView panelPath, unsigned flags, int zero = 0);
  /// Reads one line into line, without its ending. LF, CR LF or a lone CR ends a line; NUL is an ordinary character.
  /// Returns false at the end of the file.
  bool ReadString(Text& line);
  /// Reads one line, or its first size - 1 units, into buffer and terminates it. The line's ending, if it was reached,
  /// becomes one line feed. Returns buffer; null at the end of the file or when size isn't positive, and buffer then
  /// stays as it was.
  char16_t* ReadString(char16_t* buffer, int size);
  /// Adds text as it is. Returns false when the file isn't open for writing.
  bool WriteString(TextView text);
  /// Moves in a file that is open for reading. offset counts 16-bit units of its text (CR LF counts as two). Returns
  /// the new position. Returns -1, with the position unchanged, when that is outside the file or the file isn't open
  /// for reading.
  std::int64_t TCHAR_Seek(std::int64_t offset, int origin);
  /// Moves to the character that contains that byte of a file open for reading. A byte of the byte order mark means the
  /// text's start. Returns false, with the position unchanged, when the byte is outside the file or the file isn't open
  /// for reading.
  bool SeekByte(std::int64_t byte);
  /// Stores what was written. Returns false when that failed; the file is then as it was before Open.
  bool Close();

  [[nodiscard]] bool IsOpen() const { return mode_ != Mode::kClosed; }
  /// True after a read failed: the lines read so far are then not all that the file has.
  [[nodiscard]] bool ReadFailed() const { return reader_ != nullptr && reader_->ReadFailed(); }
  /// False for a file that is read as Latin-1, and when nothing is open.
  [[nodiscard]] bool IsFileUnicodeText() const;
  /// Always false: no encrypted format is supported.
  [[nodiscard]] bool IsFileEncryptedText() const { return false; }
  /// Whether others may change the file while it is open here. False when it was opened with the flag that denies it.
  [[nodiscard]] bool IsFileModifiableByExt() const { return IsOpen() && !denyWrites_; }

 private:
  enum class Mode { kClosed, kReading, kWriting };
  bool OpenForWriting(TextView panelPath, bool create);
  /// After the CR of a CR LF was taken, takes its LF.
  void FinishEnding(char16_t ending);

  Files& files_;
  Mode mode_ = Mode::kClosed;
  bool denyWrites_ = false;
  Text path_;
  std::unique_ptr<TextReader> reader_;
  Text written_;
};

}  // namespace pnl
