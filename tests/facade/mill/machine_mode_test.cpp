// SPDX-License-Identifier: MIT
#include "facade/mill/machine_fakes.h"
#include "facade/variable_names.h"
#include "support/sim_fixture.h"

namespace pnl::test {
namespace {

TEST(MachineMode, OnlyTheDemoMachinesAreKnownByName) {
  FakeMachineEnvironment environment;
  for (const char* name : {"lathe", "", "demo-", "demo-Inch", "DEMO", "demo "}) {
    EXPECT_EQ(sim::MakeMachine(name, environment), nullptr) << name;
  }
  EXPECT_TRUE(environment.variables.empty());
  EXPECT_TRUE(environment.tools.empty());
  for (const char* name : {"demo", "demo-dual", "demo-inch"}) {
    EXPECT_NE(sim::MakeMachine(name, environment), nullptr) << name;
  }
}

TEST(MachineMode, EveryVariableOfTheToolsIsThereWithoutAReport) {
  FakeMachineEnvironment environment;
  const auto machine = sim::MakeMachine("demo", environment);
  for (const VariableName& variable : kVariableNames) {
    const bool name = variable.pattern.find(u"%s") != TextView::npos;
    const Text full = name ? Format(variable.pattern, u"S") : Format(variable.pattern, 1);
    EXPECT_EQ(environment.variables.count(full), 1U) << ToUtf8(full);
  }
  EXPECT_TRUE(environment.reports.empty());
  EXPECT_EQ(environment.clock.Running(), 0U);
}

// Every variable whose start value isn't 0 or an empty text, and those of a type that isn't int.
TEST(MachineMode, VariablesStartAsToldAndTheRestAtNothing) {
  using enum rig::VariableType;
  struct Start {
    rig::VariableType type;
    rig::Value value;
  };
  const auto integer = [](std::int64_t number) { return Start{kInt, number}; };
  const Start noText{kText, std::u16string()};
  const Start zero{kDouble, 0.0};
  const std::map<Text, Start> told{
      {u"[1].G.FULLSTATUS", integer(0x100)},
      {u"[1].G.STATUS", integer(1)},
      {u"[1].E.MANUALMODE", integer(1)},
      {u"DM.MDI.ENABLEC1", integer(1)},
      {u"MPG.NCHANNEL", integer(1)},
      {u"G.FOCUSCHANNEL", integer(1)},
      {u"DM.SFORMAT.WIDTH", integer(5)},
      {u"DM.FFORMAT.WIDTH", integer(5)},
      {u"DM.FFORMAT.PRECISION", integer(3)},
      {u"DM.CNC.MODELID", integer(2)},
      {u"DM.OPTION.DMC", integer(1)},
      {u"DM.DMC.RATEDPOWER", integer(150)},
      {u"SP.DMCSPDL", integer(1)},
      {u"[1].G.MASTERSP", integer(1)},
      {u"G.GSPDLNAME1", {kText, std::u16string(u"S")}},
      {u"MPA.DRIVETYPE.S", integer(2)},
      {u"E.CALCRESUL", zero},
      {u"DM.ZMC.S", zero},
      {u"DM.ZMC.F", zero},
      {u"[1].A.POS.X", zero},
      {u"[1].A.POS.Y", zero},
      {u"[1].A.POS.Z", zero},
      {u"E.HELPDATA", noText},
      {u"DM.HMI.ERROR.CURRENT", noText},
      {u"DM.ZMC.DMC", noText},
      {u"DM.ZMC.COMMENT", noText},
      {u"DM.ZMC.INFO", noText},
  };
  FakeMachineEnvironment environment;
  const auto machine = sim::MakeMachine("demo", environment);
  for (const auto& [name, value] : environment.variables) {
    SCOPED_TRACE(ToUtf8(name));
    const auto at = told.find(name);
    const Start& start = at == told.end() ? integer(0) : at->second;
    EXPECT_EQ(environment.types.at(name), start.type);
    EXPECT_EQ(Describe(value), Describe(start.value));
  }
  for (const auto& [name, start] : told) EXPECT_EQ(environment.variables.count(name), 1U) << ToUtf8(name);
}

TEST(MachineMode, AFreshMillLetsMdiOpen) {
  FakeMachineEnvironment environment;
  const auto machine = sim::MakeMachine("demo", environment);
  EXPECT_EQ(environment.GetInt(u"DM.MDI.ENABLEC1"), 1);
  EXPECT_NE(environment.GetInt(u"[1].MPG.CHTYPE"), 1);
  EXPECT_EQ(environment.GetInt(u"[1].G.CNCAUTSTATUS") & 0x3F000, 0);
  EXPECT_EQ(environment.GetInt(u"[1].E.APISTATUS"), 0);
  EXPECT_EQ(environment.GetInt(u"[1].G.STATUS"), 1);
  EXPECT_EQ(environment.GetInt(u"[1].G.FULLSTATUS"), 0x100);
  EXPECT_EQ(environment.GetInt(u"[1].E.MANUALMODE"), 1);
  EXPECT_EQ(environment.GetInt(u"MPG.NCHANNEL"), 1);
}

TEST(MachineMode, ABlockNeedsMdi) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->SetMdi(1, 0), 1);
  EXPECT_EQ(bench.Send(u"G0 X1"), 1031);
  EXPECT_EQ(bench.machine->SetMdi(2, 1), 0);
  EXPECT_EQ(bench.Send(u"G0 X1"), 1031);
  EXPECT_EQ(bench.machine->SetMdi(1, 1), 1);
  EXPECT_EQ(bench.Send(u"G0 X1"), 0);
}

