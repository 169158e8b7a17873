// SPDX-License-Identifier: MIT
// Documents of each kind in the window, and documents that can't be shown.
#include "plc/plc_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlcDocuments : public PlcToolTest {
 protected:
  PlcDocuments() { MakeTool(); }
  /// Shows a file and returns what the view was asked, without opening the window.
  Log Show(TextView file) {
    Help(file);
    Log asked = All();
    std::erase_if(asked, [](const std::string& line) {
      return line.starts_with("Host") || line == "view show" || line == "view top" || line == "view focus";
    });
    return asked;
  }
};

TEST_F(PlcDocuments, ATextWithANumberIsShownAsText) {
  EXPECT_THAT(Show(u"text.txt#4"), IsEmpty());
  EXPECT_EQ(view->Area(), "text");
  EXPECT_EQ(view->content, "Text 4");
  EXPECT_EQ(tool->DocumentFile(), u"C:\\P61\\text.txt#4");
  EXPECT_EQ(tool->DocumentExt(), u"TXT");
}

TEST_F(PlcDocuments, ATextThatTheFileDoesNotHaveIsEmpty) {
  Show(u"text.txt#4");
  Show(u"text.txt#99");
  EXPECT_EQ(view->Area(), "text");
  EXPECT_EQ(view->content, "");
}

TEST_F(PlcDocuments, ATextFileWithoutANumberOpensInTheWebView) {
  EXPECT_THAT(Show(u"text.txt"), ElementsAre("view navigate C:\\P61|text.txt|", "view focus page"));
  EXPECT_EQ(view->Area(), "page");
  EXPECT_THAT(Show(u"text.txt#part"), ElementsAre("view navigate C:\\P61|text.txt|part", "view focus page"));
}

TEST_F(PlcDocuments, APageTakesTheFocusAndItsAnchor) {
  EXPECT_THAT(Show(u"page.htm#oil"), ElementsAre("view navigate C:\\P61|page.htm|oil", "view focus page"));
  EXPECT_EQ(view->Area(), "page");
}

TEST_F(PlcDocuments, APhotoIsAPageAndNoPicture) {
  EXPECT_THAT(Show(u"photo.jpg"), ElementsAre("view navigate C:\\P61|photo.jpg|", "view focus page"));
  EXPECT_EQ(view->Area(), "page");
}

TEST_F(PlcDocuments, AFileOfAnUnknownKindIsAPage) {
  files.disc["C:\\P61\\a.doc"] = "x";
  EXPECT_THAT(Show(u"a.doc"), ElementsAre("view navigate C:\\P61|a.doc|", "view focus page"));
}

TEST_F(PlcDocuments, ABitmapTakesThePlaceOfTheText) {
  Show(u"text.txt#1");
  EXPECT_THAT(Show(u"plan.bmp"), ElementsAre("view picture"));
  EXPECT_EQ(view->Area(), "text");
  EXPECT_EQ(view->picture, files.disc["C:\\P61\\plan.bmp"]);
  Show(u"text.txt#1");
  EXPECT_EQ(view->picture, "") << "a text removes the picture";
}

TEST_F(PlcDocuments, EveryKindComesToTheFrontAndHidesTheOtherViews) {
  static constexpr std::pair<TextView, const char*> kRows[] = {{u"text.txt#4", "text"},
                                                               {u"page.htm", "page"},
                                                               {u"photo.jpg", "page"},
                                                               {u"plan.bmp", "text"},
                                                               {u"film.avi", "video"}};
  for (const auto& [before, area] : kRows) {
    for (const auto& [document, shown] : kRows) {
      SCOPED_TRACE(ToUtf8(before) + ", then " + ToUtf8(document));
      Help(before);
      All();
      Help(document);
      const Log asked = All();
      EXPECT_EQ(std::count(asked.begin(), asked.end(), "view top"), 2) << "by the opening and by the document";
      EXPECT_EQ(view->Area(), shown);
    }
  }
}

