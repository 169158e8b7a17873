// SPDX-License-Identifier: MIT
// The bytes of pictures: still ones in any format that can be written, and a GIF of several frames.
#pragma once

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <string>

namespace pnl::test {

inline std::string PictureBytes(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

inline std::string PictureBytes(QSize size, const QColor& color, const char* format) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(color);
  return PictureBytes(image, format);
}

/// Four by four pixels, a red and a blue frame by turns, each for a tenth of a second, for ever.
inline std::string GifBytes(int frames = 2) {
  const auto text = [](std::initializer_list<int> bytes) {
    std::string all;
    for (const int byte : bytes) all.push_back(static_cast<char>(byte));
    return all;
  };
  // A table of red, blue, black and white.
  std::string gif = "GIF89a" + text({4, 0, 4, 0, 0x91, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255});
  gif += text({0x21, 0xFF, 0x0B}) + "NETSCAPE2.0" + text({3, 1, 0, 0, 0});
  for (int frame = 0; frame < frames; ++frame) {
    gif += text({0x21, 0xF9, 4, 0, 10, 0, 0, 0, 0x2C, 0, 0, 0, 0, 4, 0, 4, 0, 0, 2});
    // Sixteen pixels, each after a clear code, so that all codes have three bits: 4, pixel, 4, pixel ... 5.
    std::string bits;
    const auto code = [&bits](int value) {
      for (int i = 0; i < 3; ++i) bits.push_back(static_cast<char>('0' + (value >> i & 1)));
    };
    for (int i = 0; i < 16; ++i) code(4), code(frame % 2);
    code(5);
    std::string data;
    for (std::size_t i = 0; i < bits.size(); i += 8) {
      int byte = 0;
      for (std::size_t bit = 0; bit < 8 && i + bit < bits.size(); ++bit) byte |= (bits[i + bit] - '0') << bit;
      data.push_back(static_cast<char>(byte));
    }
    gif += text({static_cast<int>(data.size())}) + data + text({0});
  }
  return gif + text({0x3B});
}

}  // namespace pnl::test
