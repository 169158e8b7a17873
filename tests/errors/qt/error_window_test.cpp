// SPDX-License-Identifier: MIT
#include "controls/qt/paint_counter.h"
#include "error_stage.h"
#include "support/event_wait.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kControls[] = {1000, 1002, 1004, 1005, 1006, 1007, 1040, 1041, 1042, 1043, 1044, 1045};

TEST_F(ErrorStage, StartsHiddenWithAllItsControls) {
  Open();
  EXPECT_FALSE(tool->isVisible());
  for (const int id : kControls) EXPECT_NE(Control(id), nullptr) << id;
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 710, 298));
}

TEST_F(ErrorStage, HasTheColourOfAnErrorBeforeTheFirstOne) {
  Open();
  EXPECT_EQ(tool->property("pnlBack").toUInt(), 0x0000A0u);
  for (const int id : {1040, 1041, 1042, 1043, 1044, 1045}) EXPECT_EQ(BackOf(id), 0x0000A0u) << id;
}

TEST_F(ErrorStage, AWindowThatTheHostHidesGivesTheKeyboardOn) {
  Open();
  Push(RecordBuilder());
  ASSERT_TRUE(tool->hasFocus());
  tool->hide();
  EXPECT_TRUE(other->hasFocus());
}

TEST_F(ErrorStage, AnErrorOpensTheWindowAndTakesTheKeys) {
  Open();
  other->setFocus();
  Push(RecordBuilder());
  EXPECT_TRUE(tool->isVisible());
  EXPECT_TRUE(tool->hasFocus());
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1000");
  EXPECT_EQ(TextOf(error_id::kTitleLine), "fault 1000");
  EXPECT_EQ(TextOf(error_id::kDescription), "\nID: NC-77");
  EXPECT_EQ(tool->property("pnlBack").toUInt(), 0x0000A0u);
}

TEST_F(ErrorStage, IsPaintedInTheColourOfTheClassWithThePanelsColourBehindTheTexts) {
  Open();
  Push(RecordBuilder().Severity(0));
  const QImage image = Paint(*tool);
  EXPECT_EQ(ColorAt(image, 2, 2), 0x648064u);
  EXPECT_EQ(
      ColorAt(image, Control(error_id::kDescription)->x() + 1, Control(error_id::kDescription)->geometry().bottom()),
      0xBFC9D3u);
  EXPECT_EQ(BackOf(error_id::kDescription), 0xBFC9D3u);
  EXPECT_GT(Count(image, 0x000000, Control(error_id::kTitleLine)->geometry()), 20) << "black text";
  for (const int id : {1040, 1041, 1042, 1043, 1044, 1045}) EXPECT_EQ(BackOf(id), 0x648064u) << id;
}

TEST_F(ErrorStage, KeysWalkAndAcknowledge) {
  Open();
  for (const int number : {1000, 1001, 1002}) Push(RecordBuilder().Number(number));
  EXPECT_EQ(TextOf(error_id::kAfter), "2");
  Key(Qt::Key_Right);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1001");
  Key(Qt::Key_Down);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1002");
  Key(Qt::Key_Up);
  Key(Qt::Key_Left);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1000");
  Key(Qt::Key_Escape);
  EXPECT_THAT(Queue(), ElementsAre(1001, 1002));
}

TEST_F(ErrorStage, AKeyWithAModifierIsSomebodyElses) {
  Open();
  for (const int number : {1000, 3753}) {
    cnc.ClearErrors();
    Settle();
    Push(RecordBuilder().Number(number));
    Push(RecordBuilder().Number(1001));
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
      for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Right, Qt::Key_Down}) {
        Key(key, modifier);
        EXPECT_THAT(Queue(), ElementsAre(number, 1001)) << key << " with " << modifier;
        EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR " + std::to_string(number)) << key << " with " << modifier;
      }
    }
  }
}

TEST_F(ErrorStage, EnterConfirms) {
  Open();
  Push(RecordBuilder().Number(3753));
  Key(Qt::Key_Return);
  EXPECT_THAT(Queue(), IsEmpty());
  Push(RecordBuilder().Number(3753));
  Key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_THAT(Queue(), IsEmpty());
}

