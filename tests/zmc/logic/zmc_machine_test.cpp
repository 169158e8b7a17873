// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_machine.h"

#include <gtest/gtest.h>

#include "facade/variable_names.h"
#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

class ZmcMachineTest : public testing::Test {
 protected:
  ZmcMachineTest() {
    variables_.values = {{"MPG.INCHES", 1},
                         {"G.FOCUSCHANNEL", 2},
                         {"[2].G.MASTERSP", 3},
                         {"G.GSPDLNAME3", Text(u"S3")},
                         {"MPA.DRIVETYPE.S3", 16},
                         {"DM.DMC.RATEDPOWER", 10},
                         {"DM.FFORMAT.WIDTH", 5},
                         {"DM.FFORMAT.PRECISION", 2},
                         {"DM.SFORMAT.WIDTH", 6},
                         {"DM.SFORMAT.PRECISION", 1},
                         {"DM.OPTION.DMC", 1},
                         {"DM.CNC.MODELID", 4},
                         {"DM.OPTION.DUALPURPOSE", 0},
                         {"DM.ZMC.SUNIT", 11},
                         {"SP.DMCSPDL", 1}};
  }
  ZmcMachine Read() { return ReadZmcMachine(variables_); }
  ZmcMachine With(const std::string& name, std::int32_t value) {
    variables_.values[name] = value;
    return Read();
  }
  NotedVariables variables_;
};

TEST_F(ZmcMachineTest, EverythingIsReadOnceInItsOrderAndNotFromAnOldCache) {
  const ZmcMachine machine = Read();
  const std::vector<std::string> expected = {"read int MPG.INCHES",
                                             "read int G.FOCUSCHANNEL",
                                             "read int [2].G.MASTERSP",
                                             "read text G.GSPDLNAME3",
                                             "read int MPA.DRIVETYPE.S3",
                                             "read int DM.DMC.RATEDPOWER",
                                             "read int DM.FFORMAT.WIDTH",
                                             "read int DM.FFORMAT.PRECISION",
                                             "read int DM.SFORMAT.WIDTH",
                                             "read int DM.SFORMAT.PRECISION",
                                             "read int DM.OPTION.DMC",
                                             "read int DM.CNC.MODELID",
                                             "read int DM.OPTION.DUALPURPOSE",
                                             "read int DM.ZMC.SUNIT",
                                             "read int SP.DMCSPDL"};
  EXPECT_EQ(variables_.log, expected);
  EXPECT_TRUE(machine.Inches());
  EXPECT_EQ(machine.FocusChannel, 2);
  EXPECT_EQ(machine.MasterSpindle, 3);
  EXPECT_EQ(ToUtf8(machine.MasterSpindleName), "S3");
  EXPECT_EQ(machine.DriveType, 16);
  EXPECT_EQ(machine.RatedPower, 10);
  EXPECT_EQ(machine.FFormat.width, 5);
  EXPECT_EQ(machine.FFormat.precision, 2);
  EXPECT_EQ(machine.SFormat.width, 6);
  EXPECT_EQ(machine.SFormat.precision, 1);
  EXPECT_TRUE(machine.DmcOption);
  EXPECT_FALSE(machine.DualPurpose);
  EXPECT_EQ(machine.ForcedSUnit, 11);
  EXPECT_EQ(machine.DmcSpindle, 1);
}

TEST_F(ZmcMachineTest, EveryNameIsOneOfTheVariablesOfTheTools) {
  for (const auto& [name, value] : variables_.values) {
    const bool text = std::holds_alternative<Text>(value);
    Text pattern = FromUtf8(name);
    if (name == "[2].G.MASTERSP") pattern = u"[%d].G.MASTERSP";
    if (name == "G.GSPDLNAME3") pattern = u"G.GSPDLNAME%d";
    if (name == "MPA.DRIVETYPE.S3") pattern = u"MPA.DRIVETYPE.%s";
    const auto* found = std::find_if(std::begin(kVariableNames), std::end(kVariableNames),
                                     [&](const VariableName& row) { return row.pattern == pattern; });
    ASSERT_NE(found, std::end(kVariableNames)) << name;
    EXPECT_EQ(found->type, text ? rig::VariableType::kText : rig::VariableType::kInt) << name;
  }
}

void ExpectDefaults(const ZmcMachine& machine) {
  EXPECT_FALSE(machine.Inches());
  EXPECT_EQ(machine.FocusChannel, -1);
  EXPECT_EQ(machine.MasterSpindle, -1);
  EXPECT_TRUE(machine.MasterSpindleName.empty());
  EXPECT_EQ(machine.DriveType, 0);
  EXPECT_EQ(machine.RatedPower, 0);
  EXPECT_EQ(machine.FFormat.width, 0);
  EXPECT_EQ(machine.FFormat.precision, 0);
  EXPECT_EQ(machine.SFormat.width, 0);
  EXPECT_EQ(machine.SFormat.precision, 0);
  EXPECT_FALSE(machine.DmcOption);
  EXPECT_FALSE(machine.DualPurpose);
  EXPECT_EQ(machine.ForcedSUnit, 0);
  EXPECT_EQ(machine.DmcSpindle, 0);
  EXPECT_FALSE(machine.DriveTypeAllowsDmc());
}

