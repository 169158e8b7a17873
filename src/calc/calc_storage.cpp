// SPDX-License-Identifier: MIT
#include "calc/calc_storage.h"

#include <pnltools/pnltools.h>

#include <algorithm>
#include <utility>

#include "base/format.h"
#include "base/ini_file.h"

namespace pnl {

namespace {

constexpr TextView kSection = u"COMMON";
constexpr TextView kWindow = u"Window";
constexpr TextView kMinimized = u"Minimized";
constexpr int kUsersDrive = 1;
constexpr int kUsable = 0;
constexpr int kNotWritable = -1;
// Window systems take no greater coordinates. With greater ones the window couldn't be seen, and sums would overflow.
constexpr int kFarthest = 32767;

Text PathIn(Utilities& utilities, int pathId) { return Format(u"%s\\%s", utilities.Get7340Path(pathId), kCalcIniName); }

int Coordinate(Text& text) { return std::clamp(GetIntData(text, u','), -kFarthest, kFarthest); }

CalcSettings SettingsIn(CIniFile& ini) {
  CalcSettings settings;
  Text window = ini.ReadString(kSection, kWindow, u"0,0");
  settings.left = Coordinate(window);
  settings.top = Coordinate(window);
  // Not a mistake: only "YES" switches this on. In other files "1" does too.
  settings.minimized = EqualNoCase(ini.ReadString(kSection, kMinimized, u"NO"), u"YES");
  return settings;
}

/// Writes the settings into one copy. kept is null, or what was loaded without this copy because it couldn't be read;
/// then only the settings that differ from it are written.
bool Write(Files& files, const Text& path, const CalcSettings& settings, const CalcSettings* kept) {
  CIniFile ini(files);
  // If the file doesn't exist, ini is empty. If it exists and can't be read, WriteIniFile fails.
  const bool there = ini.ReadIniFile(path);
  const bool compare = there && kept != nullptr;
  if (!compare || settings.left != kept->left || settings.top != kept->top) {
    ini.WriteString(kSection, kWindow, Format(u"%d,%d", settings.left, settings.top));
  }
  if (!compare || settings.minimized != kept->minimized) {
    ini.WriteString(kSection, kMinimized, settings.minimized ? u"YES" : u"NO");
  }
  return ini.WriteIniFile(path);
}

}  // namespace

// The history.

Text CalcHistory::Path() const { return Format(u"%s\\%s", utilities_.Get7340Path(path_id::kCalcHistory), kName); }

TextRows CalcHistory::Load() {
  RowsRead read = ReadRows(files_, Path());
  known_ = read.known;
  added_.clear();
  return std::move(read.rows);
}

bool CalcHistory::Save(const TextRows& rows) {
  if (rows.empty()) return true;
  const TextRows added = RowsOf(rows, added_);
  return StoreRows(files_, Path(), known_, {rows, added}) == FileStatus::kOk;
}

bool CalcHistory::StoreEarly(const TextRows& rows) {
  if (!changed_ || rows.empty()) return true;
  changed_ = !StoreRowsEarly(files_, Path(), known_, {rows, added_}, PNL_MOST_STORED_NOW);
  return !changed_;
}

// The settings.

CalcSettingsRead LoadCalcSettings(Files& files, Utilities& utilities) {
  CalcSettingsRead read;
  const Text users = PathIn(utilities, path_id::kUserSettings);
  const bool tryUsers = utilities.UTIL7340_DriveStatus(kUsersDrive) == kUsable;
  const FileInfo info = tryUsers ? files.Query(users) : FileInfo{};
  CIniFile ini(files);
  const bool usersRead = info.exists && ini.ReadIniFile(users);
  read.usersUnknown = !usersRead && (info.exists || info.outOfReach);
  if (usersRead || (!info.exists && ini.ReadIniFile(PathIn(utilities, path_id::kSetup)))) {
    read.settings = SettingsIn(ini);
  }
  return read;
}

bool SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings,
                      const CalcSettingsRead& loaded) {
  // Not a mistake: only this status forbids writing, although reading needs the status kUsable.
  const bool users = utilities.UTIL7340_DriveStatus(kUsersDrive) != kNotWritable;
  const CalcSettings* kept = loaded.usersUnknown ? &loaded.settings : nullptr;
  const bool stored = users && Write(files, PathIn(utilities, path_id::kUserSettings), settings, kept);
  const bool machines = Write(files, PathIn(utilities, path_id::kSetup), settings, nullptr);
  // The user's copy is read first, so it counts if it may be written.
  return users ? stored : machines;
}

}  // namespace pnl
