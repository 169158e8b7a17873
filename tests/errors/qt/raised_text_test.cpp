// SPDX-License-Identifier: MIT
#include "errors/qt/raised_text_widget.h"

#include <gtest/gtest.h>

#include <QtGui/QPainter>
#include <functional>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "support/widget_probe.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

constexpr Color kBlue = 0xFF0000;
constexpr Color kYellow = 0x00FFFF;

class RaisedText : public testing::Test {
 protected:
  RaisedText() {
    box.resize(120, 40);
    box.SetTextColor(kBlue, false);
    box.SetBkgndColor(kYellow, false);
  }
  ZC3DText box{7, nullptr};
};

TEST_F(RaisedText, StartsEmbossedInTheSystemsColours) {
  ZC3DText fresh(7, nullptr);
  EXPECT_EQ(fresh.GetTextColor(), SystemColor(kColorWindowText));
  EXPECT_EQ(fresh.GetBkgndColor(), SystemColor(kColorWindow));
  QString shown = QStringLiteral("x");
  fresh.GetWindowTextW(shown);
  EXPECT_EQ(shown, QString());
}

TEST_F(RaisedText, AnEmptyTextStillHasItsFrame) {
  box.Use3D(false);
  const QImage image = Paint(box);
  EXPECT_EQ(ColorAt(image, 0, 0), kBlue);
  EXPECT_EQ(ColorAt(image, 119, 39), kBlue);
  EXPECT_EQ(ColorAt(image, 1, 1), kYellow);
  EXPECT_EQ(Count(image, kBlue), 2 * 120 + 2 * 38);
}

TEST_F(RaisedText, WithoutTheRaisedLookTheFrameLiesOnTheEdge) {
  box.Use3D(false);
  EXPECT_EQ(Ink(Paint(box), kYellow), QRect(0, 0, 120, 40));
}

TEST_F(RaisedText, WithTheRaisedLookTheFrameLiesThreeInside) {
  box.Use3D(true);
  const QImage image = Paint(box);
  EXPECT_EQ(ColorAt(image, 3, 3), kBlue);
  EXPECT_EQ(ColorAt(image, 4, 4), kYellow);
  EXPECT_NE(ColorAt(image, 2, 2), kBlue);
}

TEST_F(RaisedText, TheTextStandsInTheMiddle) {
  box.Use3D(false);
  box.SetWindowTextW(QStringLiteral("HHHH"), false);
  const QRect ink = Ink(Paint(box), kYellow, QRect(1, 1, 118, 38));
  EXPECT_NEAR(ink.center().x(), 60, 2);
  EXPECT_NEAR(ink.center().y(), 20, 4);
}

TEST_F(RaisedText, TheRaisedTextHasItsFourShades) {
  box.SetWindowTextW(QStringLiteral("HHHH"), false);
  const QImage raised = Paint(box);
  for (const int color : {kColorDarkShadow, kColorHighlight3D, kColorShadow, kColorLight}) {
    EXPECT_GT(Count(raised, SystemColor(color), QRect(4, 4, 112, 32)), 0) << color;
  }
  box.Use3D(false);
  const QImage flat = Paint(box);
  for (const int color : {kColorDarkShadow, kColorShadow}) EXPECT_EQ(Count(flat, SystemColor(color)), 0) << color;
}

struct Stroke {
  std::uint32_t color;
  int x;
  int y;
};

// The colour numbers are 21, 20, 16 and 22; what is drawn later lies over what was drawn before.
TEST_F(RaisedText, TheRaisedTextIsTwelveShadesInTheirOrderAndTheTextOnTop) {
  constexpr std::uint32_t kNoShade = 0xFFFFFFFF;
  const std::uint32_t dark = SystemColor(21);
  const std::uint32_t high = SystemColor(20);
  const std::uint32_t mid = SystemColor(16);
  const std::uint32_t light = SystemColor(22);
  const Stroke strokes[] = {{dark, -2, 2},  {dark, 2, -2},   {dark, 2, 2},    {high, 1, -2}, {high, -2, 1},
                            {high, -2, -2}, {mid, -1, 1},    {mid, 1, -1},    {mid, 1, 1},   {light, 0, -1},
                            {light, -1, 0}, {light, -1, -1}, {kNoShade, 0, 0}};
  const QFont font = *MakeFont(QStringLiteral("Arial"), 20, QFont::Normal);
  for (const char* shown : {"H", "ERROR 1000", "."}) {
    box.SetFont(QStringLiteral("Arial"), 20, QFont());
    box.SetWindowTextW(QString::fromLatin1(shown), false);
    QImage expected(box.size(), QImage::Format_RGB32);
    expected.fill(box.palette().color(box.backgroundRole()));
    QPainter painter(&expected);
    const QRect area = box.rect().adjusted(3, 3, -3, -3);
    painter.fillRect(area, ToQColor(kBlue));
    painter.fillRect(area.adjusted(1, 1, -1, -1), ToQColor(kYellow));
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const QPoint place((area.width() - metrics.horizontalAdvance(shown)) / 2 + 3 + 3,
                       (area.height() - CellHeight(metrics)) / 2 + 3 + 3 + metrics.ascent());
    for (const Stroke& stroke : strokes) {
      painter.setPen(ToQColor(stroke.color == kNoShade ? kBlue : stroke.color));
      painter.drawText(place + QPoint(stroke.x, stroke.y), shown);
    }
    painter.end();
    EXPECT_EQ(Paint(box), expected) << shown;
  }
}

