// SPDX-License-Identifier: MIT
// A whole calculator on a simulated CNC, and what operator and host do with it. The program's variables are cleared for
// each test.
#pragma once

#include <string>
#include <vector>

#include "calc/calc_session.h"
#include "calc/expr/calc_store.h"
#include "calc_fake_view.h"
#include "support/tool_stage.h"

namespace pnl::test {

class CalcRig : public ToolStage<SimGround, FakeCalcView, CalcSession> {
 public:
  CalcRig();
  ~CalcRig() { DestroyTool(); }

  /// A tool that is not open yet; one that was there is destroyed first.
  void MakeTool();
  /// The window goes, whoever destroys it.
  void DestroyTool();
  void Open() { Call(&CalcSession::Open); }

  // Intentions of the window.
  /// False is a key that the focused control has got: Up and Down have moved the open list then.
  bool Key(CalcKey key, bool ctrl = false);
  bool Character(char16_t character) { return Call(&CalcSession::OnCharacter, character); }
  void Button(int id) { Call(&CalcSession::OnButton, id); }
  void Menu(int id) { Call(&CalcSession::OnMenuCommand, id); }
  std::intptr_t Command(std::intptr_t request) { return Call(&CalcSession::OnToolCommand, request); }
  void HandleValue() { Call(&CalcSession::OnHandleValue); }
  void LineChanged() { Call(&CalcSession::OnLineChanged); }
  void PressLine() { Call(&CalcSession::OnLinePressed); }
  void SelectInList() { Call(&CalcSession::OnListSelection); }
  void DoubleClickList() { Call(&CalcSession::OnListDoubleClick); }
  void PickVariable() { Call(&CalcSession::OnVariablesPicked); }
  void Work() { Call(&CalcSession::Work); }
  /// One character after the other, as the focused line gets them, up to its limit.
  void Type(const std::string& text);
  /// The line as a program replaces it, beyond the limit too, with the caret at its end.
  void Line(const std::string& text);
  void Mark(int start, int end) { view->selection = {start, end}; }
  void Tick() { timers.Advance(250); }
  /// The operator selects rows of the open history.
  void Pick(std::vector<int> rows);
  void Confirm(const std::string& text);
  /// Pieces until nothing runs; how many there were.
  int WorkToTheEnd();

  [[nodiscard]] std::string LineNow() const { return ToUtf8(view->line); }
  [[nodiscard]] std::string Status() const { return ToUtf8(view->status); }
  [[nodiscard]] std::string Result() const { return ToUtf8(view->result); }
  [[nodiscard]] std::string Note() const { return ToUtf8(view->note); }
  [[nodiscard]] std::vector<std::string> Rows() const { return Utf8Rows(view->rows); }
  [[nodiscard]] static double Variable(char letter) {
    return SharedCalcStore().Variables[static_cast<std::size_t>(letter - 'A')];
  }
  /// The item in the bars' menus; null when there is none.
  [[nodiscard]] const MenuItem* Item(int id);
  [[nodiscard]] std::string MenuName(MenuHandle menu) const;

  MenuHandle mainMenu = 0;
  MenuHandle sideMenu = 0;
};

class CalcTest : public testing::Test, public CalcRig {};

/// A calculator that is open, with an empty log.
class OpenCalcTest : public CalcTest {
 protected:
  OpenCalcTest() {
    Open();
    Forget();
  }
};

}  // namespace pnl::test
