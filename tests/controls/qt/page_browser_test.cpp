// SPDX-License-Identifier: MIT
// Pages in the text browser: history, anchors, styles, pictures, and that nothing is asked of anybody but the source.
#include "controls/page_browser.h"

#include <gmock/gmock.h>

#include <QtWidgets/QScrollBar>

#include "pages/folder_pages.h"
#include "pages/page_limits.h"
#include "support/event_wait.h"
#include "support/memory_files.h"
#include "support/picture_bytes.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;

constexpr std::uint32_t kRed = 0x0000FF;
constexpr std::uint32_t kBlue = 0xFF0000;

class PageBrowserTest : public testing::Test {
 protected:
  PageBrowserTest() {
    Page("a.htm", "<p>first</p><a href=\"sub/b.htm#end\">b</a>");
    Page("sub/b.htm", "<p>second</p>" + Lines(200) + "<p><a name=end>the end</a></p>" + Lines(200));
    Page("c.txt", "<p>no markup</p>");
    Page("red.png", PictureBytes({20, 20}, Qt::red, "PNG"));
    QObject::connect(&view_, &PageView::PageShown, [this](const QString& address, const QString& anchor) {
      log_.push_back("shown " + address.toStdString() + (anchor.isEmpty() ? "" : "#" + anchor.toStdString()));
    });
    QObject::connect(&view_, &PageView::PageRefused, [this](const QString& reference, PageRefusal reason) {
      log_.push_back("refused " + reference.left(40).toStdString() + " " + std::to_string(static_cast<int>(reason)));
    });
    QObject::connect(&view_, &PageView::LinkFollowed,
                     [this](const QString& reference) { log_.push_back("link " + reference.toStdString()); });
    view_.resize(400, 300);
    Activate(view_);
  }
  static std::string Lines(int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += "<p>line " + std::to_string(i) + "</p>";
    return all;
  }
  void Page(const std::string& name, const std::string& bytes) {
    std::string path = "C:\\DOC\\" + name;
    std::replace(path.begin(), path.end(), '/', '\\');
    files_.disc[path] = bytes;
  }
  bool Show(TextView address, TextView anchor = {}) { return view_.ShowPage(pages_, address, anchor); }
  Log Take() { return std::exchange(log_, {}); }
  [[nodiscard]] std::string Content() { return view_.TextArea().toPlainText().toStdString(); }
  [[nodiscard]] std::size_t Refused(PageRefusal reason) const { return pages_->Refused(reason); }

  MemoryFiles files_;
  std::shared_ptr<PageSource> pages_ = std::make_shared<FolderPages>(files_, u"C:\\DOC");
  Log log_;
  PageBrowser view_{1001, nullptr};
};

TEST_F(PageBrowserTest, APageIsShownAndItsAddressKnown) {
  EXPECT_TRUE(Show(u"a.htm"));
  EXPECT_EQ(Content(), "first\nb");
  EXPECT_EQ(view_.Address(), u"a.htm");
  EXPECT_THAT(Take(), ElementsAre("shown a.htm"));
  EXPECT_FALSE(view_.CanGoBack());
  EXPECT_FALSE(view_.CanGoForward());
}

TEST_F(PageBrowserTest, AnAnchorIsScrolledTo) {
  EXPECT_TRUE(Show(u"sub/b.htm#end"));
  EXPECT_EQ(view_.Anchor(), u"end");
  EXPECT_GT(view_.ScrollPosition(), 1000);
  EXPECT_TRUE(Show(u"sub/b.htm"));
  EXPECT_EQ(view_.ScrollPosition(), 0);
  EXPECT_TRUE(Show(u"sub/b.htm", u"end"));
  EXPECT_GT(view_.ScrollPosition(), 1000);
}

TEST_F(PageBrowserTest, APressOnALinkFollowsIt) {
  Show(u"a.htm");
  Take();
  QTextBrowser& text = view_.TextArea();
  text.moveCursor(QTextCursor::End);
  text.moveCursor(QTextCursor::Left);
  const QPoint place = text.cursorRect().center() + QPoint(2, 0);
  PressMouse(text.viewport(), place);
  PressMouse(text.viewport(), place, QEvent::MouseButtonRelease);
  EXPECT_THAT(Take(), ElementsAre("link sub/b.htm#end", "shown sub/b.htm#end"));
  EXPECT_EQ(view_.Address(), u"sub/b.htm");
}

