// SPDX-License-Identifier: MIT
// The command line's files under rough treatment: power cuts during saves, folders that can't be written, files that no
// editor made.
#include <gtest/gtest.h>

#include <QThread>
#include <filesystem>
#include <random>
#include <set>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kMdi = 6;
constexpr int kCommand = 0x802;
constexpr int kOpen = 2;
constexpr int kSwitchRole = 8;
constexpr int kList = 5001;

class MdiFiles : public ::testing::Test {
 protected:
  MdiFiles() {
    for (const char* folder : {"root/P108", "root/P52"}) std::filesystem::create_directories(temp.Path() / folder);
  }
  QStringList Options() { return {"--bare", "--lang", "none", "--time", "manual", "--root", Root()}; }
  QString Root() { return QString::fromStdString(temp.Folder("root")); }
  static void DefineChannel(PanelClient& client) {
    client.Define("[1].G.FULLSTATUS", 0x100);
    client.Define("[1].G.STATUS", 1);
    client.Define("[1].E.APISTATUS", 0);
    client.Define("[1].E.MANUALMODE", 0);
  }
  static int Open(PanelClient& client) {
    DefineChannel(client);
    const int window = client.Load(kMdi);
    EXPECT_EQ(client.Tell(window, kCommand, kOpen, 1), 0);
    return window;
  }
  static void Run(PanelClient& client, int window, const QString& block) {
    client.Call("ui.text", {{"window", window}, {"id", 5000}, {"text", block}});
    client.Start(window);
    client.Set("[1].G.FULLSTATUS", 0x200);
    client.Set("[1].G.FULLSTATUS", 0x100);
  }
  static QJsonArray Items(PanelClient& client, int window) { return client.Control(window, kList)["items"].toArray(); }

  pnl::test::TempFolder temp;
};

/// What the history holds after that many saves of one block each.
std::string HistoryAfter(int saves) {
  constexpr int kLimit = 10;
  std::string lines;
  for (int i = saves; i > 0 && i > saves - kLimit; --i) lines += "G1 X" + std::to_string(i) + "\r\n";
  return lines;
}

std::string ListAfter(int saves) {
  std::string lines;
  for (int i = 1; i <= saves; ++i) lines += "G1 X" + std::to_string(i) + "\r\n";
  return lines;
}

TEST_F(MdiFiles, APowerCutDuringSavesLeavesWholeFiles) {
  constexpr int kCuts = 200;
  constexpr int kSaves = 4;
  constexpr int kRepliesBeforeSave = 5;
  constexpr int kRepliesOfSave = 7;
  std::mt19937 random(7);
  std::set<int> met;
  for (int cut = 0; cut < kCuts; ++cut) {
    temp.Write("root/P108/MDIC1.DAT", "");
    temp.Write("root/P108/MDAC1.DAT", "");
    temp.Write("root/P108/MDIMAN.INI", "[PRIVATE]\nNItems=10\n");
    PanelClient client(Options());
    DefineChannel(client);
    // Every save ends a tool's window; the requests for all of them are on their way when the cut comes.
    int window = client.Load(kMdi);
    for (int i = 1; i <= kSaves; ++i) {
      client.Post("tool.send", {{"window", window}, {"message", kCommand}, {"first", kOpen}, {"second", 1}});
      client.Post("ui.text", {{"window", window}, {"id", 5000}, {"text", QString("G1 X%1").arg(i)}});
      client.Post("tool.send", {{"window", window},
                                {"message", 0x800},
                                {"first", 1},
                                {"second", QJsonObject{{"start", QJsonObject{{"channel", 1}}}}}});
      client.Post("cnc.set", {{"name", "[1].G.FULLSTATUS"}, {"value", 0x200}});
      client.Post("cnc.set", {{"name", "[1].G.FULLSTATUS"}, {"value", 0x100}});
      client.Post("tool.destroy", {{"window", window}});
      client.Post("tool.load", {{"tool", kMdi}});
      ++window;
    }
    // Up to the request before a random save, and a random moment more.
    const int replies = static_cast<int>(random() % kSaves) * kRepliesOfSave + kRepliesBeforeSave;
    for (int i = 0; i < replies; ++i) ASSERT_FALSE(client.ReadLine().isEmpty());
    QThread::usleep(random() % 6000);
    client.Kill();
    int saves = 0;
    while (saves <= kSaves && temp.Read("root/P108/MDIC1.DAT") != HistoryAfter(saves)) ++saves;
    ASSERT_LE(saves, kSaves) << temp.Read("root/P108/MDIC1.DAT");
    // The list is stored after the history, so it may be one save behind.
    const std::string list = temp.Read("root/P108/MDAC1.DAT");
    ASSERT_TRUE(list == ListAfter(saves) || list == ListAfter(std::max(0, saves - 1))) << list;
    const std::string settings = temp.Read("root/P108/MDIMAN.INI");
    ASSERT_NE(settings.find("NItems=10"), std::string::npos) << settings;
    met.insert(saves);
  }
  // The cuts came at different saves, else they showed nothing.
  EXPECT_GT(met.size(), kSaves / 2u);
}

