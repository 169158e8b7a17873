// SPDX-License-Identifier: MIT
#include "facade/mill/machine_run.h"

namespace pnl::sim {
namespace {

Step FeedMove(double length, double milliseconds) {
  Step step;
  step.kind = Step::Kind::kMove;
  step.pace = Step::Pace::kFeed;
  step.duration = milliseconds;
  step.path = {{0, 0, 0}, {length, 0, 0}, std::nullopt};
  return step;
}

double AtX(const BlockRun& run, double now) { return run.Position(now).value_or(Point{-1, 0, 0})[0]; }

TEST(MachineRun, AMoveGoesItsWayInItsTime) {
  const BlockRun run(u"G1", {FeedMove(100, 1000)}, 50, 100);
  EXPECT_EQ(run.StepEnd(), 1050);
  EXPECT_EQ(AtX(run, 50), 0);
  EXPECT_EQ(AtX(run, 300), 25);
  EXPECT_EQ(AtX(run, 1050), 100);
  EXPECT_EQ(AtX(run, 9999), 100);
  EXPECT_EQ(run.Feed(), 6000);
}

TEST(MachineRun, AStepBeginsWhereTheOneBeforeEndedHoweverLateItIsSeen) {
  BlockRun run(u"", {FeedMove(1, 100.5), FeedMove(1, 100.5)}, 0, 100);
  EXPECT_EQ(run.Next(), 100.5);
  EXPECT_EQ(run.StepEnd(), 201);
  run.Next();
  EXPECT_TRUE(run.Over());
  EXPECT_EQ(run.StepEnd(), 201);
}

TEST(MachineRun, AnOverrideChangesOnlyWhatIsLeft) {
  BlockRun run(u"", {FeedMove(100, 1000)}, 0, 100);
  run.SetOverride(500, 50);
  EXPECT_EQ(run.StepEnd(), 1500);
  EXPECT_EQ(run.Feed(), 3000);
  run.SetOverride(1000, 200);
  EXPECT_EQ(run.StepEnd(), 1125);
  EXPECT_EQ(AtX(run, 1000), 75);
  run.SetOverride(1000, 0);
  EXPECT_EQ(run.StepEnd(), std::nullopt);
  EXPECT_FALSE(run.Moves());
  EXPECT_EQ(run.Feed(), 0);
  EXPECT_EQ(AtX(run, 5000), 75);
}

TEST(MachineRun, ARapidMoveIsNeverFasterThanItsOwnSpeedAndADwellTakesItsTime) {
  Step rapid = FeedMove(100, 1000);
  rapid.pace = Step::Pace::kRapid;
  EXPECT_EQ(BlockRun(u"", {rapid}, 0, 200).StepEnd(), 1000);
  EXPECT_EQ(BlockRun(u"", {rapid}, 0, 50).StepEnd(), 2000);
  EXPECT_EQ(BlockRun(u"", {rapid}, 0, 0).StepEnd(), std::nullopt);
  Step dwell;
  dwell.kind = Step::Kind::kDwell;
  dwell.duration = 1000;
  EXPECT_EQ(BlockRun(u"", {dwell}, 0, 0).StepEnd(), 1000);
  EXPECT_FALSE(BlockRun(u"", {dwell}, 0, 100).Moves());
}

TEST(MachineRun, AMoveThatTakesNoTimeIsAtItsEndAndHasNoFeed) {
  const BlockRun run(u"", {FeedMove(3, 0)}, 10, 100);
  EXPECT_EQ(run.StepEnd(), 10);
  EXPECT_EQ(AtX(run, 10), 3);
  EXPECT_EQ(run.Feed(), 0);
}

TEST(MachineRun, ATimeBeforeTheStepTakesNothingBack) {
  BlockRun run(u"", {FeedMove(100, 1000)}, 500, 100);
  EXPECT_EQ(AtX(run, 400), 0);
  run.SetOverride(400, 50);
  EXPECT_EQ(run.StepEnd(), 2500) << "the step still begins when it does";
}

TEST(MachineRun, AHoldKeepsWhatIsLeft) {
  BlockRun run(u"", {FeedMove(100, 1000)}, 0, 100);
  run.Hold(250);
  EXPECT_EQ(run.StepEnd(), std::nullopt);
  EXPECT_EQ(AtX(run, 800), 25);
  run.SetOverride(900, 50);
  run.Release(1000);
  EXPECT_EQ(run.StepEnd(), 2500);
}

TEST(MachineRun, AnInsertedStepGoesBeforeWhatIsLeft) {
  BlockRun run(u"", {FeedMove(100, 1000)}, 0, 100);
  run.Hold(250);
  run.Insert(FeedMove(7, 70));
  run.Release(1000);
  EXPECT_EQ(run.Next(), 1070);
  EXPECT_EQ(AtX(run, 1070), 25);
  EXPECT_EQ(run.StepEnd(), 1820);
}

TEST(MachineRun, ABlockWithoutStepsEndsAtOnceUnlessHeld) {
  BlockRun run(u"", {}, 10, 0);
  EXPECT_TRUE(run.Over());
  EXPECT_EQ(run.StepEnd(), 10);
  EXPECT_FALSE(run.Moves());
  EXPECT_EQ(run.Position(10), std::nullopt);
  run.Hold(10);
  EXPECT_EQ(run.StepEnd(), std::nullopt);
  run.Release(30);
  EXPECT_EQ(run.StepEnd(), 30);
}

}  // namespace
}  // namespace pnl::sim
