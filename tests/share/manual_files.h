// SPDX-License-Identifier: MIT
// The manuals as they are in the repository: their pages, and what is found in the pages by plain text search. The
// pages are written in one form, so nothing here has to understand HTML.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pnl::test {

/// The folder of the manuals' sources.
[[nodiscard]] std::filesystem::path ManualsFolder();
/// The bytes of a file; empty when it can't be read.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& file);

struct ManualFiles {
  std::string language;
  std::string name;

  [[nodiscard]] std::filesystem::path Folder() const { return ManualsFolder() / language / name; }
  [[nodiscard]] std::filesystem::path Compiled() const { return ManualsFolder() / language / (name + ".chm"); }
  [[nodiscard]] std::filesystem::path Marks() const { return ManualsFolder() / language / (name + ".mrk"); }
  /// The pages by file name.
  [[nodiscard]] std::map<std::string, std::string> Pages() const;
};

/// All manuals in all languages.
[[nodiscard]] std::vector<ManualFiles> AllManuals();

/// The texts between each begin and the next end, in order.
[[nodiscard]] std::vector<std::string> Between(std::string_view text, std::string_view begin, std::string_view end);
/// The text without its tags, with &amp;, &lt;, &gt; and &quot; as characters.
[[nodiscard]] std::string PlainText(std::string_view html);

/// What a compiled manual contains.
struct CompiledManual {
  std::map<std::string, std::string> files;  // by name; those of the compiler itself are left out
  std::map<int, std::string> system;         // the entries of its description by their number
};

/// Reads a compiled manual. Empty when it can't be opened; a file that can't be read has the content "unreadable".
[[nodiscard]] CompiledManual ReadCompiled(const std::filesystem::path& file);

}  // namespace pnl::test
