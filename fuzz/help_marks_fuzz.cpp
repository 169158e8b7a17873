// SPDX-License-Identifier: MIT
// Resolves a mark and lists the manuals, with a helps file and a marks file that may contain anything. The input is the
// mark up to the first line feed, the helps file up to the first zero byte, and the marks file, which is beside the
// manuals oper.chm and DEFAULT.
#include "help/help_marks.h"

#include <string>
#include <vector>

#include "fuzz_check.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace {

using pnl::HelpResolution;
using pnl::ResolvedPage;
using pnl::Text;

/// The bytes up to the separator, which are taken off the front.
std::string Take(std::string& bytes, char separator) {
  const std::size_t end = bytes.find(separator);
  std::string taken = bytes.substr(0, end);
  bytes.erase(0, end == std::string::npos ? end : end + 1);
  return taken;
}

void CheckResolved(const ResolvedPage& resolved, const Text& mark, std::size_t boxes) {
  const Text fallback = mark.substr(0, 3) + u"0000";
  switch (resolved.result) {
    case HelpResolution::kEmptyMark:
      FUZZ_CHECK(mark.empty() && boxes == 0);
      break;
    case HelpResolution::kNoManual:
      FUZZ_CHECK(boxes == 1);
      break;
    case HelpResolution::kNoPage:
      FUZZ_CHECK(boxes == 2);
      break;
    case HelpResolution::kFound:
      FUZZ_CHECK(boxes == (resolved.page.fallback ? 1u : 0u));
      FUZZ_CHECK(resolved.page.mark == (resolved.page.fallback ? fallback : mark));
      FUZZ_CHECK(resolved.page.manual.starts_with(u"C:\\P113\\"));
      FUZZ_CHECK(resolved.page.page != u"FAILED");
      FUZZ_CHECK(resolved.page.Topic() == resolved.page.page + u"#" + resolved.page.mark);
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  const Text mark = pnl::FromUtf8(Take(bytes, '\n'));
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  files.disc["C:\\P113\\Cnc7340.helps"] = Take(bytes, '\0');
  files.disc["C:\\P113\\oper.mrk"] = bytes;
  files.disc["C:\\P113\\DEF.mrk"] = bytes;

  std::size_t boxes = 0;
  const ResolvedPage resolved =
      pnl::ResolveManualPage({files, utilities}, mark, [&boxes](pnl::TextView, pnl::TextView) { ++boxes; });
  CheckResolved(resolved, mark, boxes);

  const pnl::HelpsFile helps = pnl::FindHelpsFile({files, utilities});
  const pnl::ManualNames manuals = pnl::ListManuals(helps, files, true);
  FUZZ_CHECK(manuals.code == 0 || manuals.code == 1);
  FUZZ_CHECK(manuals.code == 0 || manuals.names.empty());
  FUZZ_CHECK(manuals.names.size() <= pnl::manual_list::kNamesBuffer / 2);
  for (const Text& name : manuals.names) FUZZ_CHECK(!name.empty() && name != u"DEFAULT");
  return 0;
}
