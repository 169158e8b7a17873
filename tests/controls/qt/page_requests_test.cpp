// SPDX-License-Identifier: MIT
// Hostile pages ask for everything that a page can name: nothing is read but the document's own files, nobody is
// connected to, and no other program is called.
#include <gmock/gmock.h>

#include <QtGui/QDesktopServices>
#include <QtWidgets/QTextBrowser>

#include "base/drive_map.h"
#include "base/files.h"
#include "controls/page_browser.h"
#include "pages/folder_pages.h"
#include "support/picture_bytes.h"
#include "support/request_traps.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

constexpr std::uint32_t kRed = 0x0000FF;

/// The pages of a folder, which notes every file that is read.
class NotedPages final : public PageSource {
 public:
  NotedPages(const Files& files, const Text& folder) : pages_(files, folder) {}
  std::vector<std::string> read;

 protected:
  PageBytes Load(TextView page) override {
    read.push_back(ToUtf8(page));
    return pages_.Read(page);
  }

 private:
  FolderPages pages_;
};

/// Counts what would be opened in another program. Qt calls a handler by the name of one of its slots, and setSource of
/// a text browser is such a slot.
class Programs final : public QTextBrowser {
 public:
  Programs() {
    for (const char* scheme : kSchemes) QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "setSource");
  }
  ~Programs() override {
    for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
  }
  int called = 0;

 protected:
  void doSetSource(const QUrl& /*name*/, QTextDocument::ResourceType /*type*/) override { ++called; }

 private:
  static constexpr const char* kSchemes[] = {"http", "https", "ftp", "file", "mailto", "javascript", "data", "smb"};
};

class PageRequests : public testing::Test {
 protected:
  PageRequests() {
    disc_.Write("SECRET/secret.png", PictureBytes({20, 20}, Qt::red, "PNG"));
    disc_.Write("SECRET/secret.css", "p { background-color: #ff0000 }");
    disc_.Write("SECRET/secret.htm", "<p>secret</p>");
    drives_.Set('C', disc_.Path().string());
    view_.resize(400, 300);
    Activate(view_);
  }
  /// References to places that no page may reach. Each ends with the name of a file.
  [[nodiscard]] std::vector<std::string> Foreign(const std::string& file) const {
    const std::string host = network_.Host() + "/" + file;
    const std::string absolute = (disc_.Path() / "SECRET" / file).string();
    return {"http://" + host,
            "HTTPS://" + host,
            "ftp://" + host,
            "ws://" + host,
            "http:" + host,
            "//" + host,
            "///" + host,
            "http%3A//" + host,
            " \thttp://" + host,
            "\\\\" + host,
            "\\\\127.0.0.1\\share\\" + file,
            "%5c%5c127.0.0.1%5cshare%5c" + file,
            "smb://127.0.0.1/share/" + file,
            "view-source:http://" + host,
            "url(http://" + host + ")",
            "file://" + absolute,
            "file:" + absolute,
            "FILE://localhost" + absolute,
            absolute,
            "//" + absolute,
            "../SECRET/" + file,
            "..\\SECRET\\" + file,
            "%2e%2e/SECRET/" + file,
            "..%2fSECRET%2f" + file,
            "sub/../../SECRET/" + file,
            "C:/SECRET/" + file,
            "C:\\SECRET\\" + file,
            "c%3a/SECRET/" + file,
            "qrc:/" + file,
            ":/" + file,
            "javascript:open('http://" + host + "')",
            "vbscript:open('http://" + host + "')",
            "mailto:a@" + host,
            "data:text/html,<img src=http://" + host + ">",
            "data:image/png;base64,iVBORw0KGgo="};
  }
  /// A page with the reference in every place that takes one.
  static std::string PageWith(const std::string& reference) {
    static constexpr const char* kPlaces[] = {
        "<meta http-equiv=refresh content=\"0; url=@\">",
        "<base href=\"@\">",
        "<link rel=stylesheet href=\"@\">",
        "<link rel=stylesheet type=text/css href=own.css>",
        "<link rel=icon href=\"@\"><link rel=prefetch href=\"@\">",
        "<style>@import url(@); @import '@'; @font-face { font-family: x; src: url(@) }</style>",
        "<style>p { background-image: url(@); font-family: x } li { list-style-image: url('@') }</style>",
        "<script src=\"@\"></script><script>location = '@'; new Image().src = '@'</script>",
        "<body background=\"@\" onload=\"location='@'\">",
        "<p style=\"background-image: url(@); background: url('@')\">text</p>",
        "<img src=\"@\" srcset=\"@ 2x\" lowsrc=\"@\" onerror=\"location='@'\" longdesc=\"@\">",
        "<table background=\"@\"><tr><td background=\"@\" style=\"background-image:url(@)\">cell</td></tr></table>",
        "<ul style=\"list-style-image: url(@)\"><li>item</li></ul>",
        "<iframe src=\"@\" srcdoc=\"<img src='@'>\"></iframe><frameset><frame src=\"@\"></frameset>",
        "<object data=\"@\" codebase=\"@\"><param name=movie value=\"@\"></object><embed src=\"@\">",
        "<applet codebase=\"@\" archive=\"@\"></applet>",
        "<video src=\"@\" poster=\"@\"><source src=\"@\"></video><audio src=\"@\"></audio><bgsound src=\"@\">",
        "<svg><image href=\"@\" xlink:href=\"@\"/><use href=\"@\"/></svg>",
        "<form action=\"@\"><input type=image src=\"@\"><input type=submit></form>",
        "<a href=\"@\" ping=\"@\">link</a>"};
    std::string page;
    for (const char* const place : kPlaces) {
      const std::string part = place;
      for (std::size_t i = 0; i < part.size(); ++i) {
        const bool import = part.compare(i, 7, "@import") == 0 || part.compare(i, 5, "@font") == 0;
        page += part[i] == '@' && !import ? reference : std::string(1, part[i]);
      }
    }
    return page;
  }
  /// The link that the page consists of, pressed with the mouse.
  void PressLink() {
    QTextBrowser& text = view_.TextArea();
    text.moveCursor(QTextCursor::Start);
    const QPoint place = text.cursorRect().center() + QPoint(3, 0);
    PressMouse(text.viewport(), place);
    PressMouse(text.viewport(), place, QEvent::MouseButtonRelease);
    Settle();
  }
  [[nodiscard]] std::shared_ptr<NotedPages> Show(const std::string& page) {
    disc_.Write("DOC/page.htm", page);
    auto pages = std::make_shared<NotedPages>(files_, u"C:\\DOC");
    EXPECT_TRUE(view_.ShowPage(pages, u"page.htm", {}));
    Settle();
    return pages;
  }
  void ExpectNothingLeft() {
    EXPECT_EQ(network_.Connections(), 0);
    EXPECT_FALSE(secrets_.Sprung());
    EXPECT_EQ(programs_.called, 0);
  }

