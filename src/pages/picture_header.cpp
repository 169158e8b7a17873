// SPDX-License-Identifier: MIT
#include "pages/picture_header.h"

#include <cstddef>

namespace pnl {
namespace {

using std::size_t;

/// Reads numbers from bytes. A number beyond the end is 0.
struct ByteReader {
  std::string_view bytes;

  [[nodiscard]] std::int64_t At(size_t place) const {
    return place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0;
  }
  [[nodiscard]] std::int64_t Little16(size_t place) const { return At(place) | (At(place + 1) << 8); }
  [[nodiscard]] std::int64_t Little32(size_t place) const { return Little16(place) | (Little16(place + 2) << 16); }
  [[nodiscard]] std::int64_t Big16(size_t place) const { return (At(place) << 8) | At(place + 1); }
  [[nodiscard]] std::int64_t Big32(size_t place) const { return (Big16(place) << 16) | Big16(place + 2); }
  [[nodiscard]] std::int64_t SignedLittle32(size_t place) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(Little32(place)));
  }
};

PictureHeader BmpHeader(const ByteReader& read) {
  constexpr size_t kInfo = 14;
  if (read.Little32(kInfo) == 12) return {PictureKind::kBmp, read.Little16(kInfo + 4), read.Little16(kInfo + 6)};
  const std::int64_t height = read.SignedLittle32(kInfo + 8);  // negative when the rows begin at the top
  return {PictureKind::kBmp, read.SignedLittle32(kInfo + 4), height < 0 ? -height : height};
}

/// True for the markers that begin a frame: they have the size of the picture.
bool IsFrameMarker(std::int64_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// True for the markers that have no length: the start and the restarts.
bool IsBareMarker(std::int64_t marker) { return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8); }

PictureHeader JpegHeader(const ByteReader& read) {
  size_t place = 2;
  while (place + 9 <= read.bytes.size() && read.At(place) == 0xFF) {
    const std::int64_t marker = read.At(place + 1);
    if (marker == 0xFF) {  // a fill byte
      ++place;
      continue;
    }
    if (IsBareMarker(marker)) {
      place += 2;
      continue;
    }
    if (IsFrameMarker(marker)) return {PictureKind::kJpeg, read.Big16(place + 7), read.Big16(place + 5)};
    const auto length = static_cast<size_t>(read.Big16(place + 2));
    if (length < 2) break;
    place += 2 + length;
  }
  return {PictureKind::kJpeg, 0, 0};
}

}  // namespace

PictureHeader ReadPictureHeader(std::string_view bytes) {
  const ByteReader read{bytes};
  if (bytes.starts_with("BM")) return BmpHeader(read);
  if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) {
    return {PictureKind::kGif, read.Little16(6), read.Little16(8)};
  }
  if (bytes.starts_with("\xFF\xD8\xFF")) return JpegHeader(read);
  if (bytes.starts_with("\x89PNG\r\n\x1A\n")) return {PictureKind::kPng, read.Big32(16), read.Big32(20)};
  return {};
}

}  // namespace pnl