TEST_F(MdiFiles, AHistoryOfAHundredMegabytesNeitherStopsNorLosesAnything) {
  std::string big;
  constexpr std::size_t kSize = 100u << 20;
  big.reserve(kSize + 32);
  for (int i = 0; big.size() < kSize; ++i) big += "G1 X" + std::to_string(i) + " Y0 Z0 F1000\r\n";
  temp.Write("root/P108/MDIC1.DAT", big);
  {
    PanelClient client(Options());
    Open(client);
    EXPECT_EQ(client.Finish(), 0);
  }
  // Nothing ran, so nothing was written.
  EXPECT_EQ(std::filesystem::file_size(temp.Path() / "root/P108/MDIC1.DAT"), big.size());
  {
    PanelClient client(Options());
    const int window = Open(client);
    Run(client, window, "M5");
    EXPECT_EQ(client.Finish(), 0);
  }
  const std::string after = temp.Read("root/P108/MDIC1.DAT");
  EXPECT_EQ(after.substr(0, 8), "M5\r\nG1 X");
  EXPECT_LT(after.size(), 1000u);
}

TEST_F(MdiFiles, AFolderThatCantBeWrittenLeavesTheOldFilesAndThePanelAlive) {
  temp.Write("root/P108/MDIC1.DAT", "G0 X0\r\n");
  PanelClient client(Options());
  const int window = Open(client);
  Run(client, window, "G1 X1");
  std::filesystem::permissions(temp.Path() / "root/P108",
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G0 X0\r\n");
}

TEST_F(MdiFiles, AMissingFolderIsNoMisfortune) {
  PanelClient client(Options());
  const int window = Open(client);
  std::filesystem::remove_all(temp.Path() / "root/P108");
  Run(client, window, "G1 X1");
  EXPECT_EQ(client.Finish(), 0);
}

TEST_F(MdiFiles, AFolderInTheFilesPlaceIsAnEmptyList) {
  std::filesystem::create_directories(temp.Path() / "root/P108/MDIC1.DAT");
  PanelClient client(Options());
  const int window = Open(client);
  Run(client, window, "G1 X1");
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_TRUE(std::filesystem::is_directory(temp.Path() / "root/P108/MDIC1.DAT"));
}

TEST_F(MdiFiles, OddBytesInAListAreSurvived) {
  const std::string odd("G0 X1\nG0 X2\rstill two\r\n\0NUL\r\n\xff\xfe\x80\r\n\r\nlast", 40);
  temp.Write("root/P108/MDAC1.DAT", odd);
  PanelClient client(Options());
  const int window = Open(client);
  client.Tell(window, kCommand, kSwitchRole, 0);
  const QJsonArray items = Items(client, window);
  EXPECT_EQ(items.at(0), "G0 X1");
  EXPECT_GT(items.size(), 3);
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P108/MDAC1.DAT"), odd);
}

TEST_F(MdiFiles, AListOfTheSetupFolderIsReadAndStoredForTheUser) {
  temp.Write("root/P52/MDIC1.DAT", "G0 X9\r\n");
  PanelClient client(Options());
  const int window = Open(client);
  Run(client, window, "G1 X1");
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read("root/P52/MDIC1.DAT"), "G0 X9\r\n");
  EXPECT_EQ(temp.Read("root/P108/MDIC1.DAT"), "G1 X1\r\nG0 X9\r\n");
}

}  // namespace
}  // namespace panel::test
