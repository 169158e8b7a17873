// SPDX-License-Identifier: MIT
// A session with the calculator on a CNC that only records; texts read as their numbers.
#pragma once

#include <gtest/gtest.h>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {

inline constexpr int kCalc = 3;
inline constexpr int kCalcLine = 1008;
inline constexpr int kCalcResult = 1010;
inline constexpr int kCalcStatus = 1011;
inline constexpr int kCalcList = 1038;

class BareCalc : public ::testing::Test {
 protected:
  BareCalc() : client(Options()) {
    client.Call("cnc.define", {{"name", "E.CALCRESUL"}, {"type", "double"}, {"value", 0}});
  }
  QStringList Options() {
    return {"--bare", "--lang", "none", "--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))};
  }
  void Open() {
    calc = client.Load(kCalc);
    client.Trace();
  }
  void Line(const QString& text) { client.Call("ui.text", {{"window", calc}, {"id", kCalcLine}, {"text", text}}); }
  void Key(const QString& key, const QJsonArray& mods = {}) {
    client.Call("ui.key", {{"window", calc}, {"key", key}, {"mods", mods}});
  }
  void Type(const QString& text) { client.Call("ui.type", {{"window", calc}, {"text", text}}); }
  void Click(int id) { client.Call("ui.click", {{"window", calc}, {"id", id}}); }
  void Mark(int start, int end) {
    client.Call("ui.mark", {{"window", calc}, {"id", kCalcLine}, {"start", start}, {"end", end}});
  }
  void Menu(int id) { client.Call("ui.command", {{"window", calc}, {"id", id}}); }
  QString Status() { return client.Text(calc, kCalcStatus); }
  QString Result() { return client.Text(calc, kCalcResult); }
  QString LineText() { return client.Text(calc, kCalcLine); }
  int Caret() { return client.Control(calc, kCalcLine)["caret"].toInt(); }
  bool Alive() { return client.Call("window.alive", {{"window", calc}}).toObject()["alive"].toBool(); }
  QJsonArray Rect() { return client.Window(calc)["rect"].toArray(); }

  pnl::test::TempFolder temp;
  PanelClient client;
  int calc = 0;
};

}  // namespace panel::test
