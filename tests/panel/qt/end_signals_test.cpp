// SPDX-License-Identifier: MIT
#include "end_signals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cerrno>
#include <csignal>

namespace panel {
namespace {

/// Whoever starts the tests may ignore a signal, and it would stay ignored.
struct SignalsWithTheirDefaultEffect {
  SignalsWithTheirDefaultEffect() {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) signal(number, SIG_DFL);
  }
};

class EndSignalsTest : public testing::Test {
 protected:
  void HandlePending() { QCoreApplication::processEvents(); }
  const SignalsWithTheirDefaultEffect before_;
  int asked_ = 0;
  EndSignals signals_{[this] { ++asked_; }};
};

TEST_F(EndSignalsTest, SignalsThatArriveTogetherAskOnce) {
  for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGTERM}) raise(number);
  EXPECT_EQ(asked_, 0) << "only from the event loop";
  HandlePending();
  EXPECT_EQ(asked_, 1);
  HandlePending();
  EXPECT_EQ(asked_, 1);
  raise(SIGINT);
  HandlePending();
  EXPECT_EQ(asked_, 2);
}

TEST_F(EndSignalsTest, ASignalLeavesTheErrorNumberOfTheInterruptedCallAsItIs) {
  // More signals than the pipe has room for: the handler's own write fails then.
  constexpr int kMoreThanThePipeTakes = 70000;
  for (int i = 0; i < kMoreThanThePipeTakes; ++i) raise(SIGTERM);
  errno = 0;
  raise(SIGTERM);
  EXPECT_EQ(errno, 0);
  HandlePending();
  EXPECT_EQ(asked_, 1);
}

TEST(EndSignals, AfterItsEndTheSignalsHaveTheirDefaultEffect) {
  {
    const EndSignals ended([] {});
  }
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL) << number;
  }
}

TEST(EndSignals, AnIgnoredSignalStaysIgnored) {
  signal(SIGHUP, SIG_IGN);
  {
    int asked = 0;
    const EndSignals ended([&asked] { ++asked; });
    raise(SIGHUP);
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 0);
  }
  EXPECT_EQ(signal(SIGHUP, SIG_DFL), SIG_IGN);
}

}  // namespace
}  // namespace panel
