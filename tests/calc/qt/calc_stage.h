// SPDX-License-Identifier: MIT
// A calculator in a panel's window, off screen. How much an event computes is counted: each look at the clock takes a
// millisecond.
#pragma once

#include <string>

#include "calc/calc_ids.h"
#include "calc/qt/calc_window.h"
#include "support/window_stage.h"

namespace pnl::test {

class CalcStage : public WindowStage {
 protected:
  CalcStage();
  ~CalcStage() override { delete area; }  // while the tool's clock is there

  /// Makes the tool and opens it; files on the disc must be there before.
  void Open();
  std::intptr_t Command(std::intptr_t code) { return Send(PNL_MSG_TOOL_COMMAND, code); }
  void Menu(int id) { Send(PNL_MSG_COMMAND, id); }
  void History(int rows) const;

  [[nodiscard]] CalcLine* Line() const { return tool->findChild<CalcLine*>(); }
  [[nodiscard]] ListBox* List() const { return qobject_cast<ListBox*>(Control(calc_id::kHistory)); }
  [[nodiscard]] ListBox* Variables() const { return qobject_cast<ListBox*>(Control(calc_id::kVariables)); }
  [[nodiscard]] CalcNoteWidget* Note() const { return area->findChild<CalcNoteWidget*>(); }
  [[nodiscard]] std::string Status() const { return TextOf(calc_id::kStatus); }
  [[nodiscard]] std::string Result() const { return TextOf(calc_id::kResult); }
  [[nodiscard]] std::string LineText() const { return Line()->text().toStdString(); }
  void Write(const QString& text) { Type(Line(), text); }
  static void TouchRow(ListBox* list, int row, Qt::KeyboardModifiers modifiers = {});
  /// Until nothing is computed any more; fails when that doesn't come.
  void WaitForComputing() const;

  QPointer<ZCCalc7340> tool;
  std::int64_t now = 0;
};

}  // namespace pnl::test
