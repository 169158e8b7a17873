// SPDX-License-Identifier: MIT
// One evaluation in pieces over a store of its own, and the one that is under way.
#include "calc/calc_work.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace pnl {
namespace {

void RunToTheEnd(CalcWork& work, std::int64_t steps = 1000) {
  for (int piece = 0; piece < 1'000'000; ++piece) {
    if (work.Advance(steps)) return;
  }
  ADD_FAILURE() << "it never ends";
}

TEST(CalcWorkTest, ChangesNoStoreUntilItIsTold) {
  CalcStore store;
  store.Variables[0] = 1;
  CalcWork work(store);
  ASSERT_FALSE(work.Compile(u"A=A+1;B=A*2"));
  work.Begin(false);
  RunToTheEnd(work);
  EXPECT_EQ(work.Finish(), 4.0);
  EXPECT_EQ(store.Variables[0], 1);
  work.StoreTo(store);
  EXPECT_EQ(store.Variables[0], 2);
  EXPECT_EQ(store.Variables[1], 4);
  EXPECT_EQ(store.Acc, 4);
}

TEST(CalcWorkTest, BringsOnlyWhatItChanged) {
  CalcStore store;
  CalcWork work(store);
  ASSERT_FALSE(work.Compile(u"A=1"));
  work.Begin(false);
  RunToTheEnd(work);
  ASSERT_TRUE(work.Finish());
  store.Variables[1] = 7;
  store.SavedAcc = 3;
  work.StoreTo(store);
  EXPECT_EQ(store.Variables[0], 1);
  EXPECT_EQ(store.Variables[1], 7);
  EXPECT_EQ(store.SavedAcc, 3);
}

TEST(CalcWorkTest, NanAndNegativeZeroAreChangesToo) {
  CalcStore store;
  CalcWork work(store);
  ASSERT_FALSE(work.Compile(u"A=0*-1;B=(-8)^0.4;1"));
  work.Begin(false);
  RunToTheEnd(work);
  ASSERT_TRUE(work.Finish());
  work.StoreTo(store);
  EXPECT_TRUE(std::signbit(store.Variables[0]));
  EXPECT_TRUE(std::isnan(store.Variables[1]));
}

TEST(CalcWorkTest, AFailureKeepsTheAssignmentsBeforeItAndTheAccumulator) {
  CalcStore store;
  store.Acc = 9;
  CalcWork work(store);
  ASSERT_FALSE(work.Compile(u"A=5;1/0"));
  work.Begin(false);
  RunToTheEnd(work);
  EXPECT_FALSE(work.Finish());
  EXPECT_EQ(work.Description(), u"((A=5);(1/0))");
  work.StoreTo(store);
  EXPECT_EQ(store.Variables[0], 5);
  EXPECT_EQ(store.Acc, 9);
}

TEST(CalcWorkTest, TellsTheFailingPlace) {
  const CalcStore store;
  CalcWork work(store);
  EXPECT_EQ(work.Compile(u"1+#"), 2u);
  EXPECT_EQ(work.Compile(u""), 0u);
  EXPECT_EQ(work.Compile(u"1+"), 2u);
  EXPECT_EQ(work.Compile(Text(300, u'1')), 255u);
}

TEST(CalcWorkTest, TheAngleUnitIsThatOfItsBeginning) {
  const CalcStore store;
  CalcWork work(store);
  ASSERT_FALSE(work.Compile(u"INVCOS -1"));
  work.Begin(true);
  RunToTheEnd(work);
  EXPECT_DOUBLE_EQ(*work.Finish(), std::acos(-1.0));
}

TEST(CalcWorkTest, PiecesOfOneStepComeToTheSame) {
  CalcStore store;
  store.Variables[1] = 1;
  store.Variables['N' - 'A'] = 20;
  CalcWork one(store);
  CalcWork all(store);
  ASSERT_FALSE(one.Compile(u"INTEGRAL(X^2)"));
  ASSERT_FALSE(all.Compile(u"INTEGRAL(X^2)"));
  one.Begin(false);
  all.Begin(false);
  RunToTheEnd(one, 1);
  RunToTheEnd(all, 1'000'000'000);
  EXPECT_EQ(one.Finish(), all.Finish());
}

std::unique_ptr<CalcWork> Begun(const CalcStore& store, const Text& text) {
  auto work = std::make_unique<CalcWork>(store);
  EXPECT_FALSE(work->Compile(text));
  work->Begin(false);
  return work;
}

TEST(CalcRunTest, ReportsWhatEndsAtOnceAndGivesItOutOnce) {
  CalcRun run;
  EXPECT_TRUE(run.Start(Begun(CalcStore(), u"1+2"), CalcTask::kConfirm, u"1+2"));
  EXPECT_TRUE(run.IsRunning()) << "it waits to be taken";
  EXPECT_TRUE(run.IsConfirming());
  EXPECT_EQ(run.Line(), u"1+2");
  const CalcRun::Ended ended = run.Take();
  EXPECT_EQ(ended.work->Finish(), 3.0);
  EXPECT_EQ(ended.task, CalcTask::kConfirm);
  EXPECT_EQ(ended.line, u"1+2");
  EXPECT_FALSE(run.IsRunning());
  EXPECT_FALSE(run.IsConfirming());
  EXPECT_EQ(run.Line(), u"");
}

TEST(CalcRunTest, GoesOnInPiecesUntilTheLastOne) {
  CalcStore store;
  store.Variables['N' - 'A'] = 500'000;
  store.Variables['B' - 'A'] = 1;
  CalcRun run;
  ASSERT_FALSE(run.Start(Begun(store, u"INTEGRAL(X)"), CalcTask::kLinePreview, {}));
  EXPECT_FALSE(run.IsConfirming());
  int pieces = 1;
  for (; !run.Continue(); ++pieces) ASSERT_LT(pieces, 1'000'000);
  EXPECT_GT(pieces, 1);
  EXPECT_NEAR(run.Take().work->Finish().value_or(0), 0.5, 1e-9);
}

TEST(CalcRunTest, WithoutAWorkThereIsNothingToContinue) {
  CalcRun run;
  EXPECT_FALSE(run.Continue());
  ASSERT_TRUE(run.Start(Begun(CalcStore(), u"1"), CalcTask::kLinePreview, {}));
  run.Drop();
  EXPECT_FALSE(run.IsRunning());
  EXPECT_FALSE(run.Continue());
}

}  // namespace
}  // namespace pnl
