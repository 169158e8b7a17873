// SPDX-License-Identifier: MIT
// Reads any bytes as a drive file. Whatever they are, each value makes sense, and a file with these values reads the
// same.
#include "places/drive_file.h"

#include "fuzz_check.h"

namespace {

using pnl::DriveDescription;
using pnl::DriveSetup;
using pnl::Text;
using pnl::ToUtf8;

std::string Letters(pnl::DriveMask mask) {
  std::string letters;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((mask & pnl::DriveBit(static_cast<unsigned char>(letter))) != 0) letters += letter;
  }
  return letters;
}

std::string Written(const DriveSetup& setup) {
  constexpr const char* kTypes[] = {"removable", "fixed", "network", "cd"};
  std::string file;
  for (const auto& [letter, drive] : setup.drives) {
    file += std::string("[") + letter + "]\nType=" + kTypes[drive.type - 2] + "\nFolder=" + drive.folder + "\n";
    file += "Remote=" + ToUtf8(drive.remote) + "\n";
    if (drive.label) file += "Label=" + ToUtf8(*drive.label) + "\n";
  }
  return file + "[DRIVES]\nHidden=" + Letters(setup.hidden) + "\nRemembered=" + Letters(setup.remembered) +
         "\nLocked=" + Letters(setup.locked) + "\nCurrent=" + setup.current + "\n";
}

void CheckDrive(char letter, const DriveDescription& drive) {
  FUZZ_CHECK(letter >= 'A' && letter <= 'Z');
  FUZZ_CHECK(drive.type >= pnl::drive_type::kRemovable && drive.type <= pnl::drive_type::kCd);
  FUZZ_CHECK(drive.folder.empty() || drive.folder[0] == '/');
  FUZZ_CHECK(drive.folder.find('\0') == std::string::npos);
  FUZZ_CHECK(drive.remote.empty() || drive.remote.substr(0, 2) == u"\\\\");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const DriveSetup setup = pnl::ParseDriveFile({reinterpret_cast<const char*>(data), size});
  for (const auto& [letter, drive] : setup.drives) CheckDrive(letter, drive);
  FUZZ_CHECK((setup.hidden | setup.remembered | setup.locked) < 1u << 26);
  FUZZ_CHECK(setup.current >= 'A' && setup.current <= 'Z');
  const std::string written = Written(setup);
  FUZZ_CHECK(Written(pnl::ParseDriveFile(written)) == written);
  return 0;
}
