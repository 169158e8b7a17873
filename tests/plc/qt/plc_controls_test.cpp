// SPDX-License-Identifier: MIT
// The controls of the PLC message view: their fonts and colours, what they paint, and the focus of its text.
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "controls/system_colors.h"
#include "plc_stage.h"
#include "support/text_catcher.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

class PlcControls : public PlcStage {};

// A panel with light letters made a text unlike a page, and the note unreadable on the window's white.
TEST_F(PlcControls, TextsAndNotesAreBlackOnWhiteInEveryPanel) {
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

TEST_F(PlcControls, PagesAndNotesHaveALegibleFontOnEveryPanel) {
  const auto reopen = [this](int fitted) {
    EXPECT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {fitted}));
    delete tool;
    Open();
  };
  reopen(30);
  const int large = MakeFont(QStringLiteral("Arial"), 30, 400)->pixelSize();
  EXPECT_EQ(Page().TextArea().font().pixelSize(), large);
  EXPECT_EQ(Control(plc_id::kNote)->font().pixelSize(), large);
  for (const auto& [fitted, height] : {std::pair(1, 1), std::pair(0, 17)}) {
    reopen(fitted);
    EXPECT_EQ(Page().TextArea().font().pixelSize(), MakeFont(QStringLiteral("Arial"), height, 400)->pixelSize());
  }
}

TEST_F(PlcControls, ALongDocumentHasAScrollBarForAFinger) {
  Report(3);
  EXPECT_EQ(Control(plc_id::kText)->findChild<QPlainTextEdit*>()->verticalScrollBar()->width(),
            FingerPixels(*Control(plc_id::kText)));
  Help(u"page.htm");
  EXPECT_EQ(Page().TextArea().verticalScrollBar()->width(), FingerPixels(*Control(plc_id::kText)));
}

