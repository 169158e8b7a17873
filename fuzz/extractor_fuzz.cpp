// SPDX-License-Identifier: MIT
// A compiled manual through the program that unpacks manuals, in that program's own process and limits: whatever the
// file contains, the program ends, writes nothing but its folder, and what it wrote can be read.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_check.h"
#include "help/manual/manual.h"
#include "help/manual/manual_extractor.h"
#include "support/temp_folder.h"

namespace {

std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    names.push_back(std::filesystem::relative(entry.path(), folder).string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

void CheckManual(const std::string& folder) {
  const auto manual = pnl::Manual::Load(folder);
  FUZZ_CHECK(manual != nullptr);
  FUZZ_CHECK(manual->IsComplete());
  FUZZ_CHECK(!manual->Listing().objects.empty());
  for (const pnl::ListedObject& object : manual->Listing().objects) {
    FUZZ_CHECK(manual->Find(object.name).has_value());
    FUZZ_CHECK(manual->Read(object.name).has_value());
  }
  FUZZ_CHECK(manual->Home().empty() || manual->Find(manual->Home()) == manual->Home());
  for (const pnl::ManualTopic& topic : manual->Contents()) {
    FUZZ_CHECK(topic.place.page.empty() || manual->Find(topic.place.page) == topic.place.page);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const pnl::test::TempFolder temp;
  temp.Write("in/manual.chm", std::string(reinterpret_cast<const char*>(data), size));
  const std::string folder = temp.Folder("out") + "/manual";
  const pnl::ProgramExtractor extractor(PNL_CHM_PROGRAM);
  const pnl::Extraction result = extractor.Extract(temp.Path() / "in/manual.chm", folder, [] { return false; });
  FUZZ_CHECK(result == pnl::Extraction::kDone || result == pnl::Extraction::kNothing);
  const bool done = result == pnl::Extraction::kDone;
  const std::vector<std::string> nothing = {"in", "in/manual.chm", "out"};
  const std::vector<std::string> unpacked = {"in",         "in/manual.chm",          "out",
                                             "out/manual", "out/manual/listing.txt", "out/manual/objects.bin"};
  FUZZ_CHECK(NamesIn(temp.Path()) == (done ? unpacked : nothing));
  if (done) CheckManual(folder);
  std::filesystem::remove_all(folder);
  return 0;
}
