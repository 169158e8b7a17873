// SPDX-License-Identifier: MIT
#include "controls/draw_text.h"

#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

class DrawTextTest : public testing::Test {
 protected:
  QImage Draw(const QString& text, std::uint32_t flags) {
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    drawn = text;
    size = DrawText(painter, area, drawn, flags);
    return image;
  }
  [[nodiscard]] QString Shortened(const QString& text, int width, std::uint32_t flags) const {
    return ShortenText(metrics, QSize(width, area.height()), text, flags);
  }
  [[nodiscard]] int WidthOf(const QString& text) const { return metrics.horizontalAdvance(text); }

  static constexpr int kWidth = 200;
  static constexpr int kHeight = 100;
  const QRect area{20, 10, 160, 80};
  const QFont font = MakeFont("Arial", 16, 400).value();
  const QFontMetrics metrics{font};
  QString drawn;
  QSize size;
};

TEST_F(DrawTextTest, LiesWhereTheFlagsSay) {
  struct Row {
    const char* name;
    std::uint32_t flags;
    int left;  // -1 left, 0 centre, 1 right
    int top;
  };
  const Row rows[] = {{"nothing", 0x820, -1, -1},
                      {"center", 0x821, 0, -1},
                      {"right", 0x822, 1, -1},
                      {"vcenter", 0x824, -1, 0},
                      {"bottom", 0x828, -1, 1},
                      {"title", 0x8b65, 0, 0},
                      {"explorer left", 0x8864, -1, 0},
                      {"explorer right", 0x8866, 1, 0},
                      {"bottom needs a single line", 0x808, -1, -1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const QRect ink = Ink(Draw("HHHH", row.flags), kWhite);
    const int across[] = {area.left(), area.center().x(), area.right()};
    const int spot[] = {ink.left(), ink.center().x(), ink.right()};
    EXPECT_NEAR(spot[row.left + 1], across[row.left + 1], 3);
    const int middle = ink.center().y();
    const int levels[] = {area.top() + 8, area.center().y(), area.bottom() - 8};
    EXPECT_NEAR(middle, levels[row.top + 1], 5);
  }
}

TEST_F(DrawTextTest, ATextThatFitsIsNotShortened) {
  for (const std::uint32_t flags : {0x8b65u, 0x4b65u, 0xb65u, 0xaa10u}) {
    EXPECT_EQ(Shortened("G0 X1", 160, flags), "G0 X1");
  }
}

TEST_F(DrawTextTest, ALineTakesWhatFillsItExactly) {
  for (const int letters : {3, 5, 8}) {
    const int width = WidthOf(QString(letters, u'H'));
    const QStringList lines = Shortened(QString(20, u'H'), width, 0x2810).split(u'\n');
    EXPECT_EQ(lines.first(), QString(letters, u'H'));
  }
}

TEST_F(DrawTextTest, ATextTooLongEndsInAnEllipsisThatFits) {
  const QString result = Shortened("G0 X100 Y200 Z300 F400", 80, 0x8b65);
  EXPECT_TRUE(result.startsWith("G0 X"));
  EXPECT_TRUE(result.endsWith(QChar(0x2026)));
  EXPECT_LE(WidthOf(result), 80);
}

TEST_F(DrawTextTest, APathIsShortenedInsideAndKeepsItsLastPart) {
  const QString result = Shortened("C:\\Programs\\Customer\\Fixture\\part.nc", 120, 0x4b65);
  EXPECT_TRUE(result.startsWith("C:"));
  EXPECT_TRUE(result.endsWith(QString(QChar(0x2026)) + "\\part.nc"));
  EXPECT_LE(WidthOf(result), 120);
}

TEST_F(DrawTextTest, APathWhoseLastPartDoesNotFitEndsInAnEllipsis) {
  const QString result = Shortened("C:\\a\\a very long name of a program.nc", 60, 0x4b65);
  EXPECT_TRUE(result.endsWith(QChar(0x2026)));
  EXPECT_LE(WidthOf(result), 60);
  EXPECT_TRUE(Shortened("no path at all but long", 60, 0x4b65).endsWith(QChar(0x2026)));
}

TEST_F(DrawTextTest, WithoutNoClipNothingIsDrawnOutside) {
  const QString text = "a text that is much wider than the area it has";
  EXPECT_TRUE(area.contains(Ink(Draw(text, 0x865), kWhite)));
  EXPECT_FALSE(area.contains(Ink(Draw(text, 0x965), kWhite)));
}

TEST_F(DrawTextTest, WordBreakPutsWholeWordsOnEachLine) {
  const QString lines = Shortened("one two three four five six seven", 80, 0x810);
  ASSERT_GT(lines.count('\n'), 1);
  for (const QString& line : lines.split('\n')) EXPECT_LE(WidthOf(line), 80) << line.toStdString();
  EXPECT_EQ(QString(lines).replace('\n', ' '), "one two three four five six seven");
}

TEST_F(DrawTextTest, OnlyAnEditBreaksAWordThatIsTooLong) {
  EXPECT_EQ(Shortened("Donaudampfschifffahrt", 60, 0x810).count('\n'), 0);
  EXPECT_GT(Shortened("Donaudampfschifffahrt", 60, 0x2810).count('\n'), 0);
}

TEST_F(DrawTextTest, AnEditBreaksAtABlankWhereThereIsOneHoweverShortTheWordBeforeIt) {
  const QString lines = Shortened("a Donaudampfschifffahrt", 60, 0x2810);
  EXPECT_TRUE(lines.startsWith("a\nD")) << lines.toStdString();
}

TEST_F(DrawTextTest, AWordThatIsTooLongTakesALineOfItsOwn) {
  const QString lines = Shortened("Donaudampfschifffahrt one two", 60, 0x810);
  EXPECT_EQ(lines, "Donaudampfschifffahrt\none two");
  EXPECT_EQ(Shortened("one Donaudampfschifffahrt two", 60, 0x810), "one\nDonaudampfschifffahrt\ntwo");
}

TEST_F(DrawTextTest, LinesThatAreTooManyEndInAnEllipsis) {
  const QString lines = ShortenText(metrics, QSize(80, 40), "one two three four five six seven eight", 0xaa10);
  EXPECT_EQ(lines.count('\n'), 1);
  EXPECT_TRUE(lines.endsWith(QChar(0x2026)));
}

TEST_F(DrawTextTest, CalcRectMeasuresWithoutDrawing) {
  EXPECT_TRUE(Ink(Draw("one\ntwo", 0xc00), kWhite).isEmpty());
  EXPECT_EQ(size, QSize(WidthOf("one"), 2 * CellHeight(metrics)));
  Draw("one", 0xc20);
  EXPECT_EQ(size.height(), CellHeight(metrics));
}

TEST_F(DrawTextTest, ModifyStringHandsTheShortenedTextBack) {
  Draw("a text that is much wider than the area it has", 0x18820);
  EXPECT_TRUE(drawn.endsWith(QChar(0x2026)));
  Draw("a text that is much wider than the area it has", 0x8820);
  EXPECT_FALSE(drawn.endsWith(QChar(0x2026)));
}

TEST_F(DrawTextTest, AnAmpersandMarksTheNextCharacterUnlessPrefixesAreOff) {
  EXPECT_EQ(Shortened("&Save && close&", 160, 0x20), "Save & close");
  EXPECT_EQ(Shortened("&Save && close&", 160, 0x820), "&Save && close&");
  const QRect marked = Ink(Draw("&HH", 0x20), kWhite);
  const QRect plain = Ink(Draw("HH", 0x20), kWhite);
  EXPECT_GT(marked.bottom(), plain.bottom());
}

TEST_F(DrawTextTest, TabsGoToEveryEighthCharacterWhereAsked) {
  const int stop = 8 * metrics.averageCharWidth();
  EXPECT_EQ(MeasureText(metrics, 160, "a\tb", 0x860).width(), stop + WidthOf("b"));
  EXPECT_EQ(MeasureText(metrics, 160, "a\tb", 0x820).width(), WidthOf("a b"));
}

TEST_F(DrawTextTest, ASingleLineKeepsLineEndsInIt) {
  EXPECT_EQ(Shortened("one\r\ntwo", 160, 0x820), "one two");
  EXPECT_EQ(Shortened("one\r\ntwo", 160, 0x800), "one\ntwo");
}

TEST_F(DrawTextTest, AnyTextInAnyAreaIsDrawnSomehow) {
  const QString texts[] = {"", "&", "\t\t", "\n\n\n", QString(100000, 'x'), QString(QChar(0xD800)), "\\", "a\\"};
  for (const QString& text : texts) {
    for (const std::uint32_t flags : {0u, 0x8b65u, 0x4b65u, 0xaa10u, 0x26u, 0x1aa10u, 0xFFFFFu & ~0x400u}) {
      for (const QRect& place : {QRect(), QRect(5, 5, 1, 1), QRect(5, 5, -10, -10)}) {
        QImage image(20, 20, QImage::Format_RGB32);
        QPainter painter(&image);
        QString copy = text;
        DrawText(painter, place, copy, flags);
      }
    }
  }
}

TEST(Fonts, AHeightIsOfTheCellOrOfTheCharacters) {
  struct Row {
    int height;
    int pixels;
  };
  // The cell of this face is 1.117 times as high as its characters, and never higher than asked.
  for (const Row& row : {Row{18, 16}, Row{14, 12}, Row{21, 19}, Row{-18, 18}, Row{-4, 4}}) {
    const auto font = MakeFont("Arial", row.height, 400);
    ASSERT_TRUE(font);
    EXPECT_EQ(font->pixelSize(), row.pixels) << row.height;
  }
}

TEST(Fonts, ArialIsDrawnWithTheMetricCompatibleFaceWhereItIsMissing) {
  const QString drawn = QFontInfo(MakeFont("Arial", 18, 600).value()).family();
  EXPECT_TRUE(drawn == "Arial" || drawn == "Liberation Sans") << drawn.toStdString();
  EXPECT_EQ(MakeFont("arial", 18, 600)->families().last(), "Liberation Sans");
}

TEST(Fonts, AFontThatCannotBeIsNone) {
  EXPECT_FALSE(MakeFont("", 18, 400));
  EXPECT_FALSE(MakeFont(QString(32, 'A'), 18, 400));
  EXPECT_FALSE(MakeFont("Arial", 4001, 400));
  EXPECT_FALSE(MakeFont("Arial", -4001, 400));
  EXPECT_FALSE(MakeFont("Arial", 18, -1));
  EXPECT_FALSE(MakeFont("Arial", 18, 1001));
  EXPECT_TRUE(MakeFont("Arial", 0, 0));
}

TEST(SystemColors, AreThePanelsOwn) {
  EXPECT_EQ(SystemColor(5), 0xFFFFFFu);
  EXPECT_EQ(SystemColor(8), 0u);
  EXPECT_EQ(SystemColor(15), 0xF0F0F0u);
  EXPECT_EQ(SystemColor(99), 0u);
}

}  // namespace
}  // namespace pnl::test