TEST(MachineMode, LeavingMdiAbortsWhatNobodyCouldRelease) {
  MachineBench bench;
  bench.Send(u"G1 X10 F1000 M0");
  bench.Wait(600);
  bench.machine->SetMdi(1, 0);
  bench.Wait(1);
  EXPECT_EQ(bench.Statuses(), "0x200 0x404 0x800 0x100");
}

TEST(MachineMode, LeavingMdiAtRestReportsNoStatus) {
  MachineBench bench;
  bench.machine->SetMdi(1, 0);
  bench.Wait(10);
  EXPECT_EQ(bench.Statuses(), "");
}

TEST(MachineMode, EndOfMdiFreesThePanelAndSetModeRestoresTheManualMode) {
  MachineBench bench;
  auto& environment = bench.environment;
  environment.variables[u"[1].E.PNLMODE"] = std::int64_t{2};
  environment.variables[u"[1].E.MANUALMODE"] = std::int64_t{0};
  EXPECT_EQ(bench.machine->EndMDIMode(1), 1);
  EXPECT_EQ(environment.GetInt(u"[1].E.PNLMODE"), 0);
  EXPECT_EQ(bench.machine->SetMode(1, 1), 1);
  EXPECT_EQ(environment.GetInt(u"[1].E.MANUALMODE"), 1);
  EXPECT_EQ(bench.machine->EndMDIMode(2), 0);
  EXPECT_EQ(bench.machine->SetMode(2, 0), 0);
  EXPECT_EQ(environment.GetInt(u"[1].E.MANUALMODE"), 1);
}

TEST(MachineMode, ManualModeWaitsForTheToolThatHoldsTheChannel) {
  MachineBench bench;
  bench.environment.variables[u"[1].E.MANUALMODE"] = std::int64_t{0};
  bench.machine->ManualMode(true);
  EXPECT_EQ(bench.environment.GetInt(u"[1].E.MANUALMODE"), 0);
  bench.machine->SetMdi(1, 0);
  bench.machine->ManualMode(true);
  EXPECT_EQ(bench.environment.GetInt(u"[1].E.MANUALMODE"), 1);
  bench.machine->ManualMode(false);
  EXPECT_EQ(bench.environment.GetInt(u"[1].E.MANUALMODE"), 0);
}

TEST(MachineMode, TheInterlockGoesToAnAcceptedBlockAndComesBackWithItsEnd) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->CogerPlcFree(1), 1);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
  EXPECT_EQ(bench.Send(u"G1 X10 F1000"), 0);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
  EXPECT_EQ(bench.machine->CogerPlcFree(1), 0);
  EXPECT_EQ(bench.machine->LiberarPlcFree(1), 0);
  bench.Wait(600);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
  EXPECT_EQ(bench.machine->LiberarPlcFree(1), 0);
}

TEST(MachineMode, TheInterlockOfARefusedBlockIsThePanelsToGiveBack) {
  MachineBench bench;
  bench.machine->CogerPlcFree(1);
  EXPECT_NE(bench.Send(u"G999"), 0);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
  EXPECT_EQ(bench.machine->LiberarPlcFree(1), 1);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
}

TEST(MachineMode, AToolThatKeptAnInterlockCanStillRunBlocks) {
  MachineBench bench;
  bench.machine->CogerPlcFree(1);
  EXPECT_EQ(bench.SendWithInterlock(u"G0 X1"), 0);
  bench.Wait(1000);
  EXPECT_EQ(bench.SendWithInterlock(u"G0 X2"), 0);
  bench.Wait(1000);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
}

TEST(MachineMode, AnAbortedBlockGivesTheInterlockBack) {
  for (const bool cancel : {true, false}) {
    MachineBench bench;
    bench.SendWithInterlock(u"G1 X10 F1000");
    bench.machine->FeedHold(true);
    EXPECT_EQ(bench.machine->CogerPlcFree(1), 0);
    if (cancel) {
      bench.machine->Cancel();
    } else {
      bench.machine->Reset();
    }
    EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
    EXPECT_EQ(bench.machine->CogerPlcFree(1), 0);
    bench.Wait(1);
    EXPECT_EQ(bench.machine->CogerPlcFree(1), 1);
  }
}

TEST(MachineMode, OtherChannelsHaveNoInterlock) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->CogerPlcFree(2), 0);
  EXPECT_EQ(bench.machine->LiberarPlcFree(2), 0);
  EXPECT_EQ(bench.machine->CogerPlcFree(0), 0);
}

TEST(MachineMode, AxesAreNumberedFromOne) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->ChannelNumber(), 1);
  Text name = u"kept";
  EXPECT_NE(bench.machine->ConvertLogToName(0, name), 0);
  EXPECT_NE(bench.machine->ConvertLogToName(4, name), 0);
  EXPECT_NE(bench.machine->ConvertLogToName(-1, name), 0);
  EXPECT_EQ(name, u"kept");
  const TextView names[] = {u"X", u"Y", u"Z"};
  for (int axis = 1; axis <= 3; ++axis) {
    EXPECT_EQ(bench.machine->ConvertLogToName(axis, name), 0);
    EXPECT_EQ(name, names[axis - 1]);
  }
}

TEST(MachineMode, TakingAnErrorOutOfTheQueueChangesNothing) {
  MachineBench bench;
  bench.Send(u"G4 K1");
  bench.machine->OnErrorReset();
  EXPECT_EQ(bench.Status(), 0x200);
}

}  // namespace
}  // namespace pnl::test
