// SPDX-License-Identifier: MIT
#include "calc/calc_places.h"

#include <algorithm>
#include <array>

#include "calc/calc_ids.h"

namespace pnl {
namespace {

constexpr CalcExtent kDialogExtent{188, 135};
constexpr double kNormalDensity = 96;
constexpr double kLargestDensity = 800;
constexpr double kNormalWidth = 800;
constexpr double kScaleSteps = 4;
constexpr int kNoteGap = 2;
constexpr int kStep = 8;
constexpr int kLeastVisible = 24;

// Keys are 22 by 17, in columns at 2, 59, 85, 111, 137 and 164 and in rows at 54, 75, 96 and 117. The keys that aren't
// part of the keypad are between its first two columns.
constexpr std::array kControls = {
    CalcControl{calc_id::kResult, CalcKind::kResult, u"", 2, 2, 184, 17},
    CalcControl{calc_id::kLine, CalcKind::kEdit, u"", 2, 22, 163, 16},
    CalcControl{calc_id::kOpenList, CalcKind::kKey, u"v", 167, 22, 19, 16},
    CalcControl{calc_id::kStatus, CalcKind::kStatic, u"", 2, 41, 184, 10},
    CalcControl{calc_id::kBack, CalcKind::kKey, u"<-", 2, 54, 22, 17},
    CalcControl{calc_id::kOpenBracket, CalcKind::kKey, u"(", 2, 75, 22, 17},
    CalcControl{calc_id::kCloseBracket, CalcKind::kKey, u")", 2, 96, 22, 17},
    CalcControl{calc_id::kAcc, CalcKind::kKey, u"Acc", 2, 117, 22, 17},
    CalcControl{1017, CalcKind::kKey, u"7", 59, 54, 22, 17},
    CalcControl{1018, CalcKind::kKey, u"8", 85, 54, 22, 17},
    CalcControl{1019, CalcKind::kKey, u"9", 111, 54, 22, 17},
    CalcControl{1020, CalcKind::kKey, u"/", 137, 54, 22, 17},
    CalcControl{1021, CalcKind::kKey, u"Sqrt", 164, 54, 22, 17},
    CalcControl{1022, CalcKind::kKey, u"4", 59, 75, 22, 17},
    CalcControl{1023, CalcKind::kKey, u"5", 85, 75, 22, 17},
    CalcControl{1024, CalcKind::kKey, u"6", 111, 75, 22, 17},
    CalcControl{1025, CalcKind::kKey, u"*", 137, 75, 22, 17},
    CalcControl{1026, CalcKind::kKey, u"%", 164, 75, 22, 17},
    CalcControl{1027, CalcKind::kKey, u"1", 59, 96, 22, 17},
    CalcControl{1028, CalcKind::kKey, u"2", 85, 96, 22, 17},
    CalcControl{1029, CalcKind::kKey, u"3", 111, 96, 22, 17},
    CalcControl{1030, CalcKind::kKey, u"-", 137, 96, 22, 17},
    CalcControl{1031, CalcKind::kKey, u"1/X", 164, 96, 22, 17},
    CalcControl{1032, CalcKind::kKey, u"0", 59, 117, 22, 17},
    CalcControl{1033, CalcKind::kKey, u"+/-", 85, 117, 22, 17},
    CalcControl{1034, CalcKind::kKey, u".", 111, 117, 22, 17},
    CalcControl{1035, CalcKind::kKey, u"+", 137, 117, 22, 17},
    CalcControl{1036, CalcKind::kKey, u"=", 164, 117, 22, 17},
    CalcControl{calc_id::kShowBases, CalcKind::kKey, u"Bases", 27, 54, 29, 17},
    CalcControl{calc_id::kShowVariables, CalcKind::kKey, u"Vars", 27, 75, 29, 17},
    CalcControl{calc_id::kShowSolver, CalcKind::kKey, u"Solver", 27, 96, 29, 17},
    CalcControl{calc_id::kAssign, CalcKind::kKey, u"X =", 30, 117, 22, 17},
    CalcControl{calc_id::kHistory, CalcKind::kList, u"", 2, 54, 184, 79},
    CalcControl{calc_id::kVariables, CalcKind::kList, u"", 2, 54, 184, 79},
};

}  // namespace

std::span<const CalcControl> CalcControls() { return kControls; }

CalcExtent CalcDialogUnits() { return kDialogExtent; }

CalcControl LocalizedControl(const CalcControl& control, const DialogTemplate* dialog) {
  const DialogControl* found = dialog == nullptr ? nullptr : dialog->Find(control.id);
  if (found == nullptr) return control;
  CalcControl localized = control;
  if (!found->text.empty()) localized.text = found->text;
  if (found->rect.Width() <= 0 || found->rect.Height() <= 0) return localized;
  localized.x = found->rect.left;
  localized.y = found->rect.top;
  localized.width = found->rect.Width();
  localized.height = found->rect.Height();
  return localized;
}

Rect DialogPixels(const CalcControl& control, double scale) {
  return DialogPixels({control.x, control.y, control.x + control.width, control.y + control.height}, scale);
}

double DialogScale(double dotsPerInch, const Rect& parent) {
  const bool dense = dotsPerInch > kNormalDensity && dotsPerInch <= kLargestDensity;
  const double widest = parent.Width() / 2.0 / DialogPixelsX(kDialogExtent.width, 1);
  const double highest = static_cast<double>(parent.Height()) / DialogPixelsY(kDialogExtent.height + 1, 1);
  // For a finger it may take the whole height; only to be read from farther away, half of it.
  const double forFinger = dense ? std::min({dotsPerInch / kNormalDensity, widest, highest}) : 1;
  const double forArea = std::min({parent.Width() / kNormalWidth, widest, highest / 2});
  return std::max(1.0, std::floor(std::max(forFinger, forArea) * kScaleSteps) / kScaleSteps);
}

CalcPlace CalcInSight(const Rect& window, const Rect& parent) {
  const bool seen = window.right >= parent.left + kLeastVisible && window.left <= parent.right - kLeastVisible &&
                    window.bottom >= parent.top + kLeastVisible && window.top <= parent.bottom - kLeastVisible;
  if (seen || parent.Width() <= 0 || parent.Height() <= 0) return {window.left, window.top};
  return {std::max(parent.left, std::min(window.left, parent.right - window.Width())),
          std::max(parent.top, std::min(window.top, parent.bottom - window.Height()))};
}

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

Rect CalcNoteRect(const Rect& parent, const Rect& window, CalcExtent note) {
  int top = window.bottom + kNoteGap;
  if (top + note.height > parent.bottom) top = window.top - kNoteGap - note.height;
  if (top < parent.top) top = std::max(parent.top, parent.bottom - note.height);
  const int left = std::max(parent.left, std::min(window.left, parent.right - note.width));
  return {left, top, left + note.width, top + note.height};
}

}  // namespace pnl
