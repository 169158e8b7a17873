// SPDX-License-Identifier: MIT
// The check for texts that are hard to read: it finds them in a window and ignores texts that can't be seen.
#include "support/painted_texts.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <functional>

namespace panel {
namespace {

using pnl::test::ContrastRatio;
using pnl::test::PaintedText;
using pnl::test::PaintedTextsOf;

class Canvas : public QWidget {
 public:
  explicit Canvas(std::function<void(QPainter&)> draw) : draw_(std::move(draw)) { resize(400, 100); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::black);
    draw_(painter);
  }

 private:
  const std::function<void(QPainter&)> draw_;
};

std::vector<PaintedText> Seen(const std::function<void(QPainter&)>& draw) {
  Canvas canvas(draw);
  return PaintedTextsOf(canvas);
}

const QRect kPlace(10, 10, 300, 60);

TEST(PaintedTextsTest, TheContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21, 1e-6);
  EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
  EXPECT_NEAR(ContrastRatio(Qt::white, QColor(0x76, 0x76, 0x76)), 4.54, 0.01);
}

TEST(PaintedTextsTest, ATextIsSeenOnItsField) {
  const auto texts = Seen([](QPainter& painter) {
    painter.fillRect(kPlace, Qt::blue);
    painter.setPen(Qt::yellow);
    painter.drawText(kPlace, Qt::AlignCenter, "Start");
  });
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].text, "Start");
  EXPECT_EQ(texts[0].ink, QColor(Qt::yellow));
  EXPECT_EQ(texts[0].field, QColor(Qt::blue));
  EXPECT_NEAR(texts[0].contrast, ContrastRatio(Qt::yellow, Qt::blue), 1e-6);
  EXPECT_TRUE(kPlace.contains(texts[0].place)) << "its letters alone";
}

TEST(PaintedTextsTest, TheLettersAreAsBigAsTheyAreOnTheScreen) {
  struct Row {
    int font;
    double scale;
    int letters;
  };
  for (const Row& row : {Row{20, 1, 20}, Row{20, 0.5, 10}, Row{9, 1, 9}}) {
    const auto texts = Seen([&row](QPainter& painter) {
      QFont font;
      font.setPixelSize(row.font);
      painter.setFont(font);
      painter.scale(row.scale, row.scale);
      painter.drawText(kPlace, Qt::AlignCenter, "Start");
    });
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].letters, row.letters) << row.font;
  }
  QFont points;
  points.setPointSize(12);
  const auto texts = Seen([&points](QPainter& painter) {
    painter.setFont(points);
    painter.drawText(kPlace, Qt::AlignCenter, "Start");
  });
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].letters, 16) << "a point is an inch in 72";
}

TEST(PaintedTextsTest, TheFieldThatIsHardestToReadCounts) {
  const auto texts = Seen([](QPainter& painter) {
    painter.fillRect(QRect(160, 0, 240, 100), QColor(60, 60, 60));
    painter.drawText(kPlace, Qt::AlignCenter, "MMMMMMMM");
  });
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].field, QColor(60, 60, 60));
}

TEST(PaintedTextsTest, ATextInTheColourOfItsFieldHasNoContrast) {
  const auto texts = Seen([](QPainter& painter) {
    painter.setPen(Qt::white);
    painter.drawText(kPlace, Qt::AlignCenter, "Stop");
  });
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_NEAR(texts[0].contrast, 1, 1e-6);
}

TEST(PaintedTextsTest, WhatLetsItsFieldThroughIsPaler) {
  for (const bool byPen : {false, true}) {
    const auto texts = Seen([byPen](QPainter& painter) {
      if (byPen) painter.setPen(QColor(0, 0, 0, 51));
      if (!byPen) painter.setOpacity(0.2);
      painter.drawText(kPlace, Qt::AlignCenter, "Hold");
    });
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_NEAR(texts[0].ink.red(), 204, 1) << byPen;
    EXPECT_LT(texts[0].contrast, 2) << byPen;
  }
}

TEST(PaintedTextsTest, WhatIsCoveredClippedOrBlankIsNoText) {
  EXPECT_TRUE(Seen([](QPainter& painter) {
                painter.drawText(kPlace, Qt::AlignCenter, "covered");
                painter.fillRect(kPlace, Qt::gray);
              }).empty());
  EXPECT_TRUE(Seen([](QPainter& painter) {
                painter.setClipRect(0, 0, 5, 5);
                painter.drawText(kPlace, Qt::AlignCenter, "clipped");
              }).empty());
  EXPECT_TRUE(Seen([](QPainter& painter) { painter.drawText(kPlace, Qt::AlignCenter, "  "); }).empty());
}

TEST(PaintedTextsTest, ASelectionHasItsOwnColours) {
  QPlainTextEdit edit;
  edit.resize(300, 100);
  QPalette colors;
  colors.setColor(QPalette::Base, Qt::white);
  colors.setColor(QPalette::Text, Qt::black);
  colors.setColor(QPalette::Highlight, Qt::darkBlue);
  colors.setColor(QPalette::HighlightedText, Qt::yellow);
  edit.setPalette(colors);
  edit.setPlainText("G0 X1");
  edit.selectAll();
  const auto texts = PaintedTextsOf(edit);
  ASSERT_FALSE(texts.empty());
  for (const PaintedText& text : texts) {
    EXPECT_EQ(text.ink, QColor(Qt::yellow)) << text.text.toStdString();
    EXPECT_EQ(text.field, QColor(Qt::darkBlue)) << text.text.toStdString();
  }
}

TEST(PaintedTextsTest, ChildrenAreSeenWhereTheyAre) {
  QWidget window;
  window.resize(300, 100);
  QLabel label("Reset", &window);
  label.setGeometry(100, 40, 100, 30);
  const auto texts = PaintedTextsOf(window);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_TRUE(label.geometry().contains(texts[0].place));
}

}  // namespace
}  // namespace panel
