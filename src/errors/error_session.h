// SPDX-License-Identifier: MIT
// The error manager without its window: which error of the kernel's queue is on the screen, when the window shows
// itself, what keys and clicks do, what the host is told. Holds no list: the queue is the kernel's.
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

  /// The window stands, hidden, with its controls as the dialog has them.
  void Start();
  /// The window is going: what it took is given back. No call to the view or to the host follows.
  void End();

  /// PNL_MSG_VARIABLE_REPORT.
  void OnReport(std::intptr_t first, std::intptr_t second);
  /// PNL_MSG_TOOL_NOTIFY.
  void OnToolNotify(std::intptr_t what, std::intptr_t value);
  /// PNL_MSG_HELP_KEY, and a click on the help picture: hides the window and offers the error to the host. False
  /// without an error or a reference.
  bool ShowHelp();
  /// "ZM_END_ERRORHELP".
  void HelpEnded();
  void OnHotKey();
  void OnKey(ErrorKey key);
  /// A press inside the window: on the control with that id, or with 0 on none that acts.
  void OnClick(int id);
  /// The second of two quick presses, there. It belongs to what was under the first one, which may have hidden that.
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
  /// How many errors the kernel has after the one on the screen. Its numbers may be anything.
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
  Text titleWord_;
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
  std::optional<int> firstPress_;  // what was under it; none since the window came
  ComposedError composed_;
  ScopedTimer flashTimer_;
  ScopedTimer closeTimer_;
  ErrorTopRow topRow_;
  ErrorArrow previousArrow_;
  ErrorArrow nextArrow_;
};

}  // namespace pnl
