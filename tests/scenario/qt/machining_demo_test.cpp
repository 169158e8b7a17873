// SPDX-License-Identifier: MIT
// Whole sessions with the machining calculator against the demo machines' factory file, from opening to the block in
// the program, and what a script can do with its windows and messages.
#include <csignal>
#include <filesystem>

#include "scenario/qt/machining_session.h"

namespace panel::test {
namespace {

class MachiningDemo : public MachiningSession {
 protected:
  void OpenPair(const QStringList& options = {"--lang", "en"}) {
    Open(options);
    Pick(zmc::kMaterial, "Structural steel S275JR");
    Pick(zmc::kOperation, "End milling, roughing");
    Pick(zmc::kTool, "T3");
  }
  void WriteRemark(const QString& text) {
    Focus(zmc::kRemark);
    Key("Enter");
    Type(text);
    Key("Enter");
  }
};

struct SessionRow {
  const char* machine;
  QStringList cells;
  bool dmc;
  bool cuttingSpeed;
  const char* lines;  // without their comments
  const char* writes;
};

TEST_F(MachiningDemo, FromOpeningToTheBlockInTheProgram) {
  const SessionRow rows[] = {
      {"demo",
       {"180", "0.1", "4", "25"},
       true,
       false,
       "M6             |G94 F1432.000000   |G97 S3580          |"
       "#DMC ON [PWRSP = 5.660612, FZMIN = 0.0900000, FZMAX = 0.1100000]\t",
       "write DM.ZMC.FUNIT 0|write DM.ZMC.F 1432|write DM.ZMC.SUNIT 0|write DM.ZMC.S 3580|"
       "write DM.ZMC.DMC \"#DMC ON [PWRSP = 5.660612, FZMIN = 0.0900000, FZMAX = 0.1100000]\"|"},
      {"demo-inch",
       {"600", "0.004", "0.15", "25"},
       true,
       false,
       "M6             |G94 F58.656000     |G97 S3666          |"
       "#DMC ON [PWRSP = 5.603149, FZMIN = 0.0035433, FZMAX = 0.0043307]\t",
       "write DM.ZMC.FUNIT 0|write DM.ZMC.F 58.656|write DM.ZMC.SUNIT 0|write DM.ZMC.S 3666|"
       "write DM.ZMC.DMC \"#DMC ON [PWRSP = 5.603149, FZMIN = 0.0035433, FZMAX = 0.0043307]\"|"},
      {"demo-dual",
       {"180", "0.1", "4", "25"},
       false,
       true,
       "M6             |G94 F1432.395698   |G96 S180.000000    |",
       "write DM.ZMC.FUNIT 0|write DM.ZMC.F 1432.395698|write DM.ZMC.SUNIT 1|write DM.ZMC.S 180|"
       "write DM.ZMC.DMC \"\"|"},
  };
  const std::string info = "### ZMC # Structural steel S275JR # End milling, roughing # T3";
  for (const SessionRow& row : rows) {
    SCOPED_TRACE(row.machine);
    // Every machine begins with its own settings.
    std::filesystem::remove_all(temp.Path() / "root");
    OpenPair({"--lang", "en", "--machine", row.machine});
    for (const int check : {zmc::kRemarkCheck, zmc::kToolCheck, zmc::kFCheck, zmc::kSCheck, zmc::kM6Check})
      Click(check);
    if (row.dmc) Click(zmc::kDmcCheck);
    if (row.cuttingSpeed) client->Call("ui.pick", {{"window", tool}, {"id", zmc::kSUnit}, {"index", 1}});
    for (int cell = 0; cell < row.cells.size(); ++cell) Cell(cell + 1, row.cells[cell]);
    WriteRemark("Roughing");
    client->Trace();
    Menu(zmc::kInsert);
    std::string block = ";Roughing\nT3              ;" + info + "\n";
    for (const QString& line : QString(row.lines).split('|', Qt::SkipEmptyParts)) {
      block += line.toStdString() + (line.startsWith('#') ? ";" : " ;") + info + "\n";
    }
    EXPECT_EQ(Program(), block);
    EXPECT_EQ(QString::fromStdString(Clipboard()).replace("\r\n", "\n").toStdString(), block);
    EXPECT_NE(Clipboard().find("\r\n"), std::string::npos);
    EXPECT_EQ(client->TraceText({"write"}),
              "write DM.ZMC.INFO \"" + info +
                  "\"\nwrite DM.ZMC.COMMENT \"Roughing\"\nwrite DM.ZMC.T 3\nwrite DM.ZMC.M6 1\n" +
                  QString(row.writes).replace('|', '\n').toStdString());
    EXPECT_FALSE(Visible());
    EXPECT_TRUE(Alive());
    EXPECT_EQ(client->Finish(), 0);
  }
}

TEST_F(MachiningDemo, TheHostHearsOfABlockInTheToldOrder) {
  OpenPair();
  Click(zmc::kToolCheck);
  client->Trace();
  Menu(zmc::kInsert);
  std::string names;
  for (const QJsonValue& event : client->Trace()) names += event["name"].toString().toStdString() + " ";
  EXPECT_EQ(names,
            "DM.ZMC.INFO DM.ZMC.COMMENT DM.ZMC.T DM.ZMC.M6 DM.ZMC.F DM.ZMC.S TAPI_Tools_GetToolData DM.ZMC.DMC "
            "UTIL7340_CopyToClipboard_Text HostInsertBlock HostShowMessage HostToolClosed ");
}

TEST_F(MachiningDemo, CopyLeavesTheProgramAndTheToolAsTheyAre) {
  OpenPair();
  Click(zmc::kToolCheck);
  Menu(zmc::kCopy);
  EXPECT_EQ(Clipboard(), "T3              ;### ZMC # Structural steel S275JR # End milling, roughing # T3\r\n");
  EXPECT_EQ(Program(), "");
  EXPECT_TRUE(Visible());
}

TEST_F(MachiningDemo, KeysWorkInAnOpenList) {
  Open();
  Key("Space");
  EXPECT_TRUE(client->Control(tool, zmc::kMaterial)["dropped"].toBool());
  for (int i = 0; i < 30; ++i) Key("Up");
  Key("Down");
  Key("Enter");
  EXPECT_FALSE(client->Control(tool, zmc::kMaterial)["dropped"].toBool());
  EXPECT_EQ(TextOf(zmc::kMaterial), "Heat-treatable steel C45E");
  EXPECT_EQ(client->Window(tool)["focus"].toInt(), zmc::kOperation);
  Key("Space");
  Key("Escape");
  EXPECT_FALSE(client->Control(tool, zmc::kOperation)["dropped"].toBool());
  EXPECT_TRUE(Visible()) << "Escape has closed the list alone";
}

TEST_F(MachiningDemo, AToolThatIsTypedCountsWithEnter) {
  OpenPair();
  Focus(zmc::kTool);
  client->Call("ui.text", {{"window", tool}, {"id", zmc::kTool}, {"text", "T1"}});
  EXPECT_EQ(TextOf(zmc::kDiameter), "16.000000");
  Key("Enter");
  EXPECT_EQ(TextOf(zmc::kDiameter), "10.000000");
  client->Trace();
  client->Call("ui.text", {{"window", tool}, {"id", zmc::kTool}, {"text", "T77"}});
  Key("Enter");
  EXPECT_EQ(TextOf(zmc::kTool), "T1");
  EXPECT_NE(client->TraceText({"host"}).find("T77 is not a tool for this operation."), std::string::npos);
}

TEST_F(MachiningDemo, AnIdThatTwoTabsHaveMeansTheVisibleOne) {
  Open();
  EXPECT_EQ(client->Control(tool, zmc::kOperations)["kind"].toString(), "static");
  EXPECT_EQ(Bar("side"), "-32902 -32777 32822 ");
  Menu(zmc::kOperationsTab);
  EXPECT_EQ(client->Control(tool, zmc::kOperations)["kind"].toString(), "grid");
  EXPECT_EQ(Bar("side"), "32785 -32787 -32788 32822 ");
  Menu(zmc::kMainTab);
  EXPECT_EQ(client->Control(tool, zmc::kOperations)["kind"].toString(), "static");
  EXPECT_EQ(Bar("main"), "32818 32819 32820 ");
}

TEST_F(MachiningDemo, AnOperationIsMadeInItsTable) {
  Open();
  Menu(zmc::kOperationsTab);
  Menu(zmc::kAddOperation);
  Type("Mine");
  Key("Enter");
  const QJsonObject grid = client->Call("ui.grid", {{"window", tool}, {"id", zmc::kOperations}}).toObject();
  const int row = grid["rows"].toInt() - 1;
  EXPECT_EQ(grid["current"], (QJsonArray{row, 2}));
  const QJsonObject place{{"window", tool}, {"id", zmc::kOperations}, {"row", row}, {"col", 2}};
  const auto with = [&place](QJsonObject more) {
    for (auto it = place.begin(); it != place.end(); ++it) {
      if (!more.contains(it.key())) more[it.key()] = it.value();
    }
    return more;
  };
  EXPECT_TRUE(client->Refused("ui.grid.edit", with({{"text", "Hammer"}})).contains("no such item"));
  client->Call("ui.grid.edit", with({{"text", "Milling cutter"}}));
  client->Call("ui.grid.edit", with({{"col", 3}, {"checked", true}}));
  const QJsonArray cells = client->Call("ui.grid", {{"window", tool}, {"id", zmc::kOperations}})["cells"].toArray();
  EXPECT_EQ(cells[row], (QJsonArray{"", "Mine", "Milling cutter", true, "C"}));
}

TEST_F(MachiningDemo, ItsMessagesReachTheHostWithLineAndColour) {
  struct Row {
    int first;
    int line;
    int back;
  };
  const Row rows[] = {{0, 1, 0x2C8064},
                      {1 | 2 << 16, 2, 0x648064},
                      {2 | 3 << 16, 3, 0xA0},
                      {9 | 7 << 16, 1, 0x2C8064},
                      {1 << 16, 1, 0x2C8064}};
  Open();
  for (const Row& row : rows) {
    client->Trace();
    Send("ZMC_SHOWMSG", row.first, QJsonObject{{"text", "what"}});
    const QJsonArray events = client->Trace({"host"});
    ASSERT_EQ(events.size(), 1);
    EXPECT_EQ(events[0]["args"][1],
              (QJsonObject{{"line", row.line}, {"text", "what"}, {"back", row.back}, {"fore", 0}}));
  }
  Send("ZMC_RESETMSG", 0);
  const QJsonArray reset = client->Trace({"host"});
  EXPECT_EQ(reset[0]["args"][1], (QJsonObject{{"line", 1}, {"text", ""}, {"back", 0x646E78}, {"fore", 0x646E78}}));
  EXPECT_TRUE(client->Refused("tool.send", {{"window", tool}, {"message", "ZMC_SHOWMSG"}, {"first", 0}, {"second", 5}})
                  .contains("no address"));
}

TEST_F(MachiningDemo, ItsMessagesMoveItsMenuAndCloseIt) {
  Open();
  client->Trace();
  Send("ZMC_UPDATEMENU", 0);
  Send("ZMC_SHOWMENU", 0);
  Send("ZMC_CANCELDLG", 2);
  EXPECT_EQ(client->TraceText({"host"}),
            "host HostUpdateMainMenu [4,0]\nhost HostSetMainMenu [4,null]\n"
            "host HostShowMessage [4,{\"back\":6581880,\"fore\":6581880,\"line\":1,\"text\":\"\"}]\n"
            "host HostToolClosed [4,2]\n");
  EXPECT_FALSE(Visible());
}

TEST_F(MachiningDemo, TheHelpKeyWritesItsMark) {
  Open();
  client->Tell(tool, kHelpKey, 0);
  EXPECT_EQ(client->Get("E.HELPDATA").toString(), "OPT0330");
}

TEST_F(MachiningDemo, AQuestionIsAnsweredByTheScriptAndRecorded) {
  Open();
  AddMaterial("My steel");
  EXPECT_EQ(client->Tell(tool, kCommand, kAskUnsaved), 5);
  client->Call("ui.answer", {{"answers", QJsonArray{"no"}}});
  client->Trace();
  EXPECT_EQ(client->Tell(tool, kCommand, kCloseTool), 0);
  EXPECT_EQ(client->TraceText({"box"}),
            "box \"question\" \"CNC\" \"The materials have been changed. Save them?\" \"no\"\n");
  EXPECT_FALSE(Visible());
}

TEST_F(MachiningDemo, ACloseThatIsRefusedLeavesItOpen) {
  Open();
  AddMaterial("Plastic POM-C");
  client->Trace();
  EXPECT_EQ(client->Tell(tool, kCommand, kCloseTool), -202);
  EXPECT_TRUE(Visible());
  EXPECT_EQ(client->Trace({"box"}).size(), 2);
}

TEST_F(MachiningDemo, LeaveDestroysItWithoutAQuestion) {
  Open();
  AddMaterial("My steel");
  client->Trace();
  EXPECT_EQ(client->Tell(tool, kCommand, kLeave), 0);
  EXPECT_FALSE(Alive());
  EXPECT_EQ(client->TraceText({"box"}), "");
}

TEST_F(MachiningDemo, ThePanelEndsOverUnsavedRowsWithoutAQuestion) {
  constexpr const char* kUserFile = "root/CNC/USER/CUTTING/CondicionesCorteP.xml";
  for (const char* end : {"end of input", "quit", "signal"}) {
    SCOPED_TRACE(end);
    Open();
    AddMaterial("Lost steel");
    if (std::string_view(end) == "signal") {
      client->Signal(SIGTERM);
      EXPECT_EQ(client->WaitForEnd(), 0);
    } else {
      if (std::string_view(end) == "quit") client->Call("quit");
      EXPECT_EQ(client->Finish(), 0);
    }
    ASSERT_TRUE(temp.Has(kUserFile));
    EXPECT_EQ(temp.Read(kUserFile).find("Lost steel"), std::string::npos);
    EXPECT_TRUE(temp.Has("root/CNC/SETUP/ZMC7340.ini")) << "what was chosen is kept";
  }
}

TEST_F(MachiningDemo, WhatWasChosenIsThereAtTheNextStart) {
  OpenPair();
  Click(zmc::kSCheck);
  Cell(1, "180");
  EXPECT_EQ(client->Finish(), 0);
  Open();
  EXPECT_EQ(TextOf(zmc::kMaterial), "Structural steel S275JR");
  EXPECT_EQ(TextOf(zmc::kOperation), "End milling, roughing");
  EXPECT_EQ(TextOf(zmc::kTool), "T3");
  EXPECT_EQ(TextOf(zmc::kS), "3580");
  EXPECT_TRUE(client->Control(tool, zmc::kSCheck)["checked"].toBool());
}

TEST_F(MachiningDemo, AnExportAsksForItsFileByARecord) {
  Open();
  Menu(zmc::kExport);
  const QJsonObject record = client->Call("xplr.record").toObject();
  EXPECT_EQ(record["Owner"].toInt(), 1004);
  EXPECT_EQ(record["Path"].toString(), "C:\\CNC\\USER\\CUTTING");
  EXPECT_EQ(record["File"].toString(), "materials.csv");
  EXPECT_EQ(record["Extension"].toString(), "csv");
  // The explorer is left by Escape, wherever its window has its number.
  for (int window = tool + 1; window < tool + 20; ++window) {
    if (client->Call("window.alive", {{"window", window}})["alive"].toBool() && client->Window(window)["view"] != 0) {
      client->Call("ui.key", {{"window", window}, {"key", "Escape"}});
      break;
    }
  }
  EXPECT_FALSE(temp.Has("root/CNC/USER/CUTTING/materials.csv"));
  EXPECT_EQ(client->Window(tool)["focus"].toInt(), zmc::kMaterial);
}

TEST_F(MachiningDemo, SpeaksSpanish) {
  Open({"--lang", "es"});
  EXPECT_EQ(TextOf(3018), "Material");
  EXPECT_EQ(TextOf(3009), QString::fromUtf8("Operación").toStdString());
  EXPECT_NE(client->Control(tool, zmc::kTool)["items"].toArray().size(), 0) << "its types of tools are known";
}

}  // namespace
}  // namespace panel::test
