// SPDX-License-Identifier: MIT
#include "facade/mill/machine_run.h"

#include <algorithm>
#include <utility>

namespace pnl::sim {

namespace {
constexpr double kMillisecondsPerMinute = 60000;
}

BlockRun::BlockRun(Text block, std::vector<Step> steps, double now, int percent)
    : block_(std::move(block)), steps_(std::move(steps)), since_(now), percent_(percent) {}

double BlockRun::Rate() const {
  if (held_) return 0;
  if (Over() || Current().pace == Step::Pace::kFixed) return 1;
  const double part = percent_ / 100.0;
  return Current().pace == Step::Pace::kRapid ? std::min(part, 1.0) : part;
}

double BlockRun::Done(double now) const {
  return std::min(Current().duration, Current().done + std::max(0.0, now - since_) * Rate());
}

std::optional<double> BlockRun::StepEnd() const {
  const double rate = Rate();
  if (rate == 0) return std::nullopt;
  return Over() ? since_ : since_ + (Current().duration - Current().done) / rate;
}

bool BlockRun::Moves() const { return !Over() && Current().kind == Step::Kind::kMove && Rate() > 0; }

double BlockRun::Feed() const {
  if (!Moves() || Current().duration == 0) return 0;
  return Current().path.Length() / Current().duration * kMillisecondsPerMinute * Rate();
}

std::optional<Point> BlockRun::Position(double now) const {
  if (Over() || Current().kind != Step::Kind::kMove) return std::nullopt;
  const Step& step = Current();
  return step.path.At(step.duration == 0 ? 1 : Done(now) / step.duration);
}

void BlockRun::Book(double now) {
  if (!Over()) steps_[index_].done = Done(now);
  since_ = std::max(since_, now);
}

double BlockRun::Next() {
  since_ = StepEnd().value_or(since_);
  ++index_;
  return since_;
}

void BlockRun::SetOverride(double now, int percent) {
  Book(now);
  percent_ = percent;
}

void BlockRun::Hold(double now) {
  Book(now);
  held_ = true;
}

void BlockRun::Release(double now) {
  Book(now);
  held_ = false;
}

void BlockRun::Insert(const Step& step) { steps_.insert(steps_.begin() + static_cast<std::ptrdiff_t>(index_), step); }

}  // namespace pnl::sim
