// SPDX-License-Identifier: MIT
// The panel's colours, fonts and sizes, and the ways in which it draws texts.
#include "ui/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWidget>

#include "panel/qt/picture.h"

namespace panel {
namespace {

using theme::Font;

int WidthOf(const QString& text, const QFont& font) { return QFontMetrics(font).horizontalAdvance(text); }

TEST(ThemeTest, TheWholeProgramIsDark) {
  const QPalette before = QApplication::palette();
  const QFont font = QApplication::font();
  theme::Apply(*qApp);
  const struct {
    QPalette::ColorRole role;
    QRgb color;
    QRgb disabled;
  } rows[] = {{QPalette::Window, theme::kBackground, theme::kBackground},
              {QPalette::WindowText, theme::kText, theme::kFaint},
              {QPalette::Base, theme::kSurface, theme::kSurface},
              {QPalette::AlternateBase, theme::kRaised, theme::kRaised},
              {QPalette::Text, theme::kText, theme::kFaint},
              {QPalette::PlaceholderText, theme::kMuted, theme::kMuted},
              {QPalette::Button, theme::kRaised, theme::kRaised},
              {QPalette::ButtonText, theme::kText, theme::kFaint},
              {QPalette::BrightText, theme::kRed, theme::kRed},
              {QPalette::Highlight, theme::kPressed, theme::kPressed},
              {QPalette::HighlightedText, theme::kText, theme::kText},
              {QPalette::ToolTipBase, theme::kRaised, theme::kRaised},
              {QPalette::ToolTipText, theme::kText, theme::kText},
              {QPalette::Link, theme::kAccent, theme::kAccent}};
  for (const auto& row : rows) {
    EXPECT_EQ(QApplication::palette().color(QPalette::Active, row.role), QColor(row.color)) << row.role;
    EXPECT_EQ(QApplication::palette().color(QPalette::Disabled, row.role), QColor(row.disabled)) << row.role;
  }
  EXPECT_EQ(QApplication::font(), Font(15));
  EXPECT_EQ(QApplication::cursorFlashTime(), 0);
  const auto* style = qobject_cast<const QProxyStyle*>(QApplication::style());
  ASSERT_NE(style, nullptr);
  EXPECT_EQ(style->baseStyle()->name().toLower(), "fusion");
  QApplication::setPalette(before);
  QApplication::setFont(font);
}

TEST(ThemeTest, AScrollBarAndItsHandleAreForAFinger) {
  theme::Apply(*qApp);
  QScrollBar bar(Qt::Vertical);
  bar.setRange(0, 1'000'000);
  bar.resize(bar.sizeHint().width(), 500);
  QStyleOptionSlider option;
  option.initFrom(&bar);
  option.orientation = Qt::Vertical;
  option.maximum = bar.maximum();
  option.pageStep = 10;
  const QRect handle = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
  EXPECT_EQ(handle.size(), QSize(theme::TouchPixels(bar), theme::TouchPixels(bar)));
}

TEST(ThemeTest, AFontHasTheHeightAskedForAndNoLessThanSix) {
  EXPECT_EQ(Font(20).pixelSize(), 20);
  EXPECT_EQ(Font(6).pixelSize(), 6);
  EXPECT_EQ(Font(5).pixelSize(), 6);
  EXPECT_EQ(theme::MonoFont(20).pixelSize(), 20);
  EXPECT_EQ(theme::MonoFont(6).pixelSize(), 6);
  EXPECT_EQ(theme::MonoFont(5).pixelSize(), 6);
  EXPECT_EQ(Font(20).weight(), QFont::Normal);
  EXPECT_EQ(Font(20, true).weight(), QFont::DemiBold);
  EXPECT_TRUE(QFontInfo(theme::MonoFont(20)).fixedPitch());
}

TEST(ThemeTest, AFittingFontIsTheBiggestInWhichTheTextIsNotCut) {
  for (const QString text : {"12.5", "a rather long text", "WWWW", "-0000.000", "ill"}) {
    for (const bool bold : {false, true}) {
      for (int width = 5; width < 200; width += 3) {
        const int pixels = theme::FittingFont(text, width, 40, 8, bold).pixelSize();
        EXPECT_TRUE(pixels == 8 || WidthOf(text, Font(pixels, bold)) < width) << text.toStdString() << width;
        EXPECT_TRUE(pixels == 40 || WidthOf(text, Font(pixels + 1, bold)) >= width) << text.toStdString() << width;
        EXPECT_TRUE(pixels >= 8 && pixels <= 40);
        EXPECT_EQ(theme::FittingFont(text, width, 40, 8, bold).weight(), Font(8, bold).weight());
      }
    }
    const int exact = WidthOf(text, Font(30));
    EXPECT_EQ(theme::FittingFont(text, exact + 1, 30, 8).pixelSize(), 30);
    EXPECT_LT(theme::FittingFont(text, exact, 30, 8).pixelSize(), 30) << "a fraction wider, and it would be cut";
  }
  EXPECT_EQ(theme::FittingFont("", 1, 30, 8).pixelSize(), 30) << "nothing needs no room";
  EXPECT_EQ(theme::FittingFont("", 0, 30, 8).pixelSize(), 8);
  EXPECT_EQ(theme::FittingFont("a", 500, 5, 9).pixelSize(), 9);
}

TEST(ThemeTest, AKeyIsNineMillimetresAndNeverLessThanThirtyFourPixels) {
  const struct {
    double dotsPerInch;
    int pixels;
  } rows[] = {{96, 35},
              {72, 34},
              {127, 45},
              {160, 57},
              {220, 78},
              {40, 34},
              {800, 284},
              {39.9, 35},
              {800.1, 35},
              {-96, 35},
              {std::numeric_limits<double>::infinity(), 35}};
  for (const auto& row : rows) EXPECT_EQ(theme::TouchPixels(row.dotsPerInch), row.pixels) << row.dotsPerInch;
}

TEST(ThemeTest, AWidthThatIsSetGoesBeforeWhatTheScreenReports) {
  const QWidget widget;
  const double pixels = widget.screen()->size().width();
  const double reported = widget.screen()->physicalDotsPerInch();
  theme::SetScreenWidth(pixels * theme::kMillimetresPerInch / 150);
  EXPECT_NEAR(theme::DensityOf(widget), 150, 1e-9);
  EXPECT_EQ(theme::TouchPixels(widget), theme::TouchPixels(150.0));
  for (const double impossible : {0.0, -300.0, pixels * theme::kMillimetresPerInch / 39, pixels / 50, 1e300}) {
    theme::SetScreenWidth(impossible);
    EXPECT_EQ(theme::DensityOf(widget), reported) << impossible;
  }
  theme::SetScreenWidth(0);
}

TEST(ThemeTest, ColoursOfThePanelAndOfTheTools) {
  EXPECT_EQ(theme::FromColorRef(0x123456), QColor(0x56, 0x34, 0x12));
  EXPECT_EQ(theme::InkOn(Qt::white), QColor(theme::kDark));
  EXPECT_EQ(theme::InkOn(Qt::black), QColor(theme::kText));
  EXPECT_EQ(theme::LatchedOf(theme::kGreen), QColor(theme::kGreen).darker(170));
  EXPECT_EQ(theme::HoverOf(theme::kGreen), QColor(theme::kGreen).darker(112)) << "away from its bright ink";
  EXPECT_EQ(theme::HoverOf(theme::kAmber), QColor(theme::kAmber).lighter(112)) << "away from its dark ink";
}

TEST(ThemeTest, ContrastFollowsTheCurveOfEachColour) {
  const struct {
    QColor color;
    double onBlack;
  } rows[] = {{QColor(255, 0, 0), 5.252},     {QColor(0, 255, 0), 15.304},  {QColor(0, 0, 255), 2.444},
              {QColor(128, 128, 128), 5.317}, {QColor(10, 10, 10), 1.0607}, {QColor(11, 11, 11), 1.0669}};
  for (const auto& row : rows) {
    EXPECT_NEAR(theme::Contrast(row.color, Qt::black), row.onBlack, 0.001) << row.color.name().toStdString();
  }
}

TEST(ThemeTest, AFieldLiesWithinItsRectangle) {
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.setPen(Qt::yellow);
  theme::DrawField(painter, {2, 3, 10, 8}, Qt::red, Qt::green, 0);
  EXPECT_EQ(painter.pen().color(), QColor(Qt::yellow)) << "the painter is as before";
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
  painter.end();
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 20; ++x) {
      const bool inside = x >= 2 && x < 12 && y >= 3 && y < 11;
      const bool edge = inside && (x == 2 || x == 11 || y == 3 || y == 10);
      if (edge) {
        EXPECT_GT(image.pixelColor(x, y).green(), 100) << x << "," << y;
      } else {
        EXPECT_EQ(image.pixelColor(x, y), inside ? QColor(Qt::red) : QColor(Qt::black)) << x << "," << y;
      }
    }
  }
}

