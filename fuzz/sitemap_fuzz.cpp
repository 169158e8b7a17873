// SPDX-License-Identifier: MIT
// The contents file or index of a manual.
#include <string_view>

#include "fuzz_check.h"
#include "help/manual/code_page.h"
#include "help/manual/sitemap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  int deepest = -1;
  const auto items = pnl::ReadSitemap(pnl::DecodePage(bytes, 1252));
  FUZZ_CHECK(items.size() <= pnl::kMostSitemapItems);
  for (const pnl::SitemapItem& item : items) {
    FUZZ_CHECK(item.depth >= 0 && item.depth <= deepest + 1 && item.depth <= pnl::kDeepestSitemap);
    FUZZ_CHECK(item.topics.size() <= pnl::kMostSitemapTopics);
    FUZZ_CHECK(!item.name.empty() || !item.topics.empty());
    for (const auto& [title, reference] : item.topics) FUZZ_CHECK(!reference.empty());
    deepest = item.depth;
  }
  return 0;
}
