// SPDX-License-Identifier: MIT
#include "controls/zwc_static.h"

#include <set>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "paint_counter.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kFrame = 0x0000FF;
constexpr std::uint32_t kBack = 0x804020;
constexpr std::uint32_t kInk = 0x00FFFF;

class KnownFiles final : public Files {
 public:
  std::set<Text> known;
  FileInfo Query(TextView path) const override {
    FileInfo info;
    info.exists = known.count(Text(path)) != 0;
    return info;
  }
  std::unique_ptr<FileReader> OpenRead(TextView, FileStatus*) const override { return nullptr; }
  FileStatus CanReplace(TextView) const override { return FileStatus::kDenied; }
  FileStatus Replace(TextView, std::string_view) override { return FileStatus::kDenied; }
  FileStatus MakeFolder(TextView) override { return FileStatus::kDenied; }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }
};

class ZWCStaticTest : public testing::Test {
 protected:
  ZWCStaticTest() {
    box.resize(100, 30);
    box.SetFont("Arial", 18, 600);
    box.SetColors(kFrame, kBack, kInk, false);
  }
  void ShowIt() {
    box.show();
    Settle();
  }
  ManualTimers timers;
  KnownFiles files;
  ZWCStatic box{5003, timers, files, nullptr};
};

TEST_F(ZWCStaticTest, AFormatThatWasSetStaysWhateverTextAndWidthAre) {
  constexpr std::uint32_t kSet = 0x25;
  box.SetFormat(kSet);
  box.SetTextW("short", true);
  EXPECT_EQ(box.Format(), kSet);
  box.SetTextW("a text that is far too long for a box of this width", true);
  EXPECT_EQ(box.Format(), kSet);
  ShowIt();
  box.resize(20, 30);
  EXPECT_EQ(box.Format(), kSet);
}

TEST_F(ZWCStaticTest, StartsWhiteWithBlackTextAndTheTitlesFormat) {
  const ZWCStatic fresh(1, timers, files, nullptr);
  Color frame = 1;
  Color back = 1;
  Color text = 1;
  fresh.GetColors(frame, back, text);
  EXPECT_EQ(frame, 0xFFFFFFu);
  EXPECT_EQ(back, 0xFFFFFFu);
  EXPECT_EQ(text, 0u);
  EXPECT_EQ(fresh.Format(), 0x8b65u);
  EXPECT_FALSE(fresh.IsLocked());
  EXPECT_FALSE(fresh.IsBlinking());
}

TEST_F(ZWCStaticTest, AFrameOfOneUnitGoesRoundTheBackground) {
  const QImage image = Paint(box);
  EXPECT_EQ(Count(image, kFrame), 2 * 100 + 2 * 28);
  EXPECT_EQ(Count(image, kFrame, QRect(1, 1, 98, 28)), 0);
  EXPECT_EQ(ColorAt(image, 1, 1), kBack);
  EXPECT_EQ(ColorAt(image, 98, 28), kBack);
}

TEST_F(ZWCStaticTest, WithFrameAndBackgroundAlikeNoFrameShows) {
  box.SetColors(kBack, kInk, false);
  EXPECT_EQ(Count(Paint(box), kBack), 100 * 30);
}

TEST_F(ZWCStaticTest, TheTextIsCentredInItsColour) {
  box.SetTextW("HHHH", true);
  const QRect ink = Ink(Paint(box), kBack, QRect(1, 1, 98, 28));
  EXPECT_NEAR(ink.center().x(), 50, 2);
  EXPECT_NEAR(ink.center().y(), 15, 2);
  EXPECT_GT(Count(Paint(box), kInk), 20);
}

TEST_F(ZWCStaticTest, SingleColoursChangeOneEach) {
  box.SetFrameColor(1);
  box.SetBackColor(2);
  box.SetTextColor(3);
  Color frame = 0;
  Color back = 0;
  Color text = 0;
  box.GetColors(frame, back, text);
  EXPECT_EQ(frame, 1u);
  EXPECT_EQ(back, 2u);
  EXPECT_EQ(text, 3u);
}

TEST_F(ZWCStaticTest, ALockedOneIgnoresTextFontAndColours) {
  box.SetTextW("before", false);
  const QImage before = Paint(box);
  box.Lock();
  box.SetTextW("after", true);
  box.SetFont("Arial", 30, 900);
  box.SetColors(1, 2, 3, true);
  box.SetColors(4, 5, true);
  box.SetFrameColor(6);
  box.SetBackColor(7);
  box.SetTextColor(8);
  EXPECT_EQ(box.WindowText(), "before");
  EXPECT_EQ(Paint(box), before);
  box.Unlock();
  box.SetTextW("after", true);
  EXPECT_EQ(box.WindowText(), "after");
}

