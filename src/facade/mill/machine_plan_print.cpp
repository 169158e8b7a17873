// SPDX-License-Identifier: MIT
#include "base/format.h"
#include "facade/mill/machine_plan.h"

namespace pnl::sim {

namespace {

Text PrintFunctions(const Functions& functions) {
  Text line = u"functions";
  if (functions.tool) line += Format(u" tool %d", *functions.tool);
  if (functions.spindle)
    line += Format(u" spindle %d at %.10g", functions.spindle->direction, functions.spindle->speed);
  if (functions.coolant) line += *functions.coolant ? u" coolant on" : u" coolant off";
  if (functions.programEnd) line += u" program end";
  return line;
}

Text PrintStep(const Step& step) {
  switch (step.kind) {
    case Step::Kind::kFunctions:
      return PrintFunctions(step.functions);
    case Step::Kind::kDwell:
      return Format(u"dwell %.10g ms", step.duration);
    case Step::Kind::kStop:
      return Format(u"stop M%d", step.stopCode);
    case Step::Kind::kMove:
      break;
  }
  const TextView pace = step.pace == Step::Pace::kRapid ? u"rapid" : step.path.arc ? u"arc" : u"line";
  return Format(u"%s %.6g mm %.6g ms to X%.6g Y%.6g Z%.6g", pace, step.path.Length(), step.duration, step.path.to[0],
                step.path.to[1], step.path.to[2]);
}

}  // namespace

Text Print(const Plan& plan) {
  Text text;
  for (const Step& step : plan.steps) text += PrintStep(step) + u"\n";
  return text + GCodes(plan.after);
}

}  // namespace pnl::sim
