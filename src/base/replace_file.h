// SPDX-License-Identifier: MIT
// Replaces a file of this machine whole: a process killed at any instant leaves the old content or the new one. Works
// on paths of this machine; base/files turns panel paths into these.
#pragma once

#include <string>
#include <string_view>

#include "base/file_status.h"

namespace pnl {

/// The status that an errno value means to a tool.
[[nodiscard]] FileStatus StatusOfError(int error);
/// True when the owner's write permission is set and this process may write. The permission binds the superuser too.
[[nodiscard]] bool IsWritable(const std::string& hostPath, unsigned mode);
/// See Files::CanReplace.
[[nodiscard]] FileStatus CheckReplace(const std::string& hostPath);
/// See Files::Replace. Keeps the old file's mode and owner. Keeps a symbolic link and replaces the file to which it
/// leads. Also removes temporary files that a killed process left for the same file.
[[nodiscard]] FileStatus ReplaceFile(const std::string& hostPath, const PieceSource& next);
[[nodiscard]] FileStatus ReplaceFile(const std::string& hostPath, std::string_view bytes);
/// A source with these bytes as its only piece. The bytes must outlive it.
[[nodiscard]] PieceSource OnePiece(std::string_view bytes);
/// See Files::MakeFolder, for a path that begins with root, the drive's own folder.
[[nodiscard]] FileStatus MakeFolders(const std::string& root, const std::string& hostPath);

}  // namespace pnl
