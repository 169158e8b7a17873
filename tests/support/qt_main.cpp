// SPDX-License-Identifier: MIT
// The main function of the window tests: one off-screen application for all of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);
  return RUN_ALL_TESTS();
}
