// SPDX-License-Identifier: MIT
#include "explorer/xplr_state.h"

#include "base/format.h"
#include "host/records.h"

namespace pnl {
namespace {

constexpr std::size_t kLongestCaption = 520;
constexpr TextView kAllFiles = u"*";
constexpr TextView kAllFilesOfFolderMode = u"*.*";

TextView WithoutLeadingBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  return first == TextView::npos ? TextView() : text.substr(first);
}

TextView WithoutTrailingBackslash(TextView path) {
  return path.ends_with(u'\\') ? path.substr(0, path.size() - 1) : path;
}

}  // namespace

Text XplrState::Caption(TextView name) const { return Format(u" %s = %s", Title, name).substr(0, kLongestCaption); }

bool IsAcceptedPlace(NodeKind kind) {
  return kind == NodeKind::kRemovable || kind == NodeKind::kFixed || kind == NodeKind::kNetwork ||
         kind == NodeKind::kFolder;
}

DriveState StateOfDrive(TextView path, const Places& places) {
  const char16_t letter = path.empty() ? u'\\' : ToUpper(path.front());
  if (letter == u'\\') return DriveState::kNetworkPath;
  const DriveMask bit = letter == u'Z' ? 0 : DriveBit(letter);
  if ((places.LogicalDrives() & bit) == 0) return DriveState::kAbsent;
  if ((places.HiddenDrives() & bit) != 0) return DriveState::kHidden;
  if ((places.LockedDrives() & bit) != 0) return DriveState::kLocked;
  return DriveState::kUsable;
}

XplrState StartState(const XPLRDATA_ST* request, Text title) {
  XplrState state;
  state.Title = std::move(title);
  if (request == nullptr) return state;
  state.Owner = request->Owner;
  if (Text own = FieldText(request->Title); !own.empty()) state.Title = std::move(own);
  state.Path = WithoutTrailingBackslash(WithoutLeadingBlanks(FieldText(request->Path)));
  state.File = FieldText(request->File);
  state.Flags = request->Flags;
  if (state.IsFolderMode()) {
    state.Filter = kAllFilesOfFolderMode;
  } else {
    state.Filter = WithoutLeadingBlanks(FieldText(request->Filter));
    state.DefaultExtension = FieldText(request->Extension);
  }
  return state;
}

void SanitizeStartFolder(XplrState& state, const Places& places, Utilities& utilities) {
  const DriveState drive = StateOfDrive(state.Path, places);
  if (drive == DriveState::kAbsent || drive == DriveState::kHidden ||
      (drive == DriveState::kLocked && state.Has(XPLR_HIDELOCKED))) {
    state.Path = utilities.Get7340Path(path_id::kExplorerSafe);
  }
}

void FinishStart(XplrState& state, Utilities& utilities) {
  if (state.Path.empty()) state.Path = utilities.Get7340Path(path_id::kExplorerStart);
  if (state.Filter.empty()) state.Filter = kAllFiles;
}

std::int32_t RequestNumber(Variables& variables) {
  const ZCVariable variable(variables, u"E.XPLRDATA");
  std::int32_t number = 0;
  return variable.IsValid() && variable.ReadInt(number) == 0 ? number : 0;
}

XPLRDATA_ST* RequestOf(std::int32_t number) { return static_cast<XPLRDATA_ST*>(ResolveRecord(number)); }

void AnswerRequest(XPLRDATA_ST& request, TextView path, TextView name) {
  SetField(request.Path, WithoutTrailingBackslash(path));
  SetField(request.File, name);
}

}  // namespace pnl
