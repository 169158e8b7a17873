// SPDX-License-Identifier: MIT
#include "controls/cf_color_static.h"

#include <functional>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "paint_counter.h"
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

/// What the field shows for a text, drawn by hand.
QImage Expected(const CFColorStatic& box, const QString& text, std::uint32_t flags) {
  QImage image(box.size(), QImage::Format_RGB32);
  image.fill(QColor(0xF0, 0xF0, 0xF0));
  QPainter painter(&image);
  painter.setFont(box.Font());
  painter.setPen(Qt::black);
  DrawText(painter, box.rect(), text, flags);
  return image;
}

TEST_F(CFColorStaticTest, ATextLiesAtTheRightOfTheMiddleUntilAnotherFormatIsSet) {
  box.SetFontFace("");
  box.SetTextW("a&b");
  EXPECT_EQ(Paint(box), Expected(box, "a&b", 0x26));
  box.SetFormat(0x821);
  EXPECT_EQ(Paint(box), Expected(box, "a&b", 0x821));
  EXPECT_EQ(box.WindowText(), "a&b");
  EXPECT_EQ(box.TextColor(), 0u);
}

TEST_F(CFColorStaticTest, EveryChangeIsPainted) {
  box.show();
  Settle();
  PaintCounter paints(box);
  const std::function<void()> changes[] = {[this] { box.SetTextW("a"); },        [this] { box.SetBackColor(1); },
                                           [this] { box.SetTextColor(2); },      [this] { box.SetFormat(0x20); },
                                           [this] { box.SetFontFace("Arial"); }, [this] { box.FitFont("a", false); }};
  int expected = 0;
  for (const auto& change : changes) {
    change();
    Settle();
    EXPECT_EQ(paints.Count(), ++expected);
  }
  box.SetFontFace(QString(32, 'x'));
  Settle();
  EXPECT_EQ(paints.Count(), expected) << "a face that can't be had changes nothing";
  EXPECT_EQ(box.Font().families().first(), "Arial");
}

TEST_F(CFColorStaticTest, AFaceStaysWhenTheHeightIsFitted) {
  box.FitFont("1", false);
  EXPECT_EQ(box.Font().weight(), 400) << "not bold before a face is set";
  box.SetFontFace("Courier");
  box.FitFont("1", false);
  EXPECT_EQ(box.Font().families().first(), "Courier");
  EXPECT_EQ(box.Font().weight(), 700);
}

TEST_F(CFColorStaticTest, ATextIsFittedBelowTheFieldsSizeAndNotOnIt) {
  box.SetFontFace("");
  const QFontMetrics tall(MakeFont("Arial", -21, 700).value());
  const int width = tall.horizontalAdvance("100");
  const int height = CellHeight(tall);
  const auto fitted = [this](int w, int h) {
    box.resize(w, h);
    box.FitFont("100", false);
    return box.GetFontHeight();
  };
  EXPECT_EQ(fitted(width + 1, height + 1), -21);
  EXPECT_GT(fitted(width, height + 1), -21);
  EXPECT_GT(fitted(width + 1, height), -21);
  const QFontMetrics small(MakeFont("Arial", -5, 700).value());
  EXPECT_EQ(fitted(small.horizontalAdvance("100") + 1, CellHeight(small) + 1), -5) << "the smallest that is tried";
}

}  // namespace
}  // namespace pnl::test
