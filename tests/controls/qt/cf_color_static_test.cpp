// SPDX-License-Identifier: MIT
#include "controls/cf_color_static.h"

#include "controls/fonts.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class CFColorStaticTest : public testing::Test {
 protected:
  CFColorStaticTest() { box.resize(100, 30); }
  CFColorStatic box{7, nullptr};
};

TEST_F(CFColorStaticTest, StartsWithTheButtonFaceOrWhatItIsGiven) {
  EXPECT_EQ(ColorAt(Paint(box), 50, 15), 0xF0F0F0u);
  const CFColorStatic green(7, nullptr, 0x00FF00);
  EXPECT_EQ(green.BackColor(), 0x00FF00u);
  EXPECT_EQ(box.GetFontHeight(), 21);
}

TEST_F(CFColorStaticTest, PaintsItsTextToTheRightOnItsBackground) {
  box.SetBackColor(0x804020);
  box.SetTextColor(0x00FFFF);
  box.SetFontFace("");
  box.SetTextW("HH");
  const QImage image = Paint(box);
  EXPECT_EQ(ColorAt(image, 0, 0), 0x804020u);
  const QRect ink = Ink(image, 0x804020);
  EXPECT_NEAR(ink.right(), 99, 3);
  EXPECT_NEAR(ink.center().y(), 15, 2);
  EXPECT_GT(Count(image, 0x00FFFF), 10);
}

TEST_F(CFColorStaticTest, ItsFontIsBoldArialOfItsHeight) {
  box.SetFontFace("");
  EXPECT_EQ(box.Font().weight(), 700);
  EXPECT_EQ(box.Font().families().first(), "Arial");
  EXPECT_EQ(box.Font().pixelSize(), 19);
}

TEST_F(CFColorStaticTest, FitFontTakesTheFirstHeightThatFits) {
  box.SetFontFace("");
  box.FitFont("100", false);
  const int tall = box.GetFontHeight();
  EXPECT_EQ(tall, -21);
  box.resize(60, 18);
  box.FitFont("1234567", true);
  const int small = box.GetFontHeight();
  EXPECT_LT(small, 0);
  EXPECT_GT(small, tall);
  EXPECT_EQ(box.Font().pixelSize(), -small);
  const QFontMetrics fits(box.Font());
  EXPECT_LT(fits.horizontalAdvance("1234567"), 60);
  EXPECT_LT(CellHeight(fits), 18);
  const QFontMetrics larger(MakeFont("Arial", small - 1, 700).value());
  EXPECT_TRUE(larger.horizontalAdvance("1234567") >= 60 || CellHeight(larger) >= 18);
}

TEST_F(CFColorStaticTest, FitFontStopsAtFour) {
  box.resize(3, 3);
  box.FitFont("far too much", false);
  EXPECT_EQ(box.GetFontHeight(), -4);
}

}  // namespace
}  // namespace pnl::test
