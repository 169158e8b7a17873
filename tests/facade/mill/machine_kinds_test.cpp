// SPDX-License-Identifier: MIT
// The three machines: what their variables say, and how an inch machine takes its blocks.
#include "facade/mill/machine_fakes.h"
#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_tools.h"
#include "facade/sim/simulated_cnc.h"
#include "support/sim_fixture.h"

namespace pnl::test {
namespace {

constexpr const char* kNames[] = {"demo", "demo-dual", "demo-inch"};

/// What the machining calculator reads of each machine, in the order of kNames.
TEST(MachineKinds, EachMachineHasItsValues) {
  struct Row {
    TextView name;
    std::array<std::int64_t, 3> values;
  };
  const Row rows[] = {
      {u"MPG.INCHES", {0, 0, 1}},
      {u"G.FOCUSCHANNEL", {1, 1, 1}},
      {u"[1].G.MASTERSP", {1, 1, 1}},
      {u"MPA.DRIVETYPE.S", {2, 16, 8}},
      {u"DM.DMC.RATEDPOWER", {150, 110, 149}},
      {u"DM.FFORMAT.WIDTH", {5, 5, 4}},
      {u"DM.FFORMAT.PRECISION", {3, 3, 4}},
      {u"DM.SFORMAT.WIDTH", {5, 5, 5}},
      {u"DM.SFORMAT.PRECISION", {0, 1, 0}},
      {u"DM.OPTION.DMC", {1, 0, 1}},
      {u"DM.CNC.MODELID", {2, 2, 2}},
      {u"DM.OPTION.DUALPURPOSE", {0, 1, 0}},
      {u"SP.DMCSPDL", {1, 0, 1}},
      {u"DM.ZMC.T", {0, 0, 0}},
      {u"DM.ZMC.M6", {0, 0, 0}},
      {u"DM.ZMC.FUNIT", {0, 0, 0}},
      {u"DM.ZMC.SUNIT", {0, 0, 0}},
  };
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    FakeMachineEnvironment environment;
    const auto machine = sim::MakeMachine(kNames[i], environment);
    for (const Row& row : rows) {
      ASSERT_EQ(environment.variables.count(Text(row.name)), 1U) << ToUtf8(row.name);
      EXPECT_EQ(Describe(environment.variables.at(Text(row.name))), std::to_string(row.values[i]))
          << kNames[i] << " " << ToUtf8(row.name);
    }
    EXPECT_EQ(Describe(environment.variables.at(u"G.GSPDLNAME1")), "\"S\"") << kNames[i];
    EXPECT_EQ(Describe(environment.variables.at(u"DM.ZMC.S")), "0.0") << kNames[i];
    EXPECT_EQ(Describe(environment.variables.at(u"DM.ZMC.INFO")), "\"\"") << kNames[i];
  }
}

/// The model alone would make a machine one for both purposes, so it must be none of these.
TEST(MachineKinds, OnlyTheOptionMakesAMachineOneForBothPurposes) {
  for (const char* name : kNames) {
    FakeMachineEnvironment environment;
    const auto machine = sim::MakeMachine(name, environment);
    for (const int both : {1, 5, 6, 9, 11, 15}) EXPECT_NE(environment.GetInt(u"DM.CNC.MODELID"), both) << name;
  }
}

class MachineKindsCnc : public SimFixture {};

TEST_F(MachineKindsCnc, EveryMachineHasTheMachiningCalculator) {
  for (const char* name : kNames) {
    const auto machine = sim::MakeMachine(name, cnc.Environment());
    cnc.AttachMachine(machine.get());
    EXPECT_EQ(cnc.Kapi().SWOption_IsZMCON(), 1) << name;
    cnc.AttachMachine(nullptr);
  }
}

TEST_F(MachineKindsCnc, TheToolTableGivesTheToolsOfATypeInAscendingOrder) {
  const auto machine = sim::MakeMachine("demo", cnc.Environment());
  EXPECT_THAT(cnc.Tapi().TAPI_Tools_GetList(1), testing::ElementsAre(1, 2, 3, 6, 7, 8, 9));
  EXPECT_THAT(cnc.Tapi().TAPI_Tools_GetList(2), testing::ElementsAre(5, 10, 11, 12));
  EXPECT_THAT(cnc.Tapi().TAPI_Tools_GetList(3), testing::ElementsAre(4, 13, 14));
  EXPECT_THAT(cnc.Tapi().TAPI_Tools_GetList(9), testing::ElementsAre(30));
  EXPECT_THAT(cnc.Tapi().TAPI_Tools_GetList(11), testing::IsEmpty());
  EXPECT_EQ(cnc.Tapi().TAPI_Tools_GetList(0).size(), 33U);
  ToolData data;
  EXPECT_EQ(cnc.Tapi().TAPI_Tools_GetToolData(5, data), 1);
  EXPECT_EQ(data.family, 2);
  EXPECT_EQ(data.subfamily, 7);
  EXPECT_EQ(data.diameter, 85000);
  EXPECT_EQ(data.teeth, 2);
  EXPECT_EQ(cnc.Tapi().TAPI_Tools_GetToolData(34, data), 0);
}

TEST(MachineTools, EveryFamilyAndSubfamilyHasATool) {
  const std::map<int, std::vector<int>> wanted{{1, {0, 1, 2, 3, 6}},
                                               {2, {0, 7}},
                                               {3, {0, 8}},
                                               {4, {0, 9}},
                                               {5, {0, 10}},
                                               {6, {0, 4, 5}},
                                               {7, {0, 12}},
                                               {8, {0, 11, 12, 13, 14, 15}},
                                               {9, {0}},
                                               {10, {0, 14, 15}}};
  for (const char* name : kNames) {
    FakeMachineEnvironment environment;
    const auto machine = sim::MakeMachine(name, environment);
    std::map<int, std::set<int>> there;
    for (const auto& [number, tool] : environment.tools) {
      EXPECT_EQ(tool.first, tool.second.family) << "the type of T" << number << " is its family";
      EXPECT_LE(number, sim::kHighestTool);
      there[tool.second.family].insert(tool.second.subfamily);
    }
    for (const auto& [family, subfamilies] : wanted) {
      EXPECT_EQ(there[family], std::set<int>(subfamilies.begin(), subfamilies.end())) << name << " " << family;
    }
    EXPECT_EQ(there.size(), wanted.size());
  }
}

/// What turns with the spindle has a diameter and teeth; of a turning tool neither means anything.
TEST(MachineTools, AToolThatTurnsHasADiameterAndTeeth) {
  for (const char* name : kNames) {
    FakeMachineEnvironment environment;
    const auto machine = sim::MakeMachine(name, environment);
    for (const auto& [number, tool] : environment.tools) {
      const ToolData& data = tool.second;
      const bool driven = data.family == 8 && data.subfamily >= 14;
      const bool turning = data.family == 5 || data.family == 7 || (data.family == 6 && data.subfamily != 4) ||
                           (data.family == 8 && !driven);
      if (turning) {
        EXPECT_EQ(data.diameter, 0) << name << " T" << number;
        EXPECT_EQ(data.teeth, 1) << name << " T" << number;
      } else {
        EXPECT_GE(data.diameter, 30000) << name << " T" << number;
        EXPECT_LE(data.diameter, 1020000) << name << " T" << number;
        EXPECT_EQ(data.teeth > 0, data.family != 10) << name << " T" << number;
      }
    }
  }
}

TEST(MachineTools, ATapHasOneToothSoThatItsFeedPerToothIsThePitch) {
  FakeMachineEnvironment environment;
  const auto machine = sim::MakeMachine("demo", environment);
  for (const auto& [number, tool] : environment.tools) {
    if (tool.first != 4) continue;
    EXPECT_EQ(tool.second.teeth, 1) << number;
  }
}

TEST(MachineTools, TheMillUsesTheDiametersOfItsToolTable) {
  for (const char* name : kNames) {
    FakeMachineEnvironment environment;
    const auto machine = sim::MakeMachine(name, environment);
    const sim::Measure measure =
        std::string_view(name) == "demo-inch" ? sim::Measure::kInches : sim::Measure::kMillimetres;
    for (const auto& [number, tool] : environment.tools) {
      EXPECT_NEAR(tool.second.diameter, sim::DiameterOf(sim::ToolOf(number), measure) * 10000, 0.5) << number;
    }
  }
}

TEST(MachineTools, AnInchMachineHasInchSizes) {
  const std::map<int, std::int32_t> told{{1, 127000}, {2, 63500}, {4, 635000}, {5, 79375}, {8, 198438}, {11, 51054}};
  FakeMachineEnvironment environment;
  const auto machine = sim::MakeMachine("demo-inch", environment);
  for (const auto& [number, diameter] : told) EXPECT_EQ(environment.tools.at(number).second.diameter, diameter);
}

TEST(MachineKinds, AnInchMachineTakesItsBlocksInInches) {
  MachineBench bench("demo-inch");
  EXPECT_EQ(bench.machine->State().gCodes, u"G00 G17 G20 G40 G54 G90 G94 G97");
  EXPECT_TRUE(bench.machine->State().inches);
  bench.Do(u"G1 X2 F100");
  EXPECT_NEAR(bench.At(0), 50.8, 1e-9);
  EXPECT_NEAR(bench.machine->State().programmedFeed, 100, 1e-9);
  bench.Do(u"G21 X10");
  EXPECT_NEAR(bench.At(0), 10, 1e-9);
  EXPECT_FALSE(bench.machine->State().inches);
}

TEST(MachineKinds, AResetAndTheEndOfAProgramGiveAnInchMachineItsInchesBack) {
  for (const TextView block : {TextView(u"G21 G91"), TextView(u"G21 G91 M30")}) {
    MachineBench bench("demo-inch");
    bench.Do(block);
    if (block == u"G21 G91") bench.machine->Reset();
    EXPECT_EQ(bench.machine->State().gCodes, u"G00 G17 G20 G40 G54 G90 G94 G97") << ToUtf8(block);
  }
}

TEST(MachineKinds, TheCuttingSpeedOfAnInchMachineIsInFeetAtTheInchDiameter) {
  MachineBench bench("demo-inch");
  bench.Do(u"T1 M6");
  bench.Do(u"G96 S300 M3");  // 91.44 m/min at 12.7 mm
  EXPECT_NEAR(bench.machine->State().spindleSpeed, 91.44 * 1000 / (3.141592653589793 * 12.7), 1e-6);
  EXPECT_NEAR(bench.machine->State().programmedSpeed, 300, 1e-9);
}

TEST(MachineKinds, TheOthersTakeTheirsInMillimetres) {
  for (const char* name : {"demo", "demo-dual"}) {
    MachineBench bench(name);
    bench.Do(u"G1 X10 F1000");
    EXPECT_NEAR(bench.At(0), 10, 1e-9) << name;
    bench.Do(u"G20 X1");
    bench.machine->Reset();
    EXPECT_FALSE(bench.machine->State().inches) << name;
  }
}

}  // namespace
}  // namespace pnl::test
