// SPDX-License-Identifier: MIT
#include "facade/mill/machine_modal.h"

#include "base/format.h"
#include "facade/mill/machine_tools.h"

namespace pnl::sim {

namespace {
constexpr int kLengthOn = 43;
constexpr int kInchCode = 20;
constexpr std::size_t kToolAxis = 2;
}  // namespace

Modal StartModal(Measure measure) {
  Modal start;
  if (measure == Measure::kInches) start.units = kInchCode;
  return start;
}

Point WorkOffset(const Modal& modal, int tool) {
  Point offset = OffsetOf(modal.offset);
  if (modal.length == kLengthOn) offset[kToolAxis] += ToolOf(tool).length;
  return offset;
}

Text GCodes(const Modal& modal) {
  Text codes = Format(u"G%02d G%02d G%02d G%02d", modal.motion, modal.plane, modal.units, modal.radius);
  if (modal.length == kLengthOn) codes += Format(u" G%02d", modal.length);
  return codes + Format(u" G%02d G%02d G%02d G%02d", modal.offset, modal.distance, modal.feedMode, modal.speedMode);
}

Text FrameOf(const Modal& modal) { return Format(u"G%02d", modal.offset); }

}  // namespace pnl::sim
