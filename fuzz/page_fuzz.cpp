// SPDX-License-Identifier: MIT
// Any bytes as a page: the markup that is left has only known tags, is closed, and stays within the limits. Each
// address in it resolves within the document's folder or not at all.
#include <algorithm>
#include <vector>

#include "fuzz_check.h"
#include "pages/page_attributes.h"
#include "pages/page_decoding.h"
#include "pages/page_limits.h"
#include "pages/page_markup.h"
#include "pages/page_source.h"
#include "pages/page_tags.h"
#include "pages/picture_header.h"

namespace {

using namespace pnl;

void CheckAddress(TextView reference) {
  const PageAddress address = ResolvePageAddress(u"sub/page.htm", reference);
  if (address.refusal != PageRefusal::kNone) return;
  const Text page = u"/" + address.page + u"/";
  for (const TextView part : {u"/../", u"/./", u"//"}) FUZZ_CHECK(page.find(part) == Text::npos);
  FUZZ_CHECK(page.find_first_of(u"\\:") == Text::npos);
  FUZZ_CHECK(page.find(u'\0') == Text::npos);
  FUZZ_CHECK(ResolvePageAddress({}, PageReference(address.page)).page == address.page);
}

void CheckMarkup(TextView markup) {
  std::vector<Text> open;
  std::size_t tags = 0;
  for (std::size_t at = markup.find(u'<'); at != TextView::npos; at = markup.find(u'<', at + 1)) {
    TextView rest = markup.substr(at + 1);
    const bool closes = rest.starts_with(u'/');
    if (closes) rest.remove_prefix(1);
    const std::size_t end = rest.find_first_of(u" >");
    FUZZ_CHECK(end != TextView::npos);
    const Text name(rest.substr(0, end));
    const TagRow* tag = FindTag(name);
    FUZZ_CHECK(tag != nullptr && tag->kind != TagKind::kSkipped);
    rest.remove_prefix(end);
    const auto attributes = TakePageAttributes(rest);
    FUZZ_CHECK(attributes.has_value());
    for (const PageAttribute& attribute : *attributes) {
      FUZZ_CHECK(FindAttribute(attribute.name) != nullptr);
      const bool picture = attribute.value.starts_with(kPictureScheme);
      FUZZ_CHECK(picture || attribute.name != u"src");
      CheckAddress(attribute.value.substr(picture ? kPictureScheme.size() : 0));
    }
    at = markup.size() - rest.size() - 1;
    if (closes && tag->kind == TagKind::kVoid) continue;
    if (closes) {
      FUZZ_CHECK(!open.empty() && open.back() == name);
      open.pop_back();
    } else {
      FUZZ_CHECK(++tags <= page_limit::kTags);
      if (tag->kind != TagKind::kVoid) open.push_back(name);
    }
    FUZZ_CHECK(open.size() <= page_limit::kDepth + 1);
  }
  FUZZ_CHECK(open.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Text text = DecodePage(bytes);
  const CleanPage page = CleanMarkup(text);
  CheckMarkup(page.markup);
  const CleanPage again = CleanMarkup(page.markup);
  FUZZ_CHECK(again.markup == page.markup);
  FUZZ_CHECK(CleanStyle(text).find(u'@') == Text::npos);
  CheckAddress(text);
  const PictureHeader header = ReadPictureHeader(bytes);
  if (header.CanBeShown()) FUZZ_CHECK(header.width * header.height <= PictureHeader::kMostPixels);
  return 0;
}
