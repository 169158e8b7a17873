// SPDX-License-Identifier: MIT
// Where the language packs and the data beside them lie on this machine, and the bytes of a file. Reads nothing of
// their contents.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pnl {

/// The folders to look in, in order: the one of the environment variable PNLTOOLS_LANG_DIR alone if it is set, else
/// those beside the library's own file ("<prefix>/lib/libpnltools.so" gives "<prefix>/share/pnltools/lang").
/// environmentFolder may be null.
[[nodiscard]] std::vector<std::string> PackFolders(const char* environmentFolder, std::string_view libraryFile);

/// True for what can be the code of a language: lower-case letters, digits, '-' and '_', so nothing that leads
/// elsewhere.
[[nodiscard]] bool IsLanguageCode(std::string_view code);

/// The bytes of a file beside the folder of the packs: "errors/en/machine.txt" of the first folder that has it.
[[nodiscard]] std::optional<std::string> ReadSharedFile(const std::vector<std::string>& packFolders,
                                                        std::string_view file);

/// The bytes of "<folder>/<code>.pnl" from the first folder that has it.
[[nodiscard]] std::optional<std::string> ReadPackFile(const std::vector<std::string>& folders, std::string_view code);

}  // namespace pnl
