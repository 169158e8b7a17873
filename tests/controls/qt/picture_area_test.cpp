// SPDX-License-Identifier: MIT
#include "controls/picture_area.h"

#include <gtest/gtest.h>

#include "paint_counter.h"
#include "support/event_wait.h"
#include "support/picture_bytes.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kRed = 0x0000FF;
constexpr std::uint32_t kBlue = 0xFF0000;

class PictureAreaTest : public testing::Test {
 protected:
  PictureAreaTest() {
    area_.resize(200, 100);
    Activate(area_);
  }
  PictureArea area_{nullptr};
};

TEST_F(PictureAreaTest, EveryKindIsPaintedOverTheWholeAreaOrInItsShape) {
  for (const char* format : {"BMP", "PNG", "JPG"}) {
    SCOPED_TRACE(format);
    const std::string bytes = PictureBytes({10, 10}, Qt::red, format);
    ASSERT_TRUE(area_.SetPicture(bytes, PictureFit::kStretch));
    EXPECT_EQ(area_.PictureRect(), QRect(0, 0, 200, 100));
    ASSERT_TRUE(area_.SetPicture(bytes, PictureFit::kKeepShape));
    EXPECT_EQ(area_.PictureRect(), QRect(50, 0, 100, 100));
    const QColor middle = Paint(area_).pixelColor(100, 50);
    EXPECT_GT(middle.red(), 250);
    EXPECT_LT(middle.blue(), 5);
  }
}

TEST_F(PictureAreaTest, ThePictureFollowsTheSizeOfTheArea) {
  ASSERT_TRUE(area_.SetPicture(PictureBytes({10, 10}, Qt::blue, "PNG"), PictureFit::kStretch));
  EXPECT_EQ(Count(Paint(area_), kBlue), 200 * 100);
  area_.resize(60, 40);
  EXPECT_EQ(Count(Paint(area_), kBlue), 60 * 40);
}

TEST_F(PictureAreaTest, BytesThatAreNoPictureShowNothing) {
  ASSERT_TRUE(area_.SetPicture(PictureBytes({10, 10}, Qt::blue, "PNG"), PictureFit::kStretch));
  const std::string whole = PictureBytes({10, 10}, Qt::blue, "PNG");
  for (const std::string& bytes : {std::string("no picture"), std::string(), whole.substr(0, 30)}) {
    EXPECT_FALSE(area_.SetPicture(bytes, PictureFit::kStretch));
    EXPECT_TRUE(area_.IsEmpty());
    EXPECT_EQ(Count(Paint(area_), kBlue), 0);
  }
}

TEST_F(PictureAreaTest, AnAnimatedPictureMovesWhileItIsSeen) {
  ASSERT_TRUE(area_.SetPicture(GifBytes(), PictureFit::kStretch));
  EXPECT_TRUE(area_.IsAnimated());
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(area_), kBlue) > 0; }));
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(area_), kRed) > 0; }));
}

TEST_F(PictureAreaTest, AnAnimatedPictureRestsWhileItIsHiddenAndGoesOnAfterwards) {
  area_.hide();
  ASSERT_TRUE(area_.SetPicture(GifBytes(), PictureFit::kStretch));
  const QMovie* const movie = area_.findChild<QMovie*>();
  EXPECT_EQ(movie, nullptr) << "the area owns it itself";
  EXPECT_EQ(Count(Paint(area_), kRed), 200 * 100) << "the first frame";
  area_.show();
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(area_), kBlue) > 0; }));
}

TEST_F(PictureAreaTest, AnAnimatedPictureThatWasHiddenInTheMiddleGoesOn) {
  ASSERT_TRUE(area_.SetPicture(GifBytes(), PictureFit::kStretch));
  ASSERT_TRUE(RunUntil([this] { return Count(Paint(area_), kBlue) > 0; }));
  area_.hide();
  area_.show();
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(area_), kRed) > 0; }));
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(area_), kBlue) > 0; }));
}

TEST_F(PictureAreaTest, AStillPictureTakesThePlaceOfAnAnimatedOne) {
  ASSERT_TRUE(area_.SetPicture(GifBytes(), PictureFit::kStretch));
  ASSERT_TRUE(area_.SetPicture(PictureBytes({10, 10}, Qt::green, "PNG"), PictureFit::kStretch));
  EXPECT_FALSE(area_.IsAnimated());
  EXPECT_EQ(Count(Paint(area_), 0x00FF00), 200 * 100);
}

TEST_F(PictureAreaTest, AClearedAreaIsPaintedAgain) {
  ASSERT_TRUE(area_.SetPicture(PictureBytes({10, 10}, Qt::blue, "PNG"), PictureFit::kStretch));
  Settle();
  PaintCounter paints(area_);
  area_.Clear();
  Settle();
  EXPECT_GE(paints.Count(), 1);
  EXPECT_TRUE(area_.IsEmpty());
}

TEST_F(PictureAreaTest, AGifOfOneFrameIsAPictureLikeOthers) {
  ASSERT_TRUE(area_.SetPicture(GifBytes(1), PictureFit::kStretch));
  EXPECT_FALSE(area_.IsAnimated());
  EXPECT_EQ(Count(Paint(area_), kRed), 200 * 100);
}

TEST_F(PictureAreaTest, ALargePictureIsDecodedSmaller) {
  ASSERT_TRUE(area_.SetPicture(PictureBytes({6000, 4000}, Qt::red, "JPG"), PictureFit::kKeepShape));
  EXPECT_EQ(area_.PictureRect(), QRect(25, 0, 150, 100));
}

}  // namespace
}  // namespace pnl::test
