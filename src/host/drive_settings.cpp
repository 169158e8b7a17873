// SPDX-License-Identifier: MIT
#include "host/drive_settings.h"

#include <string_view>

namespace pnl {

void SetStartDrives(DriveMap& drives, const char* setting, const char* dataHome, const char* home) {
  std::string_view rest = setting != nullptr ? setting : "";
  while (!rest.empty()) {
    const std::string_view part = rest.substr(0, rest.find(';'));
    rest.remove_prefix(part.size() < rest.size() ? part.size() + 1 : part.size());
    if (part.size() >= 3 && part[1] == '=' && part[2] == '/') drives.Set(part[0], std::string(part.substr(2)));
  }
  if (drives.Folder('C')) return;
  if (dataHome != nullptr && *dataHome == '/') {
    drives.Set('C', std::string(dataHome) + "/pnltools");
  } else if (home != nullptr && *home == '/') {
    drives.Set('C', std::string(home) + "/.local/share/pnltools");
  }
}

void SetDescribedDrives(DriveMap& drives, const DriveSetup& setup) {
  for (const auto& [letter, drive] : setup.drives) {
    if (!drive.folder.empty()) drives.Set(letter, drive.folder);
  }
}

}  // namespace pnl
