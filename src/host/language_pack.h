// SPDX-License-Identifier: MIT
// The file format of a language pack, and its writer. A header is followed by entries that each have their own size and
// checksum, so that a damaged entry doesn't affect the others. LanguagePack::Parse (host/language.h) reads it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/language.h"

namespace pnl {

/// The content of a pack that is to be written.
struct PackContents {
  std::map<int, Text> texts;
  std::map<Text, std::vector<LanguagePack::MenuNode>> menus;
  std::map<int, DialogTemplate> dialogs;
  std::map<int, std::string> bitmaps;  // SVG
};

/// The bytes of a pack file.
[[nodiscard]] std::string BuildPack(const PackContents& contents);

namespace pack_format {

/// All numbers are 32 bits, low byte first. A file begins with: magic, version, file size, count of entries, checksum
/// of these. The entries follow.
inline constexpr std::string_view kMagic = "PNLLANG\x1a";
inline constexpr std::uint32_t kVersion = 1;
inline constexpr std::size_t kHeaderSize = 24;
/// The size of an entry's head: kind, id, size of the payload, checksum of kind, id, size and payload. The payload
/// follows.
inline constexpr std::size_t kEntrySize = 16;
enum Kind : std::uint32_t { kText = 1, kMenu = 2, kDialog = 3, kBitmap = 4 };

/// Appends a number in the format's byte order.
void PutNumber(std::string& out, std::uint32_t value);
/// The bytes of one entry with its checksum. The payload may be any bytes.
[[nodiscard]] std::string Entry(std::uint32_t kind, std::uint32_t id, std::string_view payload);
/// The bytes of a file with those entries; count is their number.
[[nodiscard]] std::string File(std::string_view entries, std::uint32_t count);
/// CRC-32 as in zip files.
[[nodiscard]] std::uint32_t Checksum(std::string_view bytes);

}  // namespace pack_format
}  // namespace pnl
