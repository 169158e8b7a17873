// SPDX-License-Identifier: MIT
// The numbers of the help viewer's dialogs, controls, menu commands and help commands. Numbers only.
#pragma once

namespace pnl {

namespace help_id {
inline constexpr int kDialog = 3002;
inline constexpr int kMissing = 1000;  // the static "File not found."
inline constexpr int kContentsTab = 1001;
inline constexpr int kIndexTab = 1002;
inline constexpr int kSearchTab = 1003;
inline constexpr int kPanesKey = 1004;  // hides and shows the panes
inline constexpr int kContents = 1010;
inline constexpr int kIndexLine = 1011;
inline constexpr int kIndexList = 1012;
inline constexpr int kSearchLine = 1013;
inline constexpr int kSearchKey = 1014;
inline constexpr int kResults = 1015;
inline constexpr int kSearchStatus = 1016;
inline constexpr int kPage = 1020;
inline constexpr int kNotice = 1021;
inline constexpr int kFindLine = 1030;
inline constexpr int kFindNext = 1031;
inline constexpr int kFindPrevious = 1032;
inline constexpr int kFindClose = 1033;

// The picker of manuals.
inline constexpr int kPicker = 3006;
inline constexpr int kPickerOk = 1;
inline constexpr int kPickerCancel = 2;
inline constexpr int kManuals = 3001;
inline constexpr int kRecent = 3002;
inline constexpr int kPickerNote = 3003;
}  // namespace help_id

namespace help_text {
inline constexpr int kTitle = 320;
inline constexpr int kContents = 321;
inline constexpr int kIndex = 322;
inline constexpr int kSearch = 323;
inline constexpr int kFound = 324;         // %d
inline constexpr int kNothingFound = 325;  // %s
inline constexpr int kIndexing = 326;
inline constexpr int kLoading = 327;   // %s
inline constexpr int kDamaged = 328;   // %s
inline constexpr int kUnusable = 329;  // %s
inline constexpr int kNoProgram = 330;
inline constexpr int kNoRoom = 331;
inline constexpr int kFallback = 332;   // %s, %s
inline constexpr int kNoPage = 333;     // %s
inline constexpr int kNotInPage = 334;  // %s
inline constexpr int kFind = 335;
inline constexpr int kManuals = 336;
inline constexpr int kRecent = 337;
inline constexpr int kOk = 338;
inline constexpr int kCancel = 339;
inline constexpr int kNoList = 340;  // %s, %d
inline constexpr int kCantSearch = 341;
inline constexpr int kNoAddress = 342;  // %s
}  // namespace help_text

}  // namespace pnl
