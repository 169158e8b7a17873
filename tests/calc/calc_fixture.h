// SPDX-License-Identifier: MIT
// A whole calculator on a simulated CNC: host, disc, language and window are fakes, with one log of everything that was
// asked, in order. The program's variables are cleared for each test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "calc/calc_session.h"
#include "calc/expr/calc_store.h"
#include "calc_fake_view.h"
#include "host/language_pack.h"
#include "support/memory_files.h"
#include "support/sim_fixture.h"

namespace pnl::test {

class CalcRig {
 public:
  CalcRig();
  ~CalcRig();
  CalcRig(const CalcRig&) = delete;
  CalcRig& operator=(const CalcRig&) = delete;

  /// A tool that is not open yet; one that was there is destroyed first.
  void MakeTool();
  void Open();
  /// The window goes, whoever destroys it.
  void DestroyTool();

  /// Calls an intention as the window does. When the outermost one is over and has closed the window, that goes.
  template <typename Intention>
  void Tell(Intention intention) {
    ++depth_;
    RunOperation(session, intention);
    if (--depth_ == 0 && view->closing) view->dead = true;
  }
  // Intentions of the window.
  /// False is a key that the focused control has got: Up and Down have moved the open list then.
  bool Key(CalcKey key, bool ctrl = false);
  bool Character(char16_t character);
  void Button(int id);
  void Menu(int id);
  std::intptr_t Command(std::intptr_t request);
  void HandleValue();
  void LineChanged();
  void PressLine();
  void SelectInList();
  void DoubleClickList();
  void PickVariable();
  void Work();
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
  [[nodiscard]] std::vector<std::string> Rows() const;
  [[nodiscard]] static double Variable(char letter);
  /// Everything asked since the last call; Asked leaves the view's orders out.
  Log All() { return std::exchange(log, {}); }
  Log Asked();
  /// The item in the bars' menus; null when there is none.
  [[nodiscard]] const MenuItem* Item(int id);
  [[nodiscard]] std::string MenuName(MenuHandle menu) const;

  RecordingSink sink;
  Log& log = sink.lines;
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  sim::SimulatedCnc cnc{windows, timers, files, drives};
  MenuTable menus;
  Language language;
  HostApiTable table = {};
  HostBridge host;
  ToolContext context;
  MenuHandle mainMenu = 0;
  MenuHandle sideMenu = 0;
  std::unique_ptr<FakeCalcView> view;
  std::shared_ptr<CalcSession> session;
  std::function<void(const std::string&)> onHostCall;  // after it was logged

  static CalcRig* current;

 private:
  int depth_ = 0;  // intentions that are under way
};

class CalcTest : public testing::Test, public CalcRig {};

/// A calculator that is open, with an empty log.
class OpenCalcTest : public CalcTest {
 protected:
  OpenCalcTest() {
    Open();
    log.clear();
  }
};

}  // namespace pnl::test
