// SPDX-License-Identifier: MIT
// Long computations in a window that goes on answering: keys first, Escape always, and the end shown when it comes.
#include "calc/expr/calc_store.h"
#include "calc_stage.h"

namespace pnl::test {
namespace {

using ::testing::HasSubstr;

/// Thirty million steps: half a million intervals of sixty additions. An event makes some one and a half.
const QString kLong = QStringLiteral("INTEGRAL(X") + QStringLiteral("+X").repeated(60) + QLatin1Char(')');

class CalcWorkTest : public CalcStage {
 protected:
  CalcWorkTest() {
    Open();
    SharedCalcStore().Variables[0] = 100;
    SharedCalcStore().Variables[1] = 130;
    SharedCalcStore().Variables['N' - 'A'] = 500000;
  }
};

TEST_F(CalcWorkTest, AKeyIsHandledWhileAPreviewComputes) {
  Line()->SetText(kLong);
  ASSERT_THAT(Status(), HasSubstr("Computing"));
  Line()->SetText(QStringLiteral("1+1"));
  EXPECT_EQ(Status(), "Result : 2") << "the preview gives way to the next key";
}

TEST_F(CalcWorkTest, EscapeAsksTheHostWhileAPreviewComputes) {
  Line()->SetText(kLong);
  hostCalls.clear();
  Key(Qt::Key_Escape);
  EXPECT_EQ(hostCalls.back(), "HostToolWantsClose(3)");
}

TEST_F(CalcWorkTest, EscapeCancelsAConfirmationAndKeepsTheLine) {
  Line()->SetText(kLong);
  Key(Qt::Key_Return);
  ASSERT_THAT(Status(), HasSubstr("Esc"));
  hostCalls.clear();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(hostCalls.empty()) << "the first Escape only cancels";
  EXPECT_EQ(LineText(), kLong.toStdString());
  EXPECT_EQ(Result(), "0");
  EXPECT_EQ(List()->Count(), 0);
}

TEST_F(CalcWorkTest, TheLoopTurnsWhileItComputes) {
  Line()->SetText(kLong);
  // Each turn is short: what is posted meanwhile comes through.
  int turns = 0;
  for (int i = 0; i < 5; ++i) {
    QMetaObject::invokeMethod(
        tool, [&turns] { ++turns; }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(turns, 5);
  EXPECT_THAT(Status(), HasSubstr("Computing"));
}

TEST_F(CalcWorkTest, AnOrdinaryIntegralIsDoneBeforeTheKeyIsOver) {
  SharedCalcStore().Variables = {0, 1};
  SharedCalcStore().Variables['N' - 'A'] = 1000;
  Line()->SetText(QStringLiteral("INTEGRAL X"));
  EXPECT_THAT(Status(), HasSubstr("Result : 0.5"));
}

TEST_F(CalcWorkTest, WhatTakesLongerThanAMomentIsShownWhenItIsDone) {
  SharedCalcStore().Variables = {0, 1};
  SharedCalcStore().Variables['N' - 'A'] = 60000;
  Line()->SetText(kLong);
  ASSERT_THAT(Status(), HasSubstr("Computing"));
  WaitForComputing();
  EXPECT_THAT(Status(), HasSubstr("Result : 30.5"));
}

TEST_F(CalcWorkTest, AfterALongOneAnOrdinaryIntegralIsStillDoneBeforeTheKeyIsOver) {
  SharedCalcStore().Variables = {0, 1};
  SharedCalcStore().Variables['N' - 'A'] = 60000;
  Line()->SetText(kLong);
  ASSERT_THAT(Status(), HasSubstr("Computing"));
  WaitForComputing();
  SharedCalcStore().Variables['N' - 'A'] = 1000;
  Line()->SetText(QStringLiteral("INTEGRAL X"));
  EXPECT_THAT(Status(), HasSubstr("Result : 0.5"));
  // The window also tells what was removed.
  Line()->SetText(QStringLiteral("1+1"));
  for (const int key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Down, Qt::Key_Delete}) Key(key);
  EXPECT_EQ(List()->Count(), 0);
  EXPECT_NE(tool->property(property::kRemoved).toInt(), 0);
}

TEST_F(CalcWorkTest, AnotherTimersEventComputesNothing) {
  Line()->SetText(kLong);
  ASSERT_THAT(Status(), HasSubstr("Computing"));
  constexpr int kForeign = 987654;
  QTimerEvent event(kForeign);
  const std::int64_t before = now;
  QApplication::sendEvent(tool, &event);
  EXPECT_EQ(now, before);
}

TEST_F(CalcWorkTest, MayBeDestroyedWhileItComputes) {
  Line()->SetText(kLong);
  ASSERT_THAT(Status(), HasSubstr("Computing"));
  const CalcStore before = SharedCalcStore();
  delete tool;
  const std::int64_t then = now;
  Settle();
  EXPECT_EQ(now, then) << "nothing computes any more";
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
}

TEST_F(CalcWorkTest, AnEventComputesForAMomentAndATurnOfTheLoopForLess) {
  const std::int64_t before = now;
  Line()->SetText(kLong);
  EXPECT_EQ(now - before, 1 + 40) << "the look that begins, and 40 milliseconds";
  std::int64_t turns = now;
  QCoreApplication::processEvents();
  turns = now - turns;
  EXPECT_GT(turns, 0);
  EXPECT_EQ(turns % (1 + 8), 0) << "8 milliseconds a turn";
}

TEST_F(CalcWorkTest, MayBeClosedWhileItConfirms) {
  Line()->SetText(kLong);
  Key(Qt::Key_Return);
  EXPECT_EQ(Command(20), 2);
  Settle();
  EXPECT_TRUE(tool.isNull());
}

}  // namespace
}  // namespace pnl::test
