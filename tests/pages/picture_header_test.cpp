// SPDX-License-Identifier: MIT
#include "pages/picture_header.h"

#include <gtest/gtest.h>

#include <string>

namespace pnl::test {
namespace {

std::string Little32(std::uint32_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
  return bytes;
}

std::string Bmp(std::uint32_t width, std::uint32_t height) {
  return "BM" + std::string(12, '\0') + Little32(40) + Little32(width) + Little32(height);
}
std::string Png(std::uint32_t width, std::uint32_t height) {
  std::string size;
  for (const std::uint32_t number : {width, height}) {
    const std::string little = Little32(number);
    size += std::string(little.rbegin(), little.rend());
  }
  return std::string("\x89PNG\r\n\x1A\n", 8) + std::string("\0\0\0\x0DIHDR", 8) + size;
}
std::string Gif(int width, int height) { return "GIF89a" + Little32(static_cast<std::uint32_t>(width | height << 16)); }
std::string Big16(int value) { return {static_cast<char>(value >> 8), static_cast<char>(value)}; }
std::string Jpeg(int width, int height, char frame = '\xC0') {
  return "\xFF\xD8\xFF\xE0" + Big16(4) + "ab" + "\xFF" + std::string("\xFF\xC4") + Big16(3) + "x" + '\xFF' + frame +
         Big16(11) + '\x08' + Big16(height) + Big16(width) + "\x01\x01\x11";
}

struct HeaderRow {
  const char* name;
  std::string bytes;
  PictureKind kind;
  std::int64_t width;
  std::int64_t height;
  bool shown;
};

TEST(PictureHeader, KindAndSizeAreRead) {
  const HeaderRow rows[] = {
      {"bmp", Bmp(640, 480), PictureKind::kBmp, 640, 480, true},
      {"bmp from the top", Bmp(640, static_cast<std::uint32_t>(-480)), PictureKind::kBmp, 640, 480, true},
      {"bmp of the lowest number", Bmp(1, 0x80000000u), PictureKind::kBmp, 1, 2147483648, false},
      {"bmp with a negative width", Bmp(0xFFFFFFFFu, 1), PictureKind::kBmp, -1, 1, false},
      {"old bmp", "BM" + std::string(12, '\0') + Little32(12) + Little32(7 | 5 << 16), PictureKind::kBmp, 7, 5, true},
      {"gif", Gif(300, 200), PictureKind::kGif, 300, 200, true},
      {"gif 87", "GIF87a" + Gif(3, 2).substr(6), PictureKind::kGif, 3, 2, true},
      {"jpeg", Jpeg(800, 600), PictureKind::kJpeg, 800, 600, true},
      {"progressive jpeg", Jpeg(800, 600, '\xC2'), PictureKind::kJpeg, 800, 600, true},
      {"png", Png(1024, 768), PictureKind::kPng, 1024, 768, true},
      {"at the limit", Png(8000, 4000), PictureKind::kPng, 8000, 4000, true},
      {"above the limit", Png(8000, 4001), PictureKind::kPng, 8000, 4001, false},
      {"30,000 by 30,000", Png(30000, 30000), PictureKind::kPng, 30000, 30000, false},
      {"so large that the product overflows", Png(0xFFFFFFFFu, 0xFFFFFFFFu), PictureKind::kPng, 4294967295, 4294967295,
       false},
      {"empty png", Png(0, 5), PictureKind::kPng, 0, 5, false},
      {"cut png", Png(9, 9).substr(0, 12), PictureKind::kPng, 0, 0, false},
      {"jpeg with markers that have no length", "\xFF\xD8\xFF\x01\xFF\xD0" + Jpeg(800, 600), PictureKind::kJpeg, 800,
       600, true},
      // The decoder takes the first frame. A reader that took the first marker for one with a length would skip it.
      {"jpeg with a small frame after the large one", "\xFF\xD8\xFF\x01" + Jpeg(30000, 30000).substr(2) + Jpeg(8, 8),
       PictureKind::kJpeg, 30000, 30000, false},
      {"cut jpeg", Jpeg(9, 9).substr(0, 20), PictureKind::kJpeg, 0, 0, false},
      {"jpeg of a marker without length", "\xFF\xD8\xFF\xE0" + Big16(1) + std::string(20, 'x'), PictureKind::kJpeg, 0,
       0, false},
      {"jpeg of fill bytes", "\xFF\xD8" + std::string(1000, '\xFF'), PictureKind::kJpeg, 0, 0, false},
      {"jpeg of the last frame marker", Jpeg(8, 6, '\xCF'), PictureKind::kJpeg, 8, 6, true},
      {"jpeg with arithmetic tables before its frame",
       "\xFF\xD8\xFF\xC8" + Big16(9) + "1234567" + "\xFF\xCC" + Big16(9) + "1234567" + "\xFF\xD0" +
           Jpeg(8, 6).substr(2),
       PictureKind::kJpeg, 8, 6, true},
      {"jpeg with the last marker that has no length", "\xFF\xD8\xFF\xD7\xFF\xD8" + Jpeg(8, 6).substr(2),
       PictureKind::kJpeg, 8, 6, true},
      {"jpeg with a comment of no bytes", "\xFF\xD8\xFF\xFE" + Big16(2) + Jpeg(8, 6).substr(2), PictureKind::kJpeg, 8,
       6, true},
      {"jpeg with one fill byte", "\xFF\xD8\xFF" + Jpeg(8, 6).substr(2), PictureKind::kJpeg, 8, 6, true},
      {"jpeg that ends with its size", "\xFF\xD8\xFF\xC0" + Big16(11) + "\x08" + Big16(6) + Big16(8),
       PictureKind::kJpeg, 8, 6, true},
      {"jpeg that ends before its size", "\xFF\xD8\xFF\xC0" + Big16(11) + "\x08" + Big16(6) + "\x01",
       PictureKind::kJpeg, 0, 0, false},
      {"empty bmp", Bmp(5, 0), PictureKind::kBmp, 5, 0, false},
      {"text", "GIF is a format", PictureKind::kNone, 0, 0, false},
      {"nothing", "", PictureKind::kNone, 0, 0, false},
  };
  for (const HeaderRow& row : rows) {
    SCOPED_TRACE(row.name);
    const PictureHeader header = ReadPictureHeader(row.bytes);
    EXPECT_EQ(header.kind, row.kind);
    EXPECT_EQ(header.width, row.width);
    EXPECT_EQ(header.height, row.height);
    EXPECT_EQ(header.CanBeShown(), row.shown);
  }
}

}  // namespace
}  // namespace pnl::test
