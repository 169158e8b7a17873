// SPDX-License-Identifier: MIT
// The part of the session that handles keys and clicks: moving through the queue, and acknowledging.
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
  // The first press came before the window and was meant for something else. So this is the window's first press.
  if (!first) return OnClick(id);
  if (*first == 0 && id == 0) return Toggle(true);
  // Two quick presses on one picture are two presses. If the first press has hidden its picture or has put another one
  // in its place, the second press does nothing.
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
    // Not a mistake: a click on this sign confirms, and a click on kConfirmSign does nothing.
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
