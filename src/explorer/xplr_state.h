// SPDX-License-Identifier: MIT
// The state of the explorer that its frame, tree, list, name field and dialogs share: what was asked for, where the
// operator is, what is chosen. Made anew at each opening. Asks no disc; whatever needs the folders is elsewhere.
#pragma once

#include <pnltools/pnltools.h>

#include <cstdint>

#include "explorer/xplr_ids.h"
#include "facade/utilities.h"
#include "facade/variables.h"
#include "places/places.h"
#include "window/window.h"

namespace pnl {

/// Which panes are shown.
enum class LayoutMode { kNone = 0, kListOnly = 1, kTreeAndList = 2, kPinnedList = 3 };

/// Bits of XplrState::ResultFlags. With any of them the name field gets the first focus.
namespace xplr_result {
inline constexpr std::uint32_t kElsewhere = 1;  // the tree ended somewhere else than the start folder
inline constexpr std::uint32_t kNoSuchRow = 2;  // the requested file isn't in the list
}  // namespace xplr_result

struct XplrState {
  std::int32_t Owner = -1;
  std::uint32_t Flags = XPLR_MUSTEXIST | XPLR_LISTONLY;
  Text Title;
  Text Path;  // the present folder, without a trailing backslash
  Text File;  // the present name, also that of a child folder that is to be opened
  Text Filter;
  Text DefaultExtension;  // without its point; "*" is none
  std::uint32_t ResultFlags = 0;
  NodeKind Kind = NodeKind::kFolder;  // of the selected node
  LayoutMode Layout = LayoutMode::kNone;
  // At most one of the two is open; 0 for none.
  WindowHandle FindDialog = 0;
  WindowHandle FolderDialog = 0;

  [[nodiscard]] bool Has(std::uint32_t flag) const { return (Flags & flag) != 0; }
  [[nodiscard]] bool IsFolderMode() const { return Has(XPLR_FOLDERMODE); }
  [[nodiscard]] bool HasDialog() const { return FindDialog != 0 || FolderDialog != 0; }
  /// What the caption shows: " title = name", or " title = " without a name. At most 520 characters.
  [[nodiscard]] Text Caption(TextView name) const;
};

/// True for a node in which something can be picked. The root of a CD can't, though its folders can.
[[nodiscard]] bool IsAcceptedPlace(NodeKind kind);

/// What a drive's letter says about a path, before anybody asks the drive.
enum class DriveState { kAbsent = -1, kNetworkPath = 0, kHidden = 1, kLocked = 2, kUsable = 3 };
/// Looks at the first character of the path. An empty path counts as a network path. Drive Z always counts as absent,
/// because only A to Y are looked for.
[[nodiscard]] DriveState StateOfDrive(TextView path, const Places& places);

/// The state of an explorer that begins. title is the text that a request may replace. Without a request it only lists,
/// and hands nothing back. LoadPinnedFolder and the folder of last resort (FinishStart) come after it.
[[nodiscard]] XplrState StartState(const XPLRDATA_ST* request, Text title);
/// Replaces Path by the safe folder when its drive is absent, hidden, or locked and the request hides locked drives.
void SanitizeStartFolder(XplrState& state, const Places& places, Utilities& utilities);
/// Gives an empty path the default folder and an empty filter "*".
void FinishStart(XplrState& state, Utilities& utilities);

/// The number of the request in "E.XPLRDATA"; 0 when there is none. Its record is there until its owner withdraws it.
[[nodiscard]] std::int32_t RequestNumber(Variables& variables);
/// The record of a request; null when it was withdrawn.
[[nodiscard]] XPLRDATA_ST* RequestOf(std::int32_t number);
/// Hands the choice back. path loses one trailing backslash.
void AnswerRequest(XPLRDATA_ST& request, TextView path, TextView name);

}  // namespace pnl
