// SPDX-License-Identifier: MIT
#include "panel/shift/qt/shift_steps.h"

namespace panel::shift {

std::vector<ShiftStep> Shift() {
  std::vector<ShiftStep> all;
  for (const auto part :
       {&ProgramSteps, &BlockSteps, &CalculatorSteps, &ListSteps, &ErrorSteps, &ShareSteps, &MachiningSteps}) {
    const std::vector<ShiftStep> some = part();
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

QString Play(const ShiftStep& step, Hands& hands) {
  try {
    step.run(hands);
    return {};
  } catch (const Stuck& stuck) {
    return QString::fromLatin1(step.name) + QStringLiteral(": ") + QString::fromStdString(stuck.what());
  }
}

}  // namespace panel::shift
