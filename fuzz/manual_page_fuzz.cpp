// SPDX-License-Identifier: MIT
// A page of a manual: its text and words for the search, and where its links lead.
#include <string_view>

#include "fuzz_check.h"
#include "help/manual/code_page.h"
#include "help/manual/manual_names.h"
#include "help/manual/page_text.h"
#include "help/manual/search_words.h"

namespace {

void CheckReference(pnl::TextView from, pnl::TextView reference) {
  const auto resolved = pnl::ResolveManualReference(from, reference);
  FUZZ_CHECK(!resolved || pnl::IsManualName(resolved->name) || resolved->name == from);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const int codePage : {1252, 932}) {
    const pnl::Text markup = pnl::DecodePage(bytes, codePage);
    const pnl::ReadablePage page = pnl::TextOfPage(markup);
    FUZZ_CHECK(page.title.size() <= 1'000);
    for (const pnl::Text& word : pnl::SearchWordsOf(page.text)) {
      FUZZ_CHECK(!word.empty() && word.size() <= pnl::kLongestSearchWord);
    }
    for (const char16_t* name : {u"sub/a.htm", u"a.css"}) {
      const auto references = pnl::ReferencesOf(name, markup);
      FUZZ_CHECK(references.size() <= pnl::kMostReferences);
      for (const pnl::Text& reference : references) CheckReference(name, reference);
    }
    CheckReference({}, markup);
    FUZZ_CHECK(pnl::ManualNamedIn(markup).find_first_of(u":/\\") == pnl::Text::npos);
  }
  if (const auto name = pnl::NameOfObject(bytes)) FUZZ_CHECK(pnl::IsManualName(*name));
  return 0;
}
