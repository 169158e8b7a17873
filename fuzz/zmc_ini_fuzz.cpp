// SPDX-License-Identifier: MIT
// Reads the machining calculator's settings from any bytes as "ZMC7340.ini" and stores them. Read again they must be
// the same, a second save must change nothing, and every other key must keep its value.
#include "base/ini_file.h"
#include "fuzz_check.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"
#include "zmc/logic/zmc_settings.h"

#include <algorithm>
#include <vector>

namespace {

using pnl::CIniFile;
using pnl::Text;
using pnl::ZmcSettings;

const std::string kFile = "C:\\P52\\ZMC7340.ini";

/// The keys that a new file gets.
std::vector<Text> OurKeys() {
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  ZmcSettings settings(files, utilities);
  settings.Open();
  FUZZ_CHECK(settings.Save());
  CIniFile ini(files);
  FUZZ_CHECK(ini.ReadIniFile(pnl::FromUtf8(kFile)));
  return ini.GetKeyNames(u"PRIVATE");
}

bool IsOurs(const Text& key) {
  static const std::vector<Text> ours = OurKeys();
  return std::any_of(ours.begin(), ours.end(), [&key](const Text& name) { return pnl::EqualNoCase(name, key); });
}

void CheckOtherKeys(CIniFile& before, CIniFile& after) {
  for (const pnl::TextView section : {u"PRIVATE", u"OTHER"}) {
    for (const Text& key : before.GetKeyNames(section)) {
      if (section == u"PRIVATE" && IsOurs(key)) continue;
      FUZZ_CHECK(before.ReadString(section, key, u"") == after.ReadString(section, key, u"?"));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  files.disc[kFile] = std::string(reinterpret_cast<const char*>(data), size);
  CIniFile before(files);
  before.ReadIniFile(pnl::FromUtf8(kFile));
  // UTF-16 can contain half a surrogate pair. It becomes U+FFFD when it is stored.
  before.Parse(before.Serialize());
  files.disc[kFile] = before.Serialize();

  ZmcSettings settings(files, utilities);
  settings.Open();
  FUZZ_CHECK(settings.Save());
  CIniFile after(files);
  FUZZ_CHECK(after.ReadIniFile(pnl::FromUtf8(kFile)));
  CheckOtherKeys(before, after);

  ZmcSettings again(files, utilities);
  again.Open();
  FUZZ_CHECK(again.kept == settings.kept);
  const std::string stored = files.disc[kFile];
  FUZZ_CHECK(again.Save());
  FUZZ_CHECK(files.disc[kFile] == stored);

  files.unreadable.insert(kFile);
  ZmcSettings unread(files, utilities);
  unread.Open();
  FUZZ_CHECK(unread.kept == pnl::ZmcKept{});
  FUZZ_CHECK(!unread.Save());
  FUZZ_CHECK(files.disc[kFile] == stored);
  return 0;
}
