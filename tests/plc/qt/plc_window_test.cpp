// SPDX-License-Identifier: MIT
// The PLC message view in a panel's window, off screen, with real keys, documents on a disc and a fake player.
#include "plc/qt/plc_window.h"

#include <QtGui/QFontMetrics>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <filesystem>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "controls/system_colors.h"
#include "plc/plc_ids.h"
#include "support/deleting_host.h"
#include "support/event_wait.h"
#include "support/picture_bytes.h"
#include "support/text_catcher.h"
#include "support/window_stage.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr std::uint32_t kRed = 0x0000FF;
constexpr std::uint32_t kBlue = 0xFF0000;

class StillPlayer final : public VideoPlayer {
 public:
  explicit StillPlayer(Log& log) : log_(log) {}
  void Load(const std::string& hostPath) override {
    log_.push_back("load " + hostPath.substr(hostPath.rfind('/') + 1));
  }
  void Play() override { log_.push_back("play"); }
  void Stop() override { log_.push_back("stop"); }
  void Rewind() override { log_.push_back("rewind"); }
  [[nodiscard]] std::int64_t Position() const override { return 0; }

 private:
  Log& log_;
};

class PlcWindow : public WindowStage {
 protected:
  PlcWindow() : WindowStage({900, 700}, {20, 10, 800, 600}) {
    cnc.Define(u"E.PLCMSGDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
    for (const int id : {3, 5, 7}) {
      cnc.PlcMessage(0, id, u"message " + FromUtf8(std::to_string(id)),
                     id == 3 ? u"text.txt#3" : (id == 5 ? u"page.htm" : u"plan.bmp"));
    }
    std::string lines;
    for (int i = 0; i < 300; ++i) lines += "line " + std::to_string(i) + "\n";
    cnc.Description(u"C:\\P61\\text.txt", 3, FromUtf8(lines));
    Disc("C:\\P61\\text.txt", "");
    Disc("C:\\P61\\page.htm", "<p>page</p><p><a href=next.htm>next</a></p>" + Paragraphs());
    Disc("C:\\P61\\next.htm", "<p>next page</p>" + Paragraphs());
    Disc("C:\\P61\\plan.bmp", PictureBytes({4, 4}, Qt::red, "BMP"));
    Disc("C:\\P61\\photo.jpg", PictureBytes({4, 4}, Qt::blue, "PNG"));
    Disc("C:\\P61\\moving.gif", GifBytes());
    Disc("C:\\P61\\film.avi", "avi");
    Open();
  }
  static std::string Paragraphs() {
    std::string all;
    for (int i = 0; i < 100; ++i) all += "<p>paragraph</p>";
    return all;
  }
  void Open() {
    Use(tool = new ZCPLCMsgView(context, area, [this](VideoPlayer::Listener listener) {
          player = std::move(listener);
          return std::make_unique<StillPlayer>(video);
        }));
    tool->Start();
    Settle();
    // Larger than its dialog, as when the host has resized its area.
    area->resize(area->width() - 1, area->height());
    area->resize(area->width() + 1, area->height());
    TakeHostCalls();
  }
  void Report(std::int64_t code) {
    EXPECT_TRUE(cnc.Set(u"E.PLCMSGDATA", code));
    Settle();
  }
  void SendRecord(const char* name, TextView file, TextView title) {
    const Text fileText(file);
    const Text titleText(title);
    const ShowFileRecord record{0x00FF00, 0x000000, fileText.c_str(), titleText.c_str()};
    WindowStage::Send(RegisterMessage(name), 0, reinterpret_cast<std::intptr_t>(&record));
    Settle();
  }
  void Help(TextView file) { SendRecord(PNL_NAME_SHOW_ERROR_HELP, file, u"Help"); }
  void File(TextView file, TextView title = u"File") { SendRecord(PNL_NAME_SHOW_FILE, file, title); }
  void Escape() {
    EXPECT_TRUE(Key(Qt::Key_Escape));
    Settle();
  }
  [[nodiscard]] std::string Title() const { return TextOf(plc_id::kTitle); }
  [[nodiscard]] PageBrowser& Page() const { return *static_cast<PageBrowser*>(Control(plc_id::kPage)); }
  [[nodiscard]] bool Shows(int id) const { return Control(id)->isVisible(); }

  Log video;
  VideoPlayer::Listener player;
  QPointer<ZCPLCMsgView> tool;
};

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

// A panel with light letters made a text unlike a page, and the note unreadable on the window's white.
TEST_F(PlcWindow, TextsAndNotesAreBlackOnWhiteInEveryPanel) {
  QPalette dark;
  for (const auto role : {QPalette::Window, QPalette::Base}) dark.setColor(role, Qt::blue);
  for (const auto role : {QPalette::WindowText, QPalette::Text}) dark.setColor(role, Qt::red);
  area->setPalette(dark);
  delete tool;
  Open();
  Report(3);
  EXPECT_GT(Count(Paint(*Control(plc_id::kText)), 0), 100);
  EXPECT_EQ(Count(Paint(*Control(plc_id::kText)), kBlue, QRect(0, 0, 700, 570)), 0);
  Help(u"none.htm");
  EXPECT_GT(Count(Paint(*tool), 0, QRect(0, 40, 800, 560)), 100);
  EXPECT_EQ(Count(Paint(*tool), kRed), 0);
}

TEST_F(PlcWindow, PagesAndNotesHaveALegibleFontOnEveryPanel) {
  const auto reopen = [this](int fitted) {
    EXPECT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {fitted}));
    delete tool;
    Open();
  };
  reopen(30);
  const int large = MakeFont(QStringLiteral("Arial"), 30, 400)->pixelSize();
  EXPECT_EQ(Page().TextArea().font().pixelSize(), large);
  EXPECT_EQ(Control(plc_id::kNote)->font().pixelSize(), large);
  reopen(0);
  EXPECT_EQ(Page().TextArea().font().pixelSize(), MakeFont(QStringLiteral("Arial"), 17, 400)->pixelSize());
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

