// SPDX-License-Identifier: MIT
// The indicator of errors: what it says, its colours, its flash, and the message it is driven by.
#include "ui/error_indicator.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QTimerEvent>

#include "common/words.h"
#include "panel/qt/host_rig.h"
#include "ui/error_list.h"
#include "ui/theme.h"

namespace panel {
namespace {

struct SignRow {
  const char* name;
  qint64 first;
  qint64 second;
  ErrorSign sign;
};

class SignTest : public ::testing::TestWithParam<SignRow> {};

TEST_P(SignTest, TheMessageHoldsFourNumbers) {
  EXPECT_EQ(ErrorSignOf(GetParam().first, GetParam().second), GetParam().sign);
}

INSTANTIATE_TEST_SUITE_P(
    All, SignTest,
    ::testing::Values(SignRow{"none", 0, 0, {}},
                      SignRow{"warning", (2 << 16) | 1110, (3 << 16) | 500, {1110, ErrorKind::kWarning, 500, 3}},
                      SignRow{"confirm", (4 << 16) | 1, 1 << 16, {1, ErrorKind::kConfirm, 0, 1}},
                      SignRow{"many", 0xFFFF, 0xFFFF0000LL, {0xFFFF, ErrorKind::kError, 0, 0xFFFF}},
                      SignRow{"pastTheLastClass", 5 << 16, 1 << 16, {0, ErrorKind::kError, 0, 1}},
                      SignRow{"noClass", 9 << 16, 1 << 16, {0, ErrorKind::kError, 0, 1}}),
    [](const auto& row) { return std::string(row.param.name); });

struct ColorRow {
  ErrorKind kind;
  std::uint32_t color;
  const char* spoken;
};

TEST(ErrorIndicatorTest, EachClassHasItsColourAndItsWord) {
  UseWords("en");
  for (const ColorRow& row : {ColorRow{ErrorKind::kError, 0x0000A0, "Errors: 2, error"},
                              ColorRow{ErrorKind::kMarked, 0x0000A0, "Errors: 2, error"},
                              ColorRow{ErrorKind::kWarning, 0x648064, "Errors: 2, warning"},
                              ColorRow{ErrorKind::kFatal, 0x806480, "Errors: 2, fatal error"},
                              ColorRow{ErrorKind::kConfirm, 0x806480, "Errors: 2, to be confirmed"}}) {
    ErrorIndicator indicator(nullptr);
    indicator.Show({5, row.kind, 0, 2}, 2);
    EXPECT_EQ(indicator.Fill(), theme::FromColorRef(row.color));
    EXPECT_EQ(indicator.Ink(), theme::InkOn(indicator.Fill()));
    EXPECT_EQ(indicator.accessibleName(), row.spoken);
    EXPECT_FALSE(indicator.Flashes()) << "period 0";
  }
}

TEST(ErrorIndicatorTest, ItsTimerRunsOnlyWhileItFlashes) {
  ErrorIndicator indicator(nullptr);
  EXPECT_FALSE(indicator.Flashes());
  indicator.Show({5, ErrorKind::kError, 500, 1}, 1);
  EXPECT_TRUE(indicator.Flashes());
  indicator.Show({5, ErrorKind::kError, 0, 1}, 1);
  EXPECT_FALSE(indicator.Flashes()) << "the period is 0 now";
  indicator.Show({5, ErrorKind::kError, 500, 1}, 1);
  EXPECT_TRUE(indicator.Flashes());
  indicator.Show({}, 1);
  EXPECT_FALSE(indicator.Flashes()) << "the window shows the error";
  EXPECT_EQ(indicator.ErrorCount(), 1);
  EXPECT_EQ(indicator.Fill(), QColor(theme::kRed));
  indicator.Show({}, 0);
  EXPECT_EQ(indicator.Fill(), QColor(theme::kSurface));
  EXPECT_EQ(indicator.text(), Say(Word::kNoErrors));
}

/// The list of errors with a history and a clock that a test moves.
class ErrorListRoomTest : public HostFixture {
 protected:
  ErrorListRoomTest() {
    window_.resize(800, 400);
    cover_.setGeometry(window_.rect());
    window_.show();
    Settle();
  }
  void Raise(int count) {
    for (int i = 0; i < count; ++i) {
      pnl::rig::CncControl::ErrorSummary error;
      error.number = ++serial_;
      error.serial = serial_;
      rig.error(error, pnl::rig::CncControl::ErrorFate::kRaised);
    }
  }
  [[nodiscard]] QList<QAbstractEventDispatcher::TimerInfo> Timers() const {
    return QAbstractEventDispatcher::instance()->registeredTimers(&cover_);
  }
  void Fire(int timer) {
    QTimerEvent tick(timer);
    QCoreApplication::sendEvent(&cover_, &tick);
  }

  ErrorTime now_{std::chrono::hours(1000)};
  int serial_ = 0;
  ErrorDesk desk_{session, &rig, [this] { return now_; }};
  QWidget window_;
  mutable ErrorListCover cover_{desk_, &window_};
};

TEST_F(ErrorListRoomTest, TheListGivesANoteItsRoomAndGetsItBackWhenTheFloodIsOver) {
  cover_.Open();
  const QRect whole = cover_.List().geometry();
  EXPECT_TRUE(Timers().isEmpty());
  Raise(11);
  cover_.Update();
  ASSERT_EQ(cover_.Notes(), QStringList{"Flood: 11 errors in the last ten minutes"});
  EXPECT_EQ(cover_.List().geometry(), whole.adjusted(0, 32, 0, 0)) << "the list ends where it ended";
  ASSERT_EQ(Timers().size(), 1);
  EXPECT_NEAR(Timers()[0].interval, 10 * 60'000, 1000) << "when the first of them is ten minutes old";
  now_ += std::chrono::minutes(10);
  Fire(Timers()[0].timerId + 1000);
  EXPECT_EQ(cover_.Notes().size(), 1) << "the timer of somebody else";
  Fire(Timers()[0].timerId);
  EXPECT_TRUE(cover_.Notes().isEmpty());
  EXPECT_EQ(cover_.List().geometry(), whole);
  EXPECT_TRUE(Timers().isEmpty());
  EXPECT_EQ(cover_.List().model()->rowCount(), 11) << "the errors stay";
}

TEST_F(ErrorListRoomTest, EveryNoteHasALineOfItsOwn) {
  cover_.Open();
  const QRect whole = cover_.List().geometry();
  Raise(201);
  cover_.Update();
  ASSERT_EQ(cover_.Notes().size(), 2) << "a flood, and an error without a row";
  EXPECT_EQ(cover_.List().geometry(), whole.adjusted(0, 64, 0, 0));
  now_ += std::chrono::minutes(10);
  Fire(Timers()[0].timerId);
  EXPECT_EQ(cover_.Notes().size(), 1);
  EXPECT_EQ(cover_.List().geometry(), whole.adjusted(0, 32, 0, 0));
}

TEST_F(ErrorListRoomTest, AListThatIsClosedDoesNotWatchTheClock) {
  Raise(11);
  cover_.Update();
  EXPECT_TRUE(Timers().isEmpty());
  cover_.Open();
  EXPECT_EQ(Timers().size(), 1);
  cover_.Leave();
  EXPECT_TRUE(Timers().isEmpty());
}

}  // namespace
}  // namespace panel
