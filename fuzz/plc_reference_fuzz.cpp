// SPDX-License-Identifier: MIT
// Any text as a reference to a PLC document: it is found in one of the two folders, or stays as it is.
#include "fuzz_check.h"
#include "plc/plc_document.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pnl;
  const Text reference = DecodeFile({reinterpret_cast<const char*>(data), size});
  test::MemoryFiles files;
  files.disc["C:\\P61\\a.txt"] = files.disc["C:\\P15\\b.htm"] = files.disc["C:\\secret.txt"] = "x";
  test::FakeUtilities utilities;

  const Text found = ResolveFile(files, utilities, reference);
  const DocumentReference parts = SplitReference(found);
  FUZZ_CHECK(found.starts_with(parts.path));
  FUZZ_CHECK(parts.path.find(u'#') == Text::npos);
  FUZZ_CHECK(parts.extension.find_first_of(u"\\/.#") == Text::npos);
  FUZZ_CHECK(parts.Folder().size() <= parts.path.size());
  if (found != reference) {
    FUZZ_CHECK(found == u"C:\\P61\\" + reference || found == u"C:\\P15\\" + reference);
    FUZZ_CHECK(IsReadable(files, found));
  }
  FUZZ_CHECK(ResolveFile(files, utilities, found) == found);
  FUZZ_CHECK(!PlacesOfFile(utilities, reference).empty());
  if (parts.Kind() == DocumentKind::kText) FUZZ_CHECK(parts.number != DocumentReference::kNoNumber);
  return 0;
}
