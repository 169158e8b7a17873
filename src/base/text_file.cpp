// SPDX-License-Identifier: MIT
#include "base/text_file.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace pnl {
namespace {

constexpr unsigned kWriteBit = 0x1;
constexpr unsigned kReadWriteBit = 0x2;
constexpr unsigned kDenyWriteBit = 0x20;
constexpr unsigned kCreateBit = 0x1000;
constexpr unsigned kKeepContentBit = 0x2000;

bool IsLineEnd(char16_t c) { return c == u'\n' || c == u'\r'; }

}  // namespace

CStdioFileEx::~CStdioFileEx() { Close(); }

bool CStdioFileEx::Open(TextView panelPath, unsigned flags, int /*zero*/) {
  Close();
  if ((flags & (kReadWriteBit | kKeepContentBit)) != 0) return false;
  if ((flags & (kWriteBit | kCreateBit)) != 0) {
    if (!OpenForWriting(panelPath, (flags & kCreateBit) != 0)) return false;
  } else {
    auto file = files_.OpenRead(panelPath);
    if (!file) return false;
    reader_ = std::make_unique<TextReader>(std::move(file));
    mode_ = Mode::kReading;
  }
  denyWrites_ = (flags & kDenyWriteBit) != 0;
  return true;
}

bool CStdioFileEx::OpenForWriting(TextView panelPath, bool create) {
  if (!create && !files_.Query(panelPath).exists) return false;
  if (files_.CanReplace(panelPath) != FileStatus::kOk) return false;
  path_ = panelPath;
  mode_ = Mode::kWriting;
  return true;
}

bool CStdioFileEx::ReadString(Text& line) {
  line.clear();
  if (mode_ != Mode::kReading) return false;
  bool any = false;
  for (TextView ahead = reader_->Ahead(); !ahead.empty(); ahead = reader_->Ahead()) {
    any = true;
    const auto end = static_cast<std::size_t>(std::find_if(ahead.begin(), ahead.end(), IsLineEnd) - ahead.begin());
    line += ahead.substr(0, end);
    const char16_t ending = end < ahead.size() ? ahead[end] : u'\0';
    reader_->Take(std::min(end + 1, ahead.size()));
    if (ending == u'\0') continue;
    FinishEnding(ending);
    break;
  }
  return any;
}

char16_t* CStdioFileEx::ReadString(char16_t* buffer, int size) {
  if (mode_ != Mode::kReading || size <= 0) return nullptr;
  const auto room = static_cast<std::size_t>(size) - 1;
  std::size_t used = 0;
  bool atEnd = false;
  while (used < room) {
    const TextView ahead = reader_->Ahead();
    atEnd = ahead.empty();
    if (atEnd) break;
    const char16_t c = ahead[0];
    reader_->Take(1);
    buffer[used++] = IsLineEnd(c) ? u'\n' : c;
    if (!IsLineEnd(c)) continue;
    FinishEnding(c);
    break;
  }
  if (used == 0 && atEnd) return nullptr;
  buffer[used] = u'\0';
  return buffer;
}

void CStdioFileEx::FinishEnding(char16_t ending) {
  if (ending != u'\r') return;
  const TextView ahead = reader_->Ahead();
  if (!ahead.empty() && ahead[0] == u'\n') reader_->Take(1);
}

bool CStdioFileEx::WriteString(TextView text) {
  if (mode_ != Mode::kWriting) return false;
  written_ += text;
  return true;
}

std::int64_t CStdioFileEx::TCHAR_Seek(std::int64_t offset, int origin) {
  if (mode_ != Mode::kReading || origin < kBegin || origin > kEnd) return -1;
  std::uint64_t base = 0;
  if (origin == kCurrent) base = reader_->Position();
  if (origin == kEnd) base = reader_->Length();
  // Unsigned arithmetic can't overflow: a target before the start becomes a number far beyond any end.
  const std::uint64_t target = base + static_cast<std::uint64_t>(offset);
  if (target > static_cast<std::uint64_t>(INT64_MAX) || !reader_->Seek(target)) return -1;
  return static_cast<std::int64_t>(target);
}

bool CStdioFileEx::SeekByte(std::int64_t byte) {
  return mode_ == Mode::kReading && byte >= 0 && reader_->SeekByte(static_cast<std::uint64_t>(byte));
}

bool CStdioFileEx::Close() {
  const Mode mode = std::exchange(mode_, Mode::kClosed);
  reader_.reset();
  const Text written = std::exchange(written_, {});
  if (mode != Mode::kWriting) return true;
  return files_.Replace(path_, ToUtf8(written)) == FileStatus::kOk;
}

bool CStdioFileEx::IsFileUnicodeText() const {
  if (mode_ == Mode::kReading) return reader_->FileEncoding() != Encoding::kLatin1;
  return mode_ == Mode::kWriting;
}

}  // namespace pnl