TEST_F(ZWCStaticTest, WithoutRedrawNothingIsPainted) {
  ShowIt();
  PaintCounter paints(box);
  box.SetTextW("a", false);
  box.SetColors(1, 2, 3, false);
  box.SetColors(4, 5, false);
  box.SetFormat(0x8866);
  Settle();
  EXPECT_EQ(paints.Count(), 0);
  const std::function<void()> redraws[] = {
      [this] { box.SetTextW("b", true); },   [this] { box.SetColors(1, 2, 3, true); },
      [this] { box.SetColors(4, 5, true); }, [this] { box.SetFrameColor(6); },
      [this] { box.SetBackColor(7); },       [this] { box.SetTextColor(8); },
      [this] { box.SetPlusSign(); },         [this] { box.SetBlink(true, 0); },
      [this] { box.SetBlink(false, 0); }};
  int expected = 0;
  for (const auto& redraw : redraws) {
    redraw();
    Settle();
    EXPECT_EQ(paints.Count(), ++expected);
  }
  box.SetPlusSign();
  Settle();
  EXPECT_EQ(paints.Count(), expected) << "nothing changes";
}

TEST_F(ZWCStaticTest, ThePlusSignIsEighteenWideWithArmsOfSix) {
  box.resize(30, 30);
  box.SetPlusSign();
  box.SetTextW("MORE!", false);
  const QImage image = Paint(box);
  // The rectangle inside the frame is 28 wide: 10 are left over, 5 on either side.
  const int x = 1 + 5;
  const int y = 1 + 5;
  QImage expected(30, 30, QImage::Format_RGB32);
  for (int row = 0; row < 30; ++row) {
    for (int column = 0; column < 30; ++column) {
      const bool frame = row == 0 || row == 29 || column == 0 || column == 29;
      const int right = column - x;
      const int down = row - y;
      const bool across = right >= 0 && right < 18 && down >= 6 && down < 12;
      const bool upright = down >= 0 && down < 18 && right >= 6 && right < 12;
      EXPECT_EQ(ColorAt(image, column, row), frame ? kFrame : across || upright ? kInk : kBack) << column << "," << row;
    }
  }
  EXPECT_EQ(Count(image, kInk), 18 * 6 + 2 * 6 * 6);
}

TEST_F(ZWCStaticTest, APlusSignInASmallAreaIsCutAndNotScaled) {
  box.resize(14, 14);
  box.SetPlusSign();
  const QImage image = Paint(box);
  // 12 inside the frame: the sign hangs over by 3 on either side, and its arms reach the frame.
  EXPECT_EQ(Count(image, kInk), 12 * 6 + 2 * 3 * 6);
  EXPECT_EQ(ColorAt(image, 1, 7), kInk);
  EXPECT_EQ(ColorAt(image, 12, 7), kInk);
  EXPECT_EQ(ColorAt(image, 0, 7), kFrame);
  EXPECT_EQ(ColorAt(image, 2, 2), kBack);
}

TEST_F(ZWCStaticTest, WithoutRoomThereIsNoSignAndNoCrash) {
  box.SetPlusSign();
  for (const QSize& size : {QSize(2, 2), QSize(1, 1), QSize(0, 0), QSize(1, 30)}) {
    box.resize(size);
    EXPECT_EQ(Count(Paint(box), kInk), 0);
  }
}

TEST_F(ZWCStaticTest, BlinkingDrawsASolidTriangleEveryOtherPaint) {
  box.SetBlink(true, 800);
  EXPECT_TRUE(box.Phase());
  const QImage on = Paint(box);
  EXPECT_FALSE(box.Phase());
  // In a strip 20 wide inside the frame, shrunk by 4, 12 wide and high, its tip to the right at half height.
  const QRect strip(1, 1, 20, 28);
  const QRect ink = Ink(on, kBack, strip);
  EXPECT_EQ(ink.left(), 5);
  EXPECT_NEAR(ink.width(), 12, 1);
  EXPECT_NEAR(ink.height(), 12, 1);
  EXPECT_NEAR(ink.center().y(), 15, 1);
  EXPECT_EQ(ColorAt(on, 15, 15), kInk);
  EXPECT_EQ(ColorAt(on, 15, 10), kBack);
  EXPECT_NEAR(Count(on, kInk, strip), 12 * 12 / 2, 10);
  EXPECT_EQ(Count(Paint(box), kInk, strip), 0);
  EXPECT_TRUE(box.Phase());
}

TEST_F(ZWCStaticTest, TheTextStaysBehindTheStripInBothPhases) {
  box.SetColors(kBack, kInk, false);
  box.SetTextW("HHHH", false);
  box.SetBlink(true, 800);
  const QRect behind(20, 0, 80, 30);
  const QRect with = Ink(Paint(box), kBack, behind);
  EXPECT_EQ(Ink(Paint(box), kBack, behind), with);
  EXPECT_NEAR(with.center().x(), 60, 2);
}

TEST_F(ZWCStaticTest, SetBlinkTwiceStartsOneTimer) {
  box.SetBlink(true, 800);
  Paint(box);
  box.SetBlink(true, 400);
  EXPECT_EQ(timers.Running(), 1u);
  EXPECT_EQ(box.Period(), 800) << "one that blinks already goes on as it did";
  EXPECT_FALSE(box.Phase());
  box.SetBlink(false, 0);
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_FALSE(box.Phase());
  EXPECT_FALSE(box.IsBlinking());
  EXPECT_EQ(Count(Paint(box), kInk), 0);
}

