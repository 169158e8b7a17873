// SPDX-License-Identifier: MIT
// The command line on the simulated mill: a typed block runs, takes its time, is kept, and a wrong one is refused with
// an error that can be read.
#include <gtest/gtest.h>

#include <filesystem>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kMdi = 6;
constexpr int kNameField = 1105;
constexpr int kCommand = 0x802;
constexpr int kOpen = 2;
constexpr int kClose = 5;
constexpr int kSwitchRole = 8;
constexpr int kEdit = 5000;
constexpr int kList = 5001;

class DemoMdi : public ::testing::Test {
 protected:
  DemoMdi() : client({"--time", "manual", "--lang", "en", "--root", QString::fromStdString(temp.Folder("root"))}) {}
  void Open() {
    mdi = client.Load(kMdi);
    ASSERT_EQ(client.Tell(mdi, kCommand, kOpen, 1), 0);
  }
  void Type(const QString& text) { client.Call("ui.type", {{"window", mdi}, {"text", text}}); }
  /// The explorer that the panel opened over the command line.
  int Explorer() {
    for (int window = mdi + 1; window < mdi + 50; ++window) {
      if (client.Call("window.alive", {{"window", window}}).toObject()["alive"].toBool() &&
          client.Window(window)["view"].toInt() != 0) {
        return window;
      }
    }
    ADD_FAILURE() << "no explorer";
    return 0;
  }
  void AcceptName(const QString& name) {
    const int explorer = Explorer();
    const QJsonValue form = client.Window(explorer)["view"];
    client.Call("ui.focus", {{"window", form}, {"id", kNameField}});
    client.Call("ui.type", {{"window", form}, {"text", name}});
    client.Call("ui.key", {{"window", explorer}, {"key", "Enter"}});
  }
  bool Running() { return client.Control(mdi, kEdit)["readOnly"].toBool(); }
  int Status() { return client.Get("[1].G.FULLSTATUS").toInt() >> 8; }
  int Errors() { return static_cast<int>(client.Call("cnc.error.queue").toObject()["numbers"].toArray().size()); }

  pnl::test::TempFolder temp;
  PanelClient client;
  int mdi = 0;
};

TEST_F(DemoMdi, ATypedBlockRunsForAsLongAsItsFeedAsks) {
  Open();
  Type("G1 X10 F600");
  EXPECT_EQ(client.Start(mdi), 0);
  EXPECT_TRUE(Running());
  EXPECT_EQ(Status(), 2);
  client.Advance(900);
  EXPECT_TRUE(Running());
  client.Advance(600);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Status(), 1);
  EXPECT_EQ(client.Text(mdi, kEdit), "");
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/CNC/USER/MDIC1.DAT"), "G1 X10 F600\r\n");
  EXPECT_EQ(temp.Read("root/CNC/USER/MDAC1.DAT"), "G1 X10 F600\r\n");
}

TEST_F(DemoMdi, AWrongBlockIsRefusedWithAnErrorThatNamesItsWord) {
  Open();
  Type("G1 X10 Q7");
  EXPECT_EQ(client.Start(mdi), 0);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Errors(), 1);
  EXPECT_EQ(client.Get("E.NERRORS"), 1);
  EXPECT_EQ(client.Text(mdi, kEdit), "G1 X10 Q7");
  const QJsonObject edit = client.Call("ui.control", {{"window", mdi}, {"id", kEdit}}).toObject();
  EXPECT_EQ(edit["selection"].toArray(), (QJsonArray{7, 9})) << "the word at fault can be typed over";
  // The correction runs.
  client.Call("ui.text", {{"window", mdi}, {"id", kEdit}, {"text", "G0 X10"}});
  client.Start(mdi);
  EXPECT_TRUE(Running());
  client.Advance(60000);
  EXPECT_FALSE(Running());
}

TEST_F(DemoMdi, AToolClosedWhileItsBlockRunsGivesTheChannelBackAtItsEnd) {
  Open();
  Type("G1 X100 F1000");
  client.Start(mdi);
  EXPECT_EQ(client.Tell(mdi, kCommand, kClose, 1), 1);
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  client.Advance(3000);
  EXPECT_EQ(Status(), 2);
  EXPECT_EQ(client.Get("[1].E.PNLMODE"), 2);
  client.Trace();
  client.Advance(10000);
  EXPECT_EQ(Status(), 1);
  EXPECT_EQ(client.TraceText({"cnc"}),
            "cnc CogerPlcFree [0,1] 1\n"
            "cnc SetMdi [1,0] 1\n"
            "cnc EndMDIMode [1] 1\n"
            "cnc SetMode [1,1] 1\n"
            "cnc LiberarPlcFree [0,1,1] 1\n");
}