TEST_F(PlcWindow, ALongDocumentHasAScrollBarForAFinger) {
  Report(3);
  EXPECT_EQ(Control(plc_id::kText)->findChild<QPlainTextEdit*>()->verticalScrollBar()->width(),
            FingerPixels(*Control(plc_id::kText)));
  Help(u"page.htm");
  EXPECT_EQ(Page().TextArea().verticalScrollBar()->width(), FingerPixels(*Control(plc_id::kText)));
}

TEST_F(PlcWindow, ATextTakesTheKeysFromNobodyElse) {
  Report(3);
  Help(u"page.htm");
  other->setFocus();
  Send(RegisterMessage(PNL_NAME_HIDE_ERROR_HELP), 0, 0);
  EXPECT_TRUE(Shows(plc_id::kText));
  EXPECT_EQ(Focus(), other);
}

TEST_F(PlcWindow, TheFontsAreThoseOfTheDialog) {
  Report(3);
  Report(5);
  const QFont title = Control(plc_id::kCount)->font();
  EXPECT_EQ(title.weight(), QFont::Normal);
  EXPECT_EQ(title.pixelSize(), MakeFont(QStringLiteral("Arial"), 25, 400)->pixelSize());
  EXPECT_NEAR(QFontMetrics(title).averageCharWidth(), 10, 1);
  const QFont text = Control(plc_id::kText)->findChild<QPlainTextEdit*>()->font();
  EXPECT_EQ(text.families().value(0), "Times New Roman");
  EXPECT_EQ(text.weight(), QFont::Normal);
  EXPECT_EQ(text.pixelSize(), MakeFont(QStringLiteral("Times New Roman"), 21, 400)->pixelSize());
}

TEST_F(PlcWindow, TheWindowsColourFillsAnEmptyArea) {
  Report(0);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(Count(Paint(*tool), SystemColor(kColorWindow), QRect(0, 30, 800, 570)), 800 * 570);
}

