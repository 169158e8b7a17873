// SPDX-License-Identifier: MIT
// Reads any bytes as blocks, one a line. Each block must be refused at a place inside it, or planned so that the axes
// stay inside their travel and every step has a finite time.
#include <algorithm>
#include <cmath>

#include "facade/mill/machine_plan.h"
#include "fuzz_check.h"

namespace {

using namespace pnl::sim;

void CheckFault(const Fault& fault, pnl::TextView block) {
  FUZZ_CHECK(fault.begin <= block.size() && fault.length <= block.size() - fault.begin);
  const pnl::ErrorRecord record = MakeErrorRecord(fault, block, MachineLanguage::kSpanish);
  FUZZ_CHECK(record.Get<std::int32_t>(pnl::error_field::kNumber.offset) == FaultNumber(fault.code));
}

void RunStep(const Step& step, Condition& condition) {
  FUZZ_CHECK(std::isfinite(step.duration) && step.duration >= 0);
  if (step.functions.tool) condition.tool = *step.functions.tool;
  if (step.functions.spindle) condition.spindle = *step.functions.spindle;
  if (step.kind != Step::Kind::kMove) return;
  for (int part = 0; part <= 8; ++part) {
    const Point point = step.path.At(part / 8.0);
    for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
      FUZZ_CHECK(point[axis] >= kAxes[axis].low - kArcTolerance && point[axis] <= kAxes[axis].high + kArcTolerance);
    }
  }
  condition.position = step.path.to;
}

void RunBlock(pnl::TextView text, Condition& condition) {
  const auto block = ParseBlock(text);
  if (const Fault* fault = std::get_if<Fault>(&block)) return CheckFault(*fault, text);
  (void)Print(std::get<Block>(block));
  const auto request = ReadRequest(std::get<Block>(block));
  if (const Fault* fault = std::get_if<Fault>(&request)) return CheckFault(*fault, text);
  (void)Print(std::get<Request>(request));
  const auto plan = PlanBlock(std::get<Request>(request), condition);
  if (const Fault* fault = std::get_if<Fault>(&plan)) return CheckFault(*fault, text);
  (void)Print(std::get<Plan>(plan));
  condition.modal = std::get<Plan>(plan).after;
  for (const Step& step : std::get<Plan>(plan).steps) RunStep(step, condition);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const pnl::Text text = pnl::DecodeFile({reinterpret_cast<const char*>(data), size});
  Condition condition;
  pnl::TextView rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(u'\n'), rest.size());
    RunBlock(rest.substr(0, end), condition);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return 0;
}