TEST_F(PlcDocuments, AVideoPlaysOnce) {
  EXPECT_THAT(Show(u"film.avi"), ElementsAre("view load video C:\\P61\\film.avi", "view play 1"));
  EXPECT_EQ(view->Area(), "video");
}

TEST_F(PlcDocuments, TheNextDocumentClearsTheVideo) {
  Show(u"film.avi");
  EXPECT_THAT(Show(u"text.txt#1"), ElementsAre("view clear video"));
  EXPECT_THAT(Show(u"text.txt#2"), IsEmpty()) << "not again";
  Show(u"film.avi");
  EXPECT_THAT(Show(u"film.avi"), ElementsAre("view clear video", "view load video C:\\P61\\film.avi", "view play 1"));
  Escape();
  EXPECT_THAT(All(), ElementsAre("view clear video", "HostToolClosed(1,2)", "view hide", "HostForwardKey(27)"));
}

TEST_F(PlcDocuments, KeysAndCommandsDriveTheVideo) {
  Show(u"film.avi");
  EXPECT_TRUE(Key(PlcKey::kEnter));
  EXPECT_TRUE(Key(PlcKey::kSpace));
  EXPECT_TRUE(Key(PlcKey::kHome));
  EXPECT_THAT(All(), ElementsAre("view play 1", "view stop", "view stop", "view rewind"));
  for (const int command : {32771, 32772, 32773}) Command(command);
  EXPECT_THAT(All(), ElementsAre("view play 1", "view stop", "view stop", "view rewind"));
}

TEST_F(PlcDocuments, WithoutAVideoTheKeysAreTheControls) {
  for (const TextView file : {u"text.txt#1", u"page.htm", u"plan.bmp", u"none.htm"}) {
    Show(file);
    for (const PlcKey key : {PlcKey::kEnter, PlcKey::kSpace, PlcKey::kHome}) EXPECT_FALSE(Key(key));
    EXPECT_THAT(All(), IsEmpty());
  }
}

TEST_F(PlcDocuments, OnlyItsOwnCommandsReachTheVideo) {
  Show(u"film.avi");
  for (const int command : {0, 32770, 32774, -1}) Command(command);
  EXPECT_THAT(All(), IsEmpty());
}

// Hidden for an instant, a view would lose the focus and flicker.
TEST_F(PlcDocuments, AViewThatGoesOnIsNotHiddenMeanwhile) {
  for (const TextView file : {u"text.txt#1", u"page.htm", u"film.avi"}) {
    Show(file);
    view->wentAway.clear();
    Show(file);
    EXPECT_THAT(view->wentAway, IsEmpty()) << ToUtf8(file);
  }
}

// "A" is the beginning of "AVI", which makes it a video; Enter asks for the whole word.
TEST_F(PlcDocuments, EnterPlaysOnlyAFileWhoseExtensionIsAvi) {
  files.disc["C:\\P61\\film.a"] = files.disc["C:\\P61\\FILM2.AVI"] = "avi";
  Show(u"film.a");
  EXPECT_EQ(view->Area(), "video");
  EXPECT_FALSE(Key(PlcKey::kEnter));
  EXPECT_TRUE(Key(PlcKey::kSpace));
  Show(u"FILM2.AVI");
  EXPECT_TRUE(Key(PlcKey::kEnter));
}

// Documents that aren't there.

TEST_F(PlcDocuments, ADocumentThatCannotBeReadShowsItsNameAndWhereItWasLookedFor) {
  Show(u"page.htm");
  EXPECT_THAT(Show(u"none.htm#x"), IsEmpty());
  EXPECT_EQ(view->Area(), "note");
  EXPECT_EQ(Note(), "none.htm unreadable\nLooked in:\nC:\\P61\nC:\\P15");
  EXPECT_EQ(Title(), "Help") << "the title line remains";
  EXPECT_EQ(tool->DocumentFile(), u"");
  Show(u"C:\\X\\none.txt#1");
  EXPECT_EQ(Note(), "C:\\X\\none.txt unreadable\nLooked in:\nC:\\X");
  Show(u"page.htm");
  EXPECT_EQ(view->Area(), "page");
}

