// SPDX-License-Identifier: MIT
#include "ui/code_filler.h"

#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "ui/code_edit.h"

namespace panel {
namespace {

/// How long the panel works on a program before it looks at its events again.
constexpr int kSliceMilliseconds = 10;
/// The size of one step, in characters. A step takes far less time than a slice. Removing text is quicker than laying
/// it out, so its step is bigger.
constexpr qsizetype kStep = qsizetype{16} * 1024;
constexpr int kStepAway = 128 * 1024;

}  // namespace

CodeFiller::CodeFiller(CodeEdit* edit) : QObject(edit), edit_(edit) {}

void CodeFiller::Take(const QString& text, std::function<void()> done) {
  clears_ = !text.startsWith(QStringView(text_).left(taken_));
  text_ = text;
  if (clears_) taken_ = 0;
  done_ = std::move(done);
  edit_->document()->setUndoRedoEnabled(false);
  slice_.start(0, this);
}

void CodeFiller::Fill(const QString& text, std::function<void()> done) {
  Take(text, std::move(done));
  Slice();
}

void CodeFiller::FillNow(const QString& text) {
  Take(text, {});
  (void)Work(QDeadlineTimer(QDeadlineTimer::Forever));
  End();
}

void CodeFiller::Empty(std::function<void()> done) {
  Take({}, std::move(done));
  clears_ = true;
  Slice();
}

int CodeFiller::Percent() const {
  return text_.isEmpty() || clears_ ? 0 : static_cast<int>(std::min(taken_, text_.size()) * 100 / text_.size());
}

bool CodeFiller::Step() {
  QTextDocument* document = edit_->document();
  QTextCursor end(document);
  end.movePosition(QTextCursor::End);
  if (clears_ && !document->isEmpty()) {
    end.setPosition(std::max(0, end.position() - kStepAway), QTextCursor::KeepAnchor);
    end.removeSelectedText();
    return true;
  }
  clears_ = false;
  if (taken_ >= text_.size()) return false;
  // The first step would push the caret away from the beginning.
  const bool first = taken_ == 0;
  end.insertText(text_.mid(taken_, kStep));
  if (first) edit_->moveCursor(QTextCursor::Start);
  taken_ = std::min(taken_ + kStep, text_.size());
  return taken_ < text_.size();
}

bool CodeFiller::Work(QDeadlineTimer end) {
  // Line numbers and colours are updated once a slice, not at every step.
  const QSignalBlocker quiet(edit_);
  bool more = true;
  while (more && !end.hasExpired()) more = Step();
  edit_->Refresh();
  return more;
}

void CodeFiller::Slice() {
  if (Work(QDeadlineTimer(kSliceMilliseconds))) {
    emit Progressed();
  } else {
    End();
  }
}

void CodeFiller::End() {
  slice_.stop();
  edit_->document()->setUndoRedoEnabled(true);
  edit_->document()->setModified(false);
  // The call may destroy this object.
  if (const auto done = std::exchange(done_, nullptr)) done();
}

void CodeFiller::timerEvent(QTimerEvent* event) {
  if (event->timerId() == slice_.timerId()) Slice();
}

}  // namespace panel
