// SPDX-License-Identifier: MIT
// Makes a small video: frames of one colour each, as pictures one after the other.
#pragma once

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <string>
#include <vector>

namespace pnl::test {

namespace avi {

inline std::string Number(std::uint32_t value, int bytes = 4) {
  std::string all;
  for (int i = 0; i < bytes; ++i) all.push_back(static_cast<char>(value >> (8 * i)));
  return all;
}
inline std::string Chunk(const std::string& name, const std::string& content) {
  std::string all = name + Number(static_cast<std::uint32_t>(content.size())) + content;
  if (content.size() % 2 != 0) all.push_back('\0');
  return all;
}
inline std::string Words(std::initializer_list<std::uint32_t> values) {
  std::string all;
  for (const std::uint32_t value : values) all += Number(value);
  return all;
}

}  // namespace avi

/// The bytes of the file. perSecond is the number of frames in a second.
inline std::string AviFile(const std::vector<QColor>& colors, int perSecond, QSize size = {64, 48}) {
  const auto width = static_cast<std::uint32_t>(size.width());
  const auto height = static_cast<std::uint32_t>(size.height());
  const auto count = static_cast<std::uint32_t>(colors.size());
  const auto rate = static_cast<std::uint32_t>(perSecond);
  std::string movie = "movi";
  std::string index;
  for (const QColor& color : colors) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 95);
    const std::string frame(jpeg.constData(), static_cast<std::size_t>(jpeg.size()));
    index +=
        "00dc" + avi::Words({0x10, static_cast<std::uint32_t>(movie.size()), static_cast<std::uint32_t>(frame.size())});
    movie += avi::Chunk("00dc", frame);
  }
  const std::string main = avi::Words({1'000'000 / rate, 0, 0, 0x10, count, 0, 1, 0, width, height, 0, 0, 0, 0});
  const std::string stream = "vidsMJPG" + avi::Words({0, 0, 0, 1, rate, 0, count, 0, 0xFFFFFFFF, 0}) +
                             avi::Number(0, 2) + avi::Number(0, 2) + avi::Number(width, 2) + avi::Number(height, 2);
  const std::string format = avi::Words({40, width, height}) + avi::Number(1, 2) + avi::Number(24, 2) + "MJPG" +
                             avi::Words({width * height * 3, 0, 0, 0, 0});
  const std::string streams = avi::Chunk("LIST", "strl" + avi::Chunk("strh", stream) + avi::Chunk("strf", format));
  return avi::Chunk("RIFF", "AVI " + avi::Chunk("LIST", "hdrl" + avi::Chunk("avih", main) + streams) +
                                avi::Chunk("LIST", movie) + avi::Chunk("idx1", index));
}

}  // namespace pnl::test
