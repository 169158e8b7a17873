// SPDX-License-Identifier: MIT
// The command line as an operator uses it, on a CNC that only records: place and menus, drop list, roles, the list and
// its program, interruption, inspection, closing.
#include "scenario/qt/bare_mdi.h"

namespace panel::test {
namespace {

TEST_F(BareMdi, TheLineLiesAtTheBottomOfTheToolArea) {
  Open();
  const QJsonObject window = client.Window(mdi);
  EXPECT_EQ(window["visible"], true);
  EXPECT_EQ(window["parent"], QJsonValue(QJsonArray({800, 600})));
  EXPECT_EQ(window["rect"], QJsonValue(QJsonArray({0, 571, 800, 29})));
  EXPECT_EQ(window["back"], 0x05B9D2);
  EXPECT_EQ(window["focus"], kEdit);
  const QJsonObject title = client.Control(mdi, kTitle);
  EXPECT_EQ(title["text"], "MDI");
  EXPECT_EQ(title["blinking"], true);
  EXPECT_EQ(title["period"], 800);
  EXPECT_EQ(client.Control(mdi, kEdit)["limit"], 255);
  EXPECT_EQ(client.Control(mdi, kList)["visible"], false);
}

TEST_F(BareMdi, TheSideMenuMovesAndShrinksTheLine) {
  Open();
  Command(40005);
  EXPECT_EQ(client.Window(mdi)["rect"], QJsonValue(QJsonArray({0, 0, 800, 29})));
  Command(40006);
  EXPECT_EQ(client.Window(mdi)["rect"], QJsonValue(QJsonArray({0, 0, 400, 29})));
  const QJsonArray side = client.Call("ui.menu", {{"bar", "side"}}).toArray();
  ASSERT_EQ(side.size(), 2);
  EXPECT_EQ(side[0].toObject()["bitmap"], 3027);
  EXPECT_EQ(side[0].toObject()["helper"], "MDI_Below");
  EXPECT_EQ(side[1].toObject()["bitmap"], 3028);
  EXPECT_EQ(side[1].toObject()["helper"], "MDI_Stretch");
  EXPECT_EQ(client.Finish(), 0);
  const std::string settings = temp.Read("root/P108/MDIMAN.INI");
  EXPECT_NE(settings.find("Below=NO"), std::string::npos) << settings;
  EXPECT_NE(settings.find("FullLength=NO"), std::string::npos) << settings;
}

TEST_F(BareMdi, TheTitleBlinksWithTheClock) {
  Open();
  const bool before = client.Control(mdi, kTitle)["phase"].toBool();
  client.Advance(800);
  EXPECT_EQ(client.Control(mdi, kTitle)["phase"].toBool(), !before);
  client.Advance(800);
  EXPECT_EQ(client.Control(mdi, kTitle)["phase"].toBool(), before);
}

TEST_F(BareMdi, TheHistoryDropsDownAndGivesABlockBack) {
  Open();
  Run("G0 X1");
  Run("G0 X2");
  Run("G0 X1");
  Key("Down");
  const QJsonArray dialogs = client.Call("ui.dialogs").toArray();
  ASSERT_EQ(dialogs.size(), 1);
  const int drop = dialogs[0].toObject()["window"].toInt();
  const QJsonArray controls = client.Window(drop)["controls"].toArray();
  ASSERT_EQ(controls.size(), 1);
  const int list = controls[0].toInt();
  EXPECT_EQ(client.Control(drop, list)["items"], QJsonValue(QJsonArray({"G0 X1", "G0 X2"})));
  EXPECT_EQ(client.Control(drop, list)["selected"], QJsonValue(QJsonArray{0}));
  client.Call("ui.doubleClick", {{"window", drop}, {"id", list}, {"index", 1}});
  EXPECT_TRUE(client.Call("ui.dialogs").toArray().isEmpty());
  EXPECT_EQ(client.Text(mdi, kEdit), "G0 X2");
}

TEST_F(BareMdi, EscapeClosesTheDropListFirstAndThenTheTool) {
  Open();
  Run("G0 X1");
  Key("Up");
  ASSERT_EQ(client.Call("ui.dialogs").toArray().size(), 1);
  const int drop = client.Call("ui.dialogs").toArray()[0].toObject()["window"].toInt();
  client.Call("ui.key", {{"window", drop}, {"key", "Escape"}});
  EXPECT_TRUE(client.Call("ui.dialogs").toArray().isEmpty());
  EXPECT_EQ(client.Window(mdi)["visible"], true);
  client.Trace();
  Key("Escape");
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  EXPECT_NE(client.TraceText({"host"}).find("host HostToolClosed [6,2]\n"), std::string::npos);
}

TEST_F(BareMdi, BlocksOfTheLineStandInTheListOfTheOtherRole) {
  Open();
  Run("G0 X1");
  Run("G0 X2");
  EXPECT_EQ(client.Tell(mdi, kCommand, kSwitchRole, 0), 0);
  EXPECT_EQ(client.Text(mdi, kTitle), "MDA");
  EXPECT_EQ(Items(), QJsonValue(QJsonArray({"G0 X1", "G0 X2"})));
  EXPECT_EQ(client.Window(mdi)["rect"], QJsonValue(QJsonArray({0, 0, 800, 600})));
  client.Trace();
  Command(40003);
  EXPECT_EQ(Items(), QJsonValue(QJsonArray({"G0 X2", "G0 X1"})));
  Command(32773);
  Type("M5");
  Key("Enter");
  EXPECT_EQ(Items().toArray().size(), 3);
  Command(32776);
  EXPECT_EQ(Items(), QJsonValue(QJsonArray()));
}

TEST_F(BareMdi, AnInterruptedBlockCanBeCancelled) {
  client.Call("cnc.returns", {{"function", "PosibleMDICancel"}, {"value", 2}});
  Open();
  Type("G1 X100 F10");
  client.Start(mdi);
  Status(kRunning);
  client.Trace();
  Status(kInterrupted);
  EXPECT_EQ(client.TraceText({"cnc"}),
            "cnc PosibleMDICancel [1] 2\n"
            "cnc WriteTxtInBlackBox [\"MDI: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE (PosibleMDICancel = "
            "2)\",0] 0\n");
  const QJsonArray menu = client.Call("ui.menu", {{"bar", "main"}}).toArray();
  ASSERT_EQ(menu.size(), 1);
  EXPECT_EQ(menu[0].toObject()["id"], 40000);
  EXPECT_EQ(menu[0].toObject()["bitmap"], 3017);
  client.Trace();
  Command(40000);
  EXPECT_EQ(client.TraceText({"cnc"}), "cnc MDICancel [1] 0\n");
  Status(0x800);
  EXPECT_EQ(client.Control(mdi, kEdit)["readOnly"], false);
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G1 X100 F10\r\n");
  EXPECT_EQ(temp.Read("root/P108/MDAC1.DAT"), "");
}

TEST_F(BareMdi, AskedToCloseWhileRunningItGivesTheChannelBackAtTheEndOfTheBlock) {
  Open();
  Type("G1 X100");
  client.Start(mdi);
  Status(kRunning);
  client.Trace();
  EXPECT_EQ(client.Tell(mdi, kCommand, kClose, 1), 1);
  EXPECT_EQ(client.TraceText({"host", "cnc", "message"}), "host HostToolClosed [6,2]\n");
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  Status(kReady);
  const std::string end = client.TraceText({"cnc", "message"});
  EXPECT_NE(end.find("cnc SetMdi [1,0] 1\n"), std::string::npos) << end;
  EXPECT_NE(end.find("message parent 2049 42"), std::string::npos) << end;
}

TEST_F(BareMdi, AHiddenToolKeepsItsChannel) {
  Open();
  EXPECT_EQ(client.Tell(mdi, kCommand, kHide, 1), 0);
  EXPECT_EQ(client.TraceText(), "host HostToolClosed [6,2]\n");
  EXPECT_EQ(client.Get("[1].E.PNLMODE"), 2);
}

TEST_F(BareMdi, DuringAnInspectionTheStartKeyOnlyAsksTheControl) {
  client.Call("cnc.returns", {{"function", "IsNewInspecAllowed"}, {"value", 1}});
  client.Define("[1].E.INSPECSTATUS", 0);
  client.Define("[1].E.STARTONMDI", 5);
  Open();
  EXPECT_EQ(client.Get("[1].E.STARTONMDI"), 0);
  client.Set("[1].E.INSPECSTATUS", 2);
  EXPECT_EQ(client.TraceText({"host"}),
            "host HostShowMessage [6,{\"back\":2916452,\"fore\":0,\"line\":1,\"text\":\"T38\"}]\n");
  Type("G0 X1");
  client.Trace();
  client.Start(mdi);
  EXPECT_EQ(client.TraceText({"cnc", "write"}), "write [1].E.STARTONMDI 1\n");
  client.Set("[1].E.STARTONMDI", 2);
  client.Trace();
  client.Set("[1].E.INSPECSTATUS", 1);
  EXPECT_NE(client.TraceText({"cnc"}).find("cnc MDILine [0,\"G0 X1\",0,4,0] 0\n"), std::string::npos);
}

TEST_F(BareMdi, TheListIsSavedAsAProgram) {
  Open();
  Run("G0 X1");
  client.Tell(mdi, kCommand, kSwitchRole, 0);
  client.Define("E.XPLRDATA", 0);
  client.Trace();
  Command(32775);
  EXPECT_EQ(client.TraceText({"host"}), "host HostExplorerRequest []\n");
  const QJsonObject record = client.Call("xplr.record").toObject();
  EXPECT_EQ(record["Title"], "T8");
  EXPECT_EQ(record["Filter"], "*");
  EXPECT_EQ(record["Flags"], 2);
  // Nothing is chosen: the record's folder and name are what they were.
  EXPECT_EQ(record["File"], "");
}

TEST_F(BareMdi, TheCalculatorsResultComesIntoTheEdit) {
  Open();
  Type("G0 X");
  client.Call("cnc.define", {{"name", "E.CALCRESUL"}, {"type", "double"}, {"value", 12.5}});
  client.Tell(mdi, 0x804, 1);
  EXPECT_EQ(client.Text(mdi, kEdit), "G0 X12.5");
}

TEST_F(BareMdi, TheHelpKeyWritesTheBlocksMark) {
  client.Define("E.HELPDATA", "");
  client.Call("cnc.blockmark", {{"block", "G1"}, {"mark", "OPT0007"}});
  Open();
  client.Tell(mdi, 0x805, 0);
  EXPECT_EQ(client.Get("E.HELPDATA"), "OPT0130");
  Type("G1");
  client.Tell(mdi, 0x805, 0);
  EXPECT_EQ(client.Get("E.HELPDATA"), "OPT0007");
}

TEST_F(BareMdi, WithoutCallbacksEverythingStillWorks) {
  client.Call("host.api", {{"offered", "none"}});
  Open();
  Run("G0 X1");
  EXPECT_EQ(client.Tell(mdi, kCommand, kClose, 1), 0);
  EXPECT_EQ(client.TraceText({"host"}), "");
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G0 X1\r\n");
}

TEST_F(BareMdi, DestroyingTheWindowStoresTheLists) {
  Open();
  Run("G0 X1");
  client.Call("tool.destroy", {{"window", mdi}});
  EXPECT_EQ(client.Call("window.alive", {{"window", mdi}}).toObject()["alive"], false);
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G0 X1\r\n");
}

}  // namespace
}  // namespace panel::test
