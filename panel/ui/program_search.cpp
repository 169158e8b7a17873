// SPDX-License-Identifier: MIT
#include "ui/program_search.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimerEvent>
#include <algorithm>
#include <iterator>
#include <utility>

#include "ui/edit_history.h"

namespace panel {
namespace {

/// How long the panel searches before it looks at its events again.
constexpr int kSliceMilliseconds = 8;
/// A change of more characters has the whole program searched again, in slices.
constexpr int kBigChange = 64 * 1024;

}  // namespace

void ProgramSearch::SetProgram(CodeEdit* edit, EditHistory* history) {
  if (edit_ != nullptr) disconnect(edit_->document(), nullptr, this, nullptr);
  if (edit_ != nullptr) disconnect(edit_, nullptr, this, nullptr);
  edit_ = edit;
  history_ = history;
  Forget();
  if (edit == nullptr) return;
  connect(edit->document(), &QTextDocument::contentsChange, this, &ProgramSearch::OnContentsChange);
  connect(edit, &QPlainTextEdit::selectionChanged, this, &ProgramSearch::Changed);
  StartAgain();
}

void ProgramSearch::Forget() {
  slice_.stop();
  places_.clear();
  places_.shrink_to_fit();
  searched_ = 0;
  complete_ = false;
  move_ = Move::kNone;
  waiting_.reset();
  left_ = 0;
  if (!std::exchange(replacing_, false)) return;
  emit ReplacingChanged();
}

void ProgramSearch::Look(const QString& what, bool matchCase) {
  if (replacing_) return;
  what_ = what;
  matcher_ = QStringMatcher(what, matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
  StartAgain();
  if (what_.isEmpty() || edit_ == nullptr) return;
  move_ = Move::kForward;
  from_ = edit_->textCursor().selectionStart();
  TryMove();
}

void ProgramSearch::StartAgain() {
  places_.clear();
  searched_ = 0;
  complete_ = false;
  if (Searching()) {
    slice_.start(0, this);
    Slice();
  } else {
    slice_.stop();
    emit Changed();
  }
}

void ProgramSearch::timerEvent(QTimerEvent* event) {
  if (event->timerId() == slice_.timerId()) Slice();
}

void ProgramSearch::Slice() {
  const QDeadlineTimer end(kSliceMilliseconds);
  if (replacing_) return ReplaceSome(end);
  Scan(end);
  if (complete_) slice_.stop();
  TryMove();
  if (complete_ && waiting_) BeginReplacing();
  emit Changed();
}

void ProgramSearch::Scan(QDeadlineTimer end) {
  constexpr int kLinesBetweenLooks = 64;
  QTextBlock line = edit_->document()->findBlock(searched_);
  for (int lines = 1; line.isValid(); ++lines) {
    ScanLines(line.position(), line.position(), places_);
    line = line.next();
    searched_ = line.isValid() ? line.position() : edit_->document()->characterCount();
    if (lines % kLinesBetweenLooks == 0 && end.hasExpired()) break;
  }
  complete_ = !line.isValid();
}

void ProgramSearch::ScanLines(int from, int to, std::vector<int>& into) const {
  for (QTextBlock line = edit_->document()->findBlock(from); line.isValid() && line.position() <= to;
       line = line.next()) {
    const QString text = line.text();
    for (qsizetype at = matcher_.indexIn(text); at >= 0; at = matcher_.indexIn(text, at + what_.size())) {
      into.push_back(line.position() + static_cast<int>(at));
    }
  }
}

void ProgramSearch::OnContentsChange(int position, int removed, int added) {
  if (what_.isEmpty() || replacing_) return;
  if (removed > kBigChange || added > kBigChange) return StartAgain();
  const QTextDocument& document = *edit_->document();
  const int begin = document.findBlock(position).position();
  const int last = std::min(position + added, document.characterCount() - 1);
  const QTextBlock lastLine = document.findBlock(last);
  const int end = lastLine.position() + lastLine.length();
  // What hasn't been searched yet will be.
  if (begin >= searched_) return;
  const int moved = added - removed;
  const auto first = std::lower_bound(places_.begin(), places_.end(), begin);
  const auto after = std::lower_bound(first, places_.end(), end - moved);
  for (auto place = after; place != places_.end(); ++place) *place += moved;
  std::vector<int> fresh;
  ScanLines(begin, last, fresh);
  places_.insert(places_.erase(first, after), fresh.begin(), fresh.end());
  searched_ = std::max(searched_ + moved, end);
  emit Changed();
}

int ProgramSearch::Current() const {
  if (edit_ == nullptr || what_.isEmpty()) return 0;
  const QTextCursor mark = edit_->textCursor();
  if (mark.selectionEnd() - mark.selectionStart() != what_.size()) return 0;
  const auto found = std::lower_bound(places_.begin(), places_.end(), mark.selectionStart());
  if (found == places_.end() || *found != mark.selectionStart()) return 0;
  return static_cast<int>(found - places_.begin()) + 1;
}

int ProgramSearch::Percent() const {
  if (edit_ == nullptr || complete_) return 100;
  return static_cast<int>(qint64{100} * searched_ / std::max(1, edit_->document()->characterCount()));
}

void ProgramSearch::Next() {
  if (edit_ == nullptr || what_.isEmpty() || replacing_) return;
  const QTextCursor mark = edit_->textCursor();
  move_ = Move::kForward;
  from_ = Current() > 0 ? mark.selectionStart() + 1 : mark.position();
  TryMove();
}

void ProgramSearch::Previous() {
  if (edit_ == nullptr || what_.isEmpty() || replacing_) return;
  move_ = Move::kBackward;
  from_ = edit_->textCursor().selectionStart();
  TryMove();
}

void ProgramSearch::TryMove() {
  if (move_ == Move::kNone) return;
  const bool forward = move_ == Move::kForward;
  const auto next = std::lower_bound(places_.begin(), places_.end(), from_);
  const auto index = static_cast<std::size_t>(next - places_.begin());
  if (forward && next != places_.end()) return MarkPlace(index);
  if (!forward && index > 0 && searched_ >= from_) return MarkPlace(index - 1);
  if (Searching()) return;
  if (places_.empty()) {
    move_ = Move::kNone;
    return;
  }
  MarkPlace(forward ? 0 : places_.size() - 1);
  emit WentOn(forward);
}

void ProgramSearch::MarkPlace(std::size_t index) {
  move_ = Move::kNone;
  edit_->Mark(places_[index], static_cast<int>(what_.size()));
  emit Changed();
}

void ProgramSearch::Replace(const QString& with) {
  if (edit_ == nullptr || edit_->isReadOnly() || replacing_) return;
  if (Current() == 0) return Next();
  QTextCursor mark = edit_->textCursor();
  mark.insertText(with);
  move_ = Move::kForward;
  from_ = mark.position();
  TryMove();
}

void ProgramSearch::ReplaceAll(const QString& with) {
  if (edit_ == nullptr || edit_->isReadOnly() || replacing_ || what_.isEmpty()) return;
  move_ = Move::kNone;
  waiting_ = with;
  if (complete_) BeginReplacing();
}

void ProgramSearch::BeginReplacing() {
  with_ = *std::exchange(waiting_, std::nullopt);
  left_ = places_.size();
  if (left_ == 0) {
    emit ReplacedAll(0);
    return;
  }
  replacing_ = true;
  history_->Begin();
  emit ReplacingChanged();
  slice_.start(0, this);
  Slice();
}

void ProgramSearch::ReplaceSome(QDeadlineTimer end) {
  constexpr int kBetweenLooks = 32;
  QTextCursor cursor(edit_->document());
  cursor.beginEditBlock();
  // From the end, so that the places before stay where they are.
  for (int count = 1; left_ > 0; ++count) {
    const int place = places_[--left_];
    cursor.setPosition(place);
    cursor.setPosition(place + static_cast<int>(what_.size()), QTextCursor::KeepAnchor);
    cursor.insertText(with_);
    if (count % kBetweenLooks == 0 && end.hasExpired()) break;
  }
  if (left_ == 0) {
    // Text that is inserted right behind the last place would become a part of this step if the step ended with an
    // insertion.
    cursor.insertText(QStringLiteral(" "));
    cursor.deletePreviousChar();
  }
  cursor.endEditBlock();
  emit Changed();
  if (left_ == 0) EndReplacing();
}

void ProgramSearch::EndReplacing() {
  const int count = Count();
  history_->End();
  replacing_ = false;
  StartAgain();
  emit ReplacingChanged();
  emit ReplacedAll(count);
}

}  // namespace panel
