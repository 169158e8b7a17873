// SPDX-License-Identifier: MIT
// The text of an open file, decoded piece by piece: what DecodeFile gives for the whole file, without holding it. Knows
// no lines; CStdioFileEx does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/encoding.h"
#include "base/files.h"

namespace pnl {

class TextReader {
 public:
  /// Without a byte order mark the whole file is looked through once, to tell UTF-8 from Latin-1.
  explicit TextReader(std::unique_ptr<FileReader> file);

  /// The text that is decoded and not yet taken; empty only at the end of the file, or when it can't be read further.
  [[nodiscard]] TextView Ahead();
  /// Takes units off the front of Ahead; count is at most its length.
  void Take(std::size_t count);
  /// How many units of text were taken since the start.
  [[nodiscard]] std::uint64_t Position() const { return position_; }
  /// Goes to that position; false, and the place stays, beyond the end.
  bool Seek(std::uint64_t position);
  /// Goes to the character that has that byte of the file; a byte of the mark is the text's start. False, and the place
  /// stays, beyond the end.
  bool SeekByte(std::uint64_t byte);
  /// The number of units in the file.
  [[nodiscard]] std::uint64_t Length();
  [[nodiscard]] Encoding FileEncoding() const { return mark_.encoding; }
  /// True once the disc refused something: the text is then only a part of the file.
  [[nodiscard]] bool ReadFailed() const { return readFailed_; }

 private:
  static constexpr std::size_t kPiece = 1u << 16;
  void Recognise();
  void Rewind();
  /// Reads one more piece of bytes behind those not yet decoded; false at the end and on a failure.
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