TEST_F(PlcDocuments, AnUnreadableDocumentAfterAVideoLeavesNoVideo) {
  Show(u"film.avi");
  EXPECT_THAT(Show(u"none.htm"), ElementsAre("view clear video"));
  EXPECT_FALSE(Key(PlcKey::kEnter));
  EXPECT_EQ(tool->DocumentExt(), u"");
}

TEST_F(PlcDocuments, NoDocumentIsNoFailure) {
  Show(u"page.htm");
  Show(u"");
  EXPECT_EQ(view->Area(), "nothing");
}

TEST_F(PlcDocuments, APageThatTheViewRefusesIsNamed) {
  view->refusal = PageRefusal::kTooLarge;
  EXPECT_THAT(Show(u"page.htm"), ElementsAre("view navigate C:\\P61|page.htm|"));
  EXPECT_EQ(view->Area(), "note");
  EXPECT_EQ(Note(), "page.htm too large");
  view->refusal = PageRefusal::kUnreadable;
  Show(u"page.htm");
  EXPECT_EQ(Note(), "page.htm damaged");
}

TEST_F(PlcDocuments, ABitmapThatCannotBeDecodedOrIsTooLargeIsNamed) {
  view->goodPictures = false;
  Show(u"plan.bmp");
  EXPECT_EQ(view->Area(), "note");
  EXPECT_EQ(Note(), "plan.bmp damaged");
  view->goodPictures = true;
  std::string& bmp = files.disc["C:\\P61\\plan.bmp"];
  bmp.replace(18, 4, std::string("\x30\x75\0\0", 4));
  bmp.replace(22, 4, std::string("\x30\x75\0\0", 4));
  EXPECT_THAT(Show(u"plan.bmp"), IsEmpty()) << "nobody decodes 30,000 by 30,000";
  EXPECT_EQ(Note(), "plan.bmp too large");
  bmp.replace(18, 4, std::string("\x80\x3E\0\0", 4));
  bmp.replace(22, 4, std::string("\xD0\x07\0\0", 4));
  EXPECT_THAT(Show(u"plan.bmp"), ElementsAre("view picture")) << "16,000 by 2,000 are just enough";
  bmp.replace(22, 4, std::string("\xD1\x07\0\0", 4));
  EXPECT_THAT(Show(u"plan.bmp"), IsEmpty());
  EXPECT_EQ(Note(), "plan.bmp too large");
  for (const std::size_t side : {18u, 22u}) {
    std::string line = bmp;
    line.replace(18, 8, std::string("\0\xB4\xC4\x04\0\xB4\xC4\x04", 8));
    line.replace(side, 4, std::string("\x01\0\0\0", 4));
    files.disc["C:\\P61\\line.bmp"] = line;
    Show(u"line.bmp");
    EXPECT_EQ(Note(), "line.bmp too large") << "one pixel by 80 millions";
  }
  for (const std::size_t side : {18u, 22u}) {
    std::string flat = bmp;
    flat.replace(side, 4, 4, '\0');
    files.disc["C:\\P61\\flat.bmp"] = flat;
    Show(u"flat.bmp");
    EXPECT_EQ(Note(), "flat.bmp damaged") << "without a pixel it isn't large";
  }
  bmp = "no bitmap";
  Show(u"plan.bmp");
  EXPECT_EQ(Note(), "plan.bmp damaged");
}

TEST_F(PlcDocuments, ARefusedLinkIsNamedOnTheMessageLineUntilTheNextDocument) {
  Show(u"page.htm");
  Call(&PlcSession::OnLinkRefused, TextView(u"http://example.com"));
  EXPECT_THAT(All(), ElementsAre("message \"no link: http://example.com\""));
  EXPECT_EQ(view->Area(), "page");
  Escape();
  EXPECT_THAT(All(), ElementsAre("clear message", "HostToolClosed(1,2)", "view hide", "HostForwardKey(27)"));
}

