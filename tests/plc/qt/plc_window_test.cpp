// SPDX-License-Identifier: MIT
// The PLC message view in a panel's window, off screen, with real keys, documents on a disc and a fake player.
#include "plc/qt/plc_window.h"

#include <QtWidgets/QScrollBar>
#include <filesystem>
#include <utility>

#include "plc_stage.h"
#include "support/event_wait.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

using PlcWindow = PlcStage;

TEST_F(PlcWindow, TheWindowHasItsDialogsSizeUntilTheHostResizesItsArea) {
  delete tool;
  Use(tool = new ZCPLCMsgView(context, area, {}));
  tool->Start();
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 354, 367));
  EXPECT_FALSE(tool->isVisible());
  area->resize(640, 400);
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 640, 400));
}

TEST_F(PlcWindow, AMessageShowsItsTitleAndText) {
  Report(3);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(Title(), " PLC message (3): message 3");
  EXPECT_EQ(TextOf(plc_id::kText).substr(0, 6), "line 0");
  EXPECT_EQ(Back(Control(plc_id::kTitle)), 0x2C8064u);
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)"));
  EXPECT_GT(Count(Paint(*tool), 0x2C8064, QRect(0, 0, 800, 30)), 5000);
}

TEST_F(PlcWindow, EveryKindOfDocumentHasItsView) {
  Report(3);
  EXPECT_TRUE(Shows(plc_id::kText) && !Shows(plc_id::kPage) && !Shows(plc_id::kVideo) && !Shows(plc_id::kNote));
  Help(u"page.htm");
  EXPECT_TRUE(!Shows(plc_id::kText) && Shows(plc_id::kPage) && !Shows(plc_id::kVideo));
  Help(u"film.avi");
  EXPECT_TRUE(!Shows(plc_id::kText) && !Shows(plc_id::kPage) && Shows(plc_id::kVideo));
  EXPECT_THAT(video, ElementsAre("load film.avi", "play"));
  Help(u"plan.bmp");
  EXPECT_TRUE(Shows(plc_id::kText) && !Shows(plc_id::kPage) && !Shows(plc_id::kVideo));
  EXPECT_EQ(Count(Paint(*Control(plc_id::kText)), kRed), 800 * 570) << "at the control's size";
  Help(u"none.htm");
  EXPECT_TRUE(!Shows(plc_id::kText) && !Shows(plc_id::kPage) && !Shows(plc_id::kVideo) && Shows(plc_id::kNote));
  EXPECT_THAT(TextOf(plc_id::kNote), testing::HasSubstr("none.htm"));
}

TEST_F(PlcWindow, AScriptSeesWhichFileIsShown) {
  const auto location = [this] { return Page().property("pnlLocation").toString().toStdString(); };
  Report(5);
  EXPECT_EQ(location(), "C:\\P61\\page.htm");
  Page().Follow(u"next.htm");
  EXPECT_EQ(location(), "C:\\P61\\next.htm");
}

TEST_F(PlcWindow, PhotosArePagesScaledToTheArea) {
  Help(u"photo.jpg");
  EXPECT_TRUE(Shows(plc_id::kPage));
  EXPECT_EQ(Count(Paint(Page()), kBlue), 570 * 570);
  Help(u"moving.gif");
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(Page()), kBlue) == 570 * 570; }));
  EXPECT_TRUE(RunUntil([this] { return Count(Paint(Page()), kRed) == 570 * 570; }));
}

TEST_F(PlcWindow, KeysDriveTheVideo) {
  File(u"film.avi");
  video.clear();
  EXPECT_TRUE(Key(Qt::Key_Return));
  EXPECT_TRUE(Key(Qt::Key_Space));
  EXPECT_TRUE(Key(Qt::Key_Home));
  EXPECT_THAT(video, ElementsAre("play", "stop", "stop", "rewind"));
  video.clear();
  for (const int command : {32771, 32772, 32773}) Send(PNL_MSG_COMMAND, command);
  EXPECT_THAT(video, ElementsAre("play", "stop", "stop", "rewind"));
}

TEST_F(PlcWindow, APageHasTheFocusAndKeepsItsKeys) {
  Report(5);
  EXPECT_EQ(Focus(), &Page().TextArea());
  PressKey(Focus(), Qt::Key_PageDown);
  EXPECT_GT(Page().ScrollPosition(), 0);
  PressKey(Focus(), Qt::Key_Home);
  EXPECT_EQ(Page().ScrollPosition(), 0);
  PressKey(Focus(), Qt::Key_PageDown);
  Report(7);
  EXPECT_EQ(Focus(), &Page().TextArea()) << "a higher code doesn't take the keys away";
  Escape();
  EXPECT_EQ(Title(), " PLC message (7): message 7");
}