/// On a screen with two dots to a pixel.
class DenseText : public ZC3DText {
 public:
  using ZC3DText::ZC3DText;

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric which) const override {
    if (which == PdmDevicePixelRatio) return 2;
    if (which == PdmDevicePixelRatioScaled) return static_cast<int>(2 * devicePixelRatioFScale());
    return ZC3DText::metric(which);
  }
};

TEST_F(RaisedText, OnADenseScreenItIsDrawnWithAllDotsAndInItsOwnSize) {
  DenseText dense(7, nullptr);
  dense.resize(120, 40);
  dense.SetTextColor(kBlue, false);
  dense.SetBkgndColor(kYellow, false);
  dense.Use3D(false);
  QImage image(dense.size() * 2, QImage::Format_RGB32);
  image.setDevicePixelRatio(2);
  image.fill(Qt::magenta);
  dense.render(&image);
  // The frame is one pixel wide, so two dots, and lies on the edge of the whole widget.
  EXPECT_EQ(ColorAt(image, 0, 0), kBlue);
  EXPECT_EQ(ColorAt(image, 1, 1), kBlue);
  EXPECT_EQ(ColorAt(image, 2, 2), kYellow);
  EXPECT_EQ(ColorAt(image, 239, 79), kBlue);
  EXPECT_EQ(ColorAt(image, 237, 77), kYellow);
  // Drawn with one dot to a pixel and enlarged, every pixel would be four equal dots.
  dense.SetWindowTextW(QStringLiteral("S8"), false);
  dense.render(&image);
  int fine = 0;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width(); x += 2) {
      fine += ColorAt(image, x, y) != ColorAt(image, x + 1, y) || ColorAt(image, x, y) != ColorAt(image, x, y + 1);
    }
  }
  EXPECT_GT(fine, 20);
}

// What is drawn later lies over what was drawn before, so the light shade reaches further up than any shadow.
TEST_F(RaisedText, TheTextItselfLiesOnTop) {
  box.SetWindowTextW(QStringLiteral("H"), false);
  const QImage image = Paint(box);
  EXPECT_GT(Count(image, kBlue, QRect(5, 5, 110, 30)), 5);
}

TEST_F(RaisedText, AFontWithoutAHeightIsTwentyHigh) {
  box.Use3D(false);
  box.SetWindowTextW(QStringLiteral("Hg"), false);
  box.SetFont(QStringLiteral("Arial"), 20, QFont());
  const QImage twenty = Paint(box);
  box.SetFont(QStringLiteral("Arial"), 0, QFont());
  EXPECT_EQ(Paint(box), twenty);
  box.SetFont(QStringLiteral("Arial"), 30, QFont());
  EXPECT_NE(Paint(box), twenty);
}

TEST_F(RaisedText, ARedrawPaintsAtOnce) {
  struct Watch : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++paints;
      return false;
    }
    int paints = 0;
  } watch;
  Activate(box);
  box.installEventFilter(&watch);
  box.SetTextColor(0x00FF00, true);
  EXPECT_EQ(watch.paints, 1);
  box.SetBkgndColor(0x0000FF, true);
  EXPECT_EQ(watch.paints, 2);
  box.SetWindowTextW(QStringLiteral("now"), true);
  EXPECT_EQ(watch.paints, 3);
  box.SetTextColor(0x0000FF, false);
  box.SetBkgndColor(0x00FF00, false);
  box.SetWindowTextW(QStringLiteral("later"), false);
  EXPECT_EQ(watch.paints, 3);
  box.removeEventFilter(&watch);
}

TEST_F(RaisedText, AnotherLookOrFontIsPaintedSoon) {
  Activate(box);
  const auto paintsAfter = [this](const std::function<void()>& change) {
    const PaintCounter paints(box);
    change();
    EXPECT_EQ(paints.Count(), 0) << "at once";
    Settle();
    return paints.Count();
  };
  EXPECT_EQ(paintsAfter([] {}), 0);
  EXPECT_EQ(paintsAfter([this] { box.Use3D(false); }), 1);
  EXPECT_EQ(paintsAfter([this] { box.SetFont(QStringLiteral("Arial"), 30, QFont()); }), 1);
}

TEST_F(RaisedText, IsReadAloud) {
  box.SetWindowTextW(QStringLiteral("ERROR <b>1000</b>"), false);
  EXPECT_EQ(box.accessibleName(), "ERROR <b>1000</b>");
}

TEST_F(RaisedText, SurvivesAnySize) {
  for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(3, 200), QSize(5, 5), QSize(4000, 10)}) {
    box.resize(size);
    box.SetWindowTextW(QStringLiteral("much too long for so small a box"), false);
    Paint(box);
    box.Use3D(size.width() % 2 == 0);
  }
}

}  // namespace
}  // namespace pnl::test
