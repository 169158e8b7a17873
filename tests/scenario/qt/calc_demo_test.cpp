// SPDX-License-Identifier: MIT
// The calculator beside program and command line, with a panel that reacts as an operator expects.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kCalc = 3;
constexpr int kMdi = 6;
constexpr int kCommand = 0x802;
constexpr int kLine = 1008;
constexpr int kMdiEdit = 5000;

class DemoCalc : public ::testing::Test {
 protected:
  DemoCalc() : client({"--time", "manual", "--lang", "en", "--root", QString::fromStdString(temp.Folder("root"))}) {}
  void Type(int window, const QString& text) { client.Call("ui.type", {{"window", window}, {"text", text}}); }
  void Key(int window, const QString& key) { client.Call("ui.key", {{"window", window}, {"key", key}}); }
  bool Alive(int window) { return client.Call("window.alive", {{"window", window}}).toObject()["alive"].toBool(); }

  pnl::test::TempFolder temp;
  PanelClient client;
};

TEST_F(DemoCalc, TheOpenCommandLineTakesTheValue) {
  const int mdi = client.Load(kMdi);
  ASSERT_EQ(client.Tell(mdi, kCommand, 2, 1), 0);
  Type(mdi, "G1 X");
  const int calc = client.Load(kCalc);
  Type(calc, "25.4*2");
  Key(calc, "Insert");
  EXPECT_FALSE(Alive(calc));
  EXPECT_EQ(client.Text(mdi, kMdiEdit), "G1 X50.8");
  EXPECT_EQ(client.Window(mdi)["focus"].toInt(), kMdiEdit);
  EXPECT_EQ(client.Call("program.text").toObject()["text"].toString(), "");
}

TEST_F(DemoCalc, WithoutACommandLineTheProgramTakesIt) {
  const int calc = client.Load(kCalc);
  Type(calc, "0-1/4");
  Key(calc, "Insert");
  EXPECT_EQ(client.Call("program.text").toObject()["text"].toString(), "-0.25");
}

TEST_F(DemoCalc, AHiddenCommandLineDoesNotTakeIt) {
  const int mdi = client.Load(kMdi);
  const int calc = client.Load(kCalc);
  Type(calc, "1E6+0.5");
  Key(calc, "Insert");
  EXPECT_EQ(client.Text(mdi, kMdiEdit), "");
  EXPECT_EQ(client.Call("program.text").toObject()["text"].toString(), "1000000.5") << "no exponent in a program";
}

TEST_F(DemoCalc, WhatIsNoNumberIsNotTaken) {
  const int calc = client.Load(kCalc);
  Type(calc, "200!");
  Key(calc, "Insert");
  EXPECT_FALSE(Alive(calc));
  EXPECT_EQ(client.Call("program.text").toObject()["text"].toString(), "");
}

TEST_F(DemoCalc, EscapeClosesItAndTheHostHearsOfIt) {
  const int calc = client.Load(kCalc);
  client.Trace();
  Key(calc, "Escape");
  EXPECT_FALSE(Alive(calc));
  EXPECT_EQ(client.TraceText({"host"}), "host HostToolWantsClose [3]\nhost HostToolClosed [3,2]\n");
}

TEST_F(DemoCalc, WhereItStoodIsReadBackFromTheOperatorsFolder) {
  int calc = client.Load(kCalc);
  client.Call("ui.key", {{"window", calc}, {"key", "Right"}, {"mods", QJsonArray{"Ctrl"}}});
  client.Tell(calc, kCommand, 20);
  temp.Write("root/CNC/USER/Calc7340.ini", "[COMMON]\r\nWindow=40,56\r\nMinimized=yes\r\n");
  calc = client.Load(kCalc);
  EXPECT_EQ(client.Window(calc)["rect"].toArray(), (QJsonArray{40, 56, 282, 87}));
}

TEST_F(DemoCalc, EndOfInputSavesTheHistory) {
  const int calc = client.Load(kCalc);
  Type(calc, "2*21");
  Key(calc, "Enter");
  EXPECT_EQ(client.Text(calc, 1010), "42");
  const QString folder = client.Call("file.resolve", {{"path", "C:\\"}}).toObject()["host"].toString();
  EXPECT_FALSE(folder.isEmpty());
  EXPECT_EQ(client.Finish(), 0);
  bool found = false;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(temp.Path())) {
    if (entry.path().filename() != "calc.htr") continue;
    found = true;
    std::ifstream in(entry.path(), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "2*21\r\n");
  }
  EXPECT_TRUE(found);
}

TEST_F(DemoCalc, SpeaksSpanish) {
  PanelClient spanish({"--time", "manual", "--lang", "es", "--root", QString::fromStdString(temp.Folder("es"))});
  const int calc = spanish.Load(kCalc);
  EXPECT_EQ(spanish.Window(calc)["title"].toString(), "Calculadora");
  EXPECT_EQ(spanish.Text(calc, 1011), QString::fromUtf8("Escriba una expresión"));
}

}  // namespace
}  // namespace panel::test