TEST_F(PlcWindow, WhatLiesBelowItIsNotPaintedWithIt) {
  Report(0);
  const PaintCounter below(*area);
  const PaintCounter own(*tool);
  tool->update();
  Settle();
  EXPECT_EQ(own.Count(), 1);
  EXPECT_EQ(below.Count(), 0);
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

TEST_F(PlcWindow, TheCountIsInTheTitleLine) {
  Report(3);
  EXPECT_EQ(TextOf(plc_id::kCount), "");
  Report(5);
  EXPECT_EQ(TextOf(plc_id::kCount), "1 of 2");
  const QRect place = Control(plc_id::kCount)->geometry();
  EXPECT_TRUE(QRect(400, 0, 400, 30).contains(place));
  EXPECT_GT(place.width(), 20);
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

TEST_F(PlcWindow, TheTextsAreShownAsTheyAre) {
  cnc.PlcMessage(0, 3, u"<b>bold</b>", u"<i>none</i>.htm");
  Report(3);
  EXPECT_EQ(Control(plc_id::kNote)->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
  EXPECT_EQ(Title(), " PLC message (3): <b>bold</b>");
}

TEST_F(PlcWindow, TheTitleLineHasItsTextInItsColoursBesideTheCount) {
  const auto title = [this] { return Paint(*Control(plc_id::kTitle)); };
  File(u"text.txt#3", u"Maintenance");
  EXPECT_EQ(Fore(Control(plc_id::kTitle)), 0u);
  EXPECT_EQ(Control(plc_id::kTitle)->accessibleName(), "Maintenance");
  const QRect alone = Ink(title(), 0x00FF00, QRect(0, 0, 800, 30));
  EXPECT_GE(alone.left(), 6);
  EXPECT_LT(alone.left(), 12);
  EXPECT_NEAR(alone.center().y(), 15, 4);
  EXPECT_EQ(Control(plc_id::kCount)->width(), 0) << "one alone isn't counted";
  File(u"page.htm", u"Second");
  const QRect count = Control(plc_id::kCount)->geometry();
  EXPECT_EQ(count.right(), 800 - 1 - 6);
  EXPECT_EQ(count.height(), 30);
  Escape();
  const QString wide = QString("wide ").repeated(100);
  Escape();
  File(u"text.txt#3", FromQString(wide));
  File(u"page.htm", u"Second");
  const int end = Control(plc_id::kCount)->x();
  ASSERT_LT(end, 790);
  EXPECT_TRUE(Ink(title(), 0x00FF00, QRect(end - 4, 0, 4, 30)).isEmpty()) << "the text ends before the count";
  area->resize(100, 600);
  EXPECT_LE(Control(plc_id::kCount)->width(), 33) << "a third, and no more";
}

TEST_F(PlcWindow, TheTitleLineShowsASignForShortcutsAsItIs) {
  File(u"text.txt#3", u"Oil & water");
  EXPECT_EQ(TextsOf(*Control(plc_id::kTitle)).join(""), "Oil & water");
}

TEST_F(PlcWindow, ATitleLineThatChangesIsPaintedAnew) {
  Report(3);
  auto* const title = static_cast<PlcTitleWidget*>(Control(plc_id::kTitle));
  const PaintCounter paints(*title);
  const auto after = [&paints](const std::function<void()>& change) {
    Settle();
    const int before = paints.Count();
    change();
    Settle();
    return paints.Count() - before;
  };
  EXPECT_GT(after([title] { title->SetText("another"); }), 0);
  EXPECT_GT(after([title] { title->SetColors(0x123456, 0xFFFFFF); }), 0);
  EXPECT_GT(after([title] { title->SetCount("1 of 2"); }), 0);
  EXPECT_EQ(after([] {}), 0);
}

// The room that a count gives back has a part of the title that was cut.
TEST_F(PlcWindow, WithoutItsCountTheWholeTitleLineIsPaintedAnew) {
  class PaintedArea final : public QObject {
   public:
    QRegion area;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) area += static_cast<QPaintEvent*>(event)->region();
      return false;
    }
  } painted;
  Report(3);
  Report(5);
  auto* const title = static_cast<PlcTitleWidget*>(Control(plc_id::kTitle));
  Settle();
  title->installEventFilter(&painted);
  title->SetCount({});
  Settle();
  EXPECT_EQ(painted.area.boundingRect(), title->rect());
}

TEST_F(PlcWindow, TheCountHasTheTitlesColour) {
  Report(3);
  File(u"text.txt#3");
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL);
  const QColor text = Control(plc_id::kCount)->palette().color(QPalette::WindowText);
  EXPECT_EQ(text, ToQColor(Fore(Control(plc_id::kTitle))));
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

TEST_F(PlcWindow, ANoteIsInTheMiddleWithRoomAround) {
  Help(u"none.htm");
  const auto* note = static_cast<const QLabel*>(Control(plc_id::kNote));
  EXPECT_EQ(note->margin(), 12);
  EXPECT_EQ(note->alignment(), Qt::AlignCenter);
  EXPECT_TRUE(note->wordWrap());
  EXPECT_EQ(note->font().weight(), QFont::Normal);
  EXPECT_EQ(note->geometry(), QRect(0, 30, 800, 570));
}

TEST_F(PlcWindow, TheWindowAndItsTextTakeTheFocusOfAPress) {
  EXPECT_EQ(tool->focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(Control(plc_id::kText)->focusPolicy(), Qt::StrongFocus);
  Report(3);
  auto* const edit = Control(plc_id::kText)->findChild<QPlainTextEdit*>();
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), edit);
  Help(u"plan.bmp");
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), nullptr) << "the text is hidden behind its picture";
  Help(u"text.txt#3");
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), edit);
}

