// SPDX-License-Identifier: MIT
// What the parts of the calculator share: the tool's context, the view, settings, texts and what runs. State only; the
// rules are free functions over it, a file for each concern. Owned by CalcSession.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "calc/calc_format.h"
#include "calc/calc_history.h"
#include "calc/calc_no_view.h"
#include "calc/calc_preview.h"
#include "calc/calc_settings.h"
#include "calc/calc_work.h"
#include "host/tool_context.h"
#include "window/timers.h"

namespace pnl {

/// What the running evaluation is for.
enum class CalcTask { kNone, kLinePreview, kSelectionPreview, kConfirm, kConfirmAndClose };

/// What the operator asked the note to show.
enum class CalcNote { kNone, kBases, kSolver };

/// Which list lies over the keypad.
enum class CalcOpenList { kNone, kHistory, kVariables };

struct CalcState {
  CalcState(const ToolContext& toolContext, CalcView& calcWindow, std::int32_t argument)
      : context(toolContext),
        window(&calcWindow),
        param(argument),
        history(context.files, context.cnc.Util()),
        timer(context.timers) {}
  CalcState(const CalcState&) = delete;
  CalcState& operator=(const CalcState&) = delete;

  /// The window; from its closing on one that does nothing.
  [[nodiscard]] CalcView& View() { return closed ? static_cast<CalcView&>(noView) : *window; }
  [[nodiscard]] bool IsConfirming() const { return task == CalcTask::kConfirm || task == CalcTask::kConfirmAndClose; }

  ToolContext context;
  CalcView* window;  // null once it is destroyed
  CalcNoView noView;
  bool opened = false;
  bool closed = false;
  std::int32_t param;

  Text savedLine;  // as it was when the history opened
  int numberBase = number_base::kDecimal;
  bool radians = false;
  bool minimized = false;
  bool menuAttached = false;
  double value = 0;  // of the last confirmed evaluation
  MenuHandle menu = 0;
  CalcTexts texts;
  CalcHistory history;
  CalcSettingsRead loaded;
  CalcOpenList openList = CalcOpenList::kNone;

  std::unique_ptr<CalcWork> work;
  CalcTask task = CalcTask::kNone;
  Text confirmedLine;     // while a confirmation runs
  Text lastSelectedText;  // at the timer's last tick
  ScopedTimer timer;

  CalcNote note = CalcNote::kNone;
  Text noteText;                       // as the view shows it
  std::optional<double> previewValue;  // what the line was worth last
  std::optional<SolverReport> hint;    // of a search that didn't reach its tolerance
  std::vector<Text> variableNames;     // of the rows of the variables list
};

}  // namespace pnl
