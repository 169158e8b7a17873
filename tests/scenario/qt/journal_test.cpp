// SPDX-License-Identifier: MIT
// Nothing lost: a panel that is killed at any instant loses at most the last second, in the panel's own manual time.
// What is typed is typed by a script, and the kill is that of a power cut.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

/// The panel's main window; the parent of the tools is window 1.
constexpr int kPanel = 2;
constexpr int kCalculator = 3;
constexpr int kMdi = 6;
constexpr int kCommand = 0x802;
constexpr int kOpen = 2;
constexpr int kSwitchRole = 8;
constexpr int kMdiEdit = 5000;
constexpr int kMdiList = 5001;
constexpr int kCalcLine = 1008;
constexpr int kMostLost = 1000;

class Journal : public ::testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<PanelClient> Start(const QStringList& more = {}) const {
    QStringList options{"--journal", "--lang", "en", "--root", QString::fromStdString(root_)};
    if (!more.contains("--time"))
      options << "--time"
              << "manual";
    return std::make_unique<PanelClient>(options + more);
  }
  static std::string Program(PanelClient& client) {
    return client.Call("program.text")["text"].toString().toStdString();
  }
  static void Type(PanelClient& client, const QString& text, int window = kPanel) {
    client.Call("ui.type", {{"window", window}, {"text", text}});
  }
  static void Key(PanelClient& client, const QString& key, int window = kPanel, const QStringList& mods = {}) {
    client.Call("ui.key", {{"window", window}, {"key", key}, {"mods", QJsonArray::fromStringList(mods)}});
  }
  /// Takes back what is offered. Without an offer the key does nothing.
  static void TakeBack(PanelClient& client) {
    Key(client, "Escape");
    client.Call("ui.dialogs");
  }
  /// The window with that control; 0 when there is none.
  static int WindowWith(PanelClient& client, int control) {
    for (int window = kPanel + 1; window < kPanel + 30; ++window) {
      if (!client.Call("window.alive", {{"window", window}})["alive"].toBool()) continue;
      if (client.Window(window)["controls"].toArray().contains(control)) return window;
    }
    return 0;
  }
  [[nodiscard]] bool HasJournal() const { return temp_.Has("root/CNC/USER/PNLPANEL1.JNL"); }
  [[nodiscard]] std::string Journals() const {
    std::string names;
    if (!temp_.Has("root/CNC/USER")) return names;
    for (const auto& entry : std::filesystem::directory_iterator(temp_.Path() / "root/CNC/USER")) {
      const std::string name = entry.path().filename().string();
      if (name.rfind("PNLPANEL", 0) == 0) names += name + " ";
    }
    return names;
  }

  pnl::test::TempFolder temp_;
  std::string root_ = temp_.Folder("root");
};

TEST_F(Journal, ACleanStartAsksNothingAndACleanEndLeavesNothing) {
  auto client = Start();
  EXPECT_EQ(Journals(), "");
  Type(*client, "G0 X1");
  client->Advance(1000);
  EXPECT_TRUE(HasJournal());
  EXPECT_EQ(client->Finish(), 0);
  EXPECT_EQ(Journals(), "");
  client = Start();
  TakeBack(*client);
  EXPECT_EQ(Program(*client), "");
}

TEST_F(Journal, WithoutUnsavedWorkThereIsNone) {
  auto client = Start();
  Type(*client, "G0");
  client->Advance(1000);
  EXPECT_TRUE(HasJournal());
  Key(*client, "z", kPanel, {"Ctrl"});
  ASSERT_EQ(Program(*client), "");
  client->Advance(1000);
  EXPECT_EQ(Journals(), "");
}

