// SPDX-License-Identifier: MIT
#include "base/text_reader.h"

#include <algorithm>

namespace pnl {

TextReader::TextReader(std::unique_ptr<FileReader> file) : file_(std::move(file)) {
  Recognise();
  Rewind();
}

TextView TextReader::Ahead() {
  while (taken_ == units_.size()) {
    const bool more = Fill();
    units_.clear();
    taken_ = 0;
    bytes_.erase(0, Decode(mark_.encoding, bytes_, !more, units_));
    if (!more) break;
  }
  return TextView(units_).substr(taken_);
}

void TextReader::Take(std::size_t count) {
  taken_ += count;
  position_ += count;
}

bool TextReader::Seek(std::uint64_t position) {
  const std::uint64_t old = position_;
  if (position < old) Rewind();
  if (Skip(position - position_)) return true;
  Rewind();
  Skip(old);
  return false;
}

bool TextReader::SeekByte(std::uint64_t byte) {
  const std::uint64_t old = position_;
  Rewind();
  // The text before the byte is decoded, so that the position is known in units too.
  for (std::uint64_t left = byte - std::min<std::uint64_t>(byte, mark_.length); left != 0;) {
    const std::size_t before = bytes_.size();
    if (!Fill(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, left)))) {
      Rewind();
      Skip(old);
      return false;
    }
    left -= bytes_.size() - before;
    units_.clear();
    bytes_.erase(0, Decode(mark_.encoding, bytes_, false, units_));
    position_ += units_.size();
  }
  if (mark_.encoding == Encoding::kUtf8) {
    // Decode may have kept back the last bytes although they are whole characters.
    const std::size_t whole = ValidUtf8Prefix(bytes_);
    units_.clear();
    Decode(mark_.encoding, std::string_view(bytes_).substr(0, whole), true, units_);
    bytes_.erase(0, whole);
    position_ += units_.size();
  }
  units_.clear();
  return true;
}

std::uint64_t TextReader::Length() {
  const std::uint64_t old = position_;
  while (!Ahead().empty()) Take(Ahead().size());
  const std::uint64_t length = position_;
  Rewind();
  Skip(old);
  return length;
}

void TextReader::Recognise() {
  while (bytes_.size() < 3 && Fill()) {
  }
  if (const auto mark = MarkOf(bytes_)) {
    mark_ = *mark;
    return;
  }
  bool more = true;
  while (more) {
    const std::size_t valid = ValidUtf8Prefix(bytes_);
    const std::size_t left = bytes_.size() - valid;
    bytes_.erase(0, valid);
    // Up to three bytes may begin a sequence that the next piece completes.
    if (left > 3) break;
    more = Fill();
  }
  mark_.encoding = bytes_.empty() ? Encoding::kUtf8 : Encoding::kLatin1;
}

void TextReader::Rewind() {
  if (!file_->Seek(mark_.length)) readFailed_ = true;
  bytes_.clear();
  units_.clear();
  taken_ = 0;
  position_ = 0;
}

bool TextReader::Fill(std::size_t most) {
  const std::size_t old = bytes_.size();
  bytes_.resize(old + most);
  const std::int64_t got = file_->Read(bytes_.data() + old, most);
  if (got < 0) readFailed_ = true;
  bytes_.resize(old + static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
  return got > 0;
}

bool TextReader::Skip(std::uint64_t units) {
  while (units != 0) {
    const std::size_t ahead = Ahead().size();
    if (ahead == 0) return false;
    const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(ahead, units));
    Take(step);
    units -= step;
  }
  return true;
}

}  // namespace pnl
