// SPDX-License-Identifier: MIT
#include "zmc/zmc_keys.h"

namespace pnl {
namespace {

using Kind = ZmcPlaceKind;
using Step = ZmcKeyStep;
using End = ZmcKeyEnd;

constexpr int kLastRow = 4;
constexpr int kLastColumn = 3;

ZmcKeyAnswer OnTab(const ZmcKeyPlace& place, bool forward) {
  const End end = forward ? End::kForward : End::kBackward;
  if (place.kind == Kind::kGrid) {
    if (place.open) return {Step::kCommitCell, End::kDone};
    const ZmcCell edge = forward ? ZmcCell{kLastRow, kLastColumn} : ZmcCell{1, 1};
    const bool atFirst = !forward && place.cell == place.firstCell;
    return {Step::kNothing, place.cell == edge || atFirst ? end : End::kControl};
  }
  if (place.kind == Kind::kToolBox && place.toolEdited) return {Step::kResetTool, end};
  if (place.kind == Kind::kTextLine && place.open) return {Step::kRestoreLine, end};
  return {Step::kNothing, end};
}

bool LeavesGrid(ZmcKey key, ZmcCell cell) {
  switch (key) {
    case ZmcKey::kDown:
      return cell.row >= kLastRow;
    case ZmcKey::kRight:
      return cell.col >= kLastColumn;
    case ZmcKey::kUp:
      return cell.row <= 1;
    default:
      return cell.col <= 1;
  }
}

ZmcKeyAnswer OnArrow(ZmcKey key, const ZmcKeyPlace& place) {
  const bool forward = key == ZmcKey::kRight || key == ZmcKey::kDown;
  const bool sideways = key == ZmcKey::kLeft || key == ZmcKey::kRight;
  const End move = forward ? End::kForward : End::kBackward;
  switch (place.kind) {
    case Kind::kDataField:
      return {Step::kNothing, place.open ? End::kControl : move};
    case Kind::kGrid:
      return {Step::kNothing, place.open || !LeavesGrid(key, place.cell) ? End::kControl : move};
    case Kind::kListBox:
    case Kind::kToolBox:
      if (place.open) return {forward ? Step::kNextItem : Step::kPreviousItem, End::kDone};
      // The caret moves in a text that is being typed.
      return {Step::kNothing, place.toolEdited && sideways && place.kind == Kind::kToolBox ? End::kControl : move};
    case Kind::kTextLine:
      return {Step::kNothing, place.open && sideways ? End::kControl : move};
    default:
      return {Step::kNothing, move};
  }
}

ZmcKeyAnswer OnEnter(const ZmcKeyPlace& place) {
  switch (place.kind) {
    case Kind::kTextLine:
      return {Step::kToggleLine, End::kDone};
    case Kind::kToolBox:
      return {place.open ? Step::kAcceptItem : Step::kTakeTool, End::kDone};
    case Kind::kGrid:
      return {place.open ? Step::kCommitCell : Step::kBeginCell, End::kDone};
    case Kind::kListBox:
      return {place.open ? Step::kAcceptItem : Step::kNothing, End::kForward};
    default:
      return {Step::kNothing, End::kForward};
  }
}

ZmcKeyAnswer OnSpace(const ZmcKeyPlace& place) {
  const bool list = place.kind == Kind::kListBox || place.kind == Kind::kToolBox;
  if (list && !place.open) return {Step::kOpenList, End::kDone};
  if (place.kind == Kind::kTextLine && !place.open) return {Step::kBlankLine, End::kDone};
  return {Step::kNothing, End::kControl};
}

ZmcKeyAnswer OnEscape(const ZmcKeyPlace& place) {
  switch (place.kind) {
    case Kind::kDataField:
    case Kind::kGrid:
      if (place.open) return {Step::kNothing, End::kControl};
      break;
    case Kind::kListBox:
      if (place.open) return {Step::kCloseList, End::kDone};
      break;
    case Kind::kToolBox:
      return {Step::kResetTool, End::kDone};
    case Kind::kTextLine:
      if (place.open) return {Step::kRestoreLine, End::kDone};
      break;
    default:
      break;
  }
  return {Step::kNothing, End::kClose};
}

}  // namespace

ZmcKeyAnswer AnswerToKey(ZmcKey key, const ZmcKeyPlace& place) {
  switch (key) {
    case ZmcKey::kTab:
    case ZmcKey::kBackTab:
      return OnTab(place, key == ZmcKey::kTab);
    case ZmcKey::kUp:
    case ZmcKey::kDown:
    case ZmcKey::kLeft:
    case ZmcKey::kRight:
      return OnArrow(key, place);
    case ZmcKey::kHome:
      return place.kind == Kind::kGrid && !place.open ? ZmcKeyAnswer{Step::kFirstCellOfRow, End::kDone}
                                                      : ZmcKeyAnswer{Step::kNothing, End::kControl};
    case ZmcKey::kEnd:
      return place.kind == Kind::kGrid && !place.open ? ZmcKeyAnswer{Step::kLastCellOfRow, End::kDone}
                                                      : ZmcKeyAnswer{Step::kNothing, End::kControl};
    case ZmcKey::kEnter:
      return OnEnter(place);
    case ZmcKey::kSpace:
      return OnSpace(place);
    case ZmcKey::kInsert:
      return place.lineEdit ? ZmcKeyAnswer{Step::kNothing, End::kControl}
                            : ZmcKeyAnswer{Step::kInsertBlock, End::kDone};
    case ZmcKey::kEscape:
      return OnEscape(place);
  }
  return {Step::kNothing, End::kControl};
}

}  // namespace pnl