TEST_F(Journal, AKillAtAnyInstantLosesAtMostTheLastSecondOfTheProgram) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    auto client = Start();
    std::string typed;
    std::vector<int> when;  // each character was typed
    int now = 0;
    const int steps = 5 + below(40);
    for (int i = 0; i < steps; ++i) {
      if (below(2) != 0) {
        typed += static_cast<char>('A' + i % 26);
        Type(*client, QString(QChar(typed.back())));
        when.push_back(now);
      } else {
        const int pause = 100 * below(7);
        client->Advance(pause);
        now += pause;
      }
    }
    client->Kill();
    client = Start();
    TakeBack(*client);
    const std::string back = Program(*client);
    EXPECT_EQ(typed.substr(0, back.size()), back) << "seed " << seed;
    std::size_t safe = 0;
    while (safe < when.size() && when[safe] <= now - kMostLost) ++safe;
    EXPECT_GE(back.size(), safe) << "seed " << seed << ": of " << typed;
    EXPECT_EQ(client->Finish(), 0);
  }
}

TEST_F(Journal, AKillInTheMiddleOfTheWorkLeavesAWholeJournal) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    std::mt19937 random(seed * 77);
    auto client = Start();
    std::string typed;
    constexpr int kRequests = 60;
    for (int i = 0; i < kRequests; ++i) {
      typed += static_cast<char>('a' + i % 26);
      client->Post("ui.type", {{"window", kPanel}, {"text", QString(QChar(typed.back()))}});
      client->Post("time.advance", {{"ms", 500}});
    }
    // The panel goes on with the rest while this reads, so the kill meets it anywhere.
    const int answered = std::uniform_int_distribution<int>(8, 2 * kRequests - 8)(random);
    for (int i = 0; i < answered; ++i) (void)client->ReadLine();
    client->Kill();
    client = Start();
    TakeBack(*client);
    const std::string back = Program(*client);
    EXPECT_EQ(typed.substr(0, back.size()), back) << "seed " << seed;
    // Of what was answered, the last second may be missing: two times half a second, and what was typed in it.
    EXPECT_GE(static_cast<int>(back.size()), answered / 2 - 3) << "seed " << seed;
    EXPECT_EQ(client->Finish(), 0);
  }
}

TEST_F(Journal, WhatIsTypedInTheToolsComesBack) {
  auto client = Start();
  const int calculator = client->Load(kCalculator);
  Type(*client, "SIN(30", calculator);
  const int mdi = client->Load(kMdi);
  ASSERT_EQ(client->Tell(mdi, kCommand, kOpen, 1), 0);
  Type(*client, "G1 X10", mdi);
  client->Advance(kMostLost);
  const std::string expression = client->Text(calculator, kCalcLine).toStdString();
  client->Kill();
  client = Start();
  ASSERT_EQ(WindowWith(*client, kMdiEdit), 0);
  TakeBack(*client);
  EXPECT_EQ(client->Text(WindowWith(*client, kMdiEdit), kMdiEdit), "G1 X10");
  EXPECT_EQ(client->Text(WindowWith(*client, kCalcLine), kCalcLine).toStdString(), expression);
  // And once more, because it is still not finished.
  client->Advance(kMostLost);
  client->Kill();
  client = Start();
  TakeBack(*client);
  EXPECT_EQ(client->Text(WindowWith(*client, kMdiEdit), kMdiEdit), "G1 X10");
}

TEST_F(Journal, BlocksThatRanAndRowsOfTheCalculatorAreOnTheDiscASecondLater) {
  auto client = Start();
  const int calculator = client->Load(kCalculator);
  Type(*client, "1+2", calculator);
  Key(*client, "Enter", calculator);
  const int mdi = client->Load(kMdi);
  client->Tell(mdi, kCommand, kOpen, 1);
  Type(*client, "G4 F0.1", mdi);
  client->Start(mdi);
  client->Advance(5000);
  ASSERT_EQ(client->Text(mdi, kMdiEdit), "");
  client->Kill();
  EXPECT_EQ(temp_.Read("root/CNC/USER/MDIC1.DAT"), "G4 F0.1\r\n");
  EXPECT_EQ(temp_.Read("root/CNC/USER/MDAC1.DAT"), "G4 F0.1\r\n");
  client = Start();
  const int again = client->Load(kCalculator);
  Key(*client, "Up", again);
  EXPECT_EQ(client->Text(again, kCalcLine), "1+2");
}

