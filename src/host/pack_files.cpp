// SPDX-License-Identifier: MIT
#include "host/pack_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace pnl {

namespace fs = std::filesystem;

std::vector<std::string> PackFolders(const char* environmentFolder, std::string_view libraryFile) {
  if (environmentFolder != nullptr && *environmentFolder != '\0') return {environmentFolder};
  if (libraryFile.empty()) return {};
  const fs::path folder = fs::path(libraryFile).parent_path();
  const fs::path packs = fs::path("share") / "pnltools" / "lang";
  // Libraries are in "lib" or, on a system with several architectures, in a folder below it.
  return {(folder / ".." / packs).lexically_normal().string(),
          (folder / ".." / ".." / packs).lexically_normal().string()};
}

bool IsLanguageCode(std::string_view code) {
  return !code.empty() && code.size() <= 16 && std::all_of(code.begin(), code.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
  });
}

namespace {
std::optional<std::string> ReadFile(const fs::path& file) {
  std::error_code problem;
  if (!fs::is_regular_file(file, problem)) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}
}  // namespace

std::optional<std::string> ReadSharedFile(const std::vector<std::string>& packFolders, std::string_view file) {
  for (const std::string& folder : packFolders) {
    if (auto bytes = ReadFile((fs::path(folder) / ".." / file).lexically_normal())) return bytes;
  }
  return std::nullopt;
}

std::vector<std::string> SharedFileNames(const std::vector<std::string>& packFolders, std::string_view folder) {
  std::vector<std::string> names;
  for (const std::string& packs : packFolders) {
    std::error_code problem;
    const fs::directory_iterator files((fs::path(packs) / ".." / folder).lexically_normal(), problem);
    if (problem) continue;
    for (const fs::directory_entry& file : files) {
      if (file.is_regular_file(problem)) names.push_back(file.path().filename().string());
    }
    break;
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::string> ReadPackFile(const std::vector<std::string>& folders, std::string_view code) {
  if (!IsLanguageCode(code)) return std::nullopt;
  for (const std::string& folder : folders) {
    if (auto bytes = ReadFile(fs::path(folder) / (std::string(code) + ".pnl"))) return bytes;
  }
  return std::nullopt;
}

}  // namespace pnl
