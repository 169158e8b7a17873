// SPDX-License-Identifier: MIT
// The block of the whole tool in every combination of its check boxes, beside a second composition that knows nothing
// of the first.
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::HasSubstr;

class ZmcToolBlock : public testing::Test, public ZmcStage {
 protected:
  /// The variables that a block is published in.
  void DefineResults() {
    for (const TextView name : {u"DM.ZMC.INFO", u"DM.ZMC.COMMENT", u"DM.ZMC.DMC"}) Define(name, u"");
    for (const TextView name : {u"DM.ZMC.T", u"DM.ZMC.M6", u"DM.ZMC.FUNIT"}) Define(name, 0);
    for (const TextView name : {u"DM.ZMC.F", u"DM.ZMC.S"}) {
      cnc.Define(name, rig::VariableType::kDouble, 0.0, true, true);
    }
  }
};

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

TEST_F(ZmcToolBlock, EveryCombinationOfTheSixBoxes) {
  DefineResults();
  Open();
  ComputeSteel();
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  view->controls.at(id::kRemark).text = u"Rough";
  Key(ZmcKey::kEnter);
  const std::string info = " ;### ZMC # Steel # Milling # T3";
  const std::string line = "#DMC ON [PWRSP = 29.952941, FZMIN = 0.0200000, FZMAX = 0.1000000]";
  for (int mask = 0; mask < 64; ++mask) {
    const auto on = [mask](int bit) { return (mask & (1 << bit)) != 0; };
    Turn(id::kRemarkCheck, on(0));
    Turn(id::kToolCheck, true);  // M6 can be touched only with it
    Turn(id::kM6Check, on(2));
    Turn(id::kToolCheck, on(1));
    Turn(id::kFCheck, on(3));
    Turn(id::kSCheck, on(4));
    Turn(id::kDmcCheck, on(5));
    std::string block;
    if (on(0)) block += ";Rough\r\n";
    if (on(1)) block += Padded("T3", 15) + info + "\r\n";
    if (on(1) && on(2)) block += Padded("M6", 15) + info + "\r\n";
    if (on(3)) block += "G94 F" + Padded("763.800000", 14) + info + "\r\n";
    if (on(4)) block += "G97 S" + Padded("3819", 14) + info + "\r\n";
    if (on(5)) block += line + "\t" + info.substr(1) + "\r\n";
    const bool any = on(0) || on(1) || on(3) || on(4) || on(5);
    EXPECT_EQ(Item(32902)->enabled, any) << mask;
    windows.clipboard = u"before";
    Forget();
    Menu(zmc_command::kCopy);
    EXPECT_EQ(ToUtf8(windows.clipboard), block) << mask;
    std::vector<std::string> writes;
    const auto write = [&writes](const std::string& name, const std::string& value) {
      writes.push_back("write DM.ZMC." + name + "=" + value + " ok");
    };
    write("INFO", "\"### ZMC # Steel # Milling # T3\"");
    write("COMMENT", on(0) ? "\"Rough\"" : "\"\"");
    write("T", on(1) ? "3" : "0");
    write("M6", on(1) && on(2) ? "1" : "0");
    if (on(3)) write("FUNIT", "0");
    write("F", on(3) ? "763.8" : "0.0");
    if (on(4)) write("SUNIT", "0");
    write("S", on(4) ? "3819.0" : "0.0");
    write("DMC", on(5) ? "\"" + line + "\"" : "\"\"");
    std::vector<std::string> asked = Asked();
    asked.resize(std::min(asked.size(), writes.size()));
    EXPECT_EQ(asked, writes) << mask;
  }
}

TEST_F(ZmcToolBlock, TheOtherUnitsGiveTheOtherWords) {
  Define(u"DM.OPTION.DUALPURPOSE", 1);
  Define(u"G.GSPDLNAME1", u"S2");
  Define(u"MPA.DRIVETYPE.S2", 16);
  Open();
  Pick(id::kSUnit, u"m/min");
  Pick(id::kFUnit, u"mm/rev");
  ComputeSteel();
  Turn(id::kFCheck, true);
  Turn(id::kSCheck, true);
  Menu(zmc_command::kCopy);
  const std::string info = " ;### ZMC # Steel # Milling # T3\r\n";
  EXPECT_EQ(ToUtf8(windows.clipboard), "G95 F" + Padded("0.200000", 14) + info + "G96 S2=" + Padded("120", 14) + info);
}

TEST_F(ZmcToolBlock, CopyWorksAsACommandWhileItsSoftKeyIsDisabled) {
  Open();
  windows.clipboard = u"before";
  EXPECT_FALSE(Item(32777)->enabled);
  Menu(zmc_command::kCopy);
  EXPECT_EQ(windows.clipboard, u"");
}

TEST_F(ZmcToolBlock, ATextThatNobodyHasSelectedIsInNoBlock) {
  files.disc.erase(kFactoryPath);
  Open();
  Turn(id::kToolCheck, true);
  Menu(zmc_command::kCopy);
  EXPECT_EQ(ToUtf8(windows.clipboard), Padded("", 15) + " ;### ZMC #  #  # \r\n");
}

TEST_F(ZmcToolBlock, ANameThatStandsInABoxWithoutItsRecordIsInNoBlock) {
  files.disc.erase(kFactoryPath);
  Open();
  Turn(id::kToolCheck, true);
  view->controls.at(id::kMaterial).text = u"Steel";
  view->controls.at(id::kOperation).text = u"Milling";
  Menu(zmc_command::kCopy);
  EXPECT_THAT(ToUtf8(windows.clipboard), HasSubstr(" ;### ZMC #  #  # "));
}

TEST_F(ZmcToolBlock, WhatTheOperatorHasTypedIsInTheBlockAsItStands) {
  Open();
  ComputeSteel();
  Enter(id::kF, u" 12.50 ");
  Turn(id::kFCheck, true);
  Menu(zmc_command::kCopy);
  EXPECT_THAT(ToUtf8(windows.clipboard), HasSubstr("G94 F12.50          ;"));
}

}  // namespace
}  // namespace pnl::test