TEST(ThemeTest, AnArrowFillsTheShorterSideAndLeavesThePainterAsItWas) {
  const auto drawn = [](const QRect& rect, Qt::ArrowType direction) {
    return pnl::test::Drawn([&](QPainter& painter) {
      painter.setPen(Qt::yellow);
      theme::DrawArrow(painter, rect, direction, Qt::white);
      painter.drawPolygon(QPolygonF({{1, 1}, {2, 2}, {1, 3}}));
    });
  };
  const std::string after = "polygon 1,1 2,2 1,3 edge #ffffff00 of 1";
  EXPECT_EQ(drawn({10, 20, 200, 100}, Qt::RightArrow),
            (Strokes{"polygon 155,70 75,20 75,120 fill #ffffffff smooth", after}));
  EXPECT_EQ(drawn({10, 20, 100, 200}, Qt::DownArrow),
            (Strokes{"polygon 60,165 110,85 10,85 fill #ffffffff smooth", after}));
  EXPECT_EQ(drawn({10, 20, 200, 100}, Qt::LeftArrow),
            (Strokes{"polygon 65,70 145,120 145,20 fill #ffffffff smooth", after}));
  EXPECT_EQ(drawn({10, 20, 100, 200}, Qt::UpArrow),
            (Strokes{"polygon 60,75 10,155 110,155 fill #ffffffff smooth", after}));
}