  TempFolder disc_;
  DriveMap drives_;
  DiscFiles files_{drives_};
  ConnectionTrap network_;
  OpenTrap secrets_{disc_.Folder("SECRET")};
  Programs programs_;
  PageBrowser view_{1001, nullptr};
};

// Else the other tests would show nothing.
TEST_F(PageRequests, TheTrapsCountWhatReachesThem) {
  static_cast<void>(secrets_.Sprung());
  network_.Connect();
  EXPECT_EQ(network_.Connections(), 1);
  EXPECT_EQ(network_.Connections(), 0);
  EXPECT_EQ(FolderPages(files_, u"C:\\SECRET").Read(u"secret.htm").bytes, "<p>secret</p>");
  EXPECT_TRUE(secrets_.Sprung());
  EXPECT_FALSE(secrets_.Sprung());
  QDesktopServices::openUrl(QUrl(QStringLiteral("http://127.0.0.1/")));
  EXPECT_EQ(programs_.called, 1);
}

TEST_F(PageRequests, NothingButTheDocumentsFilesIsReadWhenAPageIsShown) {
  static_cast<void>(secrets_.Sprung());
  for (const char* file : {"secret.png", "secret.css", "secret.htm"}) {
    for (const std::string& reference : Foreign(file)) {
      SCOPED_TRACE(reference);
      disc_.Write("DOC/own.css", "@import url(" + reference + "); @import '" + reference +
                                     "'; p { background-image: url(" + reference + ") }");
      const auto pages = Show(PageWith(reference));
      const QImage painted = Paint(view_);
      EXPECT_EQ(Count(painted, kRed), 0);
      view_.Reload();
      Settle();
      // A style sheet drops backslashes, and what is left is a name in the document's folder.
      EXPECT_THAT(pages->read, Each(AnyOf("page.htm", "own.css", Not(HasSubstr("/")))));
      EXPECT_THAT(pages->read, Contains("own.css")) << "and the page is read to its end";
      EXPECT_EQ(view_.Address(), u"page.htm");
      ExpectNothingLeft();
    }
  }
}

// The answer for the style sheet was kept under its address, and for the picture of that address the browser took it
// for none and opened the file.
TEST_F(PageRequests, APictureThatIsAlsoAStyleSheetIsNotOpenedByItsName) {
  static_cast<void>(secrets_.Sprung());
  const std::string file = (disc_.Path() / "SECRET/secret.png").string();
  static_cast<void>(Show("<link rel=stylesheet href=\"" + file + "\"><p>text<img src=\"" + file + "\"></p>"));
  EXPECT_EQ(Count(Paint(view_), kRed), 0);
  ExpectNothingLeft();
}

TEST_F(PageRequests, ALinkOutOfTheDocumentReadsNothingAndCallsNoProgram) {
  static_cast<void>(secrets_.Sprung());
  for (const std::string& reference : Foreign("secret.htm")) {
    SCOPED_TRACE(reference);
    const auto pages = Show("<a href=\"" + reference + "\">link link link</a>");
    PressLink();
    EXPECT_FALSE(view_.Follow(FromUtf8(reference)));
    EXPECT_EQ(pages->read, std::vector<std::string>{"page.htm"});
    EXPECT_EQ(view_.Address(), u"page.htm");
    ExpectNothingLeft();
  }
}

}  // namespace
}  // namespace pnl::test
