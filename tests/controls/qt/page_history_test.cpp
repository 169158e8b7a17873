// SPDX-License-Identifier: MIT
// The history of a page browser to its ends, what it shows of texts and pictures, and the settings of its text area.
#include <gmock/gmock.h>

#include <QtGui/QTextDocument>
#include <QtWidgets/QScrollBar>

#include "controls/page_browser.h"
#include "pages/folder_pages.h"
#include "pages/page_limits.h"
#include "support/memory_files.h"
#include "support/picture_bytes.h"
#include "support/widget_probe.h"
#include "window/qt/finger.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;

class PageHistory : public testing::Test {
 protected:
  PageHistory() {
    QObject::connect(&view_, &PageView::PageShown, [this](const QString& address, const QString& anchor) {
      log_.push_back("shown " + (anchor.isEmpty() ? address : address + "#" + anchor).toStdString());
    });
    QObject::connect(&view_, &PageView::PageRefused, [this](const QString& reference, PageRefusal reason) {
      log_.push_back("refused " + reference.toStdString() + " " + std::to_string(static_cast<int>(reason)));
    });
    view_.resize(400, 300);
    Activate(view_);
  }
  void Page(const std::string& name, const std::string& bytes) { files_.disc["C:\\DOC\\" + name] = bytes; }
  bool Show(TextView address, TextView anchor = {}) { return view_.ShowPage(pages_, address, anchor); }
  [[nodiscard]] std::string Shown() const { return view_.ShownText().toStdString(); }
  std::vector<std::string> Take() { return std::exchange(log_, {}); }

  MemoryFiles files_;
  std::shared_ptr<PageSource> pages_ = std::make_shared<FolderPages>(files_, u"C:\\DOC");
  std::vector<std::string> log_;
  PageBrowser view_{1001, nullptr};
};

TEST_F(PageHistory, HoldsAHundredPagesAndForgetsTheOldest) {
  for (int i = 0; i < 120; ++i) {
    Page(std::to_string(i) + ".txt", "page");
    EXPECT_TRUE(Show(FromUtf8(std::to_string(i) + ".txt")));
  }
  int back = 0;
  for (; view_.CanGoBack(); ++back) view_.Back();
  EXPECT_EQ(back, 99);
  EXPECT_EQ(view_.Address(), u"20.txt");
  int forward = 0;
  for (; view_.CanGoForward(); ++forward) view_.Forward();
  EXPECT_EQ(forward, 99);
  EXPECT_EQ(view_.Address(), u"119.txt");
}

TEST_F(PageHistory, APageThatIsGoneIsRefusedAndThePresentOneStays) {
  Page("a.txt", "a");
  Page("b.txt", "b");
  Show(u"a.txt");
  Show(u"b.txt");
  files_.disc.erase("C:\\DOC\\a.txt");
  Take();
  view_.Back();
  EXPECT_THAT(Take(), ElementsAre("refused a.txt 4"));
  EXPECT_EQ(view_.Address(), u"b.txt");
  EXPECT_EQ(Shown(), "b");
  EXPECT_TRUE(view_.CanGoBack());
  view_.Home();
  EXPECT_THAT(Take(), ElementsAre("refused a.txt 4"));
  EXPECT_EQ(view_.Address(), u"b.txt");
  Page("a.txt", "again");
  view_.Back();
  EXPECT_THAT(Take(), ElementsAre("shown a.txt"));
  view_.Reload();
  EXPECT_THAT(Take(), ElementsAre("shown a.txt"));
  view_.Forward();
  EXPECT_THAT(Take(), ElementsAre("shown b.txt"));
  view_.Forward();
  EXPECT_THAT(Take(), ElementsAre());
}

TEST_F(PageHistory, TheCallersAnchorGoesBeforeTheAddresssOwn) {
  Page("a.htm", "<a name=one>1</a><a name=two>2</a>");
  Show(u"a.htm#one", u"two");
  EXPECT_EQ(view_.Anchor(), u"two");
  Show(u"a.htm#one");
  EXPECT_EQ(view_.Anchor(), u"one");
  EXPECT_THAT(Take(), ElementsAre("shown a.htm#two", "shown a.htm#one"));
}

TEST_F(PageHistory, WhoeverHearsOfALinkMayEmptyTheView) {
  Page("a.htm", "<p>a</p>");
  Show(u"a.htm");
  QObject::connect(&view_, &PageView::LinkFollowed, [this] { view_.Clear(); });
  EXPECT_FALSE(view_.Follow(u"a.htm"));
  EXPECT_EQ(view_.Address(), u"");
  EXPECT_EQ(view_.Anchor(), u"");
}