TEST_F(Journal, AnItemOfTheListThatIsBeingChangedComesBackIntoItsEdit) {
  temp_.Write("root/CNC/USER/MDAC1.DAT", "G0 X1\r\nG0 X2\r\n");
  auto client = Start();
  const int mdi = client->Load(kMdi);
  client->Tell(mdi, kCommand, kOpen, 1);
  client->Tell(mdi, kCommand, kSwitchRole, 1);
  client->Call("ui.pick", {{"window", mdi}, {"id", kMdiList}, {"index", 1}});
  Key(*client, "Enter", mdi);
  Type(*client, "5", mdi);
  ASSERT_EQ(client->Text(mdi, kMdiEdit), "G0 X25");
  client->Advance(kMostLost);
  client->Kill();
  client = Start();
  TakeBack(*client);
  const int again = WindowWith(*client, kMdiEdit);
  EXPECT_EQ(client->Text(again, kMdiEdit), "G0 X25");
  Key(*client, "Enter", again);
  EXPECT_EQ(client->Control(again, kMdiList)["items"].toArray(), (QJsonArray{"G0 X1", "G0 X25"}));
}

TEST_F(Journal, ABlockThatBeginsIsKeptAtOnce) {
  auto client = Start();
  const int mdi = client->Load(kMdi);
  client->Tell(mdi, kCommand, kOpen, 1);
  Type(*client, "G1 X10 F100", mdi);
  EXPECT_FALSE(HasJournal());
  client->Start(mdi);
  client->Advance(50);
  EXPECT_TRUE(HasJournal());
}

TEST_F(Journal, ADiscardedOneIsGone) {
  auto client = Start();
  Type(*client, "G0 X1");
  client->Advance(kMostLost);
  client->Kill();
  client = Start();
  // From the careful answer to the other one.
  Key(*client, "Left");
  Key(*client, "Enter");
  EXPECT_EQ(Program(*client), "");
  EXPECT_EQ(Journals(), "");
  EXPECT_EQ(client->Finish(), 0);
}

TEST_F(Journal, AQuestionThatIsNotAnsweredIsAskedAgain) {
  auto client = Start();
  Type(*client, "G0 X1");
  client->Advance(kMostLost);
  client->Kill();
  // Another power cut, and then a proper end.
  client = Start();
  client->Call("ui.dialogs");
  client->Kill();
  client = Start();
  client->Call("ui.dialogs");
  EXPECT_EQ(client->Finish(), 0);
  client = Start();
  TakeBack(*client);
  EXPECT_EQ(Program(*client), "G0 X1");
}

TEST_F(Journal, TwoPanelsInOneFolderLeaveOneEach) {
  auto one = Start();
  auto two = Start();
  Type(*one, "ONE");
  one->Advance(kMostLost);
  Type(*two, "TWO");
  two->Advance(kMostLost);
  one->Kill();
  // A new panel finds what the killed one has left, and leaves that of the living one alone.
  one = Start();
  TakeBack(*one);
  EXPECT_EQ(Program(*one), "ONE");
  one->Advance(kMostLost);
  one->Kill();
  two->Kill();
  one = Start();
  two = Start();
  TakeBack(*one);
  TakeBack(*two);
  EXPECT_EQ((std::set<std::string>{Program(*one), Program(*two)}), (std::set<std::string>{"ONE", "TWO"}));
}

