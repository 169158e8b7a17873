// SPDX-License-Identifier: MIT
// Finds and reads the files of the language packs, and the data files beside them, on this machine. Doesn't interpret
// their contents.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pnl {

/// The folders to search, in order. environmentFolder is the value of PNLTOOLS_LANG_DIR; if it isn't null or empty, it
/// is the only folder. Otherwise the folders follow from the path of the library's own file:
/// "<prefix>/lib/libpnltools.so" gives "<prefix>/share/pnltools/lang".
[[nodiscard]] std::vector<std::string> PackFolders(const char* environmentFolder, std::string_view libraryFile);

/// True for a text that can be a language code: 1 to 16 lower-case letters, digits, '-' and '_'. Such a text can't lead
/// to another folder.
[[nodiscard]] bool IsLanguageCode(std::string_view code);

/// The bytes of a file beside the folder of the packs, such as "errors/en/machine.txt", from the first folder that has
/// it. Returns nothing when none has it.
[[nodiscard]] std::optional<std::string> ReadSharedFile(const std::vector<std::string>& packFolders,
                                                        std::string_view file);

/// The names of the files in a folder beside the folder of the packs, such as "manuals/en", in alphabetical order:
/// those of the first place that has the folder. Empty when none has it.
[[nodiscard]] std::vector<std::string> SharedFileNames(const std::vector<std::string>& packFolders,
                                                       std::string_view folder);

/// The bytes of "<folder>/<code>.pnl" from the first folder that has it. Returns nothing when none has it or code isn't
/// a language code.
[[nodiscard]] std::optional<std::string> ReadPackFile(const std::vector<std::string>& folders, std::string_view code);

}  // namespace pnl
