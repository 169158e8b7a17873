// SPDX-License-Identifier: MIT
// The command line on a CNC that only records: what is asked of the host and of the kernel, in order, for a whole
// session, and every refusal that a script can bring about.
#include <gtest/gtest.h>

#include "scenario/qt/bare_mdi.h"

namespace panel::test {
namespace {

TEST_F(BareMdi, ASessionAsksHostAndKernelInOrder) {
  client.Trace();
  Load();
  EXPECT_EQ(client.TraceText(), "cnc IsNewInspecAllowed [0] 0\n");
  const QByteArray window = QByteArray::number(mdi);

  EXPECT_EQ(client.Tell(mdi, kCommand, kOpen, 1), 0);
  EXPECT_EQ(client.TraceText(),
            "cnc ExisteKernel [] 0\n"
            "cnc IsMDIAllowedInResetInspect [1] 0\n"
            "host HostToolOpening [6]\n"
            "host HostShowMessage [6,{\"back\":2916452,\"fore\":0,\"line\":1,\"text\":\"\"}]\n"
            "message parent 2049 41 {\"channel\":1,\"window\":" +
                window.toStdString() +
                "}\n"
                "write [1].E.MANUALMODE 0\n"
                "write [1].E.PNLMODE 2\n"
                "cnc SetMdi [1,1] 1\n"
                "write [1].G.CNCMANSTATUS 268435456\n"
                "host HostSetSideMenu [6,[40005,40006]]\n"
                "host HostSetMainMenu [6,null]\n"
                "host HostShowMessage [6,{\"back\":2916452,\"fore\":0,\"line\":1,\"text\":\"\"}]\n");

  Type("G0 X1");
  EXPECT_EQ(client.Start(mdi), 0);
  Status(kRunning);
  EXPECT_EQ(client.TraceText({"cnc", "write", "message", "box"}),
            "cnc CogerPlcFree [0,1] 1\n"
            "cnc MDILine [0,\"G0 X1\",0,4,0] 0\n");
  EXPECT_EQ(client.Control(mdi, kEdit)["readOnly"], true);

  Status(kReady);
  EXPECT_EQ(client.TraceText({"cnc", "write", "message", "box"}), "");
  EXPECT_EQ(client.Text(mdi, kEdit), "");
  EXPECT_EQ(client.Control(mdi, kEdit)["readOnly"], false);

  client.Trace();
  EXPECT_EQ(client.Tell(mdi, kCommand, kClose, 1), 0);
  EXPECT_EQ(client.TraceText(),
            "cnc CogerPlcFree [0,1] 1\n"
            "message parent 2049 42 {\"channel\":1,\"window\":" +
                window.toStdString() +
                "}\n"
                "cnc SetMdi [1,0] 1\n"
                "cnc EndMDIMode [1] 1\n"
                "cnc SetMode [1,1] 1\n"
                "cnc LiberarPlcFree [0,1,1] 1\n"
                "write [1].G.CNCMANSTATUS 0\n"
                "host HostShowMessage [6,{\"back\":2916452,\"fore\":0,\"line\":1,\"text\":\"\"}]\n"
                "host HostToolClosed [6,2]\n");
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G0 X1\r\n");
  EXPECT_EQ(temp.Read("root/P108/MDAC1.DAT"), "G0 X1\r\n");
}

TEST_F(BareMdi, ABlockRefusedByTheKernelGivesTheInterlockBackAndStaysForCorrection) {
  client.Call("cnc.returns", {{"function", "MDILine"}, {"value", 5}});
  Open();
  Type("G999");
  EXPECT_EQ(client.Start(mdi), 0);
  EXPECT_EQ(client.TraceText({"cnc"}),
            "cnc CogerPlcFree [0,1] 1\n"
            "cnc MDILine [0,\"G999\",0,4,0] 5\n"
            "cnc LiberarPlcFree [0,1,1] 1\n");
  EXPECT_EQ(client.Text(mdi, kEdit), "G999");
  EXPECT_EQ(client.Control(mdi, kEdit)["readOnly"], false);
}

TEST_F(BareMdi, AnEmptyEditStartsNothing) {
  Open();
  EXPECT_EQ(client.Start(mdi), 0);
  EXPECT_EQ(client.TraceText({"cnc"}), "");
}

TEST_F(BareMdi, TheCycleStartRecordIsRead) {
  Open();
  EXPECT_EQ(client.Tell(mdi, 0x800, 2, QJsonObject{{"start", QJsonObject{{"channel", 1}}}}), 1);
  client.Call("cnc.returns", {{"function", "IsNewInspecAllowed"}, {"value", 1}});
  client.Call("cnc.returns", {{"function", "EnProcesoInspec"}, {"value", 1}});
  EXPECT_EQ(client.Tell(mdi, 0x800, 2, QJsonObject{{"start", QJsonObject{{"channel", 1}}}}), 4);
  EXPECT_EQ(client.Tell(mdi, 0x800, 2, 0), 0);
  EXPECT_EQ(client.Tell(mdi, 0x800, 3, 0), -203);
  EXPECT_EQ(client.Tell(mdi, 0x800, 9, 0), kRefused);
}

struct RefusedOpening {
  const char* what;
  const char* variable;
  int value;
  const char* function;
  int answer;
};

class RefusedOpenings : public BareMdi, public ::testing::WithParamInterface<RefusedOpening> {};

TEST_P(RefusedOpenings, AnswerTheCodeAndShowNothing) {
  const RefusedOpening& row = GetParam();
  if (row.variable != nullptr) client.Define(row.variable, row.value);
  if (row.function != nullptr) client.Call("cnc.returns", {{"function", row.function}, {"value", row.answer}});
  Load();
  EXPECT_EQ(client.Tell(mdi, kCommand, kOpen, 1), kRefused);
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  EXPECT_EQ(client.TraceText({"host", "write", "message"}), "");
}

INSTANTIATE_TEST_SUITE_P(All, RefusedOpenings,
                         ::testing::Values(RefusedOpening{"disabled in the setup", "DM.MDI.ENABLEC1", 0, nullptr, 0},
                                           RefusedOpening{"no kernel", nullptr, 0, "ExisteKernel", 1},
                                           RefusedOpening{"a channel without MDI", "[1].MPG.CHTYPE", 1, nullptr, 0},
                                           RefusedOpening{"automatic work waits", "[1].G.CNCAUTSTATUS", 0x1000, nullptr,
                                                          0},
                                           RefusedOpening{"the interface is busy", "[1].E.APISTATUS", 1, nullptr, 0},
                                           RefusedOpening{"running", "[1].G.STATUS", 2, nullptr, 0},
                                           RefusedOpening{"interrupted", "[1].G.STATUS", 4, nullptr, 0},
                                           RefusedOpening{"aborted", "[1].G.STATUS", 8, nullptr, 0}),
                         [](const auto& row) {
                           std::string name = row.param.what;
                           for (char& c : name) c = c == ' ' ? '_' : c;
                           return name;
                         });

TEST_F(BareMdi, AnUnknownChannelIsRefused) {
  Load();
  EXPECT_EQ(client.Tell(mdi, kCommand, kOpen, 2), kRefused);
}

TEST_F(BareMdi, ResetInspectionOpensInARunningChannel) {
  client.Set("[1].G.STATUS", 2);
  client.Call("cnc.returns", {{"function", "IsMDIAllowedInResetInspect"}, {"value", 1}});
  Load();
  EXPECT_EQ(client.Tell(mdi, kCommand, kOpen, 1), 0);
}

}  // namespace
}  // namespace panel::test
