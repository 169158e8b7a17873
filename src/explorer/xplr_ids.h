// SPDX-License-Identifier: MIT
// The numbers of the explorer: controls, texts, menu commands, dialogs, bitmaps, kinds of nodes, flags of rows and
// outcomes. Scripts and language packs use them too.
#pragma once

#include <cstdint>

namespace pnl {

namespace xplr_control {
inline constexpr int kCaption = 1101;
inline constexpr int kFilter = 1102;
inline constexpr int kFolder = 1103;
inline constexpr int kLabel = 1104;
inline constexpr int kName = 1105;
inline constexpr int kTree = 1106;
inline constexpr int kList = 1107;
inline constexpr int kFindText = 1202;  // in both dialogs
}  // namespace xplr_control

namespace xplr_text {
inline constexpr int kTitle = 11;
inline constexpr int kConfirmOverwrite = 12;  // of the name
inline constexpr int kColumnName = 13;
inline constexpr int kColumnSize = 14;
inline constexpr int kColumnDate = 15;
inline constexpr int kNext = 16;
inline constexpr int kPrevious = 17;
inline constexpr int kFind = 18;
inline constexpr int kNotFound = 19;  // of the text
inline constexpr int kOnlyOne = 20;   // of the text
inline constexpr int kFindHint = 23;
inline constexpr int kNoAccess = 26;
inline constexpr int kNoConnection = 27;
inline constexpr int kNoFolder = 28;
inline constexpr int kNoName = 29;
inline constexpr int kNotInFilter = 30;  // of the filter
inline constexpr int kNoFile = 31;
inline constexpr int kNotReady = 32;
inline constexpr int kReadOnly = 33;
inline constexpr int kUnavailable = 34;
inline constexpr int kBlankInName = 35;
inline constexpr int kFileLabel = 36;
inline constexpr int kFolderLabel = 37;
inline constexpr int kFindFolder = 40;
}  // namespace xplr_text

namespace xplr_command {
inline constexpr int kSortByName = 32770;
inline constexpr int kSortBySize = 32771;
inline constexpr int kSortByDate = 32772;
inline constexpr int kSortByExtension = 32773;
inline constexpr int kFind = 32774;
inline constexpr int kFindFolder = 32775;
inline constexpr int kMoveToTree = 32777;
inline constexpr int kMoveToList = 32778;
inline constexpr int kMoveToField = 32779;
inline constexpr int kRefresh = 32790;
inline constexpr int kTogglePin = 32791;
inline constexpr int kNext = 32900;
inline constexpr int kPrevious = 32901;
}  // namespace xplr_command

/// Dialog templates. A language pack has dialogs by number only, so the two that have names have numbers of their own.
namespace xplr_dialog {
inline constexpr int kForm = 3021;
inline constexpr int kFind = 3022;        // "IDD_XPLR_FILE_FIND"
inline constexpr int kFindFolder = 3023;  // "IDD_XPLR_FIND_FOLDER"
}  // namespace xplr_dialog

namespace xplr_bitmap {
inline constexpr int kIcons = 370;  // icons of 16 by 16 side by side
inline constexpr int kIconSide = 16;
inline constexpr int kIconCount = 13;
inline constexpr int kPinned = 371;
inline constexpr int kRefresh = 372;
inline constexpr int kNotPinned = 373;
inline constexpr int kToTree = 374;
inline constexpr int kToList = 375;
inline constexpr int kToField = 376;
}  // namespace xplr_bitmap

/// What a node of the tree represents. kRemovable, kFixed, kNetwork and kCd are the drive types of the same number.
enum class NodeKind : std::int32_t {
  kNone = 0,
  kRemovable = 2,
  kFixed = 3,
  kNetwork = 4,  // a network drive, or a folder that a connected share leads to
  kCd = 5,
  kNetworkRoot = 10,
  kProvider = 11,
  kDomain = 12,
  kServer = 13,
  kFolder = 14,
  kUnavailable = 100
};

/// The flags of a row of the list.
namespace item_flag {
inline constexpr std::uint16_t kSelectable = 1;
inline constexpr std::uint16_t kFolder = 16;
}  // namespace item_flag

/// What is found out about a folder or a name.
enum class Outcome {
  kNoAccess = 0,
  kNoConnection = 1,
  kFolderUsable = 2,
  kFolderNotFound = 3,
  kNameAcceptable = 4,
  kNoExtension = 5,
  kEmptyName = 6,
  kNotInFilter = 7,
  kFileNotFound = 8,
  kNotReady = 10,
  kReadOnly = 11,
  kBlankInName = 12
};

/// What the list is filled with.
enum class ListMode { kFolder = 0, kShares = 1, kNothing = 2 };

}  // namespace pnl
