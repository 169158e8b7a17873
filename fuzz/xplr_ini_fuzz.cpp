// SPDX-License-Identifier: MIT
// Reads the explorer's settings from any bytes as "XPLR7340.ini", then stores an order and a pin, and takes the pin
// away again. What was stored must be read again, other keys and the pins of other tools must keep their values, and a
// file that can't be read must not be overwritten. The same bytes are also read as the machine's mark of a quality
// test.
#include "base/ini_file.h"
#include "explorer/xplr_order.h"
#include "explorer/xplr_settings.h"
#include "fuzz_check.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace {

using pnl::CIniFile;
using pnl::SortState;
using pnl::Text;
using pnl::XplrSettings;

constexpr std::int32_t kOwner = 1006;
const std::string kFile = "C:\\P52\\XPLR7340.ini";

/// Every key but those that the explorer writes.
void CheckOtherKeys(CIniFile& before, CIniFile& after) {
  for (const pnl::TextView section : {u"PRIVATE", u"USER_1006", u"USER_1005", u"CALIDAD"}) {
    for (const Text& key : before.GetKeyNames(section)) {
      const bool sort = pnl::EqualNoCase(section, u"PRIVATE") && pnl::EqualNoCase(key, u"PrgSort");
      const bool pin = pnl::EqualNoCase(section, u"USER_1006") && pnl::EqualNoCase(key, u"PinnedFolder");
      if (sort || pin) continue;
      FUZZ_CHECK(before.ReadString(section, key, u"") == after.ReadString(section, key, u"?"));
    }
  }
}

void CheckStored(pnl::test::MemoryFiles& files, pnl::test::FakeUtilities& utilities) {
  CIniFile before(files);
  FUZZ_CHECK(before.ReadIniFile(pnl::FromUtf8(kFile)));
  // UTF-16 can contain half a surrogate pair. It becomes U+FFFD when it is stored.
  before.Parse(before.Serialize());
  XplrSettings settings(files, utilities);
  settings.Open();
  const SortState sort = SortState::FromText(settings.Sort());
  FUZZ_CHECK(SortState::FromText(sort.ToText()) == sort);
  const Text pinned = settings.PinnedFolder(kOwner);
  FUZZ_CHECK(pinned == pnl::Trim(pinned));
  FUZZ_CHECK(settings.SaveSort(sort.ToText()));
  FUZZ_CHECK(settings.SavePinnedFolder(kOwner, Text(u"C:\\A B\\C")));

  XplrSettings again(files, utilities);
  again.Open();
  FUZZ_CHECK(SortState::FromText(again.Sort()) == sort);
  FUZZ_CHECK(again.PinnedFolder(kOwner) == u"C:\\A B\\C");
  FUZZ_CHECK(again.SavePinnedFolder(kOwner, std::nullopt));
  CIniFile after(files);
  FUZZ_CHECK(after.ReadIniFile(pnl::FromUtf8(kFile)));
  CheckOtherKeys(before, after);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  files.disc[kFile] = bytes;
  files.disc["C:\\P108\\HMI_Settings.ini"] = bytes;
  pnl::ForgetQualityTest();
  static_cast<void>(pnl::IsQualityTest(files, utilities));
  CheckStored(files, utilities);

  files.disc[kFile] = bytes;
  files.unreadable.insert(kFile);
  XplrSettings unread(files, utilities);
  unread.Open();
  FUZZ_CHECK(unread.Sort().empty() && unread.PinnedFolder(kOwner).empty());
  FUZZ_CHECK(!unread.SaveSort(u"1 1 1 1,0"));
  FUZZ_CHECK(files.disc[kFile] == bytes);
  return 0;
}
