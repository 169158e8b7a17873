// SPDX-License-Identifier: MIT
// A block on its way: which step it is at and how much of that is done, computed from the times it is told. Steps
// follow each other at the exact moment at which one ends, however late somebody looks. It asks no clock, owns no timer
// and switches nothing itself (machine_demo does).
#pragma once

#include <optional>
#include <vector>

#include "facade/mill/machine_plan.h"

namespace pnl::sim {

/// Times are milliseconds. Percent is the feed override.
class BlockRun {
 public:
  BlockRun(Text block, std::vector<Step> steps, double now, int percent);

  [[nodiscard]] const Text& Block() const { return block_; }
  /// No step is left. Then Current may not be asked.
  [[nodiscard]] bool Over() const { return index_ == steps_.size(); }
  [[nodiscard]] const Step& Current() const { return steps_[index_]; }
  /// When the current step ends (a block without steps: at once); nothing while it is held or the override is 0.
  [[nodiscard]] std::optional<double> StepEnd() const;
  /// Axes move at this moment.
  [[nodiscard]] bool Moves() const;
  /// mm/min along the path, after the override; 0 while nothing moves.
  [[nodiscard]] double Feed() const;
  /// Where the current step has come to; nothing if it moves no axis.
  [[nodiscard]] std::optional<Point> Position(double now) const;

  /// Ends the current step at its end; the next one begins at that moment, which is the answer.
  double Next();
  void SetOverride(double now, int percent);
  /// Stands still, keeping what is left of the step, until Release.
  void Hold(double now);
  void Release(double now);
  /// Puts a step before what is left of the current one. Only while held.
  void Insert(const Step& step);

 private:
  [[nodiscard]] double Rate() const;
  [[nodiscard]] double Done(double now) const;
  /// Everything done up to now is booked, so that the rate may change.
  void Book(double now);

  Text block_;
  std::vector<Step> steps_;
  std::size_t index_ = 0;
  double since_;
  int percent_;
  bool held_ = false;
};

}  // namespace pnl::sim
