// SPDX-License-Identifier: MIT
// Reads the calculator's settings from any bytes as an ini file and stores them into both copies. Read again from
// either copy they must be the same, and every other key must keep its value.
#include "base/ini_file.h"
#include "calc/calc_storage.h"
#include "fuzz_check.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace {

using pnl::CalcSettings;
using pnl::CIniFile;
using pnl::Text;

constexpr int kFarthest = 32767;

void CheckOtherKeys(CIniFile& before, CIniFile& after) {
  for (const Text& name : before.GetKeyNames(u"PRIVATE")) {
    FUZZ_CHECK(before.ReadString(u"PRIVATE", name, u"") == after.ReadString(u"PRIVATE", name, u"?"));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string users = "C:\\P108\\Calc7340.ini";
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  utilities.driveStatus = 0;
  files.disc[users] = std::string(reinterpret_cast<const char*>(data), size);

  const pnl::CalcSettingsRead loaded = pnl::LoadCalcSettings(files, utilities);
  const CalcSettings settings = loaded.settings;
  FUZZ_CHECK(settings.left >= -kFarthest && settings.left <= kFarthest);
  FUZZ_CHECK(settings.top >= -kFarthest && settings.top <= kFarthest);
  CIniFile before(files);
  before.ReadIniFile(pnl::FromUtf8(users));
  // UTF-16 can contain half a surrogate pair. It becomes U+FFFD when it is stored.
  before.Parse(before.Serialize());
  static_cast<void>(pnl::SaveCalcSettings(files, utilities, settings, loaded));
  CIniFile after(files);
  FUZZ_CHECK(after.ReadIniFile(pnl::FromUtf8(users)));
  CheckOtherKeys(before, after);

  FUZZ_CHECK(pnl::LoadCalcSettings(files, utilities).settings == settings);
  utilities.driveStatus = 1;
  FUZZ_CHECK(pnl::LoadCalcSettings(files, utilities).settings == settings);
  const std::string stored = files.disc[users];
  static_cast<void>(pnl::SaveCalcSettings(files, utilities, settings, loaded));
  FUZZ_CHECK(files.disc[users] == stored);
  return 0;
}