TEST_F(PageBrowserTest, LinksAreRelativeToTheirPage) {
  Show(u"sub/b.htm");
  EXPECT_TRUE(view_.Follow(u"../a.htm"));
  EXPECT_EQ(view_.Address(), u"a.htm");
  EXPECT_TRUE(view_.Follow(u"sub/b.htm"));
  EXPECT_TRUE(view_.Follow(u"#end"));
  EXPECT_EQ(view_.Address(), u"sub/b.htm");
  EXPECT_GT(view_.ScrollPosition(), 1000);
}

TEST_F(PageBrowserTest, BackAndForwardReturnToThePlaceInThePage) {
  Show(u"sub/b.htm");
  view_.SetScrollPosition(500);
  view_.Follow(u"../a.htm");
  view_.Follow(u"c.txt");
  EXPECT_TRUE(view_.CanGoBack());
  EXPECT_FALSE(view_.CanGoForward());
  view_.Back();
  EXPECT_EQ(view_.Address(), u"a.htm");
  view_.Back();
  EXPECT_EQ(view_.Address(), u"sub/b.htm");
  EXPECT_EQ(view_.ScrollPosition(), 500);
  EXPECT_FALSE(view_.CanGoBack());
  view_.Back();
  EXPECT_EQ(view_.Address(), u"sub/b.htm");
  view_.Forward();
  view_.Forward();
  view_.Forward();
  EXPECT_EQ(view_.Address(), u"c.txt");
  view_.Back();
  view_.Follow(u"sub/b.htm");
  EXPECT_FALSE(view_.CanGoForward()) << "a new page drops what came after";
  view_.Back();
  EXPECT_EQ(view_.Address(), u"a.htm");
}

TEST_F(PageBrowserTest, HomeIsTheFirstPageOfThePresentDocument) {
  Show(u"a.htm");
  view_.Follow(u"sub/b.htm");
  view_.Home();
  EXPECT_EQ(view_.Address(), u"a.htm");
  EXPECT_TRUE(view_.CanGoBack());
  files_.disc["C:\\OTHER\\x.htm"] = "x";
  files_.disc["C:\\OTHER\\y.htm"] = "y";
  view_.ShowPage(std::make_shared<FolderPages>(files_, u"C:\\OTHER"), u"x.htm", {});
  view_.Follow(u"y.htm");
  view_.Home();
  EXPECT_EQ(view_.Address(), u"x.htm");
}

TEST_F(PageBrowserTest, ReloadReadsThePageAgainAndKeepsThePlace) {
  Show(u"sub/b.htm");
  view_.SetScrollPosition(300);
  Page("sub/b.htm", "<p>changed</p>" + Lines(200));
  view_.Reload();
  EXPECT_EQ(Content().substr(0, 7), "changed");
  EXPECT_EQ(view_.ScrollPosition(), 300);
  EXPECT_FALSE(view_.CanGoBack());
}

// A chapter's mark is at its heading, whose upper edge was cut off.
TEST_F(PageBrowserTest, AnAnchorAtTheTopShowsThePageFromItsTop) {
  Page("top.htm", "<body style=\"margin: 12px\"><a name=top></a><h1>heading</h1>" + Lines(200) +
                      "<a name=below></a><p>below</p>" + Lines(200) + "</body>");
  Show(u"top.htm", u"top");
  EXPECT_EQ(view_.ScrollPosition(), 0);
  view_.Follow(u"#below");
  EXPECT_GT(view_.ScrollPosition(), 1000);
  view_.Follow(u"#top");
  EXPECT_EQ(view_.ScrollPosition(), 0);
}

TEST_F(PageBrowserTest, TheLocationIsTheFileAndTheAnchor) {
  const auto location = [this] { return view_.property("pnlLocation").toString().toStdString(); };
  EXPECT_EQ(location(), "");
  Show(u"sub/b.htm", u"end");
  EXPECT_EQ(location(), "sub/b.htm#end");
  view_.SetFolder(u"C:\\DOC");
  EXPECT_EQ(location(), "C:\\DOC\\sub\\b.htm#end");
  Show(u"red.png");
  EXPECT_EQ(location(), "C:\\DOC\\red.png");
  view_.Back();
  EXPECT_EQ(location(), "C:\\DOC\\sub\\b.htm#end");
  EXPECT_TRUE(view_.property("pnlText").toString().startsWith("second"));
  view_.Clear();
  EXPECT_EQ(location(), "");
}

