// SPDX-License-Identifier: MIT
#include "calc/calc_settings.h"

#include <algorithm>

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
// What a window system takes; further out nothing could be seen, and sums would overflow.
constexpr int kFarthest = 32767;

Text PathIn(Utilities& utilities, int pathId) { return Format(u"%s\\Calc7340.ini", utilities.Get7340Path(pathId)); }

int Coordinate(Text& text) { return std::clamp(GetIntData(text, u','), -kFarthest, kFarthest); }

void Write(Files& files, const Text& path, const CalcSettings& settings) {
  CIniFile ini(files);
  // Without a file the object is empty; one that can't be read is refused by WriteIniFile.
  static_cast<void>(ini.ReadIniFile(path));
  ini.WriteString(kSection, kWindow, Format(u"%d,%d", settings.left, settings.top));
  ini.WriteString(kSection, kMinimized, settings.minimized ? u"YES" : u"NO");
  static_cast<void>(ini.WriteIniFile(path));
}

}  // namespace

CalcSettings LoadCalcSettings(Files& files, Utilities& utilities) {
  const bool tryUsers = utilities.UTIL7340_DriveStatus(kUsersDrive) == kUsable;
  Text path = PathIn(utilities, path_id::kUserSettings);
  if (!tryUsers || !files.Query(path).exists) path = PathIn(utilities, path_id::kSetup);
  CalcSettings settings;
  CIniFile ini(files);
  if (!ini.ReadIniFile(path)) return settings;
  Text window = ini.ReadString(kSection, kWindow, u"0,0");
  settings.left = Coordinate(window);
  settings.top = Coordinate(window);
  // Here "1" doesn't mean yes, as it does elsewhere.
  settings.minimized = EqualNoCase(ini.ReadString(kSection, kMinimized, u"NO"), u"YES");
  return settings;
}

void SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings) {
  // Any status but this one lets the copy be written, although loading asks for more.
  if (utilities.UTIL7340_DriveStatus(kUsersDrive) != kNotWritable) {
    Write(files, PathIn(utilities, path_id::kUserSettings), settings);
  }
  Write(files, PathIn(utilities, path_id::kSetup), settings);
}

}  // namespace pnl
