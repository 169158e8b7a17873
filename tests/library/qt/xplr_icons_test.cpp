// SPDX-License-Identifier: MIT
// The explorer's pictures: the strip of icons for rows and nodes, at the size at which they are drawn, and the pins.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cstdlib>

#include "explorer/xplr_ids.h"
#include "library/qt/built_packs.h"

namespace pnl {
namespace {

using test::LoadPack;

/// The icons as drawn at their own size, on a transparent ground.
class XplrIcons : public ::testing::Test {
 protected:
  void SetUp() override {
    const LanguagePack pack = LoadPack("en");
    const std::string* svg = pack.FindBitmap(xplr_bitmap::kIcons);
    ASSERT_NE(svg, nullptr);
    QSvgRenderer renderer(QByteArray::fromStdString(*svg));
    ASSERT_TRUE(renderer.isValid());
    ASSERT_EQ(renderer.defaultSize(), QSize(xplr_bitmap::kIconSide * xplr_bitmap::kIconCount, xplr_bitmap::kIconSide));
    strip_ = QImage(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    strip_.fill(Qt::transparent);
    QPainter painter(&strip_);
    renderer.render(&painter);
  }
  [[nodiscard]] QImage Icon(int index) const {
    return strip_.copy(index * xplr_bitmap::kIconSide, 0, xplr_bitmap::kIconSide, xplr_bitmap::kIconSide);
  }
  /// How many pixels of two images of 16 by 16 differ clearly in brightness or in a colour.
  static int Differing(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < xplr_bitmap::kIconSide; ++y) {
      for (int x = 0; x < xplr_bitmap::kIconSide; ++x) {
        const QColor a = one.pixelColor(x, y);
        const QColor b = other.pixelColor(x, y);
        const int most =
            std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        count += most > 48 ? 1 : 0;
      }
    }
    return count;
  }
  [[nodiscard]] QImage On(int index, QRgb ground) const {
    QImage image(xplr_bitmap::kIconSide, xplr_bitmap::kIconSide, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.drawImage(0, 0, Icon(index));
    return image;
  }
  QImage strip_;
};

TEST_F(XplrIcons, TheFirstIsBlankAndNoOtherTouchesItsNeighbour) {
  for (int index = 0; index < xplr_bitmap::kIconCount; ++index) {
    const QImage icon = Icon(index);
    int inked = 0;
    for (int y = 0; y < icon.height(); ++y) {
      for (int x = 0; x < icon.width(); ++x) inked += qAlpha(icon.pixel(x, y)) != 0 ? 1 : 0;
      EXPECT_EQ(qAlpha(icon.pixel(0, y)) + qAlpha(icon.pixel(icon.width() - 1, y)), 0) << index << ", row " << y;
    }
    EXPECT_EQ(inked == 0, index == 0) << index;
  }
}

TEST_F(XplrIcons, EachIsInTheMiddleOfItsCell) {
  for (int index = 1; index < xplr_bitmap::kIconCount; ++index) {
    const QImage icon = Icon(index);
    int left = icon.width();
    int right = 0;
    for (int y = 0; y < icon.height(); ++y) {
      for (int x = 0; x < icon.width(); ++x) {
        if (qAlpha(icon.pixel(x, y)) == 0) continue;
        left = std::min(left, x);
        right = std::max(right, x);
      }
    }
    EXPECT_LE(std::abs(left - (icon.width() - 1 - right)), 1) << index;
  }
}

TEST_F(XplrIcons, AreInTheOrderOfTheirNumbers) {
  // A point of each and its colour: of a folder its cover, of a drive its lamp.
  const struct {
    int index;
    QPoint point;
    QRgb color;
  } rows[] = {{1, {5, 4}, 0xFFFFFFFF},
              {2, {5, 10}, 0xFFF5B82E},
              {3, {6, 10}, 0xFFFFDC80},
              {4, {3, 8}, 0xFF4A8FE0},
              {5, {11, 9}, 0xFF1E9E3E},
              {6, {11, 6}, 0xFF1E9E3E},
              {7, {8, 8}, 0},
              {8, {7, 3}, 0xFFB6F0C8},
              {9, {9, 9}, 0xFF3D8FD9},
              {10, {7, 10}, 0xFF1E9E3E},
              {11, {9, 12}, 0xFFF5B82E},
              {12, {7, 8}, 0xFF3D8FD9}};
  for (const auto& row : rows) EXPECT_EQ(Icon(row.index).pixel(row.point), row.color) << row.index;
}

TEST_F(XplrIcons, EachIsSeenOnEveryGroundThatARowOrANodeHas) {
  const QRgb grounds[] = {0xFFB5ABA1, 0xFF978D83, 0xFF1E140A, 0xFF808080, 0xFFA00000};
  for (const QRgb ground : grounds) {
    for (int index = 1; index < xplr_bitmap::kIconCount; ++index) {
      EXPECT_GT(Differing(On(index, ground), On(0, ground)), 30) << index << std::hex << " on " << ground;
    }
  }
}

TEST_F(XplrIcons, NoTwoLookAlike) {
  for (int one = 0; one < xplr_bitmap::kIconCount; ++one) {
    for (int other = 0; other < one; ++other) {
      EXPECT_GT(Differing(On(one, 0xFFB5ABA1), On(other, 0xFFB5ABA1)), 30) << one << " and " << other;
    }
  }
}

TEST(XplrPins, APinnedFolderHasAnotherPictureThanOneThatIsnt) {
  const LanguagePack pack = LoadPack("en");
  const std::string* pinned = pack.FindBitmap(xplr_bitmap::kPinned);
  const std::string* notPinned = pack.FindBitmap(xplr_bitmap::kNotPinned);
  ASSERT_TRUE(pinned != nullptr && notPinned != nullptr);
  EXPECT_NE(*pinned, *notPinned);
}

}  // namespace
}  // namespace pnl
