// SPDX-License-Identifier: MIT
// Any text as a panel path must stay within its drive.
#include "base/panel_path.h"

#include "base/files.h"
#include "fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const pnl::Text path = pnl::DecodeFile({reinterpret_cast<const char*>(data), size});
  // A folder that doesn't exist, so that the disc has none of the files.
  const std::string root = "/pnl-no-such-folder";
  pnl::DriveMap drives;
  drives.Set('C', root);
  const pnl::DiscFiles files(drives);

  const auto parsed = pnl::ParsePanelPath(path);
  const auto host = files.HostPath(path);
  FUZZ_CHECK(host.has_value() == (parsed && parsed->drive == 'C'));
  if (parsed) {
    pnl::Text joined(1, static_cast<char16_t>(parsed->drive));
    joined += u':';
    for (const pnl::Text& name : parsed->names) {
      FUZZ_CHECK(!name.empty() && name != u"." && name != u"..");
      FUZZ_CHECK(name.find_first_of(pnl::TextView(u"\\/\0", 3)) == pnl::Text::npos);
      joined = pnl::JoinPath(joined, name);
    }
    const auto again = pnl::ParsePanelPath(joined);
    FUZZ_CHECK(again && again->drive == parsed->drive && again->names == parsed->names);
  }
  if (host) {
    FUZZ_CHECK(host->starts_with(root) && (host->size() == root.size() || (*host)[root.size()] == '/'));
    FUZZ_CHECK((*host + "/").find("/../") == std::string::npos);
    FUZZ_CHECK(host->find('\0') == std::string::npos);
  }
  FUZZ_CHECK(!files.Query(path).exists);
  FUZZ_CHECK(files.OpenRead(path, nullptr) == nullptr);
  FUZZ_CHECK(files.CanReplace(path) != pnl::FileStatus::kOk);
  FUZZ_CHECK(path.ends_with(pnl::FileNameOf(path)));
  FUZZ_CHECK(pnl::FileNameOf(path).starts_with(pnl::FileTitleOf(path)));
  return 0;
}
