// SPDX-License-Identifier: MIT
#include "controls/list_note.h"

#include <vector>

#include "support/widget_probe.h"

namespace pnl::test {
namespace {

/// A note drawn in black on white, ten times as large as on the screen.
QImage LargeNote(const QRect& row, const ListNote& note, QRect& rest) {
  QImage image((row.right() + 1) * 10, (row.bottom() + 1) * 10, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(10, 10);
  const QTransform scaled = painter.transform();
  rest = DrawNote(painter, row, note);
  EXPECT_EQ(painter.transform(), scaled) << "the painter is as before";
  EXPECT_EQ(painter.pen(), QPen());
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
  return image;
}

TEST(ListNoteTest, EachSignHasItsShape) {
  struct Point {
    double x;
    double y;
    bool ink;
  };
  const struct {
    ListSign sign;
    std::vector<Point> points;  // in a square of 16
  } rows[] = {
      {ListSign::kPin,
       {{9.2, 3.1, true},
        {13.4, 6.8, true},
        {12.95, 7.75, true},
        {11.4, 8.6, false},
        {9.5, 11.2, false},
        {8, 11.6, true},
        {4.5, 8.1, true},
        {4.8, 6.5, false},
        {7.4, 4.6, false},
        {8.2, 3.1, true},
        {2, 2, false},
        {3, 13, true},
        {3.42, 13.42, true}}},
      {ListSign::kCross,
       {{8, 8, true},
        {4, 4, true},
        {12, 12, true},
        {4, 12, true},
        {12, 4, true},
        {5, 6.2, true},
        {2.3, 2.3, true},
        {3, 1.45, false},
        {8, 3, false},
        {3, 8, false}}},
  };
  for (const auto& row : rows) {
    QRect rest;
    const QImage image = LargeNote(QRect(0, 0, 64, 18), {u"", row.sign}, rest);
    for (const Point& point : row.points) {
      const int x = static_cast<int>((48 + point.x) * 10);
      const int y = static_cast<int>(point.y * 10);
      EXPECT_EQ(image.pixelColor(x, y).lightness() < 128, point.ink) << point.x << " " << point.y;
    }
    EXPECT_LT(Count(image, 0) + Count(image, 0xFFFFFF), 640 * 180) << "its edges are soft";
    EXPECT_EQ(rest, QRect(0, 0, 36, 18)) << "the item ends before it, with a gap";
  }
}

TEST(ListNoteTest, ANarrowRowKeepsItsLeftHalfFromTheSign) {
  QRect rest;
  const QImage image = LargeNote(QRect(0, 0, 12, 18), {u"", ListSign::kCross}, rest);
  EXPECT_TRUE(QRect(60, 0, 60, 180).contains(Ink(image, 0xFFFFFF)));
  EXPECT_EQ(rest, QRect(0, 0, 6, 18));
}

TEST(ListNoteTest, TheItemHasTheRestOfItsRow) {
  QImage image(200, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const QRect row(0, 0, 200, 40);
  EXPECT_EQ(DrawNote(painter, row, {}), row);
  const int width = painter.fontMetrics().horizontalAdvance("88");
  EXPECT_EQ(DrawNote(painter, row, {u"88", ListSign::kNone}).right(), 199 - width - 12);
  image.fill(Qt::white);
  EXPECT_EQ(DrawNote(painter, row, {u"88", ListSign::kPin}).right(), 178 - width - 12);
  const QRect words = Ink(image, 0xFFFFFF, QRect(0, 0, 184, 40));
  EXPECT_GT(words.right(), 178 - width) << "the words end six pixels before the sign";
  EXPECT_LE(words.right(), 178);
}

}  // namespace
}  // namespace pnl::test
