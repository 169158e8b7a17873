// SPDX-License-Identifier: MIT
#include "ui/edit_history.h"

#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>

#include "ui/code_edit.h"

namespace panel {
namespace {

constexpr int kSliceMilliseconds = 8;

}  // namespace

EditHistory::EditHistory(CodeEdit* edit) : QObject(edit), edit_(edit), last_(Now()) {
  connect(edit->document(), &QTextDocument::contentsChange, this, &EditHistory::OnContentsChange);
}

int EditHistory::Now() const { return edit_->document()->availableUndoSteps(); }

void EditHistory::OnContentsChange() {
  // A new change after an undo drops the steps that could have been done again.
  if (!moving_ && !edit_->document()->isRedoAvailable()) {
    steps_.erase(std::remove_if(steps_.begin(), steps_.end(), [this](const Step& step) { return step.after > last_; }),
                 steps_.end());
  }
  last_ = Now();
}

void EditHistory::Begin() { begun_ = Now(); }

void EditHistory::End() {
  if (Now() > begun_) steps_.push_back({begun_, Now()});
}

void EditHistory::Undo() {
  if (Working()) return;
  const int now = Now();
  const auto step =
      std::find_if(steps_.begin(), steps_.end(), [now](const Step& s) { return s.before < now && now <= s.after; });
  GoTo(step == steps_.end() ? std::max(0, now - 1) : step->before);
}

void EditHistory::Redo() {
  if (Working()) return;
  const int now = Now();
  const auto step =
      std::find_if(steps_.begin(), steps_.end(), [now](const Step& s) { return s.before <= now && now < s.after; });
  GoTo(step == steps_.end() ? now + 1 : step->after);
}

void EditHistory::GoTo(int target) {
  target_ = target;
  if (!Work()) return;
  slice_.start(0, this);
  emit Changed();
}

bool EditHistory::Work() {
  const QScopedValueRollback moving(moving_, true);
  const QDeadlineTimer end(kSliceMilliseconds);
  const bool back = target_ < Now();
  while (back ? Now() > target_ : Now() < target_) {
    const int before = Now();
    if (back) {
      edit_->undo();
    } else {
      edit_->redo();
    }
    if (Now() == before) return false;
    if (end.hasExpired()) break;
  }
  return back ? Now() > target_ : Now() < target_;
}

void EditHistory::timerEvent(QTimerEvent* event) {
  if (event->timerId() != slice_.timerId() || Work()) return;
  slice_.stop();
  emit Changed();
}

}  // namespace panel
