// SPDX-License-Identifier: MIT
// Long computations in a window that goes on answering: keys first, Escape always, and the end shown when it comes.
#include <QtCore/QElapsedTimer>

#include "calc/expr/calc_store.h"
#include "calc_stage.h"

namespace pnl::test {
namespace {

using ::testing::HasSubstr;

/// Half a million intervals of sixty factorials, each of some 115 factors: seconds on any machine.
const QString kLong = QStringLiteral("INTEGRAL(X!") + QStringLiteral("-X!+X!").repeated(30) + QLatin1Char(')');

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
  EXPECT_EQ(hostCalls.back(), "wants close 3");
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
  SharedCalcStore().Variables['N' - 'A'] = 500000;
  Line()->SetText(QStringLiteral("INTEGRAL(SIN X+COS X+TAN X+SIN(X+1)+COS(X+1)+SIN(X+2)+COS(X+2)+TAN(X+2))"));
  WaitForComputing();
  EXPECT_THAT(Status(), HasSubstr("Result : "));
}

TEST_F(CalcWorkTest, MayBeDestroyedWhileItComputes) {
  Line()->SetText(kLong);
  delete tool;
  Settle();
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