TEST_F(ZWCStaticTest, APeriodOfNothingStartsNoTimer) {
  box.SetBlink(true, 0);
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_TRUE(box.IsBlinking());
}

TEST_F(ZWCStaticTest, EveryTickPaintsOnce) {
  ShowIt();
  box.SetBlink(true, 800);
  Settle();
  const bool phase = box.Phase();
  timers.Advance(799);
  EXPECT_EQ(box.Phase(), phase);
  timers.Advance(1);
  EXPECT_EQ(box.Phase(), !phase);
  timers.Advance(1600);
  EXPECT_EQ(box.Phase(), !phase);
}

TEST_F(ZWCStaticTest, AHiddenOneDoesNotAdvance) {
  box.SetBlink(true, 800);
  timers.Advance(80000);
  EXPECT_TRUE(box.Phase());
}

TEST_F(ZWCStaticTest, TheTimerEndsWithTheControl) {
  {
    ZWCStatic gone(1, timers, files, nullptr);
    gone.SetBlink(true, 800);
    EXPECT_EQ(timers.Running(), 1u);
  }
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(ZWCStaticTest, TheFitModesChooseTheFormat) {
  const QString known = "C:\\Programs\\Customer\\Fixture\\part.nc";
  const QString knownLong = "C:\\a\\a very long name of a program that fits nowhere.nc";
  files.known = {known.toStdU16String(), knownLong.toStdU16String()};
  struct Row {
    const char* name;
    bool path;
    QString text;
    std::uint32_t format;
  };
  const Row rows[] = {{"a path that fits", true, "C:\\a.nc", 0xb65},
                      {"a known path whose last part fits", true, known, 0x4b65},
                      {"a known path whose last part is too long", true, knownLong, 0x8b65},
                      {"nothing that exists", true, "C:\\Programs\\Customer\\Fixture\\none.nc", 0x8b65},
                      {"words that fit", false, "a few", 0xb65},
                      {"words that don't", false, "a good many words that need lines", 0xaa10}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    row.path ? box.SetPathFit() : box.SetWrapFit();
    box.SetTextW(row.text, true);
    EXPECT_EQ(box.Format(), row.format);
    Paint(box);
  }
}

TEST_F(ZWCStaticTest, ATextIsFittedInTheControlsOwnFont) {
  box.SetWrapFit();
  box.SetTextW("a few", false);
  EXPECT_EQ(box.Format(), 0xb65u);
  box.SetFont("Arial", 60, 600);
  box.SetTextW("a few", false);
  EXPECT_EQ(box.Format(), 0xaa10u);
}

TEST_F(ZWCStaticTest, IsPaintedWholeAfterItHasGrown) {
  Paint(box);
  box.resize(200, 60);
  const QImage image = Paint(box);
  EXPECT_EQ(ColorAt(image, 199, 59), kFrame);
  EXPECT_EQ(ColorAt(image, 150, 50), kBack);
}

TEST_F(ZWCStaticTest, AFormatSetByHandEndsTheFitting) {
  box.SetPathFit();
  box.SetFormat(0x8866);
  box.SetTextW("a text that is much too long for the box", true);
  EXPECT_EQ(box.Format(), 0x8866u);
}

TEST_F(ZWCStaticTest, WrappedTextIsCentredBothWays) {
  box.resize(120, 80);
  box.SetColors(kBack, kInk, false);
  box.SetWrapFit();
  box.SetTextW("HHHH HHHH HHHH HHHH", true);
  const QRect ink = Ink(Paint(box), kBack);
  EXPECT_GT(ink.height(), 20);
  EXPECT_NEAR(ink.center().x(), 60, 4);
  EXPECT_NEAR(ink.center().y(), 40, 4);
}

TEST_F(ZWCStaticTest, APressOnItIsOneOnItsParent) {
  class Parent : public QWidget {
   public:
    int presses = 0;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
  } parent;
  ZWCStatic child(3003, timers, files, &parent);
  PressMouse(&child, QPoint(2, 2));
  EXPECT_EQ(parent.presses, 1);
}

TEST_F(ZWCStaticTest, ShowsItsStateToThePanel) {
  box.SetBlink(true, 800);
  EXPECT_EQ(box.property("pnlId").toInt(), 5003);
  EXPECT_EQ(box.property("pnlKind").toString(), "static");
  EXPECT_EQ(box.property("pnlFrame").toUInt(), kFrame);
  EXPECT_EQ(box.property("pnlBack").toUInt(), kBack);
  EXPECT_EQ(box.property("pnlFore").toUInt(), kInk);
  EXPECT_TRUE(box.property("pnlBlinking").toBool());
  EXPECT_TRUE(box.property("pnlPhase").toBool());
  EXPECT_EQ(box.property("pnlPeriod").toInt(), 800);
}

}  // namespace
}  // namespace pnl::test
