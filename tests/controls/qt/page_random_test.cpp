// SPDX-License-Identifier: MIT
// Seeded random pages in the real text browser: pages of random tags, and pages with random bytes changed. Each is
// shown, painted and scrolled; none is refused, and none makes the browser ask for more than the document has.
#include <gmock/gmock.h>

#include <random>

#include "controls/page_browser.h"
#include "pages/folder_pages.h"
#include "support/memory_files.h"
#include "support/picture_bytes.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr int kPages = 150;

class PageRandom : public testing::TestWithParam<unsigned> {
 protected:
  PageRandom() : random_(GetParam()) {
    files_.disc["C:\\DOC\\red.png"] = PictureBytes({20, 20}, Qt::red, "PNG");
    files_.disc["C:\\DOC\\m.gif"] = GifBytes();
    files_.disc["C:\\DOC\\a.css"] = "p { margin: 3px } td { background-color: #808080 }";
    view_.resize(400, 300);
    Activate(view_);
  }
  int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  template <std::size_t count>
  std::string Any(const char* const (&words)[count]) {
    return words[Any(static_cast<int>(count))];
  }
  std::string Tag() {
    static constexpr const char* kTags[] = {
        "p",    "b",    "i",    "a",   "table", "tr",    "td", "th",      "ul",   "ol",  "li",         "dl",
        "dt",   "dd",   "pre",  "div", "span",  "h1",    "br", "hr",      "img",  "tt",  "blockquote", "tbody",
        "nobr", "body", "html", "x",   "font",  "thead", "u",  "caption", "head", "sub", "code",       "center"};
    static constexpr const char* kNames[] = {"width", "height", "colspan", "rowspan", "align", "style",      "border",
                                             "href",  "name",   "size",    "onclick", "class", "cellpadding"};
    static constexpr const char* kValues[] = {"1",
                                              "0",
                                              "-1",
                                              "50%",
                                              "99999999999",
                                              "center",
                                              "#ff0000",
                                              "a.htm",
                                              "",
                                              "font-size:1pt;margin:-5px;line-height:1000%;width:1e9px",
                                              "white-space:pre;text-indent:-999px;page-break-before:always",
                                              "display:none;float:left;position:absolute;vertical-align:super"};
    std::string tag = "<" + std::string(Any(4) == 0 ? "/" : "") + Any(kTags);
    for (int i = Any(3); i > 0; --i) tag += " " + Any(kNames) + "=\"" + Any(kValues) + "\"";
    return tag + (Any(20) == 0 ? "" : ">");
  }
  std::string Part() {
    static constexpr const char* kParts[] = {"text ",
                                             "&amp;",
                                             "&#x10FFFF;",
                                             "&#0;",
                                             "&nosuch;",
                                             "<!--",
                                             "-->",
                                             "\n",
                                             "<img src=red.png>",
                                             "<img src=m.gif width=10>",
                                             "\xC3\xA1",
                                             "\xFF",
                                             "\t",
                                             "<link rel=stylesheet href=a.css>",
                                             "<style>p{color:red",
                                             "</style>",
                                             "<script>x</script>",
                                             "\xD7\x90\xE2\x80\xAE",
                                             "<a name=x>",
                                             "<![CDATA["};
    return Any(3) == 0 ? Any(kParts) : Tag();
  }
  std::string RandomPage() {
    std::string page;
    for (int i = Any(300); i >= 0; --i) page += Part();
    return page;
  }
  void Change(std::string& page) {
    for (int i = 1 + Any(20); i > 0 && !page.empty(); --i) {
      const auto at = static_cast<std::size_t>(Any(static_cast<int>(page.size())));
      if (Any(3) == 0) {
        page.erase(at, static_cast<std::size_t>(1 + Any(30)));
      } else {
        page[at] = static_cast<char>(1 + Any(255));
      }
    }
  }

  std::mt19937 random_;
  MemoryFiles files_;
  std::shared_ptr<PageSource> pages_ = std::make_shared<FolderPages>(files_, u"C:\\DOC");
  PageBrowser view_{1001, nullptr};
};

TEST_P(PageRandom, EveryPageIsShown) {
  for (int i = 0; i < kPages; ++i) {
    std::string page = RandomPage();
    if (i % 2 != 0) Change(page);
    // A byte order mark of UTF-16 would make zeros of it.
    if (page[0] == '\xFF' || page[0] == '\xFE') page[0] = ' ';
    SCOPED_TRACE(page);
    files_.disc["C:\\DOC\\a.htm"] = page;
    ASSERT_TRUE(view_.ShowPage(pages_, u"a.htm", u"x"));
    Paint(view_);
    view_.SetScrollPosition(100 * Any(10));
    Paint(view_);
    ASSERT_EQ(view_.Address(), u"a.htm");
    ASSERT_LE(view_.TextArea().CountMovies(), 1u);
  }
  view_.Clear();
  EXPECT_EQ(pages_.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(Seeds, PageRandom, testing::Range(1u, 5u));

}  // namespace
}  // namespace pnl::test