TEST_F(ErrorStage, FingersWalkAndAcknowledge) {
  Open();
  Push(RecordBuilder().Number(1000));
  Push(RecordBuilder().Number(1001));
  Touch(error_id::kNext);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1001");
  Touch(error_id::kPrevious);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1000");
  Touch(error_id::kAcknowledge);
  EXPECT_THAT(Queue(), ElementsAre(1001));
}

TEST_F(ErrorStage, AFingerMayMissAPictureByALittle) {
  Open();
  Push(RecordBuilder().Number(1000));
  Push(RecordBuilder().Number(1001));
  const QRect next = Control(error_id::kNext)->geometry();
  for (const QPoint& beside : {QPoint(next.left() - 5, next.center().y()), QPoint(next.right() + 5, next.center().y()),
                               QPoint(next.center().x(), next.top() - 5)}) {
    PressMouse(tool, beside);
    EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1000");
  }
  for (const QPoint& near : {QPoint(next.left() - 4, next.center().y()), QPoint(next.right() + 4, next.center().y()),
                             QPoint(next.center().x(), next.top() - 4), QPoint(next.center().x(), next.bottom() + 4)}) {
    PressMouse(tool, near);
    EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1001");
    Key(Qt::Key_Left);
  }
}

TEST_F(ErrorStage, AHiddenPictureDoesNothing) {
  Open();
  Push(RecordBuilder().Severity(0));
  Touch(error_id::kAcknowledge);
  Touch(error_id::kMarkedSign);
  EXPECT_THAT(Queue(), ElementsAre(1000));
}

