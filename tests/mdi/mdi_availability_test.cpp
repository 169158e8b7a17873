// SPDX-License-Identifier: MIT
// May the command line open? One row a rule, each refusing or letting pass, failing reads included.
#include "mdi/mdi_availability.h"

#include <gtest/gtest.h>

#include "support/strict_cnc.h"

namespace pnl::test {
namespace {

struct World : StrictGround {
  World() {
    cnc.vars.Define("DM.MDI.ENABLEC1", 1);
    for (const char* name : {"[1].E.PNLMODE", "[1].G.CNCAUTSTATUS", "[1].E.APISTATUS", "[1].G.STATUS"}) {
      cnc.vars.Define(name);
    }
    cnc.vars.Define("[1].MPG.CHTYPE", 2);
  }
};

struct Row {
  const char* name;
  void (*change)(StrictCnc&);
  bool allowed;
};

// Why a row passes is only seen when everything behind it would pass too, so each starts from a machine at rest.
const Row kRows[] = {
    {"AtRest", [](StrictCnc&) {}, true},
    {"EnableZero", [](StrictCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").value = 0; }, false},
    {"EnableOther", [](StrictCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").value = -3; }, true},
    {"EnableUnreadable", [](StrictCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").readable = false; }, false},
    {"EnableAbsent", [](StrictCnc& cnc) { cnc.vars.Undefine("DM.MDI.ENABLEC1"); }, true},
    {"NoKernel", [](StrictCnc& cnc) { cnc.kernel.returns["ExisteKernel"] = 1; }, false},
    {"NegativeKernel", [](StrictCnc& cnc) { cnc.kernel.returns["ExisteKernel"] = -1; }, false},
    {"ChannelTypeOne", [](StrictCnc& cnc) { cnc.vars.At("[1].MPG.CHTYPE").value = 1; }, false},
    {"ChannelTypeZero", [](StrictCnc& cnc) { cnc.vars.At("[1].MPG.CHTYPE").value = 0; }, true},
    {"ChannelTypeAbsent", [](StrictCnc& cnc) { cnc.vars.Undefine("[1].MPG.CHTYPE"); }, true},
    {"ChannelTypeUnreadable",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].MPG.CHTYPE").value = 1;
       cnc.vars.At("[1].MPG.CHTYPE").readable = false;
     },
     true},
    {"AutomaticWorkLowestBit", [](StrictCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000; }, false},
    {"AutomaticWorkHighestBit", [](StrictCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x20000; }, false},
    {"BitsBesideTheMask", [](StrictCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = ~0x3F000; }, true},
    {"AutomaticWorkInAPanelMode",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].E.PNLMODE").value = 2;
     },
     true},
    {"AutomaticWorkPanelModeAbsent",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.Undefine("[1].E.PNLMODE");
     },
     false},
    {"AutomaticWorkPanelModeUnreadable",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].E.PNLMODE").value = 2;
       cnc.vars.At("[1].E.PNLMODE").readable = false;
     },
     false},
    {"AutomaticStatusAbsent", [](StrictCnc& cnc) { cnc.vars.Undefine("[1].G.CNCAUTSTATUS"); }, true},
    {"AutomaticStatusUnreadable",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].G.CNCAUTSTATUS").readable = false;
     },
     true},
    {"ResetInspectSkipsTheStatusChecks",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].E.APISTATUS").value = 1;
       cnc.vars.At("[1].G.STATUS").value = 2;
     },
     true},
    {"ResetInspectAfterTheEarlierChecks",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("DM.MDI.ENABLEC1").value = 0;
     },
     false},
    {"AutomaticWorkGoesBeforeResetInspect",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
     },
     false},
    {"TheKernelGoesBeforeResetInspect",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.kernel.returns["ExisteKernel"] = 1;
     },
     false},
    {"ChannelTypeGoesBeforeResetInspect",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].MPG.CHTYPE").value = 1;
     },
     false},
    {"ResetInspectSkipsTheApiStatusCheck",
     [](StrictCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = -1;
       cnc.vars.Undefine("[1].E.APISTATUS");
     },
     true},
    {"ApiStatusSet", [](StrictCnc& cnc) { cnc.vars.At("[1].E.APISTATUS").value = 1; }, false},
    {"ApiStatusAbsent", [](StrictCnc& cnc) { cnc.vars.Undefine("[1].E.APISTATUS"); }, false},
    {"ApiStatusUnreadable",
     [](StrictCnc& cnc) {
       cnc.vars.At("[1].E.APISTATUS").value = 1;
       cnc.vars.At("[1].E.APISTATUS").readable = false;
     },
     true},
    {"StatusAbsent", [](StrictCnc& cnc) { cnc.vars.Undefine("[1].G.STATUS"); }, false},
    {"StatusUnreadable", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").readable = false; }, false},
    {"StatusTwo", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 2; }, false},
    {"StatusFour", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 4; }, false},
    {"StatusEight", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 8; }, false},
    {"StatusOne", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 1; }, true},
    {"StatusThree", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 3; }, true},
    {"StatusSix", [](StrictCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 6; }, true},
};

class MdiAvailability : public testing::TestWithParam<Row> {};

TEST_P(MdiAvailability, IsDecidedByTheFirstCheckThatDecides) {
  World world;
  GetParam().change(world.cnc);
  EXPECT_EQ(IsMDIAvailable(world.cnc, 1), GetParam().allowed);
  EXPECT_TRUE(world.log.empty()) << "asking changes nothing: " << world.log[0];
}

INSTANTIATE_TEST_SUITE_P(AllChecks, MdiAvailability, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
}  // namespace pnl::test
