// SPDX-License-Identifier: MIT
// What keys and clicks do: walking the queue and acknowledging.
#include <utility>

#include "errors/error_ids.h"
#include "errors/error_session.h"

namespace pnl {

void ErrorSession::GoNext() {
  const int count = Count();
  if (LiesAfterShown() <= 0) return;
  requestedIndex_ = shownIndex_ + 1;
  ReadShown();
  WriteCurrent();
  ShowPrevious(true);
  ShowNext(requestedIndex_ < count - 1);
  UpdateCounters();
}

void ErrorSession::GoPrevious() {
  if (shownIndex_ <= 0) return;
  requestedIndex_ = shownIndex_ - 1;
  ReadShown();
  WriteCurrent();
  ShowNext(true);
  ShowPrevious(requestedIndex_ != 0);
  UpdateCounters();
}

void ErrorSession::OnKey(ErrorKey key) {
  switch (key) {
    case ErrorKey::kRight:
    case ErrorKey::kDown:
      return GoNext();
    case ErrorKey::kLeft:
    case ErrorKey::kUp:
      return GoPrevious();
    case ErrorKey::kEscape:
      return Acknowledge();
    case ErrorKey::kEnter:
      return ConfirmWithEnter();
  }
}

void ErrorSession::OnClick(int id) {
  firstPress_ = id;
  Press(id);
}

void ErrorSession::OnDoubleClick(int id) {
  const std::optional<int> first = std::exchange(firstPress_, std::nullopt);
  // The first press was for what lay there before the window came: this one is the window's first.
  if (!first) return OnClick(id);
  if (*first == 0 && id == 0) return Toggle(true);
  // Two quick presses on a picture are two presses. On one that the first press hid, or put another in place of, the
  // second means nothing any more.
  if (*first == 0 || *first == id) Press(id);
}

void ErrorSession::Press(int id) {
  switch (id) {
    case error_id::kPrevious:
      return GoPrevious();
    case error_id::kNext:
      return GoNext();
    case error_id::kHelp:
      ShowHelp();
      return;
    case error_id::kAcknowledge:
      return Acknowledge();
    // Looks crossed with the sign of class 4, and is kept: a click on 1044 does nothing.
    case error_id::kMarkedSign:
      return ConfirmWithEnter();
    default:
      return;
  }
}

void ErrorSession::Acknowledge() {
  if (shownIndex_ < 0) return;
  ShowWaiting(true);
  switch (currentClass_) {
    case ErrorClass::kError:
    case ErrorClass::kMarked:
      ResetShown(1);
      break;
    case ErrorClass::kWarning:
      ResetShown(0);
      break;
    case ErrorClass::kFatal:
      closePending_ = true;
      if (Count() < 2) {
        Toggle(true);
      } else {
        GoNext();
      }
      break;
    case ErrorClass::kConfirm:
      break;
  }
  ShowWaiting(false);
}

void ErrorSession::ResetShown(int kind) {
  const int index = shownIndex_;
  StepBack();
  Kapi().ResetError(index, kind);
  ReadShown();
  WriteCurrent();
}

void ErrorSession::ConfirmWithEnter() {
  if (shownIndex_ < 0 || currentClass_ != ErrorClass::kConfirm) return;
  ShowWaiting(true);
  StepBack();
  Kapi().ResetErrorWithEnter(0, shownRecord_);
  ReadShown();
  WriteCurrent();
  ShowWaiting(false);
}

void ErrorSession::ShowWaiting(bool waiting) {
  waiting_ = waiting;
  View().SetWaitCursor(waiting);
}

void ErrorSession::StepBack() {
  requestedIndex_ = shownIndex_ < 1 ? -1 : shownIndex_ - 1;
  if (requestedIndex_ <= 0) ShowPrevious(false);
}

}  // namespace pnl