TEST_F(PageHistory, TheFocusIsTheTextsButAPictureNeedsNone) {
  Page("a.txt", "a");
  Page("red.png", PictureBytes({20, 20}, Qt::red, "PNG"));
  EXPECT_EQ(view_.focusProxy(), &view_.TextArea());
  EXPECT_EQ(view_.focusPolicy(), Qt::StrongFocus);
  Show(u"a.txt");
  Show(u"red.png");
  EXPECT_EQ(view_.focusProxy(), nullptr);
  EXPECT_EQ(Shown(), "");
  EXPECT_FALSE(view_.Picture().IsEmpty());
  EXPECT_TRUE(view_.Picture().isVisible());
  EXPECT_FALSE(view_.Find(u"a", false));
  view_.Back();
  EXPECT_EQ(view_.focusProxy(), &view_.TextArea());
  EXPECT_TRUE(view_.Picture().IsEmpty()) << "it takes no memory any more";
  EXPECT_TRUE(view_.TextArea().isVisible());
  Show(u"red.png");
  view_.Clear();
  EXPECT_TRUE(view_.TextArea().isVisible());
  EXPECT_FALSE(view_.CanGoBack());
  EXPECT_FALSE(view_.CanGoForward());
}

TEST_F(PageHistory, WhatIsATextIsKnownByItsNameOrByHavingNoMarkup) {
  const struct {
    std::string name;
    std::string bytes;
    const char* shown;
    double margin;
  } rows[] = {{"a.txt", "<b>x</b>", "<b>x</b>", 12}, {"a.TXT", "<b>x</b>", "<b>x</b>", 12},
              {"a.htm", "<b>x</b>", "x", 4},         {"a.htm", "x", "x", 12},
              {"a.txt.htm", "<b>x</b>", "x", 4},     {"atxt", "<b>x</b>", "x", 4}};
  for (const auto& row : rows) {
    Page(row.name, row.bytes);
    EXPECT_TRUE(Show(FromUtf8(row.name)));
    EXPECT_EQ(Shown(), row.shown) << row.name;
    EXPECT_EQ(view_.TextArea().document()->documentMargin(), row.margin) << row.name;
  }
}

TEST_F(PageHistory, ATextThatIsTooLongSaysThatItWasCut) {
  const auto end = [this](std::size_t bytes) {
    std::string text(bytes - 4, 'x');
    for (std::size_t i = 99; i < text.size(); i += 100) text[i] = '\n';
    Page("long.txt", text + "last");
    EXPECT_TRUE(Show(u"long.txt"));
    return view_.ShownText().right(4).toStdU16String();
  };
  EXPECT_EQ(end(page_limit::kBytes), u"last");
  EXPECT_EQ(end(page_limit::kBytes + 1).substr(1), u"[\u2026]");
}

TEST_F(PageHistory, AnAnchorNearTheTopShowsTheTopAndOneFurtherDownDoesNot) {
  std::string lines;
  for (int i = 0; i < 100; ++i) lines += "line<br>";
  const int line = view_.TextArea().fontMetrics().lineSpacing();
  for (int above = 1; above <= 6; ++above) {
    std::string page = "<p style=\"margin: 0\">";
    for (int i = 0; i < above; ++i) page += "line<br>";
    Page("a.htm", page + "<a name=here>here</a><br>" + lines + "</p>");
    EXPECT_TRUE(Show(u"a.htm", u"here"));
    if (above == 1) {
      EXPECT_EQ(view_.ScrollPosition(), 0) << above;
    } else if (above > 3) {
      EXPECT_GT(view_.ScrollPosition(), 2 * line) << above;
    }
  }
}

TEST_F(PageHistory, APictureThatIsMissingIsAGreyBox) {
  Page("a.htm", "<p><img src=none.png></p>");
  Show(u"a.htm");
  const QColor grey(Qt::lightGray);
  EXPECT_EQ(Count(Paint(view_), static_cast<std::uint32_t>(grey.red() * 0x10101)), 16 * 16);
}

TEST_F(PageHistory, TheTextAreaOpensAndTakesNothingByItself) {
  const PageText& text = view_.TextArea();
  EXPECT_FALSE(text.openLinks());
  EXPECT_FALSE(text.openExternalLinks());
  EXPECT_FALSE(text.isUndoRedoEnabled());
  EXPECT_FALSE(text.acceptDrops());
  EXPECT_EQ(text.contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_EQ(text.frameWidth(), 0);
  EXPECT_EQ(text.verticalScrollBar()->sizeHint().width(), FingerPixels(text));
  EXPECT_EQ(text.horizontalScrollBar()->sizeHint().height(), FingerPixels(text));
  EXPECT_TRUE(text.isReadOnly());
}

TEST_F(PageHistory, HomeIsThePageThatTheDocumentBeganWith) {
  Page("a.txt", "a");
  Page("b.txt", "b");
  Show(u"a.txt");
  Show(u"b.txt");
  Take();
  view_.Home();
  EXPECT_THAT(Take(), ElementsAre("shown a.txt"));
  view_.Clear();
  view_.Home();
  EXPECT_THAT(Take(), ElementsAre());
  Show(u"b.txt");
  view_.Home();
  EXPECT_EQ(view_.Address(), u"b.txt") << "after it was emptied it begins anew";
}

}  // namespace
}  // namespace pnl::test
