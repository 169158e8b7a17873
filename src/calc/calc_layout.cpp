// SPDX-License-Identifier: MIT
#include "calc/calc_layout.h"

#include "calc/calc_ids.h"

namespace pnl {

namespace {

constexpr int kStep = 8;
constexpr int kLeastVisible = 24;

}  // namespace

CalcMeasures MeasureCalc(const CalcView& view) {
  return {view.ClientRect(),
          view.ControlRect(calc_id::kLine),
          view.ControlRect(calc_id::kResult),
          view.ControlRect(calc_id::kStatus),
          view.ControlRect(calc_id::kFirstKey),
          view.ControlRect(calc_id::kAcc)};
}

int CalcClientHeight(const CalcMeasures& measures, bool compact) {
  const int bottom =
      compact ? measures.firstKey.top - 1 : measures.lastKey.bottom + (measures.lastKey.left - measures.client.left);
  return bottom - measures.client.top;
}

Rect CalcListRect(const CalcMeasures& measures, bool compact) {
  if (compact) return {measures.result.left, measures.client.top, measures.result.right, measures.line.top};
  return {measures.status.left, measures.status.bottom, measures.status.right, measures.client.bottom};
}

std::optional<CalcPlace> MoveCalc(const Rect& window, const Rect& parent, CalcDirection direction) {
  switch (direction) {
    case CalcDirection::kLeft:
      if (window.right - kStep < parent.left + kLeastVisible) break;
      return CalcPlace{window.left - kStep, window.top};
    case CalcDirection::kRight:
      if (window.left + kStep > parent.right - kLeastVisible) break;
      return CalcPlace{window.left + kStep, window.top};
    case CalcDirection::kUp:
      if (window.bottom - kStep < parent.top + kLeastVisible) break;
      return CalcPlace{window.left, window.top - kStep};
    case CalcDirection::kDown:
      if (window.top + kStep > parent.bottom - kLeastVisible) break;
      return CalcPlace{window.left, window.top + kStep};
  }
  return std::nullopt;
}

}  // namespace pnl