TEST_F(PlcWindow, ATextCanBeReadAndNotChanged) {
  Report(3);
  const auto* edit = Control(plc_id::kText)->findChild<QPlainTextEdit*>();
  EXPECT_TRUE(edit->isReadOnly());
  EXPECT_FALSE(edit->isUndoRedoEnabled()) << "each text would stay in memory";
  EXPECT_EQ(edit->document()->documentMargin(), 12);
  EXPECT_EQ(edit->frameShape(), QFrame::NoFrame);
  EXPECT_EQ(edit->contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_EQ(Control(plc_id::kTitle)->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(Back(tool), SystemColor(kColorWindow));
  EXPECT_EQ(tool->property(property::kTitle).toString(), QString::fromStdString(Title()));
}

TEST_F(PlcWindow, APictureLeavesNothingOfTheTextAndATextNothingOfThePicture) {
  Report(3);
  Help(u"plan.bmp");
  EXPECT_EQ(TextOf(plc_id::kText), "");
  Help(u"text.txt#3");
  EXPECT_EQ(Count(Paint(*Control(plc_id::kText)), kRed), 0);
  EXPECT_EQ(TextOf(plc_id::kText).substr(0, 6), "line 0");
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

TEST_F(PlcWindow, TheWindowMayGoInEveryCallOfTheHost) {
  delete area;
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(
      killer, {[this] {
                 MakeArea();
                 Open();
               },
               {[this] { Report(5); }, [this] { Page().Follow(u"http://example.com"); }, [this] { Help(u"film.avi"); },
                [this] { Key(Qt::Key_Escape), Settle(); }, [this] { File(u"plan.bmp"); },
                [this] { Key(Qt::Key_Escape), Settle(); }, [this] { Key(Qt::Key_Escape), Settle(); }},
               [this] { delete area; },
               [this] {
                 Settle();
                 delete area;
                 EXPECT_EQ(cnc.OpenReports(), 0u);
               }});
  EXPECT_THAT(calls, testing::IsSupersetOf({"HostMayOpenTool", "HostToolOpening", "HostToolClosed", "HostForwardKey",
                                            "HostShowMessage"}));
}

}  // namespace
}  // namespace pnl::test
