// SPDX-License-Identifier: MIT
// Replacing a file of this machine whole, so that being killed at any instant leaves the old content or the new one.
// Works on paths of this machine; panel paths are base/files' business.
#pragma once

#include <string>
#include <string_view>

#include "base/file_status.h"

namespace pnl {

/// What a failed system call means to a tool, by its errno.
[[nodiscard]] FileStatus StatusOfError(int error);
/// True when the owner's write permission is set and this process may write: the superuser isn't above it.
[[nodiscard]] bool IsWritable(const std::string& hostPath, unsigned mode);
/// See Files::CanReplace.
[[nodiscard]] FileStatus CheckReplace(const std::string& hostPath);
/// See Files::Replace. Keeps the old file's mode and owner, and a symbolic link in its place. Takes temporary files
/// along that a killed process left behind for the same file.
[[nodiscard]] FileStatus ReplaceFile(const std::string& hostPath, const PieceSource& next);
[[nodiscard]] FileStatus ReplaceFile(const std::string& hostPath, std::string_view bytes);
/// These bytes, which must outlive it, and then the end.
[[nodiscard]] PieceSource OnePiece(std::string_view bytes);
/// See Files::MakeFolder, for a path that begins with root, the drive's own folder.
[[nodiscard]] FileStatus MakeFolders(const std::string& root, const std::string& hostPath);

}  // namespace pnl
