// SPDX-License-Identifier: MIT
// Looks for a text in a program and replaces it. A big program is searched in slices, so that the panel reacts to its
// keys meanwhile; a change of the program only has the changed lines searched again. It marks what it finds in the
// edit. It shows no words.
#pragma once

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QStringMatcher>
#include <optional>
#include <vector>

#include "ui/code_edit.h"

namespace panel {

class EditHistory;

class ProgramSearch : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Searches another program from now on. Both go together; null for none.
  void SetProgram(CodeEdit* edit, EditHistory* history);
  /// Looks for a text within a line and marks the first place from the caret on. An empty one ends the search.
  void Look(const QString& what, bool matchCase);
  [[nodiscard]] const QString& What() const { return what_; }
  /// Mark the next place or the one before. Past the end of the program they go on at its other end.
  void Next();
  void Previous();
  /// Replaces the marked place, if it is one, and marks the next.
  void Replace(const QString& with);
  /// Replaces every place. The change is one step for the operator.
  void ReplaceAll(const QString& with);

  /// How many places are known.
  [[nodiscard]] int Count() const { return static_cast<int>(places_.size()); }
  /// The number of the marked place, from 1; 0 when none is marked.
  [[nodiscard]] int Current() const;
  /// Whether a part of the program hasn't been searched yet, and how much has been.
  [[nodiscard]] bool Searching() const { return !what_.isEmpty() && edit_ != nullptr && !complete_; }
  [[nodiscard]] int Percent() const;
  [[nodiscard]] bool Replacing() const { return replacing_; }

 signals:
  /// Anything of the above has changed.
  void Changed();
  /// Replacing has begun or ended.
  void ReplacingChanged();
  /// The search went past the end of the program to its start, or the other way round.
  void WentOn(bool atStart);
  void ReplacedAll(int count);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  enum class Move { kNone, kForward, kBackward };
  void StartAgain();
  void Forget();
  void Slice();
  void Scan(QDeadlineTimer end);
  void ScanLines(int from, int to, std::vector<int>& into) const;
  void OnContentsChange(int position, int removed, int added);
  /// Marks the place that was asked for as soon as it is known.
  void TryMove();
  void MarkPlace(std::size_t index);
  void BeginReplacing();
  void ReplaceSome(QDeadlineTimer end);
  void EndReplacing();

  QPointer<CodeEdit> edit_;
  QPointer<EditHistory> history_;
  QString what_;
  QStringMatcher matcher_;
  std::vector<int> places_;  // in order; they don't overlap
  int searched_ = 0;         // the beginning of the first line that hasn't been searched
  bool complete_ = false;
  Move move_ = Move::kNone;
  int from_ = 0;                    // where the move begins
  std::optional<QString> waiting_;  // replace all by this when the search is complete
  QString with_;
  bool replacing_ = false;
  std::size_t left_ = 0;  // how many places are still to be replaced
  QBasicTimer slice_;
};

}  // namespace panel
