// SPDX-License-Identifier: MIT
// How big a thing is that a finger presses: 9 mm on the screen, or what the host asks for.
#include "window/qt/finger.h"

#include <gtest/gtest.h>

#include <QScreen>

namespace pnl {
namespace {

TEST(FingerTest, IsNineMillimetresOnTheScreen) {
  const QWidget widget;
  const double dots = widget.screen()->physicalDotsPerInch();
  ASSERT_GT(dots, 40);
  const double millimetres = FingerPixels(widget) * 25.4 / dots;
  EXPECT_GE(millimetres, 9 - 1e-6);
  EXPECT_TRUE(millimetres < 9 + 25.4 / dots || FingerPixels(widget) == 34) << "and no pixel more";
}

TEST(FingerTest, IsWhatTheHostsWidgetAroundAsksFor) {
  QWidget host;
  QWidget tool(&host);
  const QWidget control(&tool);
  host.setProperty("pnlFinger", 60);
  EXPECT_EQ(FingerPixels(control), 60);
  tool.setProperty("pnlFinger", 70);
  EXPECT_EQ(FingerPixels(control), 70) << "the nearest one";
  EXPECT_EQ(FingerPixels(host), 60);
}

TEST(FingerTest, ANonsensicalWishStaysWithinReason) {
  QWidget host;
  for (const auto& [wanted, used] : {std::pair(QVariant(0), 34),
                                     {QVariant(-5), 34},
                                     {QVariant("x"), 34},
                                     {QVariant(33), 34},
                                     {QVariant(400), 400},
                                     {QVariant(401), 400}}) {
    host.setProperty("pnlFinger", wanted);
    EXPECT_EQ(FingerPixels(host), used) << wanted.toString().toStdString();
  }
}

}  // namespace
}  // namespace pnl