TEST(ThemeTest, WhereThereIsNoRoomNothingIsWritten) {
  for (const QRect& rect : {QRect(0, 0, 0, 20), QRect(0, 0, 100, 0), QRect(0, 0, -1, 20)}) {
    EXPECT_TRUE(Pictured([&](Picture& p) { p.Left(rect, "text", Font(16), theme::kText); }).empty());
    EXPECT_TRUE(Pictured([&](Picture& p) { p.Paragraph(rect, Qt::AlignCenter, "text", Font(16), Qt::white); }).empty());
  }
  EXPECT_EQ(Pictured([&](Picture& p) { p.Left({0, 0, 100, 1}, "text", Font(16), theme::kText); }).size(), 1u);
  EXPECT_FALSE(Pictured([&](Picture& p) {
                 p.Paragraph({0, 0, 1, 1}, Qt::AlignCenter, "t", Font(16), Qt::white);
               }).empty());
}

TEST(ThemeTest, ALineThatIsTooLongIsCutWhereItIsTold) {
  const QString text = "C:\\FOLDER\\FOLDER\\FOLDER\\PART.NC";
  const auto shown = [&](Qt::TextElideMode cut) {
    pnl::test::TextCatcher catcher(QSize(500, 100));
    QPainter painter(&catcher);
    theme::DrawText(painter, {0, 0, 120, 20}, Qt::AlignLeft, text, Font(16), Qt::white, cut);
    painter.end();
    return catcher.Texts().join("");
  };
  EXPECT_TRUE(shown(Qt::ElideRight).startsWith("C:\\FOLD"));
  EXPECT_TRUE(shown(Qt::ElideRight).endsWith(QChar(0x2026)));
  EXPECT_TRUE(shown(Qt::ElideMiddle).endsWith("NC"));
  EXPECT_LT(shown(Qt::ElideRight).size(), text.size());
}

/// How a paragraph without its middle is made: so many characters at the beginning and at the end.
QString Without(const QString& text, qsizetype first, qsizetype last) {
  return text.left(first) + QChar(0x2026) + text.right(last);
}

TEST(ParagraphTest, ATextOfAnyLengthCostsNoMoreThanFourThousandCharacters) {
  const QSize huge(100'000, 20'000);
  const QString most = QString("word ").repeated(800);
  EXPECT_EQ(theme::ParagraphIn(most, Font(8), huge), most);
  const QString more = "begin" + most + "the end";
  EXPECT_EQ(theme::ParagraphIn(more, Font(8), huge), Without(more, 2000, 2000));
}

TEST(ParagraphTest, WhatIsLeftOutIsNoMoreThanItMustBe) {
  QString text;
  for (int i = 0; i < 120; ++i) text += QStringLiteral("word%1 ").arg(i);
  const QFont font = Font(16);
  for (const QSize field : {QSize(200, 20), QSize(200, 41), QSize(333, 60), QSize(90, 200)}) {
    const QString shown = theme::ParagraphIn(text, font, field);
    const qsizetype first = shown.indexOf(QChar(0x2026));
    const qsizetype last = shown.size() - first - 1;
    ASSERT_GT(first, 0);
    EXPECT_TRUE(first == last || first == last + 1) << "the odd one at the beginning";
    EXPECT_EQ(shown, Without(text, first, last));
    EXPECT_EQ(theme::ParagraphIn(shown, font, field), shown) << "it fits";
    const QString longer = Without(text, first + (first == last ? 1 : 0), last + (first == last ? 0 : 1));
    EXPECT_NE(theme::ParagraphIn(longer, font, field), longer) << "and one more character doesn't";
  }
}

TEST(ParagraphTest, ALineEndBreaksALine) {
  const auto strokes = Pictured([](Picture& p) {
    p.Paragraph({0, 0, 400, 100}, Qt::AlignLeft | Qt::AlignTop, "one\ntwo", Font(16), Qt::white);
  });
  ASSERT_EQ(strokes.size(), 2u);
  EXPECT_THAT(strokes[0], ::testing::HasSubstr("'one"));
  EXPECT_THAT(strokes[1], ::testing::HasSubstr("'two"));
}

TEST(ParagraphTest, APairOfUnitsGoesWhole) {
  const QString face = QString::fromUtf8("\xF0\x9F\x98\x80");
  for (const int lead : {0, 1}) {
    const QString text = QString(lead, 'a') + face.repeated(2200) + QString(lead, 'b');
    const QString shown = theme::ParagraphIn(text, Font(8), QSize(400'000, 20'000));
    EXPECT_TRUE(shown.isValidUtf16()) << lead;
    const qsizetype first = shown.indexOf(QChar(0x2026));
    EXPECT_EQ(first, lead == 0 ? 2000 : 1999);
    EXPECT_EQ(shown.size() - first - 1, lead == 0 ? 2000 : 1999) << "what would be cut goes";
  }
}

}  // namespace
}  // namespace panel
