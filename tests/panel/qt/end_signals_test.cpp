// SPDX-License-Identifier: MIT
#include "end_signals.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cerrno>
#include <csignal>

namespace panel {
namespace {

/// The process that starts the tests may ignore a signal, and it would stay ignored here.
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
  HandlePending();
  EXPECT_EQ(asked_, 1) << "all of them were taken";
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

TEST(EndSignals, ItsPipeIsItsOwnAndGoesWithIt) {
  const SignalsWithTheirDefaultEffect before;
  const int next = dup(STDIN_FILENO);
  close(next);
  {
    const EndSignals taken([] {});
    for (const int end : {next, next + 1}) {
      EXPECT_EQ(fcntl(end, F_GETFD), FD_CLOEXEC) << "no child process has it";
      EXPECT_EQ(fcntl(end, F_GETFL) & O_NONBLOCK, O_NONBLOCK);
    }
    struct sigaction action {};
    sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_flags & SA_RESTART, SA_RESTART) << "a call that waits goes on";
  }
  EXPECT_EQ(fcntl(next, F_GETFD), -1);
  EXPECT_EQ(fcntl(next + 1, F_GETFD), -1);
}

TEST(EndSignals, WithoutAPipeTheSignalsAreLeftAlone) {
  const SignalsWithTheirDefaultEffect before;
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlimit none{0, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  {
    const EndSignals taken([] {});
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
    struct sigaction action {};
    sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    action.sa_handler = [](int) {};
    sigaction(SIGINT, &action, nullptr);
  }
  struct sigaction after {};
  sigaction(SIGINT, nullptr, &after);
  EXPECT_NE(after.sa_handler, SIG_DFL) << "what was not taken is not given back";
  for (const int number : {SIGTERM, SIGINT}) signal(number, SIG_DFL);
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