// The window had the focus and kept it, so a long text couldn't be scrolled.
TEST_F(PlcWindow, ATextScrollsWithTheKeysFromTheFirstReportOn) {
  cnc.PlcMessage(0, 9, u"message 9", u"text.txt#3");
  Report(3);
  auto* const edit = Control(plc_id::kText)->findChild<QPlainTextEdit*>();
  EXPECT_EQ(Focus(), edit);
  PressKey(Focus(), Qt::Key_PageDown);
  EXPECT_GT(edit->verticalScrollBar()->value(), 0);
  Escape();
  Report(5);
  Report(9);
  Escape();
  EXPECT_EQ(Title(), " PLC message (9): message 9");
  EXPECT_EQ(Focus(), edit) << "after a page, too";
}

TEST_F(PlcWindow, ATextTakesTheKeysFromNobodyElse) {
  Report(3);
  Help(u"page.htm");
  other->setFocus();
  Send(RegisterMessage(PNL_NAME_HIDE_ERROR_HELP), 0, 0);
  EXPECT_TRUE(Shows(plc_id::kText));
  EXPECT_EQ(Focus(), other);
}

TEST_F(PlcWindow, APageThatIsTooLargeSaysSo) {
  Disc("C:\\P61\\huge.htm", "");
  std::filesystem::resize_file(*files.HostPath(u"C:\\P61\\huge.htm"), 50'000'001);
  Help(u"huge.htm");
  EXPECT_EQ(TextOf(plc_id::kNote), "huge.htm is too large to be shown.");
}

// A host dims its keys for the video by this property.
TEST_F(PlcWindow, ThePropertySaysWhetherAVideoIsShown) {
  const auto says = [this] { return tool->property(property::kVideo).toBool(); };
  EXPECT_FALSE(says());
  for (const TextView document : {u"text.txt#3", u"page.htm", u"plan.bmp", u"photo.jpg", u"none.htm", u""}) {
    Help(u"film.avi");
    EXPECT_TRUE(says());
    Help(document);
    EXPECT_FALSE(says()) << ToUtf8(document);
  }
  Help(u"film.avi");
  Escape();
  EXPECT_FALSE(says());
}

TEST_F(PlcWindow, AVideosPlayerGoesWithItsDocument) {
  Help(u"film.avi");
  EXPECT_EQ(StillPlayer::living, 1);
  Help(u"page.htm");
  EXPECT_EQ(StillPlayer::living, 0);
}

// The focus of a picture went to the text that it hides, which is nowhere.
TEST_F(PlcWindow, APictureTakesTheKeysBackWithEachReport) {
  for (const TextView file : {u"photo.jpg", u"plan.bmp"}) {
    Help(file);
    other->setFocus();
    Report(0);
    ASSERT_NE(Focus(), nullptr);
    EXPECT_TRUE(Focus() == tool || tool->isAncestorOf(Focus()));
    Escape();
  }
}

TEST_F(PlcWindow, EscInHelpClosesTheHelpAndForwardsEscToTheHost) {
  Help(u"page.htm");
  TakeHostCalls();
  Escape();
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolClosed(1,2)", "HostForwardKey(27)"));
  EXPECT_FALSE(tool->isVisible());
  EXPECT_NE(Focus(), tool);
}

TEST_F(PlcWindow, EscIsTheWindowsBeforeItIsAShortcutOfThePanel) {
  Report(3);
  QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
  asked.ignore();
  QApplication::sendEvent(tool, &asked);
  EXPECT_TRUE(asked.isAccepted());
}

TEST_F(PlcWindow, AKeyOfTheWindowDoesntReachThePanelEvenIfItComesUnaccepted) {
  File(u"film.avi");
  for (const auto& [key, used] : {std::pair(Qt::Key_Space, true), std::pair(Qt::Key_A, false)}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    press.ignore();
    QApplication::sendEvent(tool, &press);
    EXPECT_EQ(press.isAccepted(), used) << key;
  }
}

// The window watches the size of its parent, which is the host's.
TEST_F(PlcWindow, TheHostsAreaGetsItsOwnEvents) {
  class Taker final : public QObject {
   public:
    int seen = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Resize) ++seen;
      return false;
    }
  } hosts;
  delete tool;
  area->installEventFilter(&hosts);
  Open();
  hosts.seen = 0;
  area->resize(640, 400);
  EXPECT_EQ(hosts.seen, 1);
  EXPECT_EQ(tool->size(), QSize(640, 400));
}

TEST_F(PlcWindow, HelpIsHiddenByTheHost) {
  Report(5);
  Help(u"plan.bmp");
  Send(RegisterMessage(PNL_NAME_HIDE_ERROR_HELP), 0, 0);
  EXPECT_EQ(Title(), " PLC message (5): message 5");
}