TEST_F(PageBrowserTest, FindGoesOnAtTheOtherEnd) {
  Page("f.htm", "<p>one two ONE</p>");
  Show(u"f.htm");
  const auto at = [this] { return view_.TextArea().textCursor().selectionStart(); };
  EXPECT_TRUE(view_.Find(u"one", false));
  EXPECT_EQ(at(), 0);
  EXPECT_TRUE(view_.Find(u"one", false));
  EXPECT_EQ(at(), 8);
  EXPECT_TRUE(view_.Find(u"one", false));
  EXPECT_EQ(at(), 0);
  EXPECT_TRUE(view_.Find(u"one", true));
  EXPECT_EQ(at(), 8);
  EXPECT_FALSE(view_.Find(u"three", false));
  EXPECT_EQ(at(), 8) << "the selection stays";
  EXPECT_FALSE(view_.Find(u"", false));
}

TEST_F(PageBrowserTest, ClearForgetsEverything) {
  Show(u"a.htm");
  view_.Follow(u"c.txt");
  view_.Clear();
  EXPECT_EQ(Content(), "");
  EXPECT_EQ(view_.Address(), u"");
  EXPECT_FALSE(view_.CanGoBack());
  EXPECT_EQ(pages_.use_count(), 1) << "the source is given back";
  view_.Home();
  view_.Reload();
  EXPECT_FALSE(view_.Follow(u"a.htm"));
}

// What is refused.

TEST_F(PageBrowserTest, ARefusedLinkKeepsThePage) {
  Show(u"a.htm");
  Take();
  for (const TextView reference :
       {u"http://example.com/x.htm", u"javascript:x()", u"../x.htm", u"C:/x.htm", u"none.htm"}) {
    EXPECT_FALSE(view_.Follow(reference));
  }
  EXPECT_EQ(view_.Address(), u"a.htm");
  EXPECT_EQ(Content(), "first\nb");
  EXPECT_THAT(Take(),
              ElementsAre("link http://example.com/x.htm", "refused http://example.com/x.htm 2", "link javascript:x()",
                          "refused javascript:x() 2", "link ../x.htm", "refused ../x.htm 3", "link C:/x.htm",
                          "refused C:/x.htm 3", "link none.htm", "refused none.htm 4"));
}

TEST_F(PageBrowserTest, APageThatIsNotThereKeepsThePage) {
  Show(u"a.htm");
  EXPECT_FALSE(Show(u"none.htm"));
  EXPECT_FALSE(Show(u"../a.htm"));
  EXPECT_EQ(view_.Address(), u"a.htm");
  Page("zeros.bin", std::string("a\0b", 3));
  EXPECT_FALSE(Show(u"zeros.bin"));
}

// Every picture, sheet and link of a page that names another place is counted as refused, and none is opened: the
// browser itself would open files.
TEST_F(PageBrowserTest, NoRequestLeavesTheDocumentsFolder) {
  files_.disc["C:\\secret.png"] = PictureBytes({20, 20}, Qt::red, "PNG");
  Page("evil.htm",
       "<link rel=stylesheet href=\"http://example.com/a.css\"><link rel=stylesheet href=\"file:///etc/passwd\">"
       "<style>@import url(http://example.com/b.css); p { background-image: url(http://example.com/c.png) }</style>"
       "<body background=\"http://example.com/d.png\"><p>text"
       "<img src=\"http://example.com/e.png\"><img src=\"https://example.com/f.png\"><img src=\"ftp://x/g.png\">"
       "<img src=\"file:///usr/share/pixmaps/debian-logo.png\"><img src=\"//server/h.png\">"
       "<img src=\"../secret.png\"><img src=\"%2e%2e/secret.png\"><img src=\"..\\secret.png\"><img "
       "src=\"C:/secret.png\">"
       "<img src=\"/etc/hostname\"><img src=\"qrc:/x.png\"><img src=\":/x.png\">"
       "<img src=\"data:image/png;base64,iVBORw0KGgo=\">"
       "<iframe src=\"http://example.com\"></iframe><script src=\"http://example.com/x.js\"></script></body>");
  EXPECT_TRUE(Show(u"evil.htm"));
  const QImage painted = Paint(view_);
  EXPECT_EQ(Content().substr(0, 4), "text");
  EXPECT_EQ(Count(painted, kRed), 0);
  EXPECT_GE(Refused(PageRefusal::kForeign), 8u);
  EXPECT_GE(Refused(PageRefusal::kOutside), 3u);
  EXPECT_GE(Refused(PageRefusal::kBadAddress), 1u);
  EXPECT_EQ(Refused(PageRefusal::kNone), 2u) << "the page's own address and its bytes";
}

// Pictures and styles.

