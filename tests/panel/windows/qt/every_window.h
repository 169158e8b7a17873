// SPDX-License-Identifier: MIT
// Every window of the panel in the states in which an operator meets it: a table of names and of ways to bring each one
// up. A test walks through the table, with one panel for each size and language, and looks at what is on the screen.
// A new window or a new state of one gets a row here, and every test of this room looks at it.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "panel/machine/qt/machining_fixture.h"
#include "ui/touch_keyboard.h"

namespace panel {

/// A panel of that size and language, which isn't a test by itself.
class EveryWindow : public MachiningFixture {
 public:
  using Look = std::function<void()>;
  struct Row {
    const char* name;
    /// Brings the window up, calls look while it is on the screen, and puts it away.
    void (EveryWindow::*show)(const Look& look);
  };

  EveryWindow(const QSize& size, const char* language);
  ~EveryWindow() override;
  void TestBody() override {}

  /// Calls look for each row, with the row's name.
  void Walk(const std::function<void(const std::string& name)>& look);
  /// The panel, and every other window that is open now: lists that have dropped down, menus and boxes.
  [[nodiscard]] QList<QWidget*> Windows() const;
  [[nodiscard]] PanelWindow& Panel() const { return *window_; }

  // The panel.
  void Rest(const Look& look);
  void NextKeys(const Look& look);
  void LastKeys(const Look& look);
  void Faults(const Look& look);
  void States(const Look& look);
  void Running(const Look& look);
  void DoorOpen(const Look& look);
  void ErrorsCounted(const Look& look);
  void Messages(const Look& look);
  void KeysPressed(const Look& look);
  void KeysFocused(const Look& look);
  void Tip(const Look& look);
  void Program(const Look& look);
  void Selection(const Look& look);
  void Find(const Look& look);
  void FindNothing(const Look& look);
  void Replace(const Look& look);
  void GoToLine(const Look& look);
  void Opening(const Look& look);
  void EmptyErrorList(const Look& look);
  void ErrorList(const Look& look);
  void Question(const Look& look);
  void Password(const Look& look);
  void WrongPassword(const Look& look);
  void Credentials(const Look& look);
  void WrongCredentials(const Look& look);
  void Undo(const Look& look);
  void BlockKeys(const Look& look);
  void LetterKeys(const Look& look);
  void SignKeys(const Look& look);
  // The tools.
  void CommandLine(const Look& look);
  void CommandHistory(const Look& look);
  void CommandRuns(const Look& look);
  void MdaList(const Look& look);
  void MdaItem(const Look& look);
  void Calculator(const Look& look);
  void CalculatorFails(const Look& look);
  void CompactCalculator(const Look& look);
  void CalculatorLists(const Look& look);
  void Machining(const Look& look);
  void MachiningChosen(const Look& look);
  void MachiningList(const Look& look);
  void Materials(const Look& look);
  void MaterialEdited(const Look& look);
  void Operations(const Look& look);
  void MachiningBox(const Look& look);
  void ErrorWindows(const Look& look);
  void ErrorHelp(const Look& look);
  void PlcMessages(const Look& look);
  void Explorer(const Look& look);
  void ExplorerList(const Look& look);
  void SaveAs(const Look& look);
  void ExplorerFind(const Look& look);
  void Help(const Look& look);
  void HelpIndex(const Look& look);
  void HelpSearch(const Look& look);
  void HelpInPage(const Look& look);
  void Manuals(const Look& look);

 private:
  /// Puts everything away.
  void Home();
  void WithKeyboard(TouchLayout layout, const Look& look);
  void WithPassword(bool wrong, const Look& look);
  void PushErrors(int kinds = 5);
  void TypeProgram();
  void HelpCommand(int command, const Look& look);
  void Command(int tool, int id);
  void Click(int tool, int id);
  [[nodiscard]] QWidget* ControlOf(int tool, int id) const;
};

/// The table.
[[nodiscard]] std::span<const EveryWindow::Row> EveryWindowRows();

}  // namespace panel