TEST_F(PlcDocuments, AMessageAboutALinkIsClearedOnce) {
  Show(u"page.htm");
  Call(&PlcSession::OnLinkRefused, TextView(u"x:y"));
  All();
  Help(u"other.htm");
  EXPECT_THAT(All(), testing::Contains("clear message"));
  Help(u"page.htm");
  EXPECT_THAT(All(), testing::Not(testing::Contains("clear message")));
}

TEST_F(PlcDocuments, APictureThatIsGoneIsNamedAsOneThatCannotBeRead) {
  Show(u"plan.bmp");
  files.disc.erase("C:\\P61\\plan.bmp");
  Show(u"plan.bmp");
  EXPECT_EQ(Note(), "plan.bmp unreadable\nLooked in:\nC:\\P61\nC:\\P15");
  EXPECT_EQ(view->Area(), "note");
}

TEST_F(PlcDocuments, NothingOfADocumentIsLeftAfterItsWindow) {
  Show(u"page.htm");
  view->content = "text";
  Escape();
  EXPECT_EQ(tool->DocumentFile(), u"");
  EXPECT_EQ(tool->DocumentExt(), u"");
  EXPECT_EQ(view->page, u"") << "the page would stay in memory";
  EXPECT_EQ(view->content, "");
  EXPECT_EQ(Title(), "");
  EXPECT_EQ(Count(), "");
  EXPECT_EQ(view->Area(), "nothing");
  for (const PlcKey key : {PlcKey::kEnter, PlcKey::kSpace, PlcKey::kHome}) EXPECT_FALSE(Key(key));
}

TEST_F(PlcDocuments, ANoteGoesWithTheNextDocumentOfEveryKind) {
  for (const TextView file : {u"text.txt#1", u"page.htm", u"plan.bmp", u"film.avi"}) {
    Show(u"none.htm");
    ASSERT_EQ(view->Area(), "note");
    Show(file);
    EXPECT_EQ(view->Area().find("note"), std::string::npos) << ToUtf8(file);
  }
  Show(u"none.htm");
  Show(u"");
  EXPECT_EQ(view->Area(), "nothing");
}

// Places.

TEST_F(PlcDocuments, TheAreaIsTheClientAreaBelowATitleOf30) {
  view->parent = {0, 0, 640, 400};
  Call(&PlcSession::OnAreaResized);
  EXPECT_EQ(view->window, (Rect{0, 0, 640, 400}));
  EXPECT_EQ(view->rects[plc_id::kTitle], (Rect{0, 0, 640, 30}));
  for (const int id : {plc_id::kText, plc_id::kVideo, plc_id::kNote}) {
    EXPECT_EQ(view->rects[id], (Rect{0, 30, 640, 400}));
  }
}

// The web view is 16 shorter after a resize, until the next page is shown.
TEST_F(PlcDocuments, APageTakesTheFullAreaAndIs16ShorterAfterAResize) {
  view->parent = {0, 0, 640, 400};
  Call(&PlcSession::OnAreaResized);
  EXPECT_EQ(view->rects[plc_id::kPage], (Rect{0, 30, 640, 384}));
  Show(u"page.htm");
  EXPECT_EQ(view->rects[plc_id::kPage], (Rect{0, 30, 640, 400}));
  view->parent = {0, 0, 800, 500};
  Call(&PlcSession::OnAreaResized);
  EXPECT_EQ(view->rects[plc_id::kPage], (Rect{0, 30, 800, 484}));
}

TEST_F(PlcDocuments, AWindowWithoutHeightHasNoAreaOfNegativeSize) {
  view->parent = {0, 0, 10, 20};
  Call(&PlcSession::OnAreaResized);
  for (const auto& [id, rect] : view->rects) {
    EXPECT_GE(rect.Height(), 0) << id;
    EXPECT_GE(rect.Width(), 0) << id;
  }
}

}  // namespace
}  // namespace pnl::test
