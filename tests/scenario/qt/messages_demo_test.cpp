// SPDX-License-Identifier: MIT
// Messages of the PLC and manuals in a session with the demo machine: what a script raises, reads and leaves.
#include <gtest/gtest.h>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kHelpTool = 2;
constexpr int kTitle = 1006;
constexpr int kText = 1005;
constexpr int kCount = 1102;
constexpr int kCommand = 0x802;
constexpr int kPickerCommand = 2004;
constexpr int kManuals = 3001;
constexpr int kOk = 1;
constexpr int kPageView = 1020;
constexpr int kErrorType = 1 << 28;

class MessagesDemo : public ::testing::Test {
 protected:
  MessagesDemo() : client({"--lang", "en", "--root", QString::fromStdString(temp.Folder("root"))}) {
    const QJsonArray windows = client.Call("cnc.reports", {{"name", "E.PLCMSGDATA"}})["windows"].toArray();
    EXPECT_EQ(windows.size(), 1) << "the panel has made the view";
    view = windows.at(0).toInt();
  }
  bool Visible() { return client.Window(view)["visible"].toBool(); }
  void Escape() { client.Call("ui.key", {{"window", view}, {"key", "Escape"}}); }

  pnl::test::TempFolder temp;
  PanelClient client;
  int view = 0;
};

TEST_F(MessagesDemo, ALowerCodeComesFirstAndTheOtherComesBack) {
  EXPECT_FALSE(Visible());
  client.Set("E.PLCMSGDATA", kErrorType + 1);
  EXPECT_TRUE(Visible());
  EXPECT_EQ(client.Text(view, kTitle), " PLC error (1): Safety door open");
  EXPECT_TRUE(client.Text(view, kText).contains("door"));
  client.Set("E.PLCMSGDATA", 2);
  EXPECT_EQ(client.Text(view, kTitle), " PLC message (2): Clamp the workpiece");
  EXPECT_TRUE(client.Text(view, kCount).contains("2"));
  Escape();
  EXPECT_EQ(client.Text(view, kTitle), " PLC error (1): Safety door open");
  Escape();
  EXPECT_FALSE(Visible());
}

TEST_F(MessagesDemo, ARefusedOpeningKeepsTheMessageForTheNextReport) {
  client.Call("host.returns", {{"slot", "HostMayOpenTool"}, {"value", 0}});
  client.Set("E.PLCMSGDATA", 1);
  EXPECT_FALSE(Visible());
  client.Call("host.returns", {{"slot", "HostMayOpenTool"}, {"value", 1}});
  client.Set("E.PLCMSGDATA", 0);
  EXPECT_TRUE(Visible());
  EXPECT_EQ(client.Text(view, kTitle), " PLC message (1): Coolant level low");
}

TEST_F(MessagesDemo, AManualOpensAtTheMarkThatTheToolInFrontHasWritten) {
  const int mdi = client.Load(6);
  client.Tell(mdi, kCommand, 2, 1);
  client.Tell(mdi, 0x805, 0);
  ASSERT_EQ(client.Get("E.HELPDATA").toString(), "OPT0130");
  const int help = client.Load(kHelpTool);
  client.Trace();
  EXPECT_EQ(client.Tell(help, kCommand, 2), 0);
  EXPECT_TRUE(client.Window(help)["visible"].toBool());
  EXPECT_TRUE(client.TraceText({"box"}).empty());
  client.Set("E.HELPDATA", "");
  EXPECT_EQ(client.Tell(help, kCommand, 2), -200) << "there is no mark";
  client.Set("E.HELPDATA", "XYZ0001");
  EXPECT_EQ(client.Tell(help, kCommand, 2), -200) << "no manual has such marks";
  EXPECT_NE(client.TraceText({"box"}).find("EL FORMATO DE LA MARCA"), std::string::npos);
}

TEST_F(MessagesDemo, AScriptChoosesAManualInThePicker) {
  // The command was answered only when the picker had closed, so no request could choose anything in it.
  const int help = client.Load(kHelpTool);
  client.Set("E.HELPDATA", "OPT0130");
  ASSERT_EQ(client.Tell(help, kCommand, 2), 0);
  client.Call("ui.command", {{"window", help}, {"id", kPickerCommand}});
  const QJsonArray dialogs = client.Call("ui.dialogs").toArray();
  ASSERT_EQ(dialogs.size(), 1);
  EXPECT_EQ(dialogs[0]["title"].toString(), "Manuals");
  const int picker = dialogs[0]["window"].toInt();
  EXPECT_EQ(client.Control(picker, kManuals)["items"].toArray(),
            (QJsonArray{"operating.chm", "programming.chm", "errors.chm"}));
  client.Call("ui.pick", {{"window", picker}, {"id", kManuals}, {"index", 1}});
  client.Call("ui.click", {{"window", picker}, {"id", kOk}});
  EXPECT_TRUE(client.Call("ui.dialogs").toArray().isEmpty());
  EXPECT_EQ(client.Control(help, kPageView)["location"].toString(), "index.html");
  EXPECT_TRUE(client.Text(help, kPageView).startsWith("Programming the demo mill"));
}

}  // namespace
}  // namespace panel::test
