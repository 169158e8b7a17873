// SPDX-License-Identifier: MIT
#include "places/mount_table.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/descriptor.h"

namespace pnl {
namespace {

/// The place of a line's folder among its words.
constexpr int kFolderWord = 4;

bool IsOctal(char c) { return c >= '0' && c <= '7'; }

/// The table writes a blank, a tab, a line break and a backslash as a backslash and three octal digits.
std::string Unescaped(std::string_view word) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const bool escape =
        word[i] == '\\' && i + 3 < word.size() && IsOctal(word[i + 1]) && IsOctal(word[i + 2]) && IsOctal(word[i + 3]);
    if (!escape) {
      text += word[i];
      continue;
    }
    text += static_cast<char>((word[i + 1] - '0') * 64 + (word[i + 2] - '0') * 8 + (word[i + 3] - '0'));
    i += 3;
  }
  return text;
}

std::string_view WordOf(std::string_view line, int number) {
  for (int word = 0; word < number; ++word) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return {};
    line.remove_prefix(blank + 1);
  }
  return line.substr(0, line.find(' '));
}

}  // namespace

MountedFolders ParseMountTable(std::string_view bytes) {
  MountedFolders folders;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    const std::string_view folder = WordOf(bytes.substr(0, end), kFolderWord);
    if (folder.starts_with('/')) folders.insert(Unescaped(folder));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return folders;
}

MountedFolders ReadMountTable() {
  const Descriptor table(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
  if (!table) return {};
  std::string bytes;
  std::array<char, 4096> part{};
  for (;;) {
    const ssize_t count = read(table.Get(), part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    bytes.append(part.data(), static_cast<std::size_t>(count));
  }
  return ParseMountTable(bytes);
}

}  // namespace pnl