TEST_F(DemoMdi, AProgramStopInterruptsAndTheStartKeyGoesOn) {
  Open();
  Type("M0");
  client.Start(mdi);
  client.Advance(1000);
  EXPECT_EQ(Status(), 4);
  EXPECT_TRUE(Running());
  client.Trace();
  client.Start(mdi);
  EXPECT_EQ(client.TraceText({"cnc"}), "cnc NextSingleStep [0] 0\n");
  client.Advance(1000);
  EXPECT_EQ(Status(), 1);
  EXPECT_FALSE(Running());
}

TEST_F(DemoMdi, AnInterruptedBlockIsCancelledAndLandsInTheHistoryOnly) {
  Open();
  Type("M0");
  client.Start(mdi);
  client.Advance(1000);
  const QJsonArray menu = client.Call("ui.menu", {{"bar", "main"}}).toArray();
  ASSERT_EQ(menu.size(), 1);
  EXPECT_EQ(menu[0].toObject()["text"], "Cancel block");
  client.Call("ui.command", {{"window", mdi}, {"id", 40000}});
  client.Advance(1000);
  EXPECT_FALSE(Running());
  EXPECT_EQ(client.Call("ui.menu", {{"bar", "main"}}), QJsonValue(QJsonValue::Null));
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/CNC/USER/MDIC1.DAT"), "M0\r\n");
  EXPECT_EQ(temp.Read("root/CNC/USER/MDAC1.DAT"), "");
}

TEST_F(DemoMdi, TheListIsSavedAsAProgramThroughTheExplorer) {
  Open();
  for (const char* block : {"G0 X1", "M5"}) {
    Type(block);
    client.Start(mdi);
    client.Advance(60000);
  }
  client.Tell(mdi, kCommand, kSwitchRole);
  client.Call("ui.command", {{"window", mdi}, {"id", 32775}});
  EXPECT_EQ(client.Call("xplr.record").toObject()["Title"], "Save as program");
  AcceptName("PART7.nc");
  EXPECT_EQ(temp.Read("root/CNC/PROGRAMS/PART7.nc"),
            "(------------- CREATED BY MDI -------------)\n% PART7\nG0 X1\nM5\nM30");
  EXPECT_EQ(client.Call("xplr.record").toObject()["File"], "PART7.nc");
}

TEST_F(DemoMdi, AProgramThatCantBeReplacedIsToldInABox) {
  Open();
  Type("M5");
  client.Start(mdi);
  client.Advance(1000);
  client.Tell(mdi, kCommand, kSwitchRole);
  temp.Write("root/CNC/PROGRAMS/OLD.nc", "M30");
  std::filesystem::permissions(temp.Path() / "root/CNC/PROGRAMS/OLD.nc", std::filesystem::perms::owner_read);
  client.Call("ui.command", {{"window", mdi}, {"id", 32775}});
  client.Trace();
  AcceptName("OLD.nc");
  const std::string boxes = client.TraceText({"box"});
  EXPECT_EQ(boxes.substr(0, 15), "box \"question\" ") << boxes;
  EXPECT_NE(boxes.find("box \"error\" "), std::string::npos) << boxes;
  EXPECT_NE(boxes.find("OLD.nc"), std::string::npos) << boxes;
  EXPECT_EQ(temp.Read("root/CNC/PROGRAMS/OLD.nc"), "M30");
}

TEST_F(DemoMdi, SettingsAndListsSurviveARestart) {
  Open();
  for (const char* block : {"G0 X1", "G0 X2"}) {
    Type(block);
    client.Start(mdi);
    client.Advance(60000);
  }
  client.Call("ui.command", {{"window", mdi}, {"id", 40005}});
  const QJsonValue place = client.Window(mdi)["rect"];
  EXPECT_EQ(client.Finish(), 0);

  PanelClient again({"--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))});
  const int window = again.Load(kMdi);
  ASSERT_EQ(again.Tell(window, kCommand, kOpen, 1), 0);
  EXPECT_EQ(again.Window(window)["rect"], place);
  again.Tell(window, kCommand, kSwitchRole, 0);
  EXPECT_EQ(again.Control(window, kList)["items"], QJsonValue(QJsonArray({"G0 X1", "G0 X2"})));
  EXPECT_EQ(again.Finish(), 0);
  EXPECT_EQ(temp.Read("root/CNC/USER/MDIC1.DAT"), "G0 X2\r\nG0 X1\r\n");
}

TEST_F(DemoMdi, ThePanelIsCapturedWithItsTool) {
  Open();
  client.Call("ui.capture", {{"file", QString::fromStdString((temp.Path() / "panel.png").string())}});
  client.Call("ui.capture", {{"file", QString::fromStdString((temp.Path() / "tool.png").string())}, {"window", mdi}});
  EXPECT_GT(temp.Read("panel.png").size(), temp.Read("tool.png").size());
}

}  // namespace
}  // namespace panel::test
