// SPDX-License-Identifier: MIT
// How what lies over and above the explorer's list looks: the preview, the sign that more rows are coming, the path.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "explorer/qt/xplr_path_heading.h"
#include "explorer/qt/xplr_preview_pane.h"
#include "support/memory_files.h"
#include "support/widget_probe.h"
#include "window/timers.h"

namespace pnl::test {
namespace {

TEST(XplrPreviewPaneTest, TakesThreeTenthsOfTheListWithinItsLimits) {
  for (const auto& [list, width] :
       {std::pair(0, 280), {933, 280}, {937, 281}, {1000, 300}, {1733, 519}, {1734, 520}, {1740, 520}, {4000, 520}}) {
    EXPECT_EQ(XplrPreviewPane::WidthIn(list), width) << list;
  }
}

class XplrPaneTest : public testing::Test {
 protected:
  XplrPaneTest() {
    pane.resize(300, 200);
    pane.SetLook(18);
  }
  XplrPreviewPane pane{nullptr};
};

TEST_F(XplrPaneTest, HasTheNameInItsHeadAndTheLinesBelowEachOther) {
  pane.Show({true, u"A.NC", {u"HHH", u"HHHH", u"HH"}});
  EXPECT_FALSE(pane.isHidden());
  const QImage image = Paint(pane);
  const int head = QFontMetrics(*MakeFont("Arial", 18, 600)).height() + 8;
  for (int y = 0; y < 200; ++y) EXPECT_EQ(ColorAt(image, 0, y), 4608090u) << "the edge at " << y;
  for (const int x : {1, 299}) {
    EXPECT_EQ(ColorAt(image, x, 0), 8621463u);
    EXPECT_EQ(ColorAt(image, x, head - 1), 8621463u);
    EXPECT_EQ(ColorAt(image, x, head), 0xBEC8D0u);
    EXPECT_EQ(ColorAt(image, x, 199), 0xBEC8D0u);
  }
  const QRect name = Ink(image, 8621463, QRect(1, 0, 299, head));
  EXPECT_NEAR(name.left(), 8, 2);
  EXPECT_NEAR(name.center().y(), head / 2, 3);
  EXPECT_GT(Count(image, 0, QRect(1, 0, 299, head)), 0) << "black";
  const int step = QFontMetrics(*MakeFont("Courier New", 18, 400)).height() + 2;
  QList<QRect> lines;
  for (int line = 0; line < 4; ++line) {
    lines << Ink(image, 0xBEC8D0, QRect(1, head - 1 + 8 + line * step, 299, step));
  }
  EXPECT_NEAR(lines[0].left(), 8, 3);
  EXPECT_GT(lines[1].width(), lines[0].width());
  EXPECT_LT(lines[2].width(), lines[0].width());
  EXPECT_TRUE(lines[3].isEmpty());
  EXPECT_EQ(lines[1].top() - lines[0].top(), step);
  EXPECT_TRUE(Ink(image, 0xBEC8D0, QRect(1, head, 299, 7)).isEmpty()) << "a margin below the head";
}

TEST_F(XplrPaneTest, CutsWhatIsTooWide) {
  pane.Show({true, Text(200, u'H'), {Text(200, u'H')}});
  const QImage image = Paint(pane);
  const int head = QFontMetrics(*MakeFont("Arial", 18, 600)).height() + 8;
  EXPECT_LE(Ink(image, 8621463, QRect(1, 0, 299, head)).right(), 300 - 8);
  const QRect line = Ink(image, 0xBEC8D0, QRect(1, head, 299, 60));
  EXPECT_LE(line.right(), 300 - 8);
  EXPECT_GT(line.right(), 300 - 50) << "an ellipsis near the end";
}

TEST_F(XplrPaneTest, WithoutLinesItLooksLikeTheListWithItsEdge) {
  pane.Show({true, {}, {}});
  const QImage image = Paint(pane);
  EXPECT_EQ(Count(image, 10595253), 299 * 200);
  EXPECT_EQ(Count(image, 4608090), 200);
  pane.Show({false, {}, {}});
  EXPECT_TRUE(pane.isHidden());
}

TEST(XplrComingSignTest, IsThreeDotsInTheMiddleOfAPaleStripBelowTheRows) {
  QWidget ground;
  ground.resize(200, 24);
  auto* sign = new XplrComingSign(&ground);
  EXPECT_TRUE(sign->isHidden()) << "nothing is coming yet";
  EXPECT_EQ(XplrComingSign::kHeight, 24);
  sign->setGeometry(0, 0, 200, 24);
  const QImage image = Paint(*sign);
  for (int x = 0; x < 200; ++x) ASSERT_EQ(ColorAt(image, x, 0), 4608090u) << "its upper edge at " << x;
  for (const int x : {88, 100, 112}) EXPECT_EQ(ColorAt(image, x, 12), 0x303030u) << x;
  for (const int x : {70, 76, 80, 94, 106, 120, 124, 130}) EXPECT_NE(ColorAt(image, x, 12), 0x303030u) << x;
  for (int y = 1; y < 24; ++y) {
    for (int x = 0; x < 200; ++x) ASSERT_GE(image.pixelColor(x, y).red(), 0x30) << "no outline at " << x << " " << y;
  }
  const auto plain = Count(image, 4608090) + Count(image, 0x303030) + Count(image, ColorAt(image, 20, 12));
  EXPECT_LT(plain, 200 * 24) << "the dots have smooth edges";
  const QColor back = image.pixelColor(20, 12);
  EXPECT_NEAR(back.red(), 215, 3) << "the ground is seen a little";
  EXPECT_NEAR(back.green(), 170, 3);
  EXPECT_NEAR(back.blue(), 200, 3);
}

// ---------------------------------------------------------------- the path

class XplrPathHeadingTest : public testing::Test {
 protected:
  XplrPathHeadingTest() {
    heading.resize(400, 30);
    heading.SetColors(0xFFFFFF, 0, false);
    heading.SetFont("Arial", 18, 600);
    heading.SetFormat(0x8864);
    heading.SetTextW("C:\\P100\\SUB", false);
    QObject::connect(&heading, &XplrPathHeading::Touched, &heading,
                     [this](std::size_t at) { touched.push_back(static_cast<int>(at)); });
  }
  [[nodiscard]] static int LeftOf(int character) {
    return 3 + QFontMetrics(*MakeFont("Arial", 18, 600)).horizontalAdvance(QString("C:\\P100\\SUB").left(character));
  }