TEST_F(PlcWindow, ToolCommandsHideTheWindowAndStepTheQueue) {
  Report(3);
  Report(5);
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 6), 0);
  EXPECT_FALSE(tool->isVisible());
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 20), 0);
  EXPECT_EQ(Title(), " PLC message (5): message 5");
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 34), 0);
  EXPECT_THAT(TakeHostCalls(), Contains("HostToolClosed(1,2)"));
}

TEST_F(PlcWindow, ANullRecordDoesNothing) {
  Send(RegisterMessage(PNL_NAME_SHOW_FILE), 0, 0);
  Send(RegisterMessage(PNL_NAME_SHOW_ERROR_HELP), 0, 0);
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(PlcWindow, DisplacedDocumentsKeepTheirPlaces) {
  Report(5);
  Page().Follow(u"next.htm");
  Page().SetScrollPosition(77);
  Report(3);
  auto* const edit = Control(plc_id::kText)->findChild<QPlainTextEdit*>();
  edit->verticalScrollBar()->setValue(42);
  Help(u"page.htm");
  EXPECT_EQ(Page().Address(), u"page.htm");
  Escape();
  EXPECT_EQ(edit->verticalScrollBar()->value(), 42);
  Escape();
  EXPECT_EQ(Page().Address(), u"next.htm");
  EXPECT_EQ(Page().ScrollPosition(), 77);
}

// The place of the page that is gone was used for the document's first page.
TEST_F(PlcWindow, ADisplacedDocumentWhosePageIsGoneBeginsAnew) {
  Report(5);
  Page().Follow(u"next.htm");
  Page().SetScrollPosition(77);
  Report(3);
  std::filesystem::remove(*files.HostPath(u"C:\\P61\\next.htm"));
  TakeHostCalls();
  Escape();
  EXPECT_EQ(Page().Address(), u"page.htm");
  EXPECT_EQ(Page().ScrollPosition(), 0);
  EXPECT_THAT(TakeHostCalls(), testing::IsEmpty()) << "no link was followed";
}

TEST_F(PlcWindow, ALinkOutOfTheDocumentIsRefusedWithAMessage) {
  Report(5);
  TakeHostCalls();
  Page().Follow(u"http://example.com/x.htm");
  EXPECT_THAT(TakeHostCalls(), ElementsAre("message \"This link cannot be followed: http://example.com/x.htm\""));
  EXPECT_EQ(Page().Address(), u"page.htm");
  Escape();
  EXPECT_THAT(TakeHostCalls(), Contains("clear message"));
}

// A link is refused silently only while the window itself looks for a page.
TEST_F(PlcWindow, ALinkIsRefusedAloudAfterAPageThatIsGone) {
  Report(5);
  Page().Follow(u"next.htm");
  Report(3);
  std::filesystem::remove(*files.HostPath(u"C:\\P61\\next.htm"));
  Escape();
  TakeHostCalls();
  Page().Follow(u"next.htm");
  EXPECT_THAT(TakeHostCalls(), ElementsAre("message \"This link cannot be followed: next.htm\""));
}

TEST_F(PlcWindow, OnlyPlainKeysAreTheWindows) {
  Report(3);
  for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier, Qt::ShiftModifier}) {
    Key(Qt::Key_Escape, held);
    EXPECT_TRUE(tool->isVisible()) << held;
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Escape, held);
    asked.ignore();
    QApplication::sendEvent(tool, &asked);
    EXPECT_FALSE(asked.isAccepted()) << held;
  }
  QKeyEvent home(QEvent::ShortcutOverride, Qt::Key_Home, Qt::NoModifier);
  home.ignore();
  QApplication::sendEvent(tool, &home);
  EXPECT_FALSE(home.isAccepted()) << "only Escape comes before the panel's shortcuts";
  EXPECT_TRUE(Key(Qt::Key_Escape, Qt::KeypadModifier));
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(PlcWindow, AThousandDocumentsOfEveryKindLeaveNothingBehind) {
  static constexpr TextView kDocuments[] = {u"text.txt#3", u"page.htm", u"plan.bmp", u"photo.jpg",
                                            u"moving.gif", u"film.avi", u"none.htm"};
  Help(u"page.htm");
  const auto objects = [this] { return tool->findChildren<QObject*>().size(); };
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
  };
  Help(u"page.htm");
  const auto before = objects();
  const auto openBefore = openFiles();
  for (int i = 0; i < 1000; ++i) {
    Help(kDocuments[static_cast<std::size_t>(i) % std::size(kDocuments)]);
  }
  Help(u"page.htm");
  EXPECT_LE(objects(), before + 2);
  EXPECT_EQ(openFiles(), openBefore);
  EXPECT_FALSE(Page().CanGoBack());
}

}  // namespace
}  // namespace pnl::test
