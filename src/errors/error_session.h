// SPDX-License-Identifier: MIT
// The error manager without its window. It decides which error of the kernel's queue is on the screen, when the window
// is shown, what keys and clicks do, and what the host gets to know. It has no list of errors: the queue is the
// kernel's.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "errors/error_composer.h"
#include "errors/error_layout.h"
#include "errors/error_reader.h"
#include "errors/error_settings.h"
#include "errors/error_view.h"
#include "host/tool_session.h"
#include "window/timers.h"

namespace pnl {

enum class ErrorKey { kLeft, kRight, kUp, kDown, kEscape, kEnter };

class ErrorSession final : public ToolSession<ErrorView> {
 public:
  ErrorSession(const ToolContext& context, ErrorView& view, std::unique_ptr<ErrorLineReader> reader);
  ~ErrorSession();

  /// Reads the settings, places the window and opens the reports. The window must be hidden and have its controls where
  /// the dialog has them. If an error is already in the queue, its report comes later and shows the window.
  void Start();
  /// Ends the tool before its window is destroyed: gives back the hot key, the wait cursor, the timers and the reports.
  /// After that it calls neither the view nor the host.
  void End();

  /// Handles PNL_MSG_VARIABLE_REPORT.
  void OnReport(std::intptr_t first, std::intptr_t second);
  /// Handles PNL_MSG_TOOL_NOTIFY.
  void OnToolNotify(std::intptr_t what, std::intptr_t value);
  /// Handles PNL_MSG_HELP_KEY and a click on the help picture: hides the window and hands the error to the host.
  /// Returns false and does nothing if there is no error or it has no help.
  bool ShowHelp();
  /// Handles "ZM_END_ERRORHELP": shows the window again.
  void HelpEnded();
  void OnHotKey();
  void OnKey(ErrorKey key);
  /// Handles a press in the window. id is the control under it, or 0 if nothing there reacts to presses.
  void OnClick(int id);
  /// Handles the second of two quick presses. It counts for the control under the first press, which may be hidden now.
  void OnDoubleClick(int id);
  void OnResized();

  [[nodiscard]] bool IsActive() const { return active_; }
  [[nodiscard]] bool IsVisible() const { return visible_; }

 private:
  // Reading and composing.
  void ReadShown();
  void NothingToShow();
  void ShowComposed(const ErrorRecord& record);
  void ReadProgramLinesLater();
  void DecideState();
  [[nodiscard]] bool MustShow() const;
  // The window's state.
  void Activate();
  void Deactivate();
  void Show();
  void Hide(bool notify);
  void Toggle(bool hide);
  void Refresh();
  // Reports and the queue.
  void OnCountReport();
  void OnPriorityReport();
  [[nodiscard]] int Count() const;
  /// How many errors the kernel has after the one on the screen. It is wrong or negative if the kernel's numbers are.
  [[nodiscard]] std::int64_t LiesAfterShown() const;
  void UpdateCounters();
  void ShowPrevious(bool shown);
  void ShowNext(bool shown);
  void Press(int id);
  void GoNext();
  void GoPrevious();
  void WriteCurrent();
  void PostCount(int count);
  void PostClose();
  // Acknowledging.
  void Acknowledge();
  void ConfirmWithEnter();
  void StepBack();
  void ResetShown(int kind);
  void ShowWaiting(bool waiting);
  // Looks.
  void OnFlash();
  void SetBoxes(ErrorClass titleClass, ErrorClass channelClass, bool inverted, bool now);
  void LayTopRow();
  void FitTitleLine();
  void MeasureBase();
  void ShowDescription();

  std::unique_ptr<ErrorLineReader> reader_;
  ErrorWords words_;
  TextWidths widths_;
  ErrorSettings settings_;
  ErrorBaseGeometry base_;
  Rect baseClient_;
  ErrorClass currentClass_ = ErrorClass::kError;
  ErrorRecord shownRecord_{};
  std::int32_t shownIndex_ = -1;
  std::int32_t shownNumber_ = 0;
  std::int32_t requestedIndex_ = -1;
  bool flashPhase_ = false;
  bool closePending_ = false;
  ZCVariable priorityVariable_;
  ZCVariable countVariable_;
  bool active_ = false;
  bool visible_ = false;
  bool suppressed_ = false;
  bool blocked_ = false;
  bool channelShown_ = false;
  bool waiting_ = false;
  std::optional<int> firstPress_;  // the control under the last press; nothing after a second one or a new Show
  ComposedError composed_;
  ScopedTimer flashTimer_;
  ScopedTimer closeTimer_;
  ErrorTopRow topRow_;
  ErrorArrow previousArrow_;
  ErrorArrow nextArrow_;
};

}  // namespace pnl