TEST_F(PlcControls, TheFontsAreThoseOfTheDialog) {
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

TEST_F(PlcControls, TheWindowsColourFillsAnEmptyArea) {
  Report(0);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(Count(Paint(*tool), SystemColor(kColorWindow), QRect(0, 30, 800, 570)), 800 * 570);
}

TEST_F(PlcControls, WhatLiesBelowItIsNotPaintedWithIt) {
  Report(0);
  ExpectPaintedAlone(*tool, *area);
}

TEST_F(PlcControls, WhatLiesBelowItsTitleIsNotPaintedWithIt) {
  Report(3);
  ExpectPaintedAlone(*Control(plc_id::kTitle), *tool);
}

TEST_F(PlcControls, TheCountIsInTheTitleLine) {
  Report(3);
  EXPECT_EQ(TextOf(plc_id::kCount), "");
  Report(5);
  EXPECT_EQ(TextOf(plc_id::kCount), "1 of 2");
  const QRect place = Control(plc_id::kCount)->geometry();
  EXPECT_TRUE(QRect(400, 0, 400, 30).contains(place));
  EXPECT_GT(place.width(), 20);
}

TEST_F(PlcControls, TheTextsAreShownAsTheyAre) {
  cnc.PlcMessage(0, 3, u"<b>bold</b>", u"<i>none</i>.htm");
  Report(3);
  for (const int id : {plc_id::kNote, plc_id::kCount}) {
    EXPECT_EQ(Control(id)->property("textFormat").toInt(), static_cast<int>(Qt::PlainText)) << id;
  }
  EXPECT_EQ(Title(), " PLC message (3): <b>bold</b>");
}

TEST_F(PlcControls, TheTitleLineHasItsTextInItsColoursBesideTheCount) {
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

TEST_F(PlcControls, TheTitleIsWrittenInItsFontInTheMiddleOfItsLine) {
  constexpr std::uint32_t kFlags = draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis;
  auto* const title = static_cast<PlcTitleWidget*>(Control(plc_id::kTitle));
  title->SetText("Heights");
  title->SetColors(0xFF0000, 0xFFFFFF);
  EXPECT_EQ(title->property("pnlFore").toUInt(), 0xFFFFFFu);
  for (const int height : {30, 31}) {
    title->resize(300, height);
    QImage expected(title->size(), QImage::Format_RGB32);
    expected.fill(Qt::blue);
    QPainter painter(&expected);
    painter.setFont(Control(plc_id::kCount)->font());
    painter.setPen(Qt::white);
    DrawText(painter, QRect(6, 0, 300 - 3 * 6, height), QString("Heights"), kFlags);
    painter.end();
    EXPECT_EQ(Paint(*title), expected) << height;
  }
}

TEST_F(PlcControls, TheTitleLineShowsASignForShortcutsAsItIs) {
  File(u"text.txt#3", u"Oil & water");
  EXPECT_EQ(TextsOf(*Control(plc_id::kTitle)).join(""), "Oil & water");
}

TEST_F(PlcControls, ATitleLineThatChangesIsPaintedAnew) {
  Report(3);
  auto* const title = static_cast<PlcTitleWidget*>(Control(plc_id::kTitle));
  EXPECT_GT(PaintsAfter(*title, [title] { title->SetText("another"); }), 0);
  EXPECT_GT(PaintsAfter(*title, [title] { title->SetColors(0x123456, 0xFFFFFF); }), 0);
  EXPECT_GT(PaintsAfter(*title, [title] { title->SetCount("1 of 2"); }), 0);
  EXPECT_EQ(PaintsAfter(*title, [] {}), 0);
}

// The room that a count gives back has a part of the title that was cut.
TEST_F(PlcControls, WithoutItsCountTheWholeTitleLineIsPaintedAnew) {
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

TEST_F(PlcControls, TheCountHasTheTitlesColour) {
  Report(3);
  File(u"text.txt#3");
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL);
  const auto text = [this] { return Control(plc_id::kCount)->palette().color(QPalette::WindowText); };
  EXPECT_EQ(text(), ToQColor(Fore(Control(plc_id::kTitle))));
  static_cast<PlcTitleWidget*>(Control(plc_id::kTitle))->SetColors(0, 0x123456);
  EXPECT_EQ(text(), ToQColor(0x123456));
}

TEST_F(PlcControls, ANoteIsInTheMiddleWithRoomAround) {
  Help(u"none.htm");
  const auto* note = static_cast<const QLabel*>(Control(plc_id::kNote));
  EXPECT_EQ(note->margin(), 12);
  EXPECT_EQ(note->alignment(), Qt::AlignCenter);
  EXPECT_TRUE(note->wordWrap());
  EXPECT_EQ(note->font().weight(), QFont::Normal);
  EXPECT_EQ(note->geometry(), QRect(0, 30, 800, 570));
}

TEST_F(PlcControls, TheWindowAndItsTextTakeTheFocusOfAPress) {
  EXPECT_EQ(tool->focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(Control(plc_id::kText)->focusPolicy(), Qt::StrongFocus);
  EXPECT_NE(Control(plc_id::kText)->focusProxy(), nullptr) << "before the first text, too";
  Report(3);
  auto* const edit = Control(plc_id::kText)->findChild<QPlainTextEdit*>();
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), edit);
  Help(u"plan.bmp");
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), nullptr) << "the text is hidden behind its picture";
  Help(u"text.txt#3");
  EXPECT_EQ(Control(plc_id::kText)->focusProxy(), edit);
}

TEST_F(PlcControls, ATextCanBeReadAndNotChanged) {
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

TEST_F(PlcControls, APictureLeavesNothingOfTheTextAndATextNothingOfThePicture) {
  Report(3);
  Help(u"plan.bmp");
  EXPECT_EQ(TextOf(plc_id::kText), "");
  Help(u"text.txt#3");
  EXPECT_EQ(Count(Paint(*Control(plc_id::kText)), kRed), 0);
  EXPECT_TRUE(static_cast<PlcTextWidget*>(Control(plc_id::kText))->Picture().IsEmpty()) << "nor in memory";
  EXPECT_EQ(TextOf(plc_id::kText).substr(0, 6), "line 0");
}

}  // namespace
}  // namespace pnl::test
