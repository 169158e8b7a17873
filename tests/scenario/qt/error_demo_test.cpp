// SPDX-License-Identifier: MIT
// The error window in a session with the simulated machine: what it refuses opens the window, and the panel follows.
#include "scenario/qt/bare_errors.h"

namespace panel::test {
namespace {

constexpr int kPanel = 2;  // the panel's own window, the one after the tool area

class DemoErrors : public ::testing::Test {
 protected:
  DemoErrors() : client({"--time", "manual", "--lang", "en", "--root", QString::fromStdString(temp.Folder("root"))}) {
    const QJsonArray windows = client.Call("cnc.reports", {{"name", "E.ERRORPRI"}})["windows"].toArray();
    EXPECT_EQ(windows.size(), 1) << "the panel has made the tool";
    tool = windows.at(0).toInt();
  }
  void Key(const QString& key, const QJsonArray& mods = {}) {
    client.Call("ui.key", {{"window", tool}, {"key", key}, {"mods", mods}});
  }
  bool Visible() { return client.Window(tool)["visible"].toBool(); }
  void Push(int number, int severity) {
    client.Call("cnc.error.push", {{"fields", QJsonObject{{"number", number}, {"severity", severity}}}});
  }

  pnl::test::TempFolder temp;
  PanelClient client;
  int tool = 0;
};

TEST_F(DemoErrors, ARefusedBlockOpensTheWindowUntilItIsAcknowledged) {
  EXPECT_FALSE(Visible());
  const int mdi = client.Load(6);
  client.Tell(mdi, 0x802, 2, 1);
  client.Call("ui.type", {{"window", mdi}, {"text", "G999"}});
  client.Start(mdi);
  EXPECT_TRUE(Visible());
  EXPECT_EQ(client.Text(tool, kErrorTitleBox), "ERROR 1006");
  EXPECT_EQ(client.Text(tool, kErrorTitleLine), "Unknown G code");
  EXPECT_TRUE(client.Text(tool, kErrorDescription).contains("G999"));
  EXPECT_EQ(client.Get("E.NERRORS"), 1);
  Key("Escape");
  EXPECT_FALSE(Visible());
  EXPECT_EQ(client.Get("E.NERRORS"), 0);
}

TEST_F(DemoErrors, HelpStandsInTheWindowsPlaceAndLeadsBack) {
  const int mdi = client.Load(6);
  client.Tell(mdi, 0x802, 2, 1);
  client.Call("ui.type", {{"window", mdi}, {"text", "G999"}});
  client.Start(mdi);
  ASSERT_TRUE(client.Control(tool, kErrorHelp)["visible"].toBool());
  client.Call("ui.click", {{"window", tool}, {"id", kErrorHelp}});
  EXPECT_FALSE(Visible());
  client.Call("ui.key", {{"window", kPanel}, {"key", "Escape"}});
  EXPECT_TRUE(Visible());
}

TEST_F(DemoErrors, ThePanelAsksBeforeItClosesAndARefusalIsKept) {
  client.Call("ui.answer", {{"answers", QJsonArray{"no"}}});
  Push(201, 1);
  client.Advance(5000);
  EXPECT_EQ(client.Trace({"box"}).size(), 1);
  client.Advance(20000);
  EXPECT_EQ(client.Trace({"box"}).size(), 0) << "it was refused";
  ASSERT_TRUE(client.Runs());
  Push(201, 1);
  client.Post("time.advance", {{"ms", 5000}});
  EXPECT_EQ(client.WaitForEnd(), 0);
}

}  // namespace
}  // namespace panel::test
