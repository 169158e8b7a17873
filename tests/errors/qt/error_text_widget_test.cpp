// SPDX-License-Identifier: MIT
#include "errors/qt/error_text_widget.h"

#include <QFontMetrics>
#include <QPainter>

#include <limits>

#include "controls/draw_text.h"
#include "controls/qt/paint_counter.h"
#include "errors/qt/error_counter_widget.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ErrorTextWidgetTest : public testing::Test {
 protected:
  ErrorTextWidgetTest() {
    font.setPixelSize(20);
    widget.SetTextFont(font);
    widget.resize(300, 120);
  }
  /// Around what is written.
  QRect Written() {
    const QImage image = Paint(widget);
    return Ink(image, widget.Back());
  }
  QFont font = QApplication::font();
  ErrorTextWidget widget{1000, true, nullptr};
};

TEST_F(ErrorTextWidgetTest, ACentredTextHasAsMuchRoomOnAllSides) {
  for (const char* text : {"HHHH", "HHHH\nHHHH", "HHHHHHHHHHHHHH HHHHHHHHHHHHHH HHHHHHHHHHHHHH"}) {
    widget.SetText(text);
    const QRect written = Written();
    ASSERT_FALSE(written.isEmpty());
    // The room for signs below the base line isn't written on.
    const int spare = QFontMetrics(font).height();
    EXPECT_NEAR(written.top(), widget.height() - 1 - written.bottom(), spare) << text;
    EXPECT_NEAR(written.left(), widget.width() - 1 - written.right(), 3) << text;
    EXPECT_NEAR(written.center().y(), (widget.height() - widget.HeightOf(text, 300)) / 2 + written.height() / 2,
                spare / 2)
        << text;
  }
}

TEST_F(ErrorTextWidgetTest, MoreLinesThanFindRoomBeginAtTheTop) {
  widget.SetText("H\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH");
  EXPECT_GE(Written().top(), 0);
  EXPECT_LT(Written().top(), QFontMetrics(font).height());
}

QString Lines(int count) { return QStringList(count, "H").join('\n'); }

TEST_F(ErrorTextWidgetTest, ATextThatDoesNotFitGetsTheLargestLettersThatDo) {
  widget.SetCentred(false);
  for (const bool textLast : {false, true}) {
    if (!textLast) widget.SetText(Lines(6));
    widget.resize(300, QFontMetrics(font).height() * 5);
    if (textLast) widget.SetText(Lines(6));
    // A hidden widget learns its size with the painting.
    EXPECT_LT(Written().bottom(), widget.height() - 1) << "all of it is there";
    const int chosen = widget.FittedFont().pixelSize();
    EXPECT_LT(chosen, 20);
    QFont larger = font;
    larger.setPixelSize(chosen + 1);
    EXPECT_GT(QFontMetrics(larger).height() * 6, widget.height()) << "a larger one doesn't fit";
    EXPECT_EQ(widget.TextFont().pixelSize(), 20);
    EXPECT_EQ(widget.HeightOf("H", 300), QFontMetrics(font).height()) << "measures are those of the told font";
    widget.SetText("H");
    EXPECT_EQ(widget.FittedFont().pixelSize(), 20) << "a short text is large again";
    widget.resize(300, 120);
  }
}

TEST_F(ErrorTextWidgetTest, LettersGetNoSmallerThanCanBeRead) {
  widget.SetText(Lines(40));
  EXPECT_EQ(widget.FittedFont().pixelSize(), 13);
  font.setPixelSize(11);
  widget.SetTextFont(font);
  EXPECT_EQ(widget.FittedFont().pixelSize(), 11) << "nor larger than they are meant to be";
}