TEST_F(PageBrowserTest, PicturesOfThePageAreShown) {
  Page("p.htm", "<img src=red.png>");
  Page("sub/p.htm", "<img src=\"../red.png\">");
  for (const TextView page : {u"p.htm", u"sub/p.htm"}) {
    Show(page);
    EXPECT_EQ(Count(Paint(view_), kRed), 400);
  }
}

// The second page has a picture of the same name in another folder.
TEST_F(PageBrowserTest, EachPageHasItsOwnPictures) {
  Page("p.htm", "<img src=x.png>");
  Page("sub/p.htm", "<img src=x.png>");
  Page("x.png", PictureBytes({10, 10}, Qt::red, "PNG"));
  Page("sub/x.png", PictureBytes({10, 10}, Qt::blue, "PNG"));
  Show(u"p.htm");
  EXPECT_EQ(Count(Paint(view_), kRed), 100);
  Show(u"sub/p.htm");
  EXPECT_EQ(Count(Paint(view_), kRed), 0);
  EXPECT_EQ(Count(Paint(view_), kBlue), 100);
}

TEST_F(PageBrowserTest, AStyleSheetOfThePageIsUsed) {
  Page("a.css", "p { background-color: #0000ff }");
  Page("s.htm", "<html><head><link rel=stylesheet href=a.css></head><body><p>text</p></body></html>");
  Show(u"s.htm");
  EXPECT_GT(Count(Paint(view_), kBlue), 1000);
}

// On a dark panel a page that set the colour of its text alone could not be read.
TEST_F(PageBrowserTest, APageIsBlackOnWhiteUnlessItSaysOtherwise) {
  QWidget panel;
  QPalette dark;
  dark.setColor(QPalette::Base, Qt::blue);
  dark.setColor(QPalette::Text, Qt::red);
  panel.setPalette(dark);
  PageBrowser view(1001, &panel);
  view.resize(400, 300);
  Activate(panel);
  Page("heading.htm", "<h1>HEADING</h1>");
  Page("heading.txt", "IIIIIIIIIIIIIIII|||||||||||||||");
  for (const TextView page : {u"heading.htm", u"heading.txt"}) {
    ASSERT_TRUE(view.ShowPage(pages_, page, {}));
    const QImage painted = Paint(view);
    EXPECT_EQ(Count(painted, kBlue), 0);
    EXPECT_EQ(Count(painted, kRed), 0);
    EXPECT_GT(Count(painted, 0xFFFFFF), 100'000);
    EXPECT_GT(Count(painted, 0), 10);
  }
  Page("l.htm", "<a href=a.htm>link link link link</a>");
  ASSERT_TRUE(view.ShowPage(pages_, u"l.htm", {}));
  EXPECT_GT(Count(Paint(view), 0x824F1C), 10);
  Page("o.htm", "<style>a { color: #0000ff }</style><a href=a.htm>link link link link</a>");
  ASSERT_TRUE(view.ShowPage(pages_, u"o.htm", {}));
  EXPECT_EQ(Count(Paint(view), 0x824F1C), 0) << "the page's own style comes first";
}

TEST_F(PageBrowserTest, ATextWithoutMarkupKeepsAMargin) {
  Page("t.txt", "text");
  Show(u"t.txt");
  EXPECT_GE(Ink(Paint(view_), 0xFFFFFF).left(), 12);
}

TEST_F(PageBrowserTest, AnAnimatedPictureMovesInAPage) {
  Page("m.gif", GifBytes());
  Page("m.htm", "<img src=m.gif width=40 height=40>");
  Show(u"m.htm");
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(view_), kBlue) > 0; }));
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(view_), kRed) > 0; }));
  EXPECT_EQ(view_.TextArea().CountMovies(), 1u);
  Show(u"a.htm");
  EXPECT_EQ(view_.TextArea().CountMovies(), 0u);
}

TEST_F(PageBrowserTest, AMovingPictureGoesOnWhenItsPageIsSeenAgain) {
  Page("m.gif", GifBytes());
  Page("m.htm", "<img src=m.gif width=40 height=40>");
  Show(u"m.htm");
  ASSERT_TRUE(RunUntil([this] { return Count(Paint(view_), kBlue) > 0; }));
  view_.hide();
  view_.show();
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(view_), kRed) > 0; }));
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(view_), kBlue) > 0; }));
}

TEST_F(PageBrowserTest, APageHasALimitedNumberOfMovingPictures) {
  std::string page;
  for (int i = 0; i < 40; ++i) {
    Page("m" + std::to_string(i) + ".gif", GifBytes());
    page += "<img src=m" + std::to_string(i) + ".gif>";
  }
  Page("many.htm", page);
  Show(u"many.htm");
  Paint(view_);
  EXPECT_EQ(view_.TextArea().CountMovies(), 16u);
}

