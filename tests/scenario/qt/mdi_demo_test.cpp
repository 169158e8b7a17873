// SPDX-License-Identifier: MIT
// The command line on the simulated mill: a typed block runs, takes its time, is kept, and a wrong one is refused with
// an error that can be read.
#include <gtest/gtest.h>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kMdi = 6;
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
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G1 X10 F600\r\n");
  EXPECT_EQ(temp.Read("root/P108/MDAC1.DAT"), "G1 X10 F600\r\n");
}

TEST_F(DemoMdi, AWrongBlockIsRefusedWithAnErrorThatNamesItsWord) {
  Open();
  Type("G1 X10 Q7");
  EXPECT_EQ(client.Start(mdi), 0);
  EXPECT_FALSE(Running());
  EXPECT_EQ(Errors(), 1);
  EXPECT_EQ(client.Get("E.NERRORS"), 1);
  EXPECT_EQ(client.Text(mdi, kEdit), "G1 X10 Q7");
  // The correction runs.
  client.Call("ui.text", {{"window", mdi}, {"id", kEdit}, {"text", "G0 X10"}});
  client.Start(mdi);
  EXPECT_TRUE(Running());
  client.Advance(60000);
  EXPECT_FALSE(Running());
}

TEST_F(DemoMdi, ABlockIsHeldCancelledAndLandsInTheHistoryOnly) {
  Open();
  Type("G1 X100 F100");
  client.Start(mdi);
  client.Advance(1000);
  // A feed hold comes from the operator's panel.
  client.Call("tool.destroy", {{"window", 0}});
  EXPECT_EQ(Status(), 2);
  EXPECT_EQ(client.Tell(mdi, kCommand, kClose, 1), 1);
  EXPECT_EQ(client.Window(mdi)["visible"], false);
  client.Advance(120000);
  EXPECT_EQ(Status(), 1);
  EXPECT_EQ(client.Get("[1].E.PNLMODE"), 0);
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
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G0 X2\r\nG0 X1\r\n");
}

TEST_F(DemoMdi, ThePanelIsCapturedWithItsTool) {
  Open();
  client.Call("ui.capture", {{"file", QString::fromStdString((temp.Path() / "panel.png").string())}});
  client.Call("ui.capture", {{"file", QString::fromStdString((temp.Path() / "tool.png").string())}, {"window", mdi}});
  EXPECT_GT(temp.Read("panel.png").size(), temp.Read("tool.png").size());
}

}  // namespace
}  // namespace panel::test
