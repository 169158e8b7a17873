// SPDX-License-Identifier: MIT
// The text of an open file, decoded piece by piece: the same text that DecodeFile gives for the whole file, but never
// in memory whole. Knows nothing of lines, which are CStdioFileEx's task.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/encoding.h"
#include "base/files.h"

namespace pnl {

class TextReader {
 public:
  /// If there is no byte order mark, the file is read once, to its end or to the first bytes that aren't UTF-8, to find
  /// out whether it is UTF-8 or Latin-1.
  explicit TextReader(std::unique_ptr<FileReader> file);

  /// The text that is decoded and not yet taken. Empty only at the end of the file or after a failed read.
  [[nodiscard]] TextView Ahead();
  /// Removes units from the front of Ahead. count must not exceed its length.
  void Take(std::size_t count);
  /// The position in units of text from the start.
  [[nodiscard]] std::uint64_t Position() const { return position_; }
  /// Moves to that position. Returns false, with the position unchanged, when it is beyond the end.
  bool Seek(std::uint64_t position);
  /// Moves to the character that contains that byte of the file. A byte of the byte order mark means the text's start.
  /// Returns false, with the position unchanged, when it is beyond the end.
  bool SeekByte(std::uint64_t byte);
  /// The number of units in the file.
  [[nodiscard]] std::uint64_t Length();
  [[nodiscard]] Encoding FileEncoding() const { return mark_.encoding; }
  /// True after the disc refused something: the text is then only a part of the file.
  [[nodiscard]] bool ReadFailed() const { return readFailed_; }

 private:
  static constexpr std::size_t kPiece = 1u << 16;
  void Recognise();
  void Rewind();
  /// Reads one more piece and appends it to the bytes not yet decoded. Returns false at the end and on a failure.
  bool Fill(std::size_t most = kPiece);
  bool Skip(std::uint64_t units);

  std::unique_ptr<FileReader> file_;
  EncodingMark mark_;
  std::string bytes_;  // read, not yet decoded
  Text units_;         // decoded
  std::size_t taken_ = 0;
  std::uint64_t position_ = 0;
  bool readFailed_ = false;
};

}  // namespace pnl
