// SPDX-License-Identifier: MIT
// Reads any bytes as an ini file, changes it and stores it. The stored file must read back the same, and untouched keys
// must keep their values.
#include "base/ini_file.h"
#include "fuzz_check.h"
#include "support/memory_files.h"

namespace {

using pnl::CIniFile;
using pnl::Text;
using pnl::TextView;

void CheckSame(CIniFile& a, CIniFile& b, TextView section) {
  const auto names = a.GetKeyNames(section);
  FUZZ_CHECK(names == b.GetKeyNames(section));
  for (const Text& name : names) {
    FUZZ_CHECK(a.ReadString(section, name, u"FAIL") == b.ReadString(section, name, u"OTHER"));
    FUZZ_CHECK(a.ReadInt(section, name, -1) == b.ReadInt(section, name, -2));
    FUZZ_CHECK(a.ReadBool(section, name, true) == b.ReadBool(section, name, false));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  pnl::test::MemoryFiles files;
  files.disc["C:\\a"] = std::string(reinterpret_cast<const char*>(data), size);
  CIniFile ini(files);
  FUZZ_CHECK(ini.ReadIniFile(u"C:\\a"));
  const std::string stored = ini.Serialize();
  // The stored form is UTF-8. UTF-16 can contain half a surrogate pair, which has become U+FFFD there.
  ini.Parse(stored);
  CIniFile again(files);
  again.Parse(stored);
  FUZZ_CHECK(again.Serialize() == stored);

  for (const TextView section : {TextView(u""), TextView(u"PRIVATE"), TextView(u"a")}) {
    CheckSame(ini, again, section);
    const auto names = ini.GetKeyNames(section);
    // The name and the value come from the input, so that odd characters are written as well as read.
    const Text start = names.empty() ? pnl::DecodeFile(stored).substr(0, 20) : names.back();
    const Text odd = pnl::FromUtf8(pnl::ToUtf8(start));
    ini.WriteString(odd, odd, odd);
    ini.WriteString(section, u"New", odd);
    ini.WriteInt(section, odd, 7);
    if (!names.empty()) ini.DeleteKey(section, names.front());
    again.Parse(ini.Serialize());
    CheckSame(ini, again, section);
    CheckSame(ini, again, odd);
  }
  FUZZ_CHECK(ini.WriteIniFile(u"C:\\b"));
  FUZZ_CHECK(files.disc["C:\\b"] == ini.Serialize());
  return 0;
}
