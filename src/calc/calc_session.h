// SPDX-License-Identifier: MIT
// The calculator without its window: what every key, command, message and tick does. It asks the window through
// CalcView and the panel through ToolContext. The language of expressions is in calc/expr, the files are in
// calc_storage, the words in calc_words.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "calc/calc_format.h"
#include "calc/calc_keys.h"
#include "calc/calc_menus.h"
#include "calc/calc_places.h"
#include "calc/calc_storage.h"
#include "calc/calc_view.h"
#include "calc/calc_words.h"
#include "calc/calc_work.h"
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

  /// The opening steps, to the window's appearance. A second call does nothing.
  void Open();
  /// The window is going: history and settings are saved, nothing runs any more. The view must still report its rows
  /// and its place. After an end nothing is left to do.
  void End();

  /// Before the controls' own handling; true when there is nothing left to do for them. For Up and Down with the
  /// history open the answer is false as a rule: the list moves, and OnListSelection follows.
  bool OnKey(CalcKey key, bool ctrl);
  /// A typed character; true when it was taken ("+", "=", ... while no list is open).
  bool OnCharacter(char16_t character);
  void OnLineChanged();
  /// A click on the line: closes an open list.
  void OnLinePressed();
  /// A key of the keypad, or a menu command that writes; other ids do nothing.
  void OnButton(int id);
  /// A command of the menus: from a soft key (PNL_MSG_COMMAND), or from the bar on the window.
  void OnMenuCommand(int id);
  /// The operator has moved in the open history or pressed a row of it, whether or not the selection is another one.
  void OnListSelection();
  void OnListDoubleClick();
  void OnVariablesPicked();
  /// The answer to PNL_MSG_TOOL_COMMAND.
  std::intptr_t OnToolCommand(std::intptr_t request);
  /// "TM_HANDLEVALUE": a value from outside replaces the line.
  void OnHandleValue();
  /// One piece of a long evaluation, a few milliseconds at most.
  void Work();

  [[nodiscard]] std::int32_t Param() const { return param_; }
  [[nodiscard]] bool IsComputing() const { return run_.IsRunning(); }
  [[nodiscard]] bool IsListOpen() const { return openList_ == OpenList::kHistory; }
  [[nodiscard]] bool IsMenuAttached() const { return menuAttached_; }
  /// 0 hexadecimal, 1 decimal, 2 binary.
  [[nodiscard]] int NumberBase() const { return numberBase_; }
  [[nodiscard]] bool Radians() const { return radians_; }
  /// Of the last confirmed evaluation.
  [[nodiscard]] double Value() const { return value_; }

 private:
  /// Which list lies over the keypad.
  enum class OpenList { kNone, kHistory, kVariables };
  /// What is on the line when the history closes: the selected row, or the line as it was when the list opened.
  enum class Keep { kSelectedRow, kSavedLine };

  // Opening and closing.
  void MakeControls();
  void InstallMenus();
  void UpdateMenuState();
  void EndActivity();
  /// With that code to the host (PnlCloseReason).
  void Close(int code);
  void GoToMachining();
  void HideWindow();
  void DestroyWindow();
  void Save();
  // The menus' own commands, and what the window looks like.
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
  // Previews: the words about the line, or about a selection in it.
  void PreviewLine();
  [[nodiscard]] bool PreviewSelection();
  void RefreshPreview();
  void CompareSelection();
  void Preview(const Text& text, CalcTask task);
  void EndPreview();
  // Confirming: the line becomes value, result and a row of the history.
  void Confirm(CalcTask task);
  void EndConfirm();
  void CancelConfirm();
  void InsertAndClose();
  // What runs.
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
  void ToggleVariables();
  void CloseVariables();
  void FillVariables();
  void PickVariable();

  const std::int32_t param_;
  CalcView* window_;     // for the closing steps alone, which come after the end; null once they are over
  bool opened_ = false;  // there is something to save
  CalcSettingsRead loaded_;
  CalcHistory history_;
  CalcTexts texts_;
  CalcMenus menus_;
  bool menuAttached_ = false;
  bool minimized_ = false;
  int numberBase_ = number_base::kDecimal;
  bool radians_ = false;
  double value_ = 0;  // of the last confirmed evaluation
  CalcRun run_;
  std::optional<double> previewValue_;  // what the line was worth last
  Text lastSelectedText_;               // at the timer's last tick
  ScopedTimer timer_;
  CalcNotes notes_;
  Text shownNote_;  // as the view shows it
  OpenList openList_ = OpenList::kNone;
  Text savedLine_;                      // as it was when the history opened
  std::vector<VariableRow> variables_;  // in the open list
};

}  // namespace pnl
