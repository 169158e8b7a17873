// SPDX-License-Identifier: MIT
// Where a drawn text lies to the pixel, and where its lines end: beside the painter's own text at computed places.
#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class DrawTextPlaces : public testing::Test {
 protected:
  /// A white picture into which draw paints black in the test's font.
  template <typename Draw>
  QImage Picture(Draw draw) const {
    QImage image(240, 120, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    draw(painter);
    return image;
  }
  [[nodiscard]] QImage Drawn(const QString& text, std::uint32_t flags) const {
    return Picture([&](QPainter& painter) { DrawText(painter, area, text, flags); });
  }
  [[nodiscard]] QImage Written(int left, int top, const QString& text) const {
    return Picture([&](QPainter& painter) { painter.drawText(left, top + metrics.ascent(), text); });
  }
  [[nodiscard]] int WidthOf(const QString& text) const { return metrics.horizontalAdvance(text); }
  [[nodiscard]] QString Shortened(const QString& text, QSize size, std::uint32_t flags) const {
    return ShortenText(metrics, size, text, flags);
  }
  /// How many lines of the text are painted.
  [[nodiscard]] int LinesIn(const QImage& image) const {
    int lines = 0;
    for (int top = area.top(); top < image.height(); top += cell) {
      lines += Ink(image, 0xFFFFFF, QRect(0, top, 240, cell)).isEmpty() ? 0 : 1;
    }
    return lines;
  }

  QRect area{20, 10, 161, 81};
  const QFont font = MakeFont("Arial", 16, 400).value();
  const QFontMetrics metrics{font};
  const int cell = CellHeight(metrics);
};

TEST_F(DrawTextPlaces, ALineLiesWhereItsFlagsSayToThePixel) {
  const QString text = "HHHH";
  const int right = area.left() + area.width() - WidthOf(text);
  const int centre = area.left() + (area.width() - WidthOf(text)) / 2;
  const int bottom = area.top() + area.height() - cell;
  const int middle = area.top() + (area.height() - cell) / 2;
  const struct {
    const char* what;
    std::uint32_t flags;
    int left;
    int top;
  } rows[] = {{"nothing", 0x820, area.left(), area.top()}, {"right", 0x822, right, area.top()},
              {"centre", 0x821, centre, area.top()},       {"bottom", 0x828, area.left(), bottom},
              {"middle", 0x824, area.left(), middle},      {"both", 0x825, centre, middle},
              {"lines", 0x80C, area.left(), area.top()},   {"corner", 0x82A, right, bottom}};
  for (const auto& row : rows) EXPECT_EQ(Drawn(text, row.flags), Written(row.left, row.top, text)) << row.what;
}

TEST_F(DrawTextPlaces, FurtherLinesFollowInStepsOfTheFont) {
  const QImage expected = Picture([&](QPainter& painter) {
    painter.drawText(area.left(), area.top() + metrics.ascent(), "HHH");
    painter.drawText(area.left(), area.top() + cell + metrics.ascent(), "H");
    painter.drawText(area.left(), area.top() + 2 * cell + metrics.ascent(), "HH");
  });
  EXPECT_EQ(Drawn("HHH\rH\r\nHH", 0x800), expected);
  EXPECT_EQ(MeasureText(metrics, 100, "a\nb", 0xA00).height(), 2 * (cell + std::max(0, metrics.leading())));
  EXPECT_EQ(MeasureText(metrics, 100, "a", 0xA20).height(), cell) << "a single line has no leading";
}

TEST_F(DrawTextPlaces, TheMarkedCharacterIsUnderlinedAndNoOther) {
  const QImage expected = Picture([&](QPainter& painter) {
    painter.drawText(area.left(), area.top() + metrics.ascent(), "oHo");
    const int from = area.left() + WidthOf("o");
    const int under = area.top() + metrics.ascent() + 1;
    painter.drawLine(from, under, from + metrics.horizontalAdvance(QChar(u'H')) - 1, under);
  });
  EXPECT_EQ(Drawn("o&Ho", 0x20), expected);
  EXPECT_EQ(Drawn("o&H&o", 0x20), expected) << "the first mark counts";
  const QImage plain = Written(area.left(), area.top(), "o&");
  EXPECT_EQ(Drawn("o&&", 0x20), plain) << "a doubled mark marks nothing";
}

TEST_F(DrawTextPlaces, TabsLeadToTheNextStopAndNeverStay) {
  const int stop = 8 * metrics.averageCharWidth();
  const QImage expected = Picture([&](QPainter& painter) {
    painter.drawText(area.left(), area.top() + metrics.ascent(), "a");
    painter.drawText(area.left() + 2 * stop, area.top() + metrics.ascent(), "b");
  });
  EXPECT_EQ(Drawn("a\t\tb", 0x860), expected);
  EXPECT_EQ(MeasureText(metrics, 160, "\tb", 0x860).width(), stop + WidthOf("b"));
  EXPECT_EQ(MeasureText(metrics, 160, "\t\tb", 0x860).width(), 2 * stop + WidthOf("b")) << "a stop leads to the next";
  EXPECT_EQ(MeasureText(metrics, 160, "ab", 0x860).width(), WidthOf("ab"));
}

TEST_F(DrawTextPlaces, ALineBreaksExactlyWhenItNoLongerFits) {
  const QString text = "one two";
  EXPECT_EQ(Shortened(text, {WidthOf(text), 80}, 0x810), "one two");
  EXPECT_EQ(Shortened(text, {WidthOf(text) - 1, 80}, 0x810), "one\ntwo");
  EXPECT_EQ(Shortened(text, {WidthOf("one"), 80}, 0x810), "one\ntwo") << "the blank itself needs no room";
  EXPECT_EQ(Shortened(text, {WidthOf("one") - 1, 80}, 0x810), "one\ntwo") << "a word stays whole";
}

