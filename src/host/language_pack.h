// SPDX-License-Identifier: MIT
// The file format of a language pack and its writer: a header, then entries that each carry their own size and
// checksum, so that a damaged entry costs only itself. Reading is LanguagePack::Parse (host/language.h).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/language.h"

namespace pnl {

/// A pack before it is written.
struct PackContents {
  std::map<int, Text> texts;
  std::map<Text, std::vector<LanguagePack::MenuNode>> menus;
  std::map<int, DialogTemplate> dialogs;
  std::map<int, std::string> bitmaps;  // SVG
};

/// The bytes of a pack file.
[[nodiscard]] std::string BuildPack(const PackContents& contents);

namespace pack_format {

/// All numbers are 32 bits, low byte first. File: magic, version, file size, count of entries, checksum of these.
inline constexpr std::string_view kMagic = "PNLLANG\x1a";
inline constexpr std::uint32_t kVersion = 1;
inline constexpr std::size_t kHeaderSize = 24;
/// Entry: kind, id, size of what follows, checksum of kind, id, size and payload; then the payload.
inline constexpr std::size_t kEntrySize = 16;
enum Kind : std::uint32_t { kText = 1, kMenu = 2, kDialog = 3, kBitmap = 4 };

/// Appends a number as the format has it.
void PutNumber(std::string& out, std::uint32_t value);
/// One entry with its checksum. The payload may be anything.
[[nodiscard]] std::string Entry(std::uint32_t kind, std::uint32_t id, std::string_view payload);
/// A file of entries.
[[nodiscard]] std::string File(std::string_view entries, std::uint32_t count);
/// CRC-32 as in zip files.
[[nodiscard]] std::uint32_t Checksum(std::string_view bytes);

}  // namespace pack_format
}  // namespace pnl
