// SPDX-License-Identifier: MIT
#include "places/drive_file.h"

#include <algorithm>

#include "base/ini_file.h"

namespace pnl {
namespace {

/// Stands for an absent key: no value of an ini file contains a line break.
constexpr TextView kAbsent = u"\n";
constexpr TextView kCommon = u"DRIVES";
constexpr std::uint64_t kMostBytes = 1u << 20;

struct TypeName {
  TextView name;
  int type;
};

constexpr TypeName kTypes[] = {
    {u"removable", drive_type::kRemovable},
    {u"fixed", drive_type::kFixed},
    {u"network", drive_type::kNetwork},
    {u"cd", drive_type::kCd},
};

DriveMask ReadLetters(CIniFile& ini, TextView key) {
  DriveMask mask = 0;
  for (const char16_t letter : ini.ReadString(kCommon, key, u"")) mask |= DriveBit(letter);
  return mask;
}

char ReadCurrent(CIniFile& ini) {
  const Text value = ToUpper(ini.ReadString(kCommon, u"Current", u""));
  const bool isLetter = value.size() == 1 || (value.size() == 2 && value[1] == u':');
  return isLetter && DriveBit(value[0]) != 0 ? static_cast<char>(value[0]) : DriveSetup{}.current;
}

int ReadType(CIniFile& ini, TextView section) {
  const Text& value = ini.ReadString(section, u"Type", u"");
  const auto row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                [&](const TypeName& each) { return EqualNoCase(each.name, value); });
  return row != std::end(kTypes) ? row->type : DriveDescription{}.type;
}

DriveDescription ReadDescription(CIniFile& ini, TextView section) {
  DriveDescription drive;
  const Text& folder = ini.ReadString(section, u"Folder", u"");
  if (!folder.empty() && folder[0] == u'/' && folder.find(u'\0') == Text::npos) drive.folder = ToUtf8(folder);
  drive.type = ReadType(ini, section);
  const Text& label = ini.ReadString(section, u"Label", kAbsent);
  if (label != kAbsent) drive.label = label;
  const Text& remote = ini.ReadString(section, u"Remote", u"");
  if (remote.substr(0, 2) == u"\\\\") drive.remote = remote;
  return drive;
}

}  // namespace

DriveSetup ParseDriveFile(std::string_view bytes) {
  const DriveMap none;
  DiscFiles files(none);
  CIniFile ini(files);
  ini.Parse(bytes);
  DriveSetup setup;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const Text section(1, static_cast<char16_t>(letter));
    if (!ini.GetKeyNames(section).empty()) setup.drives[letter] = ReadDescription(ini, section);
  }
  setup.hidden = ReadLetters(ini, u"Hidden");
  setup.remembered = ReadLetters(ini, u"Remembered");
  setup.locked = ReadLetters(ini, u"Locked");
  setup.current = ReadCurrent(ini);
  return setup;
}

std::optional<DriveSetup> ReadDriveFile(const char* hostPath) {
  if (hostPath == nullptr) return std::nullopt;
  const auto bytes = ReadHostFile(hostPath, kMostBytes);
  if (!bytes) return std::nullopt;
  return ParseDriveFile(*bytes);
}

}  // namespace pnl
