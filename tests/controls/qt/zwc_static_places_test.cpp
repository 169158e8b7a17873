// SPDX-License-Identifier: MIT
// Where the parts of a field lie to the pixel, and when its text is fitted anew.
#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/zwc_static.h"
#include "support/memory_files.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kFrame = 0x0000FF;
constexpr std::uint32_t kBack = 0x804020;
constexpr std::uint32_t kInk = 0x00FFFF;

class ZWCStaticPlaces : public testing::Test {
 protected:
  ZWCStaticPlaces() {
    box.resize(100, 30);
    box.SetFont("Arial", 18, 600);
    box.SetColors(kFrame, kBack, kInk, false);
  }
  void ShowIt() {
    box.show();
    Settle();
  }
  ManualTimers timers;
  MemoryFiles files;
  ZWCStatic box{5003, timers, files, nullptr};
};

TEST_F(ZWCStaticPlaces, ATextHasTwoPixelsAroundItInsideTheFrame) {
  const auto expected = [this](const QRect& area, const QString& text, std::uint32_t flags) {
    QImage image(box.size(), QImage::Format_RGB32);
    image.fill(QColor(0x20, 0x40, 0x80));
    QPainter painter(&image);
    painter.setFont(MakeFont("Arial", 18, 600).value());
    painter.setPen(Qt::yellow);
    DrawText(painter, area, text, flags);
    painter.end();
    return image.copy(1, 1, 98, 28);
  };
  const QString longText = "a text that is far too long for its box";
  box.SetTextW(longText, false);
  EXPECT_EQ(Paint(box).copy(1, 1, 98, 28), expected(QRect(3, 3, 94, 24), longText, 0x8b65));
  box.SetFormat(0x8866);
  EXPECT_EQ(Paint(box).copy(1, 1, 98, 28), expected(QRect(3, 3, 94, 24), longText, 0x8866));
  box.SetBlink(true, 0);
  Paint(box);
  EXPECT_EQ(Paint(box).copy(21, 1, 78, 28), expected(QRect(23, 3, 74, 24), longText, 0x8866).copy(20, 0, 78, 28));
}

TEST_F(ZWCStaticPlaces, AWiderOneChoosesItsFormatAgainAndAHigherOneDoesNot) {
  box.SetPathFit();
  box.SetTextW("C:\\Programs\\none.nc", false);
  ASSERT_EQ(box.Format(), 0x8b65u);
  ShowIt();
  files.disc["C:\\Programs\\none.nc"] = "";
  box.resize(100, 50);
  EXPECT_EQ(box.Format(), 0x8b65u);
  box.resize(101, 50);
  EXPECT_EQ(box.Format(), 0x4b65u);
  box.resize(600, 50);
  EXPECT_EQ(box.Format(), 0xb65u);
  box.resize(100, 50);
  EXPECT_EQ(box.Format(), 0x4b65u);
}

TEST_F(ZWCStaticPlaces, ATextThatIsExactlyAsWideAsTheBoxFits) {
  const QString text = "HHHH HHHH";
  const int width = QFontMetrics(MakeFont("Arial", 18, 600).value()).horizontalAdvance(text);
  box.SetWrapFit();
  box.resize(width, 30);
  box.SetTextW(text, false);
  EXPECT_EQ(box.Format(), 0xb65u);
  box.resize(width - 1, 30);
  box.SetTextW(text, false);
  EXPECT_EQ(box.Format(), 0xaa10u);
  const QString path = "C:\\folder\\" + text;
  files.disc[path.toStdString()] = "";
  box.SetPathFit();
  box.resize(width, 30);
  box.SetTextW(path, false);
  EXPECT_EQ(box.Format(), 0x4b65u) << "its last part fits";
  box.resize(width - 1, 30);
  box.SetTextW(path, false);
  EXPECT_EQ(box.Format(), 0x8b65u);
}

TEST_F(ZWCStaticPlaces, ATriangleIsFilledToThePixel) {
  box.SetColors(kBack, kInk, false);
  box.resize(100, 28);
  box.SetBlink(true, 0);
  const QImage on = Paint(box);
  // Its corners are 12 apart, in a strip of 20 by 28: from 4, 8.
  const QRect ink = Ink(on, kBack, QRect(0, 0, 20, 28));
  EXPECT_EQ(ink.left(), 4);
  EXPECT_NEAR(ink.top(), 8, 1);
  for (int y = 0; y < 12; ++y) {
    const int wide = Ink(on, kBack, QRect(0, 8 + y, 20, 1)).width();
    EXPECT_NEAR(wide, y < 6 ? 2 * y + 1 : 2 * (11 - y) + 1, 1) << y;
  }
  EXPECT_TRUE(Ink(on, kBack, QRect(0, 20, 20, 8)).isEmpty());
}

TEST_F(ZWCStaticPlaces, APeriodBelowNothingIsNone) {
  box.SetBlink(true, -5);
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(box.Period(), 0);
  box.SetBlink(false, 800);
  EXPECT_EQ(box.Period(), 0);
  box.SetBlink(true, 1);
  EXPECT_EQ(timers.Running(), 1u);
  EXPECT_EQ(box.Period(), 1);
}

TEST_F(ZWCStaticPlaces, AWrappedTextIsCentredAsAWhole) {
  box.resize(120, 80);
  box.SetColors(kBack, kInk, false);
  box.SetWrapFit();
  const QString text = "HHHH HHHH HHHH HHHH";
  box.SetTextW(text, false);
  QImage expected(120, 80, QImage::Format_RGB32);
  expected.fill(QColor(0x20, 0x40, 0x80));
  QPainter painter(&expected);
  painter.setFont(MakeFont("Arial", 18, 600).value());
  painter.setPen(Qt::yellow);
  const QRect area(2, 2, 116, 76);
  const QSize size = MeasureText(painter.fontMetrics(), area.width(), text, 0xaa10);
  const int side = (area.width() - size.width()) / 2;
  const int end = (area.height() - size.height()) / 2;
  DrawText(painter, area.adjusted(side, end, -side, -end),
           ShortenText(painter.fontMetrics(), area.size(), text, 0xaa10), 0xaa10);
  painter.end();
  EXPECT_EQ(Paint(box), expected);
}

}  // namespace
}  // namespace pnl::test