TEST_F(DrawTextPlaces, AnEllipsisComesExactlyWhenALineNoLongerFits) {
  for (const std::uint32_t flags : {0x8820u, 0x4820u}) {
    for (const QString& text : {QString("one two three"), QString("C:\\one\\two three")}) {
      EXPECT_EQ(Shortened(text, {WidthOf(text), 80}, flags), text);
      EXPECT_NE(Shortened(text, {WidthOf(text) - 1, 80}, flags), text);
    }
  }
  EXPECT_EQ(Shortened("one two three", {20, 80}, 0x820), "one two three") << "none unless it is asked for";
}

TEST_F(DrawTextPlaces, AShortenedPathUsesTheRoomThatItsEndLeaves) {
  const QString tail = QString(QChar(0x2026)) + "\\part.nc";
  EXPECT_EQ(Shortened("C:\\folder\\part.nc", {WidthOf("C:\\f") + WidthOf(tail), 80}, 0x4820), "C:\\f" + tail);
  EXPECT_EQ(Shortened("C:\\folder\\part.nc", {WidthOf(tail), 80}, 0x4820), tail) << "no room but for the end";
  EXPECT_NE(Shortened("C:\\folder\\part.nc", {WidthOf(tail) - 1, 80}, 0x4820), tail);
}

TEST_F(DrawTextPlaces, LinesThatFitExactlyInTheHeightGetNoEllipsis) {
  const QString text = "one\ntwo\nthree";
  EXPECT_EQ(Shortened(text, {160, 3 * cell}, 0x8800), text);
  EXPECT_EQ(Shortened(text, {160, 3 * cell - 1}, 0x8800).count('\n'), 1);
  EXPECT_TRUE(Shortened(text, {160, 3 * cell - 1}, 0x8800).startsWith("one\ntwo"));
  EXPECT_TRUE(Shortened(text, {160, 1}, 0x8800).endsWith(QChar(0x2026))) << "one line at least";
  EXPECT_EQ(Shortened(text, {160, 3 * cell - 1}, 0x4800), text) << "a path loses no line";
}

TEST_F(DrawTextPlaces, AnEditPaintsALineOnlyWhole) {
  const QString text = "H\nH\nH";
  area.setHeight(2 * cell);
  EXPECT_EQ(LinesIn(Drawn(text, 0x2810)), 2);
  area.setHeight(2 * cell - 1);
  EXPECT_EQ(LinesIn(Drawn(text, 0x2810)), 1);
  EXPECT_EQ(LinesIn(Drawn(text, 0x810)), 2) << "others show the part that is inside";
  area.setHeight(cell - 1);
  EXPECT_FALSE(Ink(Drawn(text, 0x2810), 0xFFFFFF).isEmpty()) << "but the first always";
}

TEST_F(DrawTextPlaces, ATextBeyondAnyScreenIsCut) {
  EXPECT_EQ(MeasureText(metrics, 160, QString(9000, 'H'), 0x820).width(), WidthOf(QString(8192, 'H')));
  QString words;
  for (int i = 0; i < 2000; ++i) words += "H ";
  const int lines = MeasureText(metrics, 1, words, 0x810).height() / cell;
  EXPECT_GE(lines, 500);
  EXPECT_LE(lines, 501);
}

TEST_F(DrawTextPlaces, TheSizeOfTheTextIsTheAnswer) {
  QSize size;
  Picture([&](QPainter& painter) { size = DrawText(painter, area, QString("HHH\nH"), 0x800); });
  EXPECT_EQ(size, QSize(WidthOf("HHH"), 2 * cell));
}

TEST_F(DrawTextPlaces, ThePaintersClipIsAsBefore) {
  const QImage image = Picture([&](QPainter& painter) {
    DrawText(painter, area, QString("H"), 0x820);
    painter.fillRect(0, 0, 5, 5, Qt::red);
  });
  EXPECT_EQ(ColorAt(image, 2, 2), 0x0000FFu);
}

TEST(FontLimits, AreThemselvesAllowed) {
  EXPECT_TRUE(MakeFont(QString(31, 'A'), 18, 400));
  EXPECT_TRUE(MakeFont("Arial", 4000, 400));
  EXPECT_TRUE(MakeFont("Arial", -4000, 400));
  EXPECT_TRUE(MakeFont("Arial", 18, 1000));
  EXPECT_EQ(MakeFont("Arial", -4000, 1000)->pixelSize(), 4000);
  EXPECT_EQ(MakeFont("Arial", 18, 0)->weight(), 400) << "no weight is the normal one";
  EXPECT_EQ(MakeFont("Arial", 18, 1)->weight(), 1);
  EXPECT_EQ(MakeFont("Arial", 0, 400)->pointSizeF(), QFont().pointSizeF()) << "no height is the application's";
  EXPECT_EQ(MakeFont("times new roman", 18, 400)->families().last(), "Liberation Serif");
  EXPECT_EQ(MakeFont("Courier", 18, 400)->families(), QStringList{"Courier"});
}

TEST(FontLimits, ACellIsFilledAsFarAsAWholePixelSizeDoes) {
  for (int height = 1; height < 60; ++height) {
    const QFont font = MakeFont("Arial", height, 400).value();
    QFont larger = font;
    larger.setPixelSize(font.pixelSize() + 1);
    EXPECT_TRUE(CellHeight(QFontMetrics(font)) <= height || font.pixelSize() == 1) << height;
    EXPECT_GT(CellHeight(QFontMetrics(larger)), height);
  }
}

}  // namespace
}  // namespace pnl::test
