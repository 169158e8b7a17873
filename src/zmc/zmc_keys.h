// SPDX-License-Identifier: MIT
// What a key does on the main tab, by the control that has the focus and its state: first what the tab does, then
// whether the focus moves, the tool closes, or the control gets the key. Knows no
// window and changes nothing; the order in which the focus moves is in zmc/logic/zmc_focus.h.
#pragma once

#include "zmc/zmc_ids.h"
#include "zmc/zmc_view.h"

namespace pnl {

enum class ZmcKey { kTab, kBackTab, kUp, kDown, kLeft, kRight, kHome, kEnd, kEnter, kSpace, kInsert, kEscape };

/// Kinds of controls that differ in their keys.
enum class ZmcPlaceKind { kNone, kGrid, kDataField, kListBox, kToolBox, kTextLine, kOther };

struct ZmcKeyPlace {
  ZmcPlaceKind kind = ZmcPlaceKind::kNone;
  bool open = false;        // a list that is open; an edit that is open in a cell or data field; a line in edit mode
  bool toolEdited = false;  // somebody has typed in the tool box
  bool lineEdit = false;    // one of the text lines is in edit mode, wherever the focus is
  ZmcCell cell;             // of a grid
  ZmcCell firstCell{1, 1};  // where the grid is entered
};

enum class ZmcKeyStep {
  kNothing,
  kCommitCell,
  kBeginCell,
  kFirstCellOfRow,
  kLastCellOfRow,
  kResetTool,
  kTakeTool,
  kToggleLine,
  kBlankLine,
  kRestoreLine,
  kOpenList,
  kCloseList,
  kAcceptItem,
  kPreviousItem,
  kNextItem,
  kInsertBlock,
};

/// What follows: the tab keeps the key, the control gets it, the focus moves, or the tool closes.
enum class ZmcKeyEnd { kDone, kControl, kForward, kBackward, kClose };

struct ZmcKeyAnswer {
  ZmcKeyStep step = ZmcKeyStep::kNothing;
  ZmcKeyEnd end = ZmcKeyEnd::kDone;
  friend bool operator==(const ZmcKeyAnswer&, const ZmcKeyAnswer&) = default;
};

[[nodiscard]] ZmcKeyAnswer AnswerToKey(ZmcKey key, const ZmcKeyPlace& place);

}  // namespace pnl
