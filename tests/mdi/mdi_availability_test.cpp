// SPDX-License-Identifier: MIT
// May the command line open? One row a rule, each refusing or letting pass, failing reads included.
#include "mdi/mdi_availability.h"

#include <gtest/gtest.h>

#include "mdi_fakes.h"

namespace pnl::test {
namespace {

struct World {
  World() : cnc(log, windows) {
    cnc.vars.Define("DM.MDI.ENABLEC1", 1);
    for (const char* name : {"[1].E.PNLMODE", "[1].G.CNCAUTSTATUS", "[1].E.APISTATUS", "[1].G.STATUS"}) {
      cnc.vars.Define(name);
    }
    cnc.vars.Define("[1].MPG.CHTYPE", 2);
  }
  Log log;
  FakeWindowSystem windows;
  FakeCnc cnc;
};

struct Row {
  const char* name;
  void (*change)(FakeCnc&);
  bool allowed;
};

// Why a row passes is only seen when everything behind it would pass too, so each starts from a machine at rest.
const Row kRows[] = {
    {"AtRest", [](FakeCnc&) {}, true},
    {"EnableZero", [](FakeCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").value = 0; }, false},
    {"EnableOther", [](FakeCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").value = -3; }, true},
    {"EnableUnreadable", [](FakeCnc& cnc) { cnc.vars.At("DM.MDI.ENABLEC1").readable = false; }, false},
    {"EnableAbsent", [](FakeCnc& cnc) { cnc.vars.Undefine("DM.MDI.ENABLEC1"); }, true},
    {"NoKernel", [](FakeCnc& cnc) { cnc.kernel.returns["ExisteKernel"] = 1; }, false},
    {"NegativeKernel", [](FakeCnc& cnc) { cnc.kernel.returns["ExisteKernel"] = -1; }, false},
    {"ChannelTypeOne", [](FakeCnc& cnc) { cnc.vars.At("[1].MPG.CHTYPE").value = 1; }, false},
    {"ChannelTypeZero", [](FakeCnc& cnc) { cnc.vars.At("[1].MPG.CHTYPE").value = 0; }, true},
    {"ChannelTypeAbsent", [](FakeCnc& cnc) { cnc.vars.Undefine("[1].MPG.CHTYPE"); }, true},
    {"ChannelTypeUnreadable",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].MPG.CHTYPE").value = 1;
       cnc.vars.At("[1].MPG.CHTYPE").readable = false;
     },
     true},
    {"AutomaticWorkLowestBit", [](FakeCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000; }, false},
    {"AutomaticWorkHighestBit", [](FakeCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x20000; }, false},
    {"BitsBesideTheMask", [](FakeCnc& cnc) { cnc.vars.At("[1].G.CNCAUTSTATUS").value = ~0x3F000; }, true},
    {"AutomaticWorkInAPanelMode",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].E.PNLMODE").value = 2;
     },
     true},
    {"AutomaticWorkPanelModeAbsent",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.Undefine("[1].E.PNLMODE");
     },
     false},
    {"AutomaticWorkPanelModeUnreadable",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].E.PNLMODE").value = 2;
       cnc.vars.At("[1].E.PNLMODE").readable = false;
     },
     false},
    {"AutomaticStatusAbsent", [](FakeCnc& cnc) { cnc.vars.Undefine("[1].G.CNCAUTSTATUS"); }, true},
    {"AutomaticStatusUnreadable",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
       cnc.vars.At("[1].G.CNCAUTSTATUS").readable = false;
     },
     true},
    {"ResetInspectSkipsTheStatusChecks",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].E.APISTATUS").value = 1;
       cnc.vars.At("[1].G.STATUS").value = 2;
     },
     true},
    {"ResetInspectAfterTheEarlierChecks",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("DM.MDI.ENABLEC1").value = 0;
     },
     false},
    {"AutomaticWorkGoesBeforeResetInspect",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x1000;
     },
     false},
    {"TheKernelGoesBeforeResetInspect",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.kernel.returns["ExisteKernel"] = 1;
     },
     false},
    {"ChannelTypeGoesBeforeResetInspect",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
       cnc.vars.At("[1].MPG.CHTYPE").value = 1;
     },
     false},
    {"ResetInspectSkipsTheApiStatusCheck",
     [](FakeCnc& cnc) {
       cnc.kernel.returns["IsMDIAllowedInResetInspect"] = -1;
       cnc.vars.Undefine("[1].E.APISTATUS");
     },
     true},
    {"ApiStatusSet", [](FakeCnc& cnc) { cnc.vars.At("[1].E.APISTATUS").value = 1; }, false},
    {"ApiStatusAbsent", [](FakeCnc& cnc) { cnc.vars.Undefine("[1].E.APISTATUS"); }, false},
    {"ApiStatusUnreadable",
     [](FakeCnc& cnc) {
       cnc.vars.At("[1].E.APISTATUS").value = 1;
       cnc.vars.At("[1].E.APISTATUS").readable = false;
     },
     true},
    {"StatusAbsent", [](FakeCnc& cnc) { cnc.vars.Undefine("[1].G.STATUS"); }, false},
    {"StatusUnreadable", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").readable = false; }, false},
    {"StatusTwo", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 2; }, false},
    {"StatusFour", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 4; }, false},
    {"StatusEight", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 8; }, false},
    {"StatusOne", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 1; }, true},
    {"StatusThree", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 3; }, true},
    {"StatusSix", [](FakeCnc& cnc) { cnc.vars.At("[1].G.STATUS").value = 6; }, true},
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
