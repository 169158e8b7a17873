// SPDX-License-Identifier: MIT
// Recognizes a picture by its first bytes and reads its size, so that one which would fill the memory is refused before
// anything decodes it. Decodes nothing itself.
#pragma once

#include <cstdint>
#include <string_view>

namespace pnl {

enum class PictureKind { kNone, kBmp, kGif, kJpeg, kPng };

struct PictureHeader {
  PictureKind kind = PictureKind::kNone;
  std::int64_t width = 0;
  std::int64_t height = 0;

  /// A picture with more pixels isn't decoded: it takes four bytes a pixel.
  static constexpr std::int64_t kMostPixels = 32'000'000;
  /// True for a picture of a known kind that has at least one pixel and at most kMostPixels.
  [[nodiscard]] bool CanBeShown() const {
    return kind != PictureKind::kNone && width > 0 && height > 0 && width <= kMostPixels / height;
  }
};

/// Returns kind kNone for other bytes. A picture that ends before its size has the size 0.
[[nodiscard]] PictureHeader ReadPictureHeader(std::string_view bytes);

}  // namespace pnl
