// SPDX-License-Identifier: MIT
// The calculator without its window. It decides what each key, command, message and timer tick does. It uses the window
// through CalcView and the panel through ToolContext. calc/expr evaluates expressions, calc_storage has the files, and
// calc_words has the words.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "calc/calc_format.h"
#include "calc/calc_keys.h"
#include "calc/calc_menus.h"
#include "calc/calc_places.h"
#include "calc/calc_removed.h"
#include "calc/calc_storage.h"
#include "calc/calc_values.h"
#include "calc/calc_view.h"
#include "calc/calc_words.h"
#include "calc/calc_work.h"
#include "host/kept_work.h"
#include "host/tool_session.h"
#include "window/timers.h"

namespace pnl {

enum class CalcKey {
  kEnter,
  kEscape,
  kInsert,
  kDelete,
  kLeft,
  kRight,
  kUp,
  kDown,
  kBases,
  kVariables,
  kSolver,
  kAltF4
};

class CalcSession final : public ToolSession<CalcView> {
 public:
  /// param is the second argument of LoadPNLTool.
  CalcSession(const ToolContext& context, CalcView& view, std::int32_t param);

  /// Opens the calculator: reads its files, loads texts and menus, calls the host and shows the window. A second call
  /// does nothing.
  void Open();
  /// Ends the tool before its window is destroyed: stops what is running and saves history and settings. The view must
  /// still have its rows and its place. A second call does nothing.
  void End();

  /// Handles a key before the controls get it. Returns true if they must not get it. With the history open it usually
  /// returns false for Up and Down: the list handles them and then OnListSelection is called.
  bool OnKey(CalcKey key, bool ctrl);
  /// Handles a typed character. Returns true if the line must not get it, as "+" and "=" while no list is open.
  bool OnCharacter(char16_t character);
  void OnLineChanged();
  /// Handles a press on the line: closes an open list.
  void OnLinePressed();
  /// Handles a key of the keypad, or a menu command that writes. Ignores other ids.
  void OnButton(int id);
  /// Handles a menu command, from a soft key (PNL_MSG_COMMAND) or from the bar on the window.
  void OnMenuCommand(int id);
  /// The operator has moved in the open history or pressed a row of it. The selection may still be the same.
  void OnListSelection();
  void OnListDoubleClick();
  void OnVariablesPicked();
  /// Handles PNL_MSG_TOOL_COMMAND and returns the answer to it.
  std::intptr_t OnToolCommand(std::intptr_t request);
  /// Handles "TM_HANDLEVALUE": replaces the line with a value from outside.
  void OnHandleValue();
  /// Handles the messages of host/kept_work.h and returns the answer; nothing for any other message.
  std::optional<std::intptr_t> OnKeptWork(const Message& message);
  /// The number of the last removal that can be put back, or 0.
  [[nodiscard]] int RemovalNumber() const { return removed_.Number(); }
  /// The value beside a row of the history in the base in use, empty if it isn't known. Quick enough for painting.
  [[nodiscard]] Text RowValue(int row, const Text& expression);
  /// Computes one piece of a long evaluation. It takes a few milliseconds at most.
  void Work();

  [[nodiscard]] std::int32_t Param() const { return param_; }
  [[nodiscard]] bool IsComputing() const { return run_.IsRunning(); }
  [[nodiscard]] bool IsListOpen() const { return openList_ == OpenList::kHistory; }
  [[nodiscard]] bool IsMenuAttached() const { return menuAttached_; }
  /// The base in use, one of number_base.
  [[nodiscard]] int NumberBase() const { return numberBase_; }
  [[nodiscard]] bool Radians() const { return radians_; }
  /// The value of the last confirmed expression.
  [[nodiscard]] double Value() const { return value_; }

 private:
  /// The list that is over the keypad.
  enum class OpenList { kNone, kHistory, kVariables };
  /// What the line has after the history closes: the selected row, or its text from before the history opened.
  enum class Keep { kSelectedRow, kSavedLine };

  // Opening and closing.
  void ComeIntoSight();
  void MakeControls();
  void InstallMenus();
  void UpdateMenuState();
  void EndActivity();
  /// Closes the calculator and reports the code (PnlCloseReason) to the host.
  void Close(int code);
  void GoToMachining();
  void HideWindow();
  void DestroyWindow();
  void Save();
  // The commands that only the menus have, and the size of the window.
  void ChangeBase();
  void ChangeAngle();
  void ToggleCompact();
  void AttachMenu(bool attached);
  void ResizeWindow();
  // Keys.
  void MoveStep(CalcDirection direction);
  bool OnCtrlKey(CalcKey key);
  bool OnFreeKey(CalcKey key);
  bool OnEditingKey(CalcKey key);
  void OnEnter();
  void OnEscape();
  void OnInsert();
  // The line.
  [[nodiscard]] Text LineText() const;
  void WriteLine(TextView text);
  void ShowEdit(const Text& line, const CalcEdit& edit);
  void InsertText(TextView text);
  // Previews: the status line says what the line or the selection in it is worth.
  void PreviewLine();
  [[nodiscard]] bool PreviewSelection();
  void RefreshPreview();
  void CompareSelection();
  void Preview(const Text& text, CalcTask task);
  void EndPreview();
  // Confirming: the line is computed and becomes a row of the history, and its value becomes the result.
  void Confirm(CalcTask task);
  void EndConfirm();
  void CancelConfirm();
  void InsertAndClose();
  // The running evaluation.
  [[nodiscard]] bool StartWork(std::unique_ptr<CalcWork> work, CalcTask task, const Text& line);
  void DropWork();
  // The note.
  void ToggleNote(CalcNote note);
  void CloseNote();
  void RefreshNote();
  // The lists over the keypad.
  void LayOverKeypad(int list, bool shown);
  [[nodiscard]] std::optional<Text> SelectedRow() const;
  void OpenHistory();
  void CloseHistory(Keep keep);
  void ToggleHistory();
  void ShowSelectedRow();
  [[nodiscard]] bool TakeCurrentRow();
  void DeleteSelectedRows();
  // What a host keeps for the operator: what he has typed and not finished, and what he has removed.
  void ReadUnfinished(PnlUnfinished& into) const;
  bool RestoreUnfinished(const PnlUnfinished& from);
  std::size_t PutBackRows();
  void ToggleVariables();
  void CloseVariables();
  void FillVariables();
  void PickVariable();

  const std::int32_t param_;
  CalcView* window_;     // only for the closing steps, which come after MarkEnded; null after them
  bool opened_ = false;  // whether there is something to save
  CalcSettingsRead loaded_;
  CalcHistory history_;
  CalcTexts texts_;
  CalcMenus menus_;
  bool menuAttached_ = false;
  bool minimized_ = false;
  int numberBase_ = number_base::kDecimal;
  bool radians_ = false;
  double value_ = 0;   // of the last confirmed expression
  CalcValues values_;  // beside the rows of the history
  CalcRun run_;
  std::optional<double> previewValue_;  // of the last preview that had a value
  Text lastSelectedText_;               // at the last tick of the timer
  ScopedTimer timer_;
  CalcNotes notes_;
  Text shownNote_;  // the text that the view shows
  OpenList openList_ = OpenList::kNone;
  Text savedLine_;                      // the line from before the history opened
  std::vector<VariableRow> variables_;  // the rows of the open list
  CalcRemoved removed_;                 // from the history
};

}  // namespace pnl
