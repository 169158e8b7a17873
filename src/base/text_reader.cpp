// SPDX-License-Identifier: MIT
#include "base/text_reader.h"

#include <algorithm>

namespace pnl {
namespace {
constexpr std::size_t kPiece = 1u << 16;
}

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
    // Up to three bytes may be the beginning of a sequence that the next piece completes.
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

bool TextReader::Fill() {
  const std::size_t old = bytes_.size();
  bytes_.resize(old + kPiece);
  const std::int64_t got = file_->Read(bytes_.data() + old, kPiece);
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
