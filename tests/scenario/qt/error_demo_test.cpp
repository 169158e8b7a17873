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

// The kernel tells a byte of the file; what the panel saves is such that the line counted from it is the true one.
TEST_F(DemoErrors, AnErrorInALongProgramThatThePanelSavedNamesItsTrueLine) {
  std::string program;
  for (int line = 1; line <= 500; ++line)
    program += "N" + std::to_string(line) + " G1 X" + std::to_string(line % 7) + " F100\n";
  temp.Write("root/CNC/PROGRAMS/LONG.nc", program);
  client.Call("ui.key", {{"window", kPanel}, {"key", "o"}, {"mods", QJsonArray{"Ctrl"}}});
  client.Call("ui.type", {{"window", kPanel}, {"text", "LONG.nc"}});
  client.Call("ui.key", {{"window", kPanel}, {"key", "Enter"}});
  client.Call("ui.type", {{"window", kPanel}, {"text", "(changed) "}});
  client.Call("ui.key", {{"window", kPanel}, {"key", "s"}, {"mods", QJsonArray{"Ctrl"}}});
  const std::string saved = temp.Read("root/CNC/PROGRAMS/LONG.nc");
  ASSERT_EQ(saved.rfind("(changed) N1 G1 X1 F100\r\nN2 ", 0), 0u) << saved.substr(0, 60);
  for (const int line : {1, 2, 250, 321, 500}) {
    const std::string block = "N" + std::to_string(line) + " ";
    const auto found = line == 1 ? 0 : saved.find("\n" + block) + 1;
    client.Call("cnc.error.push", {{"fields", QJsonObject{{"number", 1101},
                                                          {"severity", 1},
                                                          {"source", 1},
                                                          {"programPath", "C:\\CNC\\PROGRAMS"},
                                                          {"programName", "LONG.nc"},
                                                          {"filePosition", static_cast<qint64>(found)},
                                                          {"fileSpan", 2}}}});
    // The file is read in another thread, which the panel doesn't wait for longer than a moment.
    QString description;
    for (int i = 0; i < 1000 && !description.contains("Line: "); ++i)
      description = client.Text(tool, kErrorDescription);
    const QString number = "\nLine number: " + QString::number(line) + "\n";
    EXPECT_TRUE(description.contains(number)) << description.toStdString();
    const QString start = line == 1 ? "(<c>hanged)" : "N<" + QString::number(line).left(1) + ">";
    EXPECT_TRUE(description.contains("Line: " + start)) << description.toStdString();
    Key("Escape");
  }
}

}  // namespace
}  // namespace panel::test