TEST_F(ErrorStage, TheRightButtonDoesNothing) {
  Open();
  Push(RecordBuilder().Number(1000));
  Push(RecordBuilder().Number(1001));
  const QPoint next = Control(error_id::kNext)->geometry().center();
  PressMouse(tool, next, QEvent::MouseButtonPress, Qt::RightButton);
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1000");
  PressMouse(Control(error_id::kDescription), QPoint(20, 20), QEvent::MouseButtonPress, Qt::RightButton);
  PressMouse(Control(error_id::kDescription), QPoint(20, 20), QEvent::MouseButtonDblClick, Qt::RightButton);
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(ErrorStage, HidingGivesTheFocusToNobodyWhoDidntAskForIt) {
  Open();
  Push(RecordBuilder().Number(1000));
  ASSERT_TRUE(tool->hasFocus());
  TouchTwice(Control(error_id::kDescription), QPoint(20, 20));
  ASSERT_FALSE(tool->isVisible());
  EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

TEST_F(ErrorStage, ADoubleClickBesideThePicturesHides) {
  Open();
  Push(RecordBuilder());
  TouchTwice(Control(error_id::kDescription), QPoint(20, 20));
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(ErrorStage, TwoQuickTouchesOfAPictureAreTwoTouches) {
  Open();
  for (const int number : {1000, 1001, 1002}) Push(RecordBuilder().Number(number));
  TouchTwice(tool, Control(error_id::kNext)->geometry().center());
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(TextOf(error_id::kTitleBox), "ERROR 1002");
}

// The second touch fell through the place of the picture and put the window away, the error on it unread.
TEST_F(ErrorStage, TwoQuickTouchesOfAPictureThatTheFirstOneHidesKeepTheWindow) {
  Open();
  Push(RecordBuilder().Number(1000));
  Push(RecordBuilder().Number(1001).Severity(0));
  TouchTwice(tool, Control(error_id::kNext)->geometry().center());
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(TextOf(error_id::kTitleBox), "WARNING 1001");
  Key(Qt::Key_Left);
  TouchTwice(tool, Control(error_id::kAcknowledge)->geometry().center());
  EXPECT_TRUE(tool->isVisible());
  EXPECT_THAT(Queue(), ElementsAre(1001)) << "the warning behind it is not acknowledged unseen";
}

/// An error whose description is longer than the window, which is low.
class LongErrorStage : public ErrorStage {
 protected:
  LongErrorStage() {
    Open();
    tool->resize(500, 160);
    Push(Long());
    text = static_cast<ErrorTextWidget*>(Control(error_id::kDescription));
  }
  static RecordBuilder Long() {
    RecordBuilder record;
    for (std::size_t index = 0; index < 5; ++index) record.Parameter(index, TextParameter(11, u"words of the control"));
    return record;
  }
  [[nodiscard]] QPoint Middle() const { return text->geometry().center(); }
  void Move(QPoint to) { PressMouse(tool, to, QEvent::MouseMove); }
  void Turn(int angle) {
    QWheelEvent wheel(Middle(), tool->mapToGlobal(Middle()), {}, {0, angle}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tool, &wheel);
    EXPECT_TRUE(wheel.isAccepted());
  }
  ErrorTextWidget* text = nullptr;
};

TEST_F(LongErrorStage, AFingerPullsALongDescription) {
  ASSERT_EQ(text->Pulled(), 0);
  PressMouse(tool, Middle());
  Move(Middle() - QPoint(0, 8));
  EXPECT_EQ(text->Pulled(), 8);
  Move(Middle() - QPoint(0, 12));
  EXPECT_EQ(text->Pulled(), 12);
  Move(Middle() - QPoint(0, 9));
  EXPECT_EQ(text->Pulled(), 9);
  PressMouse(tool, Middle(), QEvent::MouseButtonRelease);
  Move(Middle());
  EXPECT_EQ(text->Pulled(), 9) << "nothing has hold of it";
  EXPECT_TRUE(tool->isVisible());
  EXPECT_THAT(Queue(), ElementsAre(1000)) << "pulling acknowledges nothing";
}

TEST_F(LongErrorStage, AFingerBesideTheDescriptionPullsNothing) {
  const QPoint beside(Middle().x(), text->geometry().top() - 1);
  PressMouse(tool, Middle());  // without a release
  PressMouse(tool, beside);
  Move(beside - QPoint(0, 8));
  EXPECT_EQ(text->Pulled(), 0);
  PressMouse(tool, Middle(), QEvent::MouseButtonPress, Qt::RightButton);
  Move(Middle() - QPoint(0, 8));
  EXPECT_EQ(text->Pulled(), 0) << "nor does the right button";
}

TEST_F(LongErrorStage, WheelAndPageKeysMoveALongDescription) {
  text->PullBy(10'000);
  const int end = text->Pulled();
  ASSERT_GT(end, text->height());
  Turn(120);
  EXPECT_EQ(text->Pulled(), std::max(end - 60, 0));
  Turn(-120);
  EXPECT_EQ(text->Pulled(), end);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(text->Pulled(), end - text->height());
  Key(Qt::Key_PageDown);
  EXPECT_EQ(text->Pulled(), end);
  Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(text->Pulled(), end) << "a command is somebody else's";
}

TEST_F(LongErrorStage, ThePageKeysComeBeforeThePanelsShortcuts) {
  for (const int key : {Qt::Key_PageUp, Qt::Key_PageDown}) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(tool, &event);
    EXPECT_TRUE(event.isAccepted()) << key;
    EXPECT_TRUE(PressKey(tool, key)) << key;
  }
  QKeyEvent home(QEvent::ShortcutOverride, Qt::Key_Home, Qt::NoModifier);
  home.ignore();
  QApplication::sendEvent(tool, &home);
  EXPECT_FALSE(home.isAccepted());
}

TEST_F(LongErrorStage, ADoubleClickOnALongDescriptionHidesTheWindow) {
  TouchTwice(tool, Middle());
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(LongErrorStage, TheNextErrorBeginsAtItsBeginning) {
  Push(Long().Number(1001).Int(error_field::kIdentifier, 78));
  text->PullBy(20);
  ASSERT_EQ(text->Pulled(), 20);
  Key(Qt::Key_Right);
  ASSERT_EQ(TextOf(error_id::kTitleBox), "ERROR 1001");
  EXPECT_EQ(text->Pulled(), 0);
}

TEST_F(ErrorStage, TheBoxesFlash) {
  Open();
  Push(RecordBuilder());
  EXPECT_EQ(BackOf(error_id::kTitleBox), 0xFFFFFFu);
  const PaintCounter paints(*Control(error_id::kTitleBox));
  timers.Advance(500);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
  EXPECT_EQ(BackOf(error_id::kTitleBox), 0x0000A0u);
  EXPECT_EQ(Control(error_id::kTitleBox)->property("pnlFore").toUInt(), 0xFFFFFFu);
}

TEST_F(ErrorStage, TheTopRowStandsInTheMiddleAndNothingOverlaps) {
  cnc.Returns("ChannelNumber", {2});
  for (const QSize size : {QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
    for (const int channel : {0, 1}) {
      cnc.ClearErrors();
      Settle();
      if (tool == nullptr) Open();
      tool->resize(size.width() * 710 / 800, size.height() / 2);
      cnc.ErrorText("error_to_txt", 1000, u"|fault", u"C:\\H#1", false);
      Push(RecordBuilder().Channel(channel));
      Push(RecordBuilder().Channel(channel).Number(1001));
      Key(Qt::Key_Right);
      Push(RecordBuilder().Number(1002));
      std::vector<QWidget*> shown;
      for (const int id : kControls) {
        if (Control(id)->isVisible()) shown.push_back(Control(id));
      }
      for (QWidget* one : shown) {
        EXPECT_TRUE(tool->rect().contains(one->geometry())) << ControlId(one) << " at " << size.width();
        for (QWidget* two : shown) {
          if (one == two) continue;
          EXPECT_FALSE(one->geometry().intersects(two->geometry()))
              << ControlId(one) << " and " << ControlId(two) << " at " << size.width();
        }
      }
    }
  }
}

TEST_F(ErrorStage, ALongTitleIsShownWhole) {
  cnc.ErrorText("error_to_txt", 1000, u"|" + Text(60, u'w') + u" " + Text(60, u'w') + u" " + Text(60, u'w'), u"",
                false);
  Open();
  Push(RecordBuilder());
  const auto* title = tool->findChild<ErrorTextWidget*>();
  ASSERT_NE(title, nullptr);
  EXPECT_GE(title->height(), title->HeightOf(title->Shown(), title->width()));
  EXPECT_GT(Control(error_id::kDescription)->y(), title->geometry().bottom());
}

TEST_F(ErrorStage, AMissingIniFileIsNotWritten) {
  Open();
  EXPECT_FALSE(files.Query(u"C:\\P52\\errman.ini").exists);
}

TEST_F(ErrorStage, FontsComeFromTheIniFile) {
  Disc("C:\\P52\\errman.ini", "[PRIVATE]\r\nFontText=Times,40,700,1\r\n");
  Open();
  const QFont font = tool->findChild<ErrorTextWidget*>()->TextFont();
  EXPECT_TRUE(font.italic());
  EXPECT_EQ(font.weight(), 700);
  EXPECT_EQ(font.families().front(), "Arial") << "the face of the file has no effect";
}

TEST_F(ErrorStage, TheHotKeyWorksWhileTheWindowIsHidden) {
  Open();
  Push(RecordBuilder());
  auto* hotKey = panel.findChild<QShortcut*>();
  ASSERT_NE(hotKey, nullptr);
  EXPECT_EQ(hotKey->key(), QKeySequence(Qt::ALT | Qt::Key_W));
  emit hotKey->activated();
  EXPECT_FALSE(tool->isVisible());
  emit hotKey->activated();
  EXPECT_TRUE(tool->isVisible());
  Send(PNL_MSG_TOOL_NOTIFY, 2, 0);
  EXPECT_EQ(panel.findChild<QShortcut*>(), nullptr);
  Send(PNL_MSG_TOOL_NOTIFY, 2, 1);
  EXPECT_NE(panel.findChild<QShortcut*>(), nullptr);
}

TEST_F(ErrorStage, HelpGoesToTheHostAndComesBack) {
  cnc.ErrorText("error_to_txt", 1000, u"|fault", u"C:\\H.TXT#1", false);
  Open();
  Push(RecordBuilder());
  TakeHostCalls();
  Send(PNL_MSG_HELP_KEY, 0);
  EXPECT_THAT(TakeHostCalls(),
              ElementsAre("HostToolClosed(0,2)", "HostShowError(0000A0,C:\\H.TXT#1,Error 1000 : |fault)"));
  EXPECT_FALSE(tool->isVisible());
  Send(RegisterMessage("ZM_END_ERRORHELP"), 0);
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(ErrorStage, TheHelpKeyIsAnsweredByWhetherThereIsHelp) {
  cnc.ErrorText("error_to_txt", 1000, u"|fault", u"C:\\H.TXT#1", false);
  Open();
  EXPECT_EQ(WindowStage::Send(PNL_MSG_HELP_KEY, 0), 0) << "no error";
  Push(RecordBuilder());
  EXPECT_EQ(WindowStage::Send(PNL_MSG_HELP_KEY, 0), 1);
}

TEST_F(ErrorStage, OnlyTheHelpKeyHasAnAnswer) {
  Open();
  Push(RecordBuilder());
  const std::uint32_t helpEnded = RegisterMessage("ZM_END_ERRORHELP");
  for (const std::uint32_t number :
       {std::uint32_t{PNL_MSG_VARIABLE_REPORT}, std::uint32_t{PNL_MSG_TOOL_NOTIFY}, helpEnded, helpEnded + 1000}) {
    EXPECT_EQ(WindowStage::Send(number, 0), 0) << number;
  }
}

TEST_F(ErrorStage, TheHostSeesThePlaceOfTheShownErrorInTheQueue) {
  Open();
  for (const int number : {1000, 1001, 1002}) Push(RecordBuilder().Number(number));
  EXPECT_EQ(tool->property(property::kErrorPlace).toInt(), 0);
  Key(Qt::Key_Right);
  Key(Qt::Key_Right);
  EXPECT_EQ(tool->property(property::kErrorPlace).toInt(), 2);
}

TEST_F(ErrorStage, TheKernelsTextIsNeverReadAsRichText) {
  cnc.ErrorText("error_to_txt", 1000, u"|<h1>big</h1><img src='http://x/'>", u"", false);
  Open();
  Push(RecordBuilder());
  EXPECT_EQ(TextOf(error_id::kTitleLine), "<h1>big</h1><img src='http://x/'>");
  for (const QLabel* label : tool->findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);
  // A line as high as any other: no heading was made of it.
  const auto* title = tool->findChild<ErrorTextWidget*>();
  EXPECT_EQ(title->HeightOf(title->Shown(), 2000), title->HeightOf(QStringLiteral("x"), 2000));
}

TEST_F(ErrorStage, AProgramsFailingLineIsReadFromTheDisc) {
  Disc("C:\\P1\\A.NC", "G0 X1\r\nG1 X2 F0\r\n");
  Open();
  Push(RecordBuilder()
           .Source(1)
           .Text(error_field::kProgramPath, u"C:\\P1")
           .Text(error_field::kProgramName, u"A.NC")
           .Int(error_field::kFilePosition, 7)
           .Word(error_field::kFileSpan, 12));
  // In another thread, which may take its time.
  ASSERT_TRUE(RunUntil([this] { return TextOf(error_id::kDescription).find("<F>0") != std::string::npos; }));
  EXPECT_THAT(TextOf(error_id::kDescription), testing::HasSubstr("C:\\P1\\A.NC"));
}

TEST_F(ErrorStage, AFileThatIsStillBeingReadLetsTheWindowGo) {
  Disc("C:\\P1\\BIG.NC", std::string(40'000'000, 'x'));
  Open();
  Push(RecordBuilder()
           .Source(1)
           .Text(error_field::kProgramPath, u"C:\\P1")
           .Text(error_field::kProgramName, u"BIG.NC")
           .Int(error_field::kFilePosition, 39'999'999));
  EXPECT_TRUE(tool->isVisible());
  EXPECT_THAT(TextOf(error_id::kDescription), testing::HasSubstr("BIG.NC"));
  delete tool;
  Settle();
}

// The host's part in it.

TEST_F(ErrorStage, TwoWindowsGoTheirOwnWays) {
  Open();
  const QPointer<ZCErrorManager> second = new ZCErrorManager(context, area);
  second->Start();
  Settle();
  Push(RecordBuilder());
  EXPECT_TRUE(tool->isVisible());
  EXPECT_TRUE(second->isVisible());
  delete second;
  PressKey(tool, Qt::Key_Escape);
  Settle();
  EXPECT_THAT(Queue(), IsEmpty());
  EXPECT_FALSE(tool->isVisible());
}

}  // namespace
}  // namespace pnl::test