TEST_F(PageBrowserTest, APictureIsAPageOfItsOwn) {
  EXPECT_TRUE(Show(u"red.png"));
  EXPECT_EQ(Count(Paint(view_), kRed), 300 * 300) << "as large as the area allows";
  Show(u"a.htm");
  EXPECT_EQ(Count(Paint(view_), kRed), 0);
  view_.Back();
  EXPECT_EQ(Count(Paint(view_), kRed), 300 * 300);
  EXPECT_EQ(view_.Address(), u"red.png");
}

TEST_F(PageBrowserTest, AnAnimatedPictureIsAPageOfItsOwn) {
  Page("m.gif", GifBytes());
  EXPECT_TRUE(Show(u"m.gif"));
  EXPECT_TRUE(view_.Picture().IsAnimated());
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(view_), kBlue) > 0; }));
}

TEST_F(PageBrowserTest, APictureThatIsTooLargeOrDamagedIsRefused) {
  const std::string whole = PictureBytes({20, 20}, Qt::red, "PNG");
  std::string huge = whole;
  huge.replace(16, 8, std::string("\0\0\x75\x30\0\0\x75\x30", 8));
  Page("huge.png", huge);
  Page("cut.png", whole.substr(0, 40));
  Page("both.htm", "<img src=huge.png><img src=cut.png>x");
  Show(u"a.htm");
  Take();
  EXPECT_FALSE(Show(u"huge.png"));
  EXPECT_FALSE(Show(u"cut.png"));
  EXPECT_THAT(Take(), ElementsAre("refused huge.png 6", "refused cut.png 5"));
  EXPECT_TRUE(Show(u"both.htm"));
  EXPECT_EQ(Count(Paint(view_), kRed), 0);
}

TEST_F(PageBrowserTest, ThePicturesOfAPageHaveALimitTogether) {
  const std::string large = PictureBytes({4000, 3000}, Qt::red, "PNG");  // 12 million pixels
  std::string page;
  for (int i = 0; i < 5; ++i) {
    Page("l" + std::to_string(i) + ".png", large);
    page += "<img src=l" + std::to_string(i) + ".png width=20 height=20>";
  }
  Page("l.htm", page);
  Show(u"l.htm");
  EXPECT_EQ(Count(Paint(view_), kRed), 2 * 400);
}

// Texts.

TEST_F(PageBrowserTest, ATextFileIsShownAsItIs) {
  Show(u"c.txt");
  EXPECT_EQ(Content(), "<p>no markup</p>");
}

TEST_F(PageBrowserTest, AnUnknownFileWithoutMarkupIsText) {
  Page("readme", "one\ntwo");
  Show(u"readme");
  EXPECT_EQ(Content(), "one\ntwo");
}

TEST_F(PageBrowserTest, APageOf50MegabytesIsCutAndSaysSo) {
  std::string page = "<p>begin</p>";
  while (page.size() < PageSource::kMostBytes - 5000) page += "<p>" + std::string(2000, 'x') + "</p>";
  Page("long.htm", page);
  EXPECT_TRUE(Show(u"long.htm"));
  EXPECT_TRUE(view_.TextArea().toPlainText().endsWith(QStringLiteral("[\u2026]")));
  Page("longer.htm", std::string(PageSource::kMostBytes + 1, 'x'));
  Take();
  EXPECT_FALSE(Show(u"longer.htm"));
  EXPECT_THAT(Take(), ElementsAre("refused longer.htm 6"));
}

TEST_F(PageBrowserTest, HostileMarkupIsShownInBoundedTime) {
  std::string tables;
  for (int i = 0; i < 3000; ++i) tables += "<table border=1><tr><td>";
  std::string rows = "<table>";
  for (int i = 0; i < 50'000; ++i) rows += "<tr><td>x";
  std::string spans = "<table>";
  for (int i = 0; i < 1000; ++i) spans += "<tr><td rowspan=99999 colspan=99999>x";
  std::string lists;
  for (int i = 0; i < 3000; ++i) lists += "<ul><li>";
  for (const std::string& page :
       {tables, rows, spans, lists, std::string(1'000'000, 'x'), std::string("<p style=\"font-size:99999999px\">x"),
        std::string("<img src=red.png width=99999999 height=99999999>")}) {
    Page("evil.htm", page);
    EXPECT_TRUE(Show(u"evil.htm"));
    Paint(view_);
  }
}

}  // namespace
}  // namespace pnl::test
