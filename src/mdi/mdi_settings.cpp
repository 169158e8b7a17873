// SPDX-License-Identifier: MIT
#include "mdi/mdi_settings.h"

#include <algorithm>
#include <utility>

#include "base/format.h"

namespace pnl {

namespace {

constexpr TextView kFileName = kMdiIniName;
constexpr TextView kSection = u"PRIVATE";
constexpr std::int32_t kDefaultItems = 10;
constexpr std::int32_t kAbsent = -1;
constexpr TextView kAbsentText = u"FAIL";

struct ColorKey {
  TextView key;
  TextView fallback;
  std::uint32_t MdiColors::*member;
};

// Not a mistake: the default of the focused text is white here, although the built-in colour is black.
constexpr ColorKey kColorKeys[] = {
    {u"RGB_Bkgnd", u"60 100 120", &MdiColors::back},
    {u"RGB_BkgndFocus", u"151 191 211", &MdiColors::backFocus},
    {u"RGB_BkgndRunning", u"115 165 0", &MdiColors::backRunning},
    {u"RGB_Text", u"255 255 255", &MdiColors::text},
    {u"RGB_TextFocus", u"255 255 255", &MdiColors::textFocus},
    {u"RGB_TextRunning", u"0 0 0", &MdiColors::textRunning},
    {u"RGB_Bkgnd_List", u"60 100 120", &MdiColors::backList},
    {u"RGB_Text_List", u"255 255 255", &MdiColors::textList},
};

}  // namespace

Text MdiFileIn(Utilities& utilities, int pathId, TextView name) {
  return Format(u"%s\\%s", utilities.Get7340Path(pathId), name);
}

Text MdiFileToRead(const Files& files, Utilities& utilities, TextView name) {
  Text users = MdiFileIn(utilities, path_id::kUserSettings, name);
  return files.Query(users).exists ? users : MdiFileIn(utilities, path_id::kSetup, name);
}

MdiSettings::MdiSettings(Files& files, Utilities& utilities) : files_(files), utilities_(utilities), own_(files) {}

Text MdiSettings::PathIn(int pathId) const { return MdiFileIn(utilities_, pathId, kFileName); }

bool MdiSettings::Read(CIniFile& ini, const Text& path) const {
  if (ini.ReadIniFile(path)) return true;
  const FileInfo info = files_.Query(path);
  return !info.exists && !info.outOfReach;
}

void MdiSettings::Open() {
  const Text users = PathIn(path_id::kUserSettings);
  const FileInfo info = files_.Query(users);
  const bool usersRead = info.exists && own_.ReadIniFile(users);
  usersUnknown_ = !usersRead && (info.exists || info.outOfReach);
  if (!info.exists) static_cast<void>(own_.ReadIniFile(PathIn(path_id::kSetup)));
  ReadSettings();
  read_ = Now();
}

bool MdiSettings::CatchUp() {
  const Text users = PathIn(path_id::kUserSettings);
  const FileInfo info = files_.Query(users);
  if (info.outOfReach) return false;
  usersUnknown_ = false;
  // If it doesn't exist, the session's contents become the user's copy.
  if (!info.exists) return true;
  CIniFile found(files_);
  if (!found.ReadIniFile(users)) {
    usersUnknown_ = true;
    return false;
  }
  own_ = std::move(found);
  const Kept session = Now();
  ReadSettings();
  if (session.dir != read_.dir) Dir = session.dir;
  if (session.fullLength != read_.fullLength) FullLength = session.fullLength;
  if (session.below != read_.below) Below = session.below;
  return true;
}

void MdiSettings::ReadSettings() {
  const Text dir = own_.ReadString(kSection, u"Dir", kAbsentText);
  if (dir != kAbsentText) Dir = dir;
  FullLength = own_.ReadBool(kSection, u"FullLength", true);
  Below = own_.ReadBool(kSection, u"Below", true);
  ReadColors();
}

void MdiSettings::ReadColors() {
  CIniFile machine(files_);
  Read(machine, PathIn(path_id::kSetup));
  // Only "1" and "YES" switch the colours on. "TRUE" doesn't.
  if (!machine.ReadBool(kSection, u"CustomColors", false)) return;
  for (const ColorKey& entry : kColorKeys) {
    colors.*entry.member = AsciiToColorref(machine.ReadString(kSection, entry.key, entry.fallback));
  }
}

std::int32_t MdiSettings::HistoryLimit() {
  std::int32_t items = own_.ReadInt(kSection, u"NItems", kAbsent);
  if (items == kAbsent) {
    items = kDefaultItems;
    own_.WriteInt(kSection, u"NItems", items);
  }
  return std::max(items, 0);
}

void MdiSettings::WriteKeys(CIniFile& ini) const {
  ini.WriteString(kSection, u"Dir", Dir);
  ini.WriteBool(kSection, u"FullLength", FullLength);
  ini.WriteBool(kSection, u"Below", Below);
}

bool MdiSettings::SaveSettings() {
  const bool mayWrite = !usersUnknown_ || CatchUp();
  CIniFile machine(files_);
  const Text machinePath = PathIn(path_id::kSetup);
  if (Read(machine, machinePath)) {
    WriteKeys(machine);
    static_cast<void>(machine.WriteIniFile(machinePath));
  }
  WriteKeys(own_);
  return mayWrite && own_.WriteIniFile(PathIn(path_id::kUserSettings));
}

}  // namespace pnl