TEST_F(ErrorTextWidgetTest, ATextThatDoesNotFitCanBePulledToItsEndAndNotBeyond) {
  widget.SetCentred(false);
  widget.SetText("H\n" + Lines(39));
  font.setPixelSize(13);
  const int beyond = QFontMetrics(font).lineSpacing() * 40 - widget.height();
  const int top = Written().top();
  widget.PullBy(-5);
  EXPECT_EQ(widget.Pulled(), 0);
  widget.PullBy(3);
  EXPECT_EQ(widget.Pulled(), 3);
  EXPECT_EQ(Ink(Paint(widget).copy(0, 0, 290, 120), widget.Back()).top(), std::max(top - 3, 0));
  widget.PullBy(10'000);
  EXPECT_NEAR(widget.Pulled(), beyond, 2);
  const int end = widget.Pulled();
  widget.PullBy(std::numeric_limits<int>::max());
  EXPECT_EQ(widget.Pulled(), end);
  const QImage last = Paint(widget).copy(0, 0, 290, 120);
  EXPECT_LT(Ink(last, widget.Back()).bottom(), 119) << "the last line is whole";
  widget.resize(300, 150);
  (void)Paint(widget);  // a hidden widget learns its size with the next painting
  EXPECT_EQ(widget.Pulled(), end - 30) << "more room shows more of it";
  widget.SetText(Lines(41));
  EXPECT_EQ(widget.Pulled(), 0) << "another text begins at its beginning";
  widget.PullBy(50);
  widget.SetText(Lines(2));
  EXPECT_EQ(widget.Pulled(), 0);
  widget.PullBy(5);
  EXPECT_EQ(widget.Pulled(), 0) << "a text that fits stays";
}

TEST_F(ErrorTextWidgetTest, AThumbShowsWhichPartOfALongTextIsSeen) {
  constexpr std::uint32_t kThumb = 0x606060;
  const QRect column(295, 0, 4, 120);
  const auto thumb = [&] { return Count(Paint(widget), kThumb, column) / column.width(); };
  widget.SetText(Lines(2));
  EXPECT_EQ(thumb(), 0);
  widget.SetText(Lines(20));
  const int half = thumb();
  EXPECT_GT(half, 30);
  EXPECT_LT(half, 80);
  EXPECT_EQ(ColorAt(Paint(widget), 296, 0), kThumb);
  widget.PullBy(10'000);
  EXPECT_EQ(thumb(), half);
  EXPECT_EQ(ColorAt(Paint(widget), 296, 119), kThumb);
  EXPECT_NE(ColorAt(Paint(widget), 296, 0), kThumb);
  font.setPixelSize(13);
  widget.SetTextFont(font);
  const int whole = widget.HeightOf(Lines(20), 300);
  for (const int missing : {0, 1}) {
    widget.resize(300, whole - missing);
    EXPECT_EQ(Count(Paint(widget), kThumb, QRect(295, 0, 4, whole)) > 0, missing > 0);
  }
  widget.resize(300, 120);
  widget.SetText(Lines(2000));
  EXPECT_EQ(thumb(), 12) << "high enough to be seen";
  widget.resize(300, 6);
  EXPECT_EQ(Count(Paint(widget), kThumb, QRect(295, 0, 4, 6)), 24);
}

TEST_F(ErrorTextWidgetTest, ATextThatIsNotCentredBeginsAtTheTopLeft) {
  widget.SetCentred(false);
  widget.SetText("HHHH");
  const QRect written = Written();
  EXPECT_LT(written.top(), QFontMetrics(font).height() / 2);
  EXPECT_GE(written.left(), 1);
  EXPECT_LT(written.left(), 10);
}

TEST_F(ErrorTextWidgetTest, ItsWidthLeavesTheTextInOneLine) {
  const QString text = "HHHH HHHH";
  const int line = widget.HeightOf("H", 300);
  const int width = widget.WidthOf(text);
  EXPECT_EQ(widget.HeightOf(text, width), line);
  EXPECT_EQ(widget.HeightOf(text, width - 1), 2 * line);
  EXPECT_GT(width, QFontMetrics(font).horizontalAdvance(text));
}

TEST_F(ErrorTextWidgetTest, ATextOfSeveralLinesIsHigherInANarrowWindow) {
  const QString text = QString("HHHH ").repeated(20);
  EXPECT_GT(widget.HeightOf(text, 100), widget.HeightOf(text, 300));
  EXPECT_GT(widget.HeightOf(text, 0), 0) << "no width at all is survived";
}

TEST_F(ErrorTextWidgetTest, TheTextKeepsSixPixelsFromBothSidesAndIsDrawnAsItIs) {
  constexpr std::uint32_t kFlags = draw::kWordBreak | draw::kNoPrefix | draw::kExpandTabs | draw::kExternalLeading;
  struct Row {
    bool centred;
    int height;
  };
  for (const auto& [centred, height] : {Row{false, 120}, Row{true, 120}, Row{true, 121}}) {
    for (const char* text : {"HHHH", "A&B\tC && D", "HHHHHHHHHHHHHH HHHHHHHHHHHHHH\nHH"}) {
      widget.resize(300, height);
      widget.SetCentred(centred);
      widget.SetText(text);
      QImage expected(widget.size(), QImage::Format_RGB32);
      expected.fill(QColor(0xD3, 0xC9, 0xBF));
      QPainter painter(&expected);
      painter.setFont(font);
      painter.setPen(Qt::black);
      QRect area(6, 0, 300 - 12, height);
      if (centred) area.setTop((height - MeasureText(QFontMetrics(font), area.width(), text, kFlags).height()) / 2);
      DrawText(painter, area, QString(text), centred ? kFlags | draw::kCenter : kFlags);
      painter.end();
      EXPECT_EQ(Paint(widget), expected) << text;
    }
  }
  EXPECT_EQ(widget.WidthOf("HHHH"), QFontMetrics(font).horizontalAdvance("HHHH") + 12);
}

TEST(ErrorPictureWidgetTest, ThePictureFillsTheWidgetInItsShapeOnTheClasssColour) {
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'><rect width='10' height='10' fill='#00ff00'/></svg>";
  ErrorPictureWidget picture(1043, &svg, "Esc", nullptr);
  EXPECT_EQ(picture.property("pnlId").toInt(), 1043);
  EXPECT_EQ(picture.Back(), 0u);
  picture.resize(30, 20);
  picture.SetBack(0x648064);
  const QImage image = Paint(picture);
  EXPECT_EQ(ColorAt(image, 15, 10), 0x00FF00u);
  EXPECT_EQ(ColorAt(image, 6, 10), 0x00FF00u);
  EXPECT_EQ(ColorAt(image, 2, 10), 0x648064u) << "a square in the middle";
  EXPECT_EQ(ColorAt(image, 27, 10), 0x648064u);
}

TEST(ErrorPictureWidgetTest, WithoutThePictureItsWordIsThereInWhite) {
  const std::string broken = "no picture";
  for (const std::string* svg : {static_cast<const std::string*>(nullptr), &broken}) {
    ErrorPictureWidget picture(1043, svg, "HHH", nullptr);
    picture.resize(60, 30);
    picture.SetBack(0x648064);
    const QRect written = Ink(Paint(picture), 0x648064);
    EXPECT_GT(Count(Paint(picture), 0xFFFFFF), 5);
    EXPECT_NEAR(written.center().x(), 30, 3);
    EXPECT_NEAR(written.center().y(), 15, 4);
  }
}

/// Digits are as high as the field and get smaller only where there are too many, but never smaller than eight pixels.
TEST(ErrorCounterWidgetTest, TheDigitsAreAsLargeAsFitsIntoTheField) {
  const struct {
    QSize field;
    const char* digits;
  } rows[] = {{{30, 16}, "7"}, {{30, 16}, "9999"}, {{30, 16}, "2147483647"}, {{60, 30}, "123"}, {{30, 4}, "5"}};
  for (const auto& row : rows) {
    ErrorCounterWidget counter(1006, nullptr);
    counter.resize(row.field);
    counter.SetText(row.digits);
    EXPECT_EQ(counter.accessibleName(), row.digits);
    EXPECT_EQ(counter.property("pnlText").toString(), row.digits);
    QFont font = counter.font();
    int size = 8;
    for (int larger = 9; larger <= row.field.height(); ++larger) {
      font.setPixelSize(larger);
      if (QFontMetrics(font).horizontalAdvance(row.digits) <= row.field.width()) size = larger;
    }
    font.setPixelSize(size);
    QImage expected(row.field, QImage::Format_RGB32);
    expected.fill(Qt::magenta);
    QPainter painter(&expected);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(QPoint(0, 0), row.field), Qt::AlignCenter, row.digits);
    painter.end();
    EXPECT_EQ(Paint(counter), expected) << row.digits;
  }
}

TEST_F(ErrorTextWidgetTest, EachChangeOfTextFontOrPlaceIsPainted) {
  widget.SetText("HHHH");
  Activate(widget);
  EXPECT_EQ(PaintsAfter(widget, [] {}), 0);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.SetText("MMMM"); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.SetCentred(false); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.SetTextFont(QFont()); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.SetText("MMMM"); }), 0) << "the same text again";
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.SetText(Lines(50)); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.PullBy(10); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.PullBy(-10); }), 1);
  EXPECT_EQ(PaintsAfter(widget, [this] { widget.PullBy(-10); }), 0) << "it doesn't go further";
}

TEST(ErrorCounterWidgetTest, ANewNumberIsPainted) {
  ErrorCounterWidget counter(1006, nullptr);
  counter.resize(30, 16);
  counter.SetText("1");
  Activate(counter);
  const PaintCounter paints(counter);
  counter.SetText("2");
  Settle();
  EXPECT_EQ(paints.Count(), 1);
}

TEST(ErrorPictureWidgetTest, AnotherClasssColourIsPainted) {
  ErrorPictureWidget picture(1043, nullptr, "Esc", nullptr);
  picture.resize(30, 30);
  Activate(picture);
  const PaintCounter paints(picture);
  picture.SetBack(0x648064);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
}

TEST_F(ErrorTextWidgetTest, IsReadAloudAndTold) {
  widget.SetText("<b>fault</b>");
  EXPECT_EQ(widget.accessibleName(), "<b>fault</b>");
  EXPECT_EQ(widget.property("pnlText").toString(), "<b>fault</b>");
  EXPECT_EQ(widget.property("pnlFore").toUInt(), 0u);
  EXPECT_EQ(widget.property("pnlId").toInt(), 1000);
}

}  // namespace
}  // namespace pnl::test