TEST_F(ZmcMachineTest, WhatIsUnknownHasItsDefault) {
  variables_.values.clear();
  ExpectDefaults(Read());
}

TEST_F(ZmcMachineTest, WhatCannotBeReadHasItsDefault) {
  for (const auto& [name, value] : variables_.values) variables_.unreadable.insert(name);
  ExpectDefaults(Read());
}

TEST_F(ZmcMachineTest, ASpindleThatCannotBeNamedHasNoDriveType) {
  variables_.unreadable.insert("G.GSPDLNAME3");
  const ZmcMachine machine = Read();
  EXPECT_EQ(machine.MasterSpindle, 3);
  EXPECT_TRUE(machine.MasterSpindleName.empty());
  EXPECT_EQ(machine.DriveType, 0);
}

TEST_F(ZmcMachineTest, WithoutAFocusChannelNeitherSpindleNorDriveIsRead) {
  for (const std::int32_t channel : {0, -1, -5}) {
    variables_.log.clear();
    const ZmcMachine machine = With("G.FOCUSCHANNEL", channel);
    EXPECT_EQ(machine.FocusChannel, -1);
    EXPECT_EQ(machine.MasterSpindle, -1);
    EXPECT_EQ(variables_.log[2], "read int DM.DMC.RATEDPOWER");
    EXPECT_EQ(variables_.log.size(), 12u) << "nothing was asked of a variable that isn't there";
  }
}

TEST_F(ZmcMachineTest, TheFirstChannelAndTheFirstSpindleAreKnown) {
  variables_.values["G.FOCUSCHANNEL"] = 1;
  variables_.values["[1].G.MASTERSP"] = 1;
  variables_.values["G.GSPDLNAME1"] = Text(u"S");
  variables_.values["MPA.DRIVETYPE.S"] = 8;
  const ZmcMachine machine = Read();
  EXPECT_EQ(machine.FocusChannel, 1);
  EXPECT_EQ(machine.MasterSpindle, 1);
  EXPECT_EQ(ToUtf8(machine.MasterSpindleName), "S");
  EXPECT_EQ(machine.DriveType, 8);
}

TEST_F(ZmcMachineTest, WithoutAMasterSpindleNeitherNameNorDriveIsRead) {
  for (const std::int32_t spindle : {0, -1}) {
    variables_.log.clear();
    const ZmcMachine machine = With("[2].G.MASTERSP", spindle);
    EXPECT_EQ(machine.FocusChannel, 2);
    EXPECT_EQ(machine.MasterSpindle, -1);
    EXPECT_TRUE(machine.MasterSpindleName.empty());
    EXPECT_EQ(variables_.log[3], "read int DM.DMC.RATEDPOWER");
  }
}

TEST_F(ZmcMachineTest, AnyValueButZeroMeansInches) {
  EXPECT_TRUE(With("MPG.INCHES", -1).Inches());
  EXPECT_TRUE(With("MPG.INCHES", 2).Inches());
  EXPECT_FALSE(With("MPG.INCHES", 0).Inches());
}

TEST_F(ZmcMachineTest, TheDmcOptionIsOnForExactlyOne) {
  EXPECT_TRUE(With("DM.OPTION.DMC", 1).DmcOption);
  for (const std::int32_t value : {0, 2, -1, 3}) EXPECT_FALSE(With("DM.OPTION.DMC", value).DmcOption) << value;
}

TEST_F(ZmcMachineTest, SixModelsAndTheOptionMillAndTurn) {
  for (std::int32_t model = -1; model <= 20; ++model) {
    const bool dual = model == 1 || model == 5 || model == 6 || model == 9 || model == 11 || model == 15;
    const ZmcMachine machine = With("DM.CNC.MODELID", model);
    EXPECT_EQ(machine.DualPurpose, dual) << model;
    EXPECT_EQ(machine.SUnitCount(), dual ? 2 : 1);
  }
  variables_.values["DM.CNC.MODELID"] = 0;
  EXPECT_TRUE(With("DM.OPTION.DUALPURPOSE", 1).DualPurpose);
  EXPECT_TRUE(With("DM.OPTION.DUALPURPOSE", -1).DualPurpose);
}

TEST_F(ZmcMachineTest, ADriveAllowsDmcByItsSecondBitOrAsEightOrSixteen) {
  for (std::int32_t type = 0; type < 64; ++type) {
    ZmcMachine machine;
    machine.DriveType = type;
    EXPECT_EQ(machine.DriveTypeAllowsDmc(), type / 2 % 2 == 1 || type == 8 || type == 16) << type;
  }
}

}  // namespace
}  // namespace pnl::test
