// SPDX-License-Identifier: MIT
// Which keys act on what has just come, in manual time.
#include "ui/key_guard.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace panel {
namespace {

class KeyGuardTest : public ::testing::Test {
 protected:
  KeyGuardTest() {
    guard_.SetClock([this] { return clock_; });
  }
  bool Holds(int key, bool atGuarded = true, bool repeated = false, Qt::KeyboardModifiers modifiers = {}) {
    return guard_.HoldsBack(QKeyEvent(QEvent::KeyPress, key, modifiers, QString(), repeated), atGuarded);
  }
  qint64 clock_ = 1000;
  KeyGuard guard_;
};

TEST_F(KeyGuardTest, HoldsNothingBackBeforeAnythingHasCome) {
  EXPECT_FALSE(guard_.IsOn());
  EXPECT_FALSE(Holds(Qt::Key_Return));
}

TEST_F(KeyGuardTest, IsOnForSevenTenthsOfASecond) {
  guard_.Begin();
  EXPECT_TRUE(guard_.IsOn());
  clock_ += 699;
  EXPECT_TRUE(guard_.IsOn());
  clock_ += 1;
  EXPECT_FALSE(guard_.IsOn());
  EXPECT_FALSE(Holds(Qt::Key_Return));
  EXPECT_FALSE(Holds(Qt::Key_Escape));
}

TEST_F(KeyGuardTest, LastsAsLongAsTheTypingGoesOn) {
  guard_.Begin();
  for (int i = 0; i < 10; ++i) {
    clock_ += 699;
    EXPECT_TRUE(Holds(i % 2 == 0 ? Qt::Key_G : Qt::Key_Return)) << i;
  }
  clock_ += 699;
  EXPECT_TRUE(Holds(Qt::Key_Return));
  clock_ += 700;
  EXPECT_FALSE(Holds(Qt::Key_Return));
}

TEST_F(KeyGuardTest, AKeyElsewhereIsNotHeldBackAndCountsAsTyping) {
  guard_.Begin();
  clock_ += 600;
  EXPECT_FALSE(Holds(Qt::Key_G, false));
  clock_ += 600;
  EXPECT_TRUE(Holds(Qt::Key_Return));
}

TEST_F(KeyGuardTest, TypingAfterTheGuardHasEndedDoesNotTurnItOnAgain) {
  guard_.Begin();
  clock_ += 700;
  EXPECT_FALSE(Holds(Qt::Key_Down));
  EXPECT_FALSE(Holds(Qt::Key_Return));
  EXPECT_FALSE(guard_.IsOn());
}

TEST_F(KeyGuardTest, AKeyHeldDownSinceBeforeNeverActs) {
  EXPECT_FALSE(Holds(Qt::Key_Return, false));
  guard_.Begin();
  clock_ += 60'000;
  EXPECT_TRUE(Holds(Qt::Key_Return, true, true));
  EXPECT_TRUE(Holds(Qt::Key_Return, true, true));
  EXPECT_FALSE(Holds(Qt::Key_Return)) << "pressed anew";
  EXPECT_FALSE(Holds(Qt::Key_Return, true, true)) << "and held where it acts";
}

TEST_F(KeyGuardTest, AKeyThatWasHeldBackDoesNotActByStayingDown) {
  guard_.Begin();
  EXPECT_TRUE(Holds(Qt::Key_Escape));
  clock_ += 1000;
  EXPECT_TRUE(Holds(Qt::Key_Escape, true, true));
  EXPECT_FALSE(Holds(Qt::Key_Down, true, true)) << "another key";
}

TEST_F(KeyGuardTest, CommandsActAtOnceAndDoNotCountAsTyping) {
  guard_.Begin();
  clock_ += 500;
  EXPECT_FALSE(Holds(Qt::Key_F10));
  EXPECT_FALSE(Holds(Qt::Key_Return, true, false, Qt::ControlModifier));
  EXPECT_FALSE(Holds(Qt::Key_W, true, false, Qt::AltModifier));
  EXPECT_FALSE(Holds(Qt::Key_Shift));
  EXPECT_TRUE(Holds(Qt::Key_Return, true, false, Qt::KeypadModifier));
  EXPECT_TRUE(Holds(Qt::Key_Q, true, false, Qt::ShiftModifier));
}

TEST_F(KeyGuardTest, WhatComesNextIsGuardedAnew) {
  guard_.Begin();
  clock_ += 700;
  EXPECT_FALSE(Holds(Qt::Key_Return));
  guard_.Begin();
  EXPECT_TRUE(Holds(Qt::Key_Return));
}

}  // namespace
}  // namespace panel
