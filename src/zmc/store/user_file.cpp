// SPDX-License-Identifier: MIT
#include "zmc/store/user_file.h"

#include <string>

namespace pnl {
namespace {

constexpr TextView kEmptyFile =
    u"<CondicionesCorte><MaterialesDefinition></MaterialesDefinition><Operaciones></Operaciones></CondicionesCorte>";

/// The only file that is written in 16-bit characters, without a byte order mark: low byte first.
std::string EmptyFileBytes() {
  std::string bytes;
  for (const char16_t c : kEmptyFile) {
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
  }
  return bytes;
}

}  // namespace

FileStatus EnsureUserFile(Files& files, TextView userPath) {
  if (files.Query(userPath).exists) return FileStatus::kOk;
  const std::size_t slash = userPath.rfind(u'\\');
  if (slash == TextView::npos) return FileStatus::kFailed;
  const FileStatus made = files.MakeFolder(userPath.substr(0, slash));
  if (made != FileStatus::kOk) return made;
  // Asked again: without its folder nobody knew, and the disc may be back only now.
  const FileInfo info = files.Query(userPath);
  if (info.exists) return FileStatus::kOk;
  if (info.outOfReach) return FileStatus::kOutOfReach;
  return files.Replace(userPath, EmptyFileBytes());
}

}  // namespace pnl