  MemoryFiles files;
  ManualTimers timers;
  XplrPathHeading heading{1, timers, files, nullptr};
  std::vector<int> touched;
};

TEST_F(XplrPathHeadingTest, ThePiecesThatLeadSomewhereAreUnderlined) {
  const QImage plain = Paint(heading);
  heading.SetLeads(true);
  const QImage leads = Paint(heading);
  QList<int> columns;
  QRect changed;
  for (int y = 0; y < plain.height(); ++y) {
    for (int x = 0; x < plain.width(); ++x) {
      if (plain.pixel(x, y) == leads.pixel(x, y)) continue;
      changed |= QRect(x, y, 1, 1);
      columns << x;
    }
  }
  const int height = QFontMetrics(*MakeFont("Arial", 18, 600)).height();
  EXPECT_EQ(changed.height(), 1);
  EXPECT_EQ(changed.top(), (30 + height) / 2 - 1);
  EXPECT_EQ(changed.left(), LeftOf(0));
  EXPECT_EQ(changed.right(), LeftOf(7) - 1) << "the folder itself isn't";
  EXPECT_TRUE(columns.contains(LeftOf(2) - 1));
  EXPECT_TRUE(columns.contains(LeftOf(3)));
  EXPECT_FALSE(columns.contains((LeftOf(2) + LeftOf(3)) / 2)) << "nor a backslash";
  EXPECT_NEAR(leads.pixelColor(LeftOf(0), changed.top()).red(), 128, 3) << "half as strong as the letters";
  heading.SetLeads(false);
  EXPECT_EQ(Paint(heading), plain);
}

TEST_F(XplrPathHeadingTest, ItIsPaintedAnewWhenItLeadsSomewhere) {
  Activate(heading);
  const PaintCounter paints(heading);
  heading.SetLeads(true);
  Settle();
  EXPECT_GT(paints.Count(), 0);
}

TEST_F(XplrPathHeadingTest, APressTellsTheCharacterUnderTheFinger) {
  const auto press = [&](int x, Qt::MouseButton button = Qt::LeftButton) {
    touched.clear();
    PressMouse(&heading, QPoint(x, 15), QEvent::MouseButtonPress, button);
    return touched;
  };
  EXPECT_TRUE(press(LeftOf(1)).empty()) << "leads nowhere yet";
  heading.SetLeads(true);
  EXPECT_EQ(press(0), std::vector{0}) << "the margin counts";
  for (int at = 0; at < 11; ++at) {
    EXPECT_EQ(press(LeftOf(at)), std::vector{at});
    EXPECT_EQ(press(LeftOf(at + 1) - 1), std::vector{at});
  }
  EXPECT_TRUE(press(LeftOf(11)).empty()) << "beside the path";
  EXPECT_TRUE(press(LeftOf(1), Qt::RightButton).empty());
}

}  // namespace
}  // namespace pnl::test
