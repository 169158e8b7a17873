// SPDX-License-Identifier: MIT
// Reads any bytes as a history file, in pieces whose size is the first byte. The lines must be those of the text that
// DecodeFile gives for all bytes. Reading into a buffer and seeking must agree with them, and written lines must come
// back.
#include <algorithm>
#include <vector>

#include "base/text_file.h"
#include "fuzz_check.h"
#include "support/memory_files.h"

namespace {

using pnl::CStdioFileEx;
using pnl::Text;
using pnl::TextView;

/// The lines by their rule, computed the plainest way. Each one with an ending has a line feed.
std::vector<Text> LinesOf(const Text& text) {
  std::vector<Text> lines(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\n' && text[i] != u'\r') {
      lines.back() += text[i];
      continue;
    }
    if (text.substr(i, 2) == u"\r\n") ++i;
    lines.back() += u'\n';
    lines.emplace_back();
  }
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

void CheckBuffers(CStdioFileEx& file, const std::vector<Text>& lines, int size) {
  std::vector<char16_t> buffer(static_cast<std::size_t>(size));
  Text all;
  for (const Text& line : lines) all += line;
  Text read;
  while (read.size() < all.size()) {
    FUZZ_CHECK(file.ReadString(buffer.data(), size) == buffer.data());
    // A NUL in the text hides the rest of the buffer, so the true position is computed below.
    const TextView seen(buffer.data());
    FUZZ_CHECK(seen.size() < buffer.size());
    FUZZ_CHECK(TextView(all).substr(read.size()).starts_with(seen));
    const std::size_t most = std::min(buffer.size() - 1, all.size() - read.size());
    const std::size_t end = all.find(u'\n', read.size());
    read = all.substr(0, std::min(read.size() + most, end == Text::npos ? all.size() : end + 1));
  }
  FUZZ_CHECK(file.ReadString(buffer.data(), size) == nullptr);
}

void CheckSeeks(CStdioFileEx& file, const Text& text) {
  const auto length = static_cast<std::int64_t>(text.size());
  FUZZ_CHECK(file.TCHAR_Seek(0, CStdioFileEx::kEnd) == length);
  FUZZ_CHECK(file.TCHAR_Seek(1, CStdioFileEx::kCurrent) == -1);
  FUZZ_CHECK(file.TCHAR_Seek(length / 2, CStdioFileEx::kBegin) == length / 2);
  Text line;
  const bool any = file.ReadString(line);
  const auto rest = LinesOf(text.substr(text.size() / 2));
  FUZZ_CHECK(any == !rest.empty());
  if (any) FUZZ_CHECK(line + u'\n' == rest[0] || line == rest[0]);
  FUZZ_CHECK(file.TCHAR_Seek(0, CStdioFileEx::kBegin) == 0);
}

void CheckWriting(pnl::test::MemoryFiles& files, const std::vector<Text>& lines) {
  CStdioFileEx file(files);
  FUZZ_CHECK(file.Open(u"C:\\b", CStdioFileEx::kCreate));
  std::string expected;
  for (const Text& line : lines) {
    FUZZ_CHECK(file.WriteString(line));
    expected += pnl::ToUtf8(line);
  }
  FUZZ_CHECK(file.Close());
  // There is a line feed between two lines, so no surrogate pair is split.
  FUZZ_CHECK(files.disc["C:\\b"] == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  pnl::test::MemoryFiles files;
  files.piece = std::size_t{1} + data[0];
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  files.disc["C:\\a"] = bytes;
  const Text text = pnl::DecodeFile(bytes);
  const auto lines = LinesOf(text);

  CStdioFileEx file(files);
  FUZZ_CHECK(file.Open(u"C:\\a", CStdioFileEx::kRead));
  Text line;
  for (const Text& expected : lines) {
    FUZZ_CHECK(file.ReadString(line));
    FUZZ_CHECK(line == (expected.ends_with(u'\n') ? expected.substr(0, expected.size() - 1) : expected));
  }
  FUZZ_CHECK(!file.ReadString(line));
  CheckSeeks(file, text);
  CheckBuffers(file, lines, 2 + data[0] % 9);
  CheckWriting(files, lines);
  return 0;
}
