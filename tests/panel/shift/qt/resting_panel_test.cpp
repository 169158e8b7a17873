// SPDX-License-Identifier: MIT
// After a timer has done its work, the panel sleeps without a time-out again, and only an event wakes it. The tests
// read from the kernel in which call the window's thread sleeps, and with which time-out.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QDir>
#include <atomic>
#include <fstream>
#include <string>
#include <thread>

#include "panel/shift/qt/shift_steps.h"
#include "remote/settle.h"
#include "ui/error_indicator.h"
#include "ui/find_bar.h"
#include "ui/journal_keeper.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/quiet_caches.h"
#include "ui/soft_key_bar.h"
#include "ui/touch_keyboard.h"
#include "ui/undo_offer.h"

namespace panel::shift {
namespace {

constexpr int kWait = 20'000;

enum class Sleep { kNone, kTimed, kEndless };

/// How a thread of this process sleeps at this moment.
Sleep SleepOf(long thread) {
  std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/syscall");
  long number = -1;
  std::string descriptors, count, timeout;
  if (!(file >> number >> descriptors >> count >> timeout)) return Sleep::kNone;
#ifdef SYS_poll
  if (number == SYS_poll)
    return static_cast<int>(std::stoul(timeout, nullptr, 16)) == -1 ? Sleep::kEndless : Sleep::kTimed;
#endif
  if (number == SYS_ppoll) return std::stoul(timeout, nullptr, 16) == 0 ? Sleep::kEndless : Sleep::kTimed;
  return Sleep::kNone;
}

/// Lets the event loop go to sleep and says how it sleeps.
Sleep SleepOfTheLoop() {
  Settle();
  const long loop = syscall(SYS_gettid);
  QAbstractEventDispatcher& dispatcher = *QAbstractEventDispatcher::instance();
  std::atomic<Sleep> seen = Sleep::kNone;
  std::thread watcher([&] {
    while (seen == Sleep::kNone) {
      seen = SleepOf(loop);
      sched_yield();
    }
    dispatcher.wakeUp();
  });
  while (seen == Sleep::kNone) dispatcher.processEvents(QEventLoop::WaitForMoreEvents);
  watcher.join();
  return seen;
}

/// The cache of fonts takes no timer when it is there before the application.
const bool hasQuietFonts = [] {
  QuietFontCache();
  return true;
}();

/// Waits until the loop sleeps without a time-out. Returns false when it never does.
bool ComesToRest() {
  const QDeadlineTimer end(kWait);
  while (SleepOfTheLoop() != Sleep::kEndless) {
    if (end.hasExpired()) return false;
  }
  return true;
}

class RestingPanel : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(stage.Problem().toStdString(), "");
    ASSERT_TRUE(ComesToRest()) << "before anything has happened";
  }
  /// Touches the program and types into it.
  void TypeInProgram(const QString& text) {
    hands.Touch(stage.Window().Editor().Edit().viewport(), QStringLiteral("the program"));
    hands.Type(text);
  }
  ShiftStage stage{Setting{}};
  Hands hands{stage, {}};
};

TEST_F(RestingPanel, ATimerThatRunsIsSeen) {
  QTimer timer;
  timer.start(kWait);
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kTimed);
  timer.stop();
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless);
}

TEST_F(RestingPanel, RestsAfterTheJournalWasWritten) {
  const QTemporaryDir folder;
  stage.Window().KeepJournal({folder.path(), [](const QString&) { return QString(); }, false});
  Settle();
  TypeInProgram(QStringLiteral("G0 X1"));
  const auto unwritten = [&] { return QDir(folder.path()).entryList({"*"}, QDir::Files).isEmpty(); };
  ASSERT_TRUE(WaitWhile([&] { return unwritten() || stage.Window().Working(); }, kWait));
  // What was typed during the first writing is written a little later.
  EXPECT_TRUE(ComesToRest());
}

TEST_F(RestingPanel, RestsAfterTheOfferToPutBackHasGone) {
  constexpr int kClear = 32776;
  hands.Main(Action::kOpenMdi);
  hands.Touch(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Type(QStringLiteral("G0 X1"));
  hands.Main(Action::kSwitchRole);
  // The text in the line becomes an item.
  hands.Row(RowKey::kEnter);
  hands.Main(kClear);
  ASSERT_TRUE(stage.Window().Undo().IsOpen());
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kTimed) << "it goes by itself";
  hands.Touch(&stage.Window().Undo(), QStringLiteral("the key that puts the list back"));
  ASSERT_FALSE(stage.Window().Undo().IsOpen());
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless);
}

TEST_F(RestingPanel, RestsWhileTheTouchKeyboardIsUpAndAfterwards) {
  TypeInProgram(QStringLiteral("G0 X1"));
  ASSERT_TRUE(stage.Window().TouchKeys().isVisible());
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless) << "while it is up";
  hands.PutKeyboardAway();
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless);
}

TEST_F(RestingPanel, RestsDuringASearchThatHasItsAnswerAndAfterwards) {
  TypeInProgram(QStringLiteral("G0 X1"));
  hands.Side(Action::kFind);
  hands.Raise(&stage.Window().Editor().Finding().What(), QStringLiteral("what to find"));
  hands.Type(QStringLiteral("X"));
  ASSERT_TRUE(WaitWhile([&] { return stage.Window().Editor().Working(); }, kWait));
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless) << "while the places are marked";
  hands.Touch(stage.Window().Editor().Finding().CloseKey(), QStringLiteral("the key that closes the bar"));
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless);
}

TEST_F(RestingPanel, RestsAfterTheTimeInWhichAnErrorTakesNoAnswer) {
  stage.Rig().Machine()->Raise(pnl::rig::MachineFault::kDriveWarning);
  Settle();
  ASSERT_TRUE(hands.IsSeen(PNL_TOOL_ERRORS));
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless) << "the guard reads the clock";
  hands.Read();
  hands.Machine(Action::kClearError);
  ASSERT_FALSE(hands.IsSeen(PNL_TOOL_ERRORS));
  EXPECT_EQ(SleepOfTheLoop(), Sleep::kEndless);
}

}  // namespace
}  // namespace panel::shift
