// SPDX-License-Identifier: MIT
#include "help/manual/page_text.h"

#include <algorithm>
#include <iterator>

#include "help/manual/markup.h"

namespace pnl {
namespace {

constexpr std::size_t kLongestTitle = 1'000;

/// Elements within a word: "G<b>01</b>" is one word. All others divide words.
constexpr TextView kInline[] = {u"A",      u"B",      u"BIG",  u"CODE", u"EM",    u"FONT", u"I",
                                u"KBD",    u"S",      u"SAMP", u"SUB",  u"SMALL", u"SPAN", u"SUP",
                                u"STRONG", u"STRIKE", u"TT",   u"U",    u"VAR",   u"WBR"};

bool DividesWords(const Text& element) {
  return std::find(std::begin(kInline), std::end(kInline), element) == std::end(kInline);
}

/// The text on one line: each run of white space is a blank, none at the ends.
Text OnOneLine(TextView text) {
  Text line;
  for (const char16_t c : text) {
    const bool space = c <= u' ' || c == 0xA0;
    if (!space) {
      line.push_back(c);
    } else if (!line.empty() && line.back() != u' ') {
      line.push_back(u' ');
    }
    if (line.size() == kLongestTitle) break;
  }
  return Text(Trim(line));
}

}  // namespace

ReadablePage TextOfPage(TextView markup) {
  ReadablePage page;
  Text title;
  bool inTitle = false;
  bool hidden = false;
  MarkupReader reader(markup);
  while (const auto piece = reader.Next()) {
    if (piece->kind == MarkupPiece::Kind::kText) {
      if (hidden) continue;
      const Text text = ReplaceReferences(piece->text);
      page.text += text;
      if (inTitle && title.size() < kLongestTitle) title += text;
      continue;
    }
    if (DividesWords(piece->text)) page.text.push_back(u' ');
    hidden = piece->IsStart(u"SCRIPT") || piece->IsStart(u"STYLE");
    // A title ends where anything else begins, so that one that isn't closed doesn't swallow the page.
    inTitle = piece->IsStart(u"TITLE");
  }
  page.title = OnOneLine(title);
  return page;
}

}  // namespace pnl
