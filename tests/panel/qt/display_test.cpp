// SPDX-License-Identifier: MIT
// What the displays show for what they are given.
#include <gtest/gtest.h>

#include "ui/axis_display.h"
#include "ui/message_zone.h"
#include "ui/readings.h"
#include "ui/theme.h"

namespace panel {
namespace {

TEST(AxisDisplayTest, PositionsHaveThreeDecimalsAndNoNegativeZero) {
  EXPECT_EQ(FormatPosition(12.5), "12.500");
  EXPECT_EQ(FormatPosition(-12.3456), "-12.346");
  EXPECT_EQ(FormatPosition(-0.0001), "0.000");
  EXPECT_EQ(FormatPosition(1e12), "-----");
  EXPECT_EQ(FormatPosition(std::numeric_limits<double>::quiet_NaN()), "-----");
}

TEST(ReadingsTest, NumbersHaveTheDecimalsTheyNeed) {
  EXPECT_EQ(FormatNumber(1000), "1000");
  EXPECT_EQ(FormatNumber(0.25), "0.25");
  EXPECT_EQ(FormatNumber(1234.56), "1234.6");
  EXPECT_EQ(FormatNumber(-0.0), "0");
  EXPECT_EQ(FormatNumber(std::numeric_limits<double>::infinity()), "-----");
}

QColor PixelOf(QWidget& widget, int x, int y) { return widget.grab().toImage().pixelColor(x, y); }

TEST(MessageZoneTest, ALineShowsInItsColours) {
  MessageZone zone(nullptr);
  zone.resize(600, 45);
  EXPECT_EQ(PixelOf(zone, 300, 22), QColor(theme::kSurface));
  zone.Show({{"text", theme::FromColorRef(0x2C8064), Qt::black}});
  EXPECT_EQ(PixelOf(zone, 590, 22), QColor(100, 128, 44));
  zone.Show({});
  EXPECT_EQ(PixelOf(zone, 590, 22), QColor(theme::kSurface));
}

TEST(MessageZoneTest, ThreeLinesShareTheHeightAndAFourthIsLeftOut) {
  MessageZone zone(nullptr);
  zone.resize(600, 45);
  const ZoneLine red{"a", Qt::red, Qt::white};
  const ZoneLine green{"b", Qt::green, Qt::black};
  const ZoneLine blue{"c", Qt::blue, Qt::white};
  zone.Show({red, green, blue, red});
  EXPECT_EQ(zone.Lines().size(), 3u);
  EXPECT_EQ(PixelOf(zone, 590, 7), QColor(Qt::red));
  EXPECT_EQ(PixelOf(zone, 590, 22), QColor(Qt::green));
  EXPECT_EQ(PixelOf(zone, 590, 37), QColor(Qt::blue));
}

TEST(MessageZoneTest, AVeryLongLineIsPaintedWithoutTrouble) {
  MessageZone zone(nullptr);
  zone.resize(600, 45);
  zone.Show({{QString(20000, 'x'), Qt::red, Qt::white}});
  EXPECT_FALSE(zone.grab().isNull());
  EXPECT_EQ(zone.height(), 45);
}

TEST(ThemeTest, ColoursHaveRedInTheLowByte) {
  EXPECT_EQ(theme::FromColorRef(0x0000FF), QColor(255, 0, 0));
  EXPECT_EQ(theme::FromColorRef(0xFF0000), QColor(0, 0, 255));
}

TEST(ThemeTest, ATextThatIsTooLongGetsASmallerFontButNotLessThanTheLeast) {
  const QFont font = theme::FittingFont("a rather long text", 60, 40, 11);
  EXPECT_GE(font.pixelSize(), 11);
  EXPECT_LT(font.pixelSize(), 40);
  EXPECT_EQ(theme::FittingFont("a", 600, 40, 11).pixelSize(), 40);
}

}  // namespace
}  // namespace panel
