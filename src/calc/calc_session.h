// SPDX-License-Identifier: MIT
// The calculator without its window: what every key, command, message and tick does. It asks the window through
// CalcView and the panel through ToolContext; the language lies in calc/expr. Owned by the window, and outlived by
// nothing.
#pragma once

#include <cstdint>
#include <memory>

#include "calc/calc_view.h"
#include "host/tool_context.h"

namespace pnl {

struct CalcState;

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

class CalcSession {
 public:
  /// param is kept for whoever asks; nothing here uses it.
  CalcSession(const ToolContext& context, CalcView& view, std::int32_t param);
  ~CalcSession();
  CalcSession(const CalcSession&) = delete;
  CalcSession& operator=(const CalcSession&) = delete;

  /// The opening steps, to the window's appearance.
  void Open();
  /// Ahead of the controls' own handling; true when there is nothing left to do for them. For Up and Down with the list
  /// open the answer is false as a rule: the list moves, and OnListSelection follows.
  bool OnKey(CalcKey key, bool ctrl);
  /// A typed character; true when it was taken ("+", "=", ... while the list is closed).
  bool OnCharacter(char16_t character);
  void OnLineChanged();
  /// A click on the line: closes an open list.
  void OnLinePressed();
  void OnButton(int id);
  /// A command of the menus: from a soft key (kMsgCommand), or from the bar on the window.
  void OnMenuCommand(int id);
  /// The operator has moved in the open history or pressed a row of it, whether or not the selection is another one.
  void OnListSelection();
  void OnListDoubleClick();
  void OnVariablesPicked();
  /// The answer to a ToolCommand (0x802).
  std::intptr_t OnToolCommand(std::intptr_t request);
  /// "TM_HANDLEVALUE".
  void OnHandleValue();
  /// The window is going: saves history and settings, stops the timer. The view must still answer. Once is enough.
  void OnDestroyed();

  /// One piece of a long evaluation, a few milliseconds at most.
  void Work();
  [[nodiscard]] bool IsComputing() const;
  [[nodiscard]] bool IsListOpen() const;
  [[nodiscard]] bool IsMenuAttached() const;
  /// 0 hexadecimal, 1 decimal, 2 binary.
  [[nodiscard]] int NumberBase() const;
  [[nodiscard]] bool Radians() const;
  /// Of the last confirmed evaluation.
  [[nodiscard]] double Value() const;

 private:
  std::shared_ptr<CalcState> state_;
};

}  // namespace pnl
