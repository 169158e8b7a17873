// SPDX-License-Identifier: MIT
// A running block: its current step, and how much of it is done. It computes both from the times that it is given. Each
// step begins at the exact moment when the one before it ends, however late the caller asks. It uses no clock and no
// timer and switches nothing itself; machine_demo does.
#pragma once

#include <optional>
#include <vector>

#include "facade/mill/machine_plan.h"

namespace pnl::sim {

/// Times are in milliseconds. percent is the feed override.
class BlockRun {
 public:
  BlockRun(Text block, std::vector<Step> steps, double now, int percent);

  [[nodiscard]] const Text& Block() const { return block_; }
  /// True when no step is left. Current must not be called then.
  [[nodiscard]] bool Over() const { return index_ == steps_.size(); }
  [[nodiscard]] const Step& Current() const { return steps_[index_]; }
  /// When the current step ends. A block without steps ends at once. Returns nothing while the block is held or the
  /// override stops the step.
  [[nodiscard]] std::optional<double> StepEnd() const;
  /// True while axes move.
  [[nodiscard]] bool Moves() const;
  /// The feed along the path in mm/min, with the override. 0 while nothing moves.
  [[nodiscard]] double Feed() const;
  /// Where the axes are in the current step. Returns nothing if the step moves no axis.
  [[nodiscard]] std::optional<Point> Position(double now) const;

  /// Ends the current step at its due time and begins the next one. Returns that time.
  double Next();
  void SetOverride(double now, int percent);
  /// Stops the block until Release. The rest of the step stays to be done.
  void Hold(double now);
  void Release(double now);
  /// Inserts a step before the rest of the current one. Must only be called while held.
  void Insert(const Step& step);

 private:
  [[nodiscard]] double Rate() const;
  [[nodiscard]] double Done(double now) const;
  /// Adds the progress up to now to the step, so that the rate may change.
  void Book(double now);

  Text block_;
  std::vector<Step> steps_;
  std::size_t index_ = 0;
  double since_;
  int percent_;
  bool held_ = false;
};

}  // namespace pnl::sim
