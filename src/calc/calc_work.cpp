// SPDX-License-Identifier: MIT
#include "calc/calc_work.h"

#include <bit>
#include <utility>

namespace pnl {

namespace {

// Steps are counted and not timed, so that every run is the same. Even on a slow panel they take only a part of the
// time that a key may take.
constexpr std::int64_t kStepsAtOnce = 200'000;
constexpr std::int64_t kStepsAPiece = 30'000;

void Bring(double before, double after, double& target) {
  // The comparison is by bits, because NaN differs from itself and 0 equals -0.
  if (std::bit_cast<std::uint64_t>(before) != std::bit_cast<std::uint64_t>(after)) target = after;
}

}  // namespace

CalcWork::CalcWork(const CalcStore& store) : before_(store), own_(store), evaluator_(scanner_, parser_, own_) {}

std::optional<std::size_t> CalcWork::Compile(const Text& text) {
  const char16_t* place = text.c_str();
  if (evaluator_.Compile(text.c_str(), place) != 0) return std::nullopt;
  return static_cast<std::size_t>(place - text.c_str());
}

void CalcWork::Begin(bool radians) {
  evaluator_.radians = radians;
  evaluator_.Begin();
}

bool CalcWork::Advance(std::int64_t steps) { return evaluator_.Advance(steps) == CEvaluator::Progress::kEnded; }

std::optional<double> CalcWork::Finish() {
  double value = 0;
  if (evaluator_.Finish(value) == 0) return std::nullopt;
  return value;
}

Text CalcWork::Description() const {
  Text text;
  evaluator_.DescribeTree(text);
  return text;
}

void CalcWork::StoreTo(CalcStore& store) const {
  for (std::size_t i = 0; i < own_.Variables.size(); ++i) {
    Bring(before_.Variables[i], own_.Variables[i], store.Variables[i]);
  }
  Bring(before_.Acc, own_.Acc, store.Acc);
}

bool CalcRun::Start(std::unique_ptr<CalcWork> work, CalcTask task, const Text& line) {
  work_ = std::move(work);
  task_ = task;
  line_ = line;
  return work_->Advance(kStepsAtOnce);
}

bool CalcRun::Continue() { return work_ != nullptr && work_->Advance(kStepsAPiece); }

CalcRun::Ended CalcRun::Take() {
  return {std::move(work_), std::exchange(task_, CalcTask::kNone), std::exchange(line_, {})};
}

}  // namespace pnl
