// SPDX-License-Identifier: MIT
// The listing of an unpacked manual, and the table in which a manual says what it is.
#include <string_view>

#include "fuzz_check.h"
#include "help/manual/chm_system.h"
#include "help/manual/code_page.h"
#include "help/manual/manual_listing.h"
#include "help/manual/manual_names.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const pnl::ChmSystem system = pnl::ParseChmSystem(bytes);
  FUZZ_CHECK(system.title.size() <= bytes.size());
  static_cast<void>(pnl::DecodeCodePage(system.title, pnl::CodePageOfLanguage(system.language)));
  const auto listing = pnl::ReadManualListing(bytes);
  if (!listing) return 0;
  for (const pnl::ListedObject& object : listing->objects) FUZZ_CHECK(pnl::IsManualName(object.name));
  const auto again = pnl::ReadManualListing(pnl::WriteManualListing(*listing));
  FUZZ_CHECK(again.has_value());
  FUZZ_CHECK(again->objects == listing->objects);
  FUZZ_CHECK(again->IsDamaged() == listing->IsDamaged());
  return 0;
}
