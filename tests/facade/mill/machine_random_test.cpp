// SPDX-License-Identifier: MIT
// Thousands of operator actions and blocks in random order, from fixed seeds: whatever happens, what the machine tells
// stays consistent.
#include <random>

#include "facade/mill/machine_data.h"
#include "facade/mill/machine_fakes.h"

namespace pnl::test {
namespace {

const TextView kBlocks[] = {
    u"G1 X100 F1000",
    u"G0 X-400 Y200 Z-100",
    u"G0 Z150 M0",
    u"G91 X10 Y-20",
    u"G90",
    u"G2 I20 F3000",
    u"G3 X0 Y0 R250 F4000 M1",
    u"G18 G2 K10 F2000",
    u"G17",
    u"S1000 M3 G95 F0.5",
    u"G94 F500 M8",
    u"T1 M6",
    u"G43",
    u"G44",
    u"G55",
    u"G54",
    u"G20",
    u"G21",
    u"G4 K0.5",
    u"G53 G0 X0 Y0 Z0",
    u"M30",
    u"M5 M9 M1",
    u"G1 X9999 F10",
    u"G999",
    u"X",
    u"(nothing)",
    u"T99 M6 G96 S100 M3",
};

class RandomOperator {
 public:
  explicit RandomOperator(unsigned seed) : random_(seed) {}

  void Step() {
    auto& machine = *bench_.machine;
    switch (random_() % 20) {
      case 0:
        machine.FeedHold(true);
        break;
      case 1:
        machine.FeedHold(false);
        break;
      case 2:
        machine.FeedOverride(static_cast<int>(random_() % 5) * 50);
        break;
      case 3:
        machine.SingleBlock(random_() % 2 == 0);
        break;
      case 4:
        machine.Cancel();
        break;
      case 5:
        if (random_() % 4 == 0) machine.Reset();
        break;
      case 6:
        machine.Inspection(random_() % 2 == 0);
        break;
      case 7:
        if (random_() % 8 == 0) machine.EmergencyStop(true);
        machine.EmergencyStop(false);
        break;
      case 8:
        machine.ManualMode(random_() % 2 == 0);
        break;
      case 9:
        if (random_() % 8 == 0) machine.SetMdi(1, 0);
        machine.SetMdi(1, 1);
        break;
      case 10:
      case 11:
        machine.NextSingleStep();
        break;
      case 12:
        machine.ClearFeedhold();
        break;
      case 13:
        bench_.environment.variables[u"[1].E.STARTONMDI"] = std::int64_t{1};
        machine.OnWritten(u"[1].E.STARTONMDI");
        break;
      case 14:
      case 15:
        bench_.Wait(random_() % 3000);
        break;
      default:
        bench_.SendWithInterlock(kBlocks[random_() % std::size(kBlocks)]);
        break;
    }
    bench_.Wait(random_() % 200);
  }

  void Check() {
    const auto state = bench_.machine->State();
    const auto& environment = bench_.environment;
    const int full = bench_.Status();
    ASSERT_EQ(full, state.channelStatus << 8 | state.channelDetail);
    ASSERT_EQ(environment.GetInt(u"[1].G.STATUS"), state.channelStatus);
    const bool known = full == 0x100 || full == 0x200 || full == 0x201 || full == 0x404 || full == 0x405 ||
                       full == 0x406 || full == 0x800;
    ASSERT_TRUE(known) << full;
    // A ready or interrupted machine runs no timer; neither does one that waits.
    if (full != 0x200 && full != 0x800) {
      ASSERT_EQ(environment.clock.Running(), 0U) << full;
    }
    if (full != 0x200) {
      ASSERT_EQ(state.feed, 0);
    }
    ASSERT_LE(environment.clock.Running(), 2U);
    ASSERT_EQ(environment.GetInt(u"[1].E.INSPECSTATUS") != 0, state.inspecting);
    ASSERT_EQ(state.feedHold, full == 0x405);
    // The panel took one grant a block and gave back those of refused blocks: what stands belongs to blocks.
    const int blocks = (state.channelStatus == 2 || state.channelStatus == 4 ? 1 : 0) + (state.inspecting ? 1 : 0);
    ASSERT_EQ(bench_.machine->InterlocksHeld(), blocks);
    for (std::size_t axis = 0; axis < sim::kAxisCount; ++axis) {
      ASSERT_GE(state.axes[axis].machine, sim::kAxes[axis].low - sim::kArcTolerance);
      ASSERT_LE(state.axes[axis].machine, sim::kAxes[axis].high + sim::kArcTolerance);
    }
    ASSERT_EQ(state.spindleDirection == 0 ? state.spindleSpeed : 0, 0);
  }

  /// Whatever stands, a release of everything lets it come to rest.
  void ComeToRest() {
    bench_.machine->FeedOverride(100);
    bench_.machine->SingleBlock(false);
    for (int i = 0; i < 10 && bench_.Status() != 0x100; ++i) {
      bench_.machine->ClearFeedhold();
      bench_.machine->NextSingleStep();
      bench_.Wait(600'000);
    }
    ASSERT_EQ(bench_.Status(), 0x100);
    ASSERT_EQ(bench_.environment.clock.Running(), 0U);
  }

 private:
  MachineBench bench_;
  std::mt19937 random_;
};

TEST(MachineRandom, AnySequenceLeavesAConsistentMachine) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    RandomOperator anyone(seed);
    for (int step = 0; step < 250; ++step) {
      anyone.Step();
      ASSERT_NO_FATAL_FAILURE(anyone.Check()) << "seed " << seed << " step " << step;
    }
    ASSERT_NO_FATAL_FAILURE(anyone.ComeToRest()) << "seed " << seed;
  }
}

}  // namespace
}  // namespace pnl::test