TEST_F(Journal, ADamagedOrForeignOneIsIgnored) {
  temp_.Write("root/CNC/USER/PNLPANEL1.JNL", "PNLPANEL JOURNAL 1\nprogram 99999\nx");
  temp_.Write("root/CNC/USER/PNLPANEL2.JNL", std::string(100, '\0'));
  auto client = Start();
  TakeBack(*client);
  EXPECT_EQ(Program(*client), "");
  Type(*client, "G0");
  client->Advance(kMostLost);
  client->Kill();
  client = Start();
  TakeBack(*client);
  EXPECT_EQ(Program(*client), "G0");
  EXPECT_EQ(temp_.Read("root/CNC/USER/PNLPANEL2.JNL"), std::string(100, '\0')) << "it is somebody else's";
}

TEST_F(Journal, ASignalThatEndsThePanelLeavesWhatIsNotSaved) {
  std::signal(SIGTERM, SIG_DFL);
  auto client = Start();
  Type(*client, "G0 X1");
  client->Signal(SIGTERM);
  EXPECT_EQ(client->WaitForEnd(), 0);
  client = Start();
  TakeBack(*client);
  EXPECT_EQ(Program(*client), "G0 X1");
}

TEST_F(Journal, AScriptThatDoesNotAskForItHasNone) {
  PanelClient client({"--root", QString::fromStdString(root_), "--time", "manual"});
  Type(client, "G0 X1");
  client.Advance(5000);
  client.Signal(SIGTERM);
  EXPECT_EQ(client.WaitForEnd(), 0);
  EXPECT_EQ(Journals(), "");
}

class Undo : public Journal {
 protected:
  Undo() {
    temp_.Write("root/CNC/USER/MDAC1.DAT", "A\r\nB\r\nC\r\n");
    client = Start();
    mdi = client->Load(kMdi);
    client->Tell(mdi, kCommand, kOpen, 1);
    client->Tell(mdi, kCommand, kSwitchRole, 1);
  }
  QJsonArray Items() { return client->Control(mdi, kMdiList)["items"].toArray(); }
  void Command(int id) { client->Call("ui.command", {{"window", mdi}, {"id", id}}); }
  void PressUndo() { Key(*client, "z", kPanel, {"Alt"}); }

  static constexpr int kDelete = 32771;
  static constexpr int kClear = 32776;
  const QJsonArray all{"A", "B", "C"};
  std::unique_ptr<PanelClient> client;
  int mdi = 0;
};

TEST_F(Undo, AClearedListComesBackForTenSeconds) {
  Command(kClear);
  ASSERT_EQ(Items(), QJsonArray());
  client->Advance(9999);
  PressUndo();
  EXPECT_EQ(Items(), all);
  Command(kClear);
  client->Advance(10000);
  PressUndo();
  EXPECT_EQ(Items(), QJsonArray());
}

TEST_F(Undo, DeletedItemsComeBackOneAfterTheOther) {
  Command(kDelete);
  Command(kDelete);
  ASSERT_EQ(Items(), QJsonArray{"C"});
  PressUndo();
  EXPECT_EQ(Items(), (QJsonArray{"B", "C"}));
  PressUndo();
  EXPECT_EQ(Items(), all);
  PressUndo();
  EXPECT_EQ(Items(), all);
}

TEST_F(Undo, DeletedRowsOfTheCalculatorsHistoryComeBack) {
  temp_.Write("root/CNC/USER/calc.htr", "");
  const int calculator = client->Load(kCalculator);
  for (const char* expression : {"1", "2"}) {
    Type(*client, expression, calculator);
    Key(*client, "Enter", calculator);
  }
  const int kHistory = 1038;
  const auto rows = [&] { return client->Control(calculator, kHistory)["items"].toArray(); };
  ASSERT_EQ(rows().size(), 2);
  Key(*client, "Down", calculator);
  client->Call("ui.pick", {{"window", calculator}, {"id", kHistory}, {"index", 0}});
  Key(*client, "Delete", calculator);
  ASSERT_EQ(rows(), QJsonArray{"1"});
  PressUndo();
  EXPECT_EQ(rows(), (QJsonArray{"2", "1"}));
}

}  // namespace
}  // namespace panel::test
