// SPDX-License-Identifier: MIT
// The reserved row and the touch keyboard in the whole panel: what each key of the row does, where the row stays, and
// that no field is covered by the keyboard, whatever it is and however small the screen.
#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QTableView>

#include "panel/machine/qt/machining_fixture.h"
#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/keyboard.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/password_box.h"
#include "ui/question.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/touch_desk.h"
#include "ui/touch_keyboard.h"

namespace panel {
namespace {

const QSize kSizes[] = {QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)};

class TouchPanelTest : public MachiningFixture {
 protected:
  ~TouchPanelTest() override {
    UseWords("en");
    PnlSetLanguage("en");
  }
  void Press(RowKey key) {
    window_->Row().Key(key)->click();
    Settle();
  }
  /// Taps a key of the touch keyboard.
  void Tap(TouchAct act, QChar plain = {}) {
    TouchKeyboard& keys = window_->TouchKeys();
    for (const auto& cell : keys.Cells()) {
      if (cell.key.act != act || (!plain.isNull() && cell.key.plain != plain)) continue;
      const QPoint place = cell.place.center();
      for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, keys.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&keys, &event);
      }
      return Settle();
    }
    ADD_FAILURE() << "no key " << static_cast<int>(act) << " " << plain.toLatin1();
  }
  void TapText(const QString& text) {
    for (const QChar c : text) Tap(TouchAct::kCharacter, c);
  }
  /// Gives the window that size with the keyboard up for what has the focus.
  void ExpectSeen(const QSize& size, const char* what) {
    window_->resize(size);
    Settle();
    window_->Touch().SetTouched(true);
    Settle();
    const std::string where = std::string(what) + " at " + std::to_string(size.width());
    ASSERT_TRUE(window_->TouchKeys().isVisible()) << where;
    const QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    const QRect seen = TouchDesk::Seen(*window_, window_->height() / 2);
    EXPECT_TRUE(QRect(QPoint(0, 0), window_->size()).contains(seen)) << where;
    EXPECT_FALSE(seen.intersects(window_->TouchKeys().geometry())) << where;
    // All of it: no other part lies over it, and it isn't cut off.
    for (const QPoint& place : {seen.topLeft() + QPoint(2, 2), seen.center(), seen.bottomRight() - QPoint(2, 2)}) {
      const QWidget* hit = window_->childAt(place);
      EXPECT_TRUE(hit != nullptr && (hit == focus || focus->isAncestorOf(hit))) << where << " at y " << place.y();
    }
    // The machine's keys and the row stay where they are.
    EXPECT_EQ(window_->Keys().geometry(), window_->Layout().operatorKeys);
    EXPECT_FALSE(window_->TouchKeys().geometry().intersects(window_->Keys().geometry()));
    EXPECT_FALSE(window_->TouchKeys().geometry().intersects(window_->Row().geometry()));
    window_->Touch().SetTouched(false);
    Settle();
    EXPECT_FALSE(window_->TouchKeys().isVisible()) << where;
    EXPECT_EQ(window_->ToolAreaWidget()->geometry(), window_->Layout().toolArea) << where;
    EXPECT_TRUE(window_->ToolAreaWidget()->mask().isEmpty()) << where;
  }
  void ExpectSeenEverywhere(const char* what) {
    for (const QSize& size : kSizes) ExpectSeen(size, what);
  }
};

TEST_F(TouchPanelTest, TheRowStaysWhateverIsInFront) {
  for (const QSize& size : kSizes) {
    window_->resize(size);
    Settle();
    const QRect place = window_->Row().geometry();
    std::vector<QRect> keys;
    for (int i = 0; i < kRowKeys; ++i) keys.push_back(window_->Row().Key(static_cast<RowKey>(i))->geometry());
    const auto expectStill = [&](const char* what) {
      EXPECT_EQ(window_->Row().geometry(), place) << what;
      EXPECT_TRUE(window_->Row().isVisible()) << what;
      for (int i = 0; i < kRowKeys; ++i) {
        const PanelKey* key = window_->Row().Key(static_cast<RowKey>(i));
        EXPECT_EQ(key->geometry(), keys[static_cast<std::size_t>(i)]) << what << " " << i;
        EXPECT_EQ(key->visibleRegion().boundingRect(), key->rect()) << what << " " << i;
      }
    };
    Do(Action::kOpenMdi);
    expectStill("command line");
    Do(Action::kOpenCalculator);
    expectStill("calculator");
    Do(Action::kOpenMachining);
    expectStill("machining calculator");
    Do(Action::kHelp);
    expectStill("help");
    Do(Action::kOpenProgram);
    expectStill("explorer");
    window_->Touch().Toggle();
    Settle();
    expectStill("touch keyboard");
    window_->Touch().Toggle();
    Raise(pnl::rig::MachineControl::Fault::kDriveFault);
    expectStill("errors");
    rig_.Cnc().ClearErrors();
    Settle();
    Do(Action::kErrorList);
    expectStill("list of errors");
    Do(Action::kErrorList);
    op_->Files().Leave();
    session_.CloseAll();
    Settle();
    op_->Desk().StartTools();
    Settle();
  }
}

TEST_F(TouchPanelTest, AToolsKeyOpensItBringsItBackAndClosesIt) {
  Press(RowKey::kCalculator);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR);
  EXPECT_TRUE(window_->Row().Key(RowKey::kCalculator)->isChecked());
  Do(Action::kOpenMdi);
  EXPECT_FALSE(window_->Row().Key(RowKey::kCalculator)->isChecked()) << "it is behind the command line";
  Press(RowKey::kCalculator);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR);
  Press(RowKey::kCalculator);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  EXPECT_FALSE(window_->Row().Key(RowKey::kCalculator)->isChecked());
}

TEST_F(TouchPanelTest, TheKeyForErrorsShowsThemOrTheirListAndPutsBothAway) {
  Press(RowKey::kErrors);
  EXPECT_TRUE(window_->ErrorsShown().IsOpen()) << "no error: the list";
  EXPECT_TRUE(window_->Row().Key(RowKey::kErrors)->isChecked());
  EXPECT_TRUE(window_->Row().Key(RowKey::kErrors)->isEnabled());
  EXPECT_FALSE(window_->Row().Key(RowKey::kCalculator)->isEnabled()) << "it would open beneath the list";
  Press(RowKey::kErrors);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_TRUE(window_->Row().Key(RowKey::kErrors)->isChecked());
  Press(RowKey::kErrors);
  EXPECT_FALSE(ErrorsShown());
  EXPECT_EQ(Queue(), 1u) << "put away, not acknowledged";
  Press(RowKey::kErrors);
  EXPECT_TRUE(ErrorsShown());
}

TEST_F(TouchPanelTest, EnterInsertAndCloseAreThoseOfTheKeyboard) {
  Do(Action::kOpenCalculator);
  Type("2+3");
  Press(RowKey::kEnter);
  Press(RowKey::kInsert);
  EXPECT_EQ(window_->ProgramText(), "5");
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  Press(RowKey::kEnter);
  EXPECT_EQ(window_->ProgramText(), "5\n");
}

TEST_F(TouchPanelTest, CloseLeavesStepByStepWhatIsInFront) {
  Do(Action::kOpenMdi);
  Do(Action::kOpenCalculator);
  Press(RowKey::kClose);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  Press(RowKey::kClose);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  qint64 now = 1'000'000;
  window_->KeyboardOwner().SetClock([&now] { return now; });
  int answer = -1;
  window_->Asking().Ask("Really?", {"Yes", "No"}, [&answer](int index) { answer = index; });
  Settle();
  Press(RowKey::kClose);
  EXPECT_EQ(answer, -1) << "nobody can have read it yet";
  now += 2000;
  Press(RowKey::kClose);
  EXPECT_EQ(answer, 1) << "the careful one";
  Do(Action::kErrorList);
  Press(RowKey::kClose);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
}

TEST_F(TouchPanelTest, AnErrorThatHasJustComeIsNotConfirmedByAKeyOfTheScreen) {
  qint64 now = 1'000'000;
  window_->KeyboardOwner().SetClock([&now] { return now; });
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  Press(RowKey::kClose);
  EXPECT_EQ(Queue(), 1u);
  now += 2000;
  Press(RowKey::kClose);
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(TouchPanelTest, OneKeyChangesTheLanguageOfPanelAndTools) {
  Do(Action::kOpenMdi);
  ASSERT_EQ(window_->Keys().Key(Action::kCycleStart)->text(), "Start");
  Press(RowKey::kLanguage);
  EXPECT_EQ(WordsInUse(), "es");
  EXPECT_EQ(window_->Keys().Key(Action::kCycleStart)->text(), "Marcha");
  EXPECT_EQ(window_->Row().Key(RowKey::kLanguage)->text(), "English");
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI)) << "what is open stays, in the language that it has";
  const PnlWindow before = session_.ToolWindow(PNL_TOOL_MDI);
  Press(RowKey::kClose);
  EXPECT_FALSE(PnlIsAlive(before)) << "and is made anew when it opens the next time";
  EXPECT_NE(session_.ToolWindow(PNL_TOOL_ERRORS), 0u) << "the error tool waits again";
  Press(RowKey::kLanguage);
  EXPECT_EQ(WordsInUse(), "en");
  EXPECT_EQ(window_->Keys().Key(Action::kCycleStart)->text(), "Start");
}

TEST_F(TouchPanelTest, KeysOfToolsThatAreNotThereDoNotShow) {
  EXPECT_NE(PnlHasTool(PNL_TOOL_CALCULATOR), 0);
  EXPECT_EQ(PnlHasTool(9999), 0);
  EXPECT_TRUE(window_->Row().Key(RowKey::kCalculator)->isVisible());
}

TEST_F(TouchPanelTest, TheKeyboardKeyRaisesItAndPutsItAway) {
  const PanelLayout rest = window_->Layout();
  Press(RowKey::kKeyboard);
  EXPECT_TRUE(window_->TouchKeys().isVisible());
  EXPECT_TRUE(window_->Row().Key(RowKey::kKeyboard)->isChecked());
  EXPECT_FALSE(window_->MainBar().isVisible());
  EXPECT_EQ(window_->TouchKeys().geometry(), window_->Layout().keyboard);
  Press(RowKey::kKeyboard);
  EXPECT_FALSE(window_->TouchKeys().isVisible());
  EXPECT_FALSE(window_->Row().Key(RowKey::kKeyboard)->isChecked());
  EXPECT_TRUE(window_->MainBar().isVisible());
  EXPECT_TRUE(window_->SideBar().isVisible());
  EXPECT_EQ(window_->Layout().messages, rest.messages);
  EXPECT_EQ(window_->Layout().toolArea, rest.toolArea);
  Press(RowKey::kKeyboard);
  Tap(TouchAct::kHide);
  EXPECT_FALSE(window_->TouchKeys().isVisible());
}

TEST_F(TouchPanelTest, ABlockIsTypedAndRunsByTouchAlone) {
  window_->Touch().SetTouched(true);
  Do(Action::kOpenMdi);
  ASSERT_TRUE(window_->TouchKeys().isVisible());
  TapText("G0 X10");
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0 X10");
  Tap(TouchAct::kBack);
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0 X1");
  Do(Action::kCycleStart);
  Advance(5000);
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "") << "it ran";
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
  EXPECT_TRUE(window_->TouchKeys().isVisible()) << "for the next block";
  Tap(TouchAct::kEscape);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(TouchPanelTest, ToolsAndTheirAreaKeepTheirSizeWhileItIsUp) {
  Do(Action::kOpenMdi);
  const QSize area = window_->ToolAreaWidget()->size();
  const QRect tool = Tool(PNL_TOOL_MDI)->geometry();
  Press(RowKey::kKeyboard);
  ASSERT_TRUE(window_->TouchKeys().isVisible());
  EXPECT_EQ(window_->ToolAreaWidget()->size(), area);
  EXPECT_EQ(Tool(PNL_TOOL_MDI)->geometry(), tool);
  EXPECT_LT(window_->ToolAreaWidget()->y(), window_->Layout().toolArea.y()) << "it has moved up";
}

TEST_F(TouchPanelTest, TheCommandLineIsSeen) {
  Do(Action::kOpenMdi);
  ExpectSeenEverywhere("command line");
}

TEST_F(TouchPanelTest, TheCalculatorsExpressionIsSeen) {
  for (const QSize& size : kSizes) {
    // It keeps the place that it has when it opens.
    window_->resize(size);
    Settle();
    Do(Action::kOpenCalculator);
    // It opens where it was left, here at the top.
    static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_CALCULATOR)))->move(0, 0);
    ExpectSeen(size, "expression");
    Press(RowKey::kCalculator);
  }
}

TEST_F(TouchPanelTest, TheFileNameIsSeen) {
  Do(Action::kSaveProgramAs);
  ASSERT_TRUE(ExplorerShown());
  Line(PNL_TOOL_EXPLORER)->setFocus();
  Settle();
  ASSERT_TRUE(Has(Line(PNL_TOOL_EXPLORER)));
  ExpectSeenEverywhere("file name");
}

TEST_F(TouchPanelTest, AFieldOfTheMachiningCalculatorIsSeen) {
  Do(Action::kOpenMachining);
  int fields = 0;
  const auto lines = Tool(PNL_TOOL_MACHINING_CALCULATOR)->findChildren<QLineEdit*>();
  for (QLineEdit* line : lines) {
    if (!line->isVisible() || !TouchDesk::TakesText(*line)) continue;
    line->setFocus();
    Settle();
    if (!line->hasFocus() || fields == 6) continue;
    ++fields;
    ExpectSeenEverywhere("machining field");
  }
  EXPECT_GT(fields, 3);
}

TEST_F(TouchPanelTest, TheCaretOfTheProgramIsSeen) {
  for (int i = 0; i < 100; ++i) window_->Editor().Insert("G0 X1\n");
  for (const QSize& size : kSizes) {
    window_->resize(size);
    window_->Editor().Edit().setFocus();
    window_->Touch().SetTouched(true);
    Settle();
    ASSERT_TRUE(window_->TouchKeys().isVisible());
    for (int i = 0; i < 3; ++i) Tap(TouchAct::kEnter);
    const QRect caret = window_->Editor().Edit().cursorRect();
    EXPECT_TRUE(window_->Editor().Edit().viewport()->rect().contains(caret.center()));
    const QRect editor(window_->Editor().mapTo(window_.get(), QPoint(0, 0)), window_->Editor().size());
    EXPECT_FALSE(editor.intersects(window_->TouchKeys().geometry()));
    EXPECT_TRUE(window_->Layout().toolArea.contains(editor));
    window_->Touch().SetTouched(false);
    Settle();
    EXPECT_EQ(window_->Editor().geometry(), window_->ToolAreaWidget()->rect());
  }
}

TEST_F(TouchPanelTest, TheFieldsOfTheCoversAreSeen) {
  window_->CredentialsAsked().Ask(1, "SERVER", false);
  Settle();
  for (const int field : {0, 1, 2}) {
    const auto lines = window_->CredentialsAsked().findChildren<QLineEdit*>();
    ASSERT_EQ(lines.size(), 3);
    lines[field]->setFocus();
    Settle();
    ExpectSeenEverywhere("credentials");
  }
  window_->Touch().SetTouched(true);
  Settle();
  TapText("G1");
  const auto* focus = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(focus, nullptr);
  EXPECT_EQ(focus->text(), "G1") << "it types over a cover too";
  window_->CredentialsAsked().Leave();
}

TEST_F(TouchPanelTest, AToolThatGoesTakesTheKeyboardWithIt) {
  window_->Touch().SetTouched(true);
  window_->Keys().Key(Action::kReset)->setFocus();
  Do(Action::kOpenCalculator);
  ASSERT_TRUE(window_->TouchKeys().isVisible());
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_CALCULATOR));
  Settle();
  EXPECT_EQ(window_->TouchKeys().isVisible(), Has(Program())) << "unless the program has the keyboard now";
  window_->Keys().Key(Action::kReset)->setFocus();
  Settle();
  EXPECT_FALSE(window_->TouchKeys().isVisible());
}

TEST_F(TouchPanelTest, TheKeyboardSpeaksTheNewLanguageWhileItIsUp) {
  window_->Touch().SetTouched(true);
  Do(Action::kOpenMdi);
  Press(RowKey::kLanguage);
  EXPECT_TRUE(window_->TouchKeys().isVisible());
  EXPECT_EQ(window_->TouchKeys().accessibleName(), "Teclado");
  TapText("G1");
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G1");
}

TEST_F(TouchPanelTest, AnErrorSendsTheKeyboardAwayUntilItHasBeenSeen) {
  window_->resize(800, 600);
  window_->Touch().SetTouched(true);
  Do(Action::kOpenMdi);
  TapText("G1");
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_FALSE(window_->TouchKeys().isVisible()) << "the window has to be seen whole";
  EXPECT_TRUE(window_->ToolAreaWidget()->mask().isEmpty());
  Press(RowKey::kErrors);
  ASSERT_FALSE(ErrorsShown());
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
  EXPECT_TRUE(window_->TouchKeys().isVisible()) << "what was being typed goes on";
}

TEST_F(TouchPanelTest, ARealKeyPutsItAwayAndTheToolAreaComesBack) {
  window_->resize(800, 600);
  window_->Touch().SetTouched(true);
  Do(Action::kOpenMdi);
  ASSERT_TRUE(window_->TouchKeys().isVisible());
  RealKey(Qt::Key_Left);
  EXPECT_FALSE(window_->TouchKeys().isVisible());
  EXPECT_EQ(window_->ToolAreaWidget()->geometry(), window_->Layout().toolArea);
  Touch(Line(PNL_TOOL_MDI), QPoint(10, 10));
  EXPECT_TRUE(window_->TouchKeys().isVisible());
}

/// Notes for each key that is pressed in a widget whether it is one that repeats.
class RepeatNotes : public QObject {
 public:
  using QObject::QObject;
  QStringList notes;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto* key = static_cast<QKeyEvent*>(event);
      notes << QString("%1 %2 '%3'").arg(key->key()).arg(key->isAutoRepeat()).arg(key->text());
    }
    return QObject::eventFilter(watched, event);
  }
};

TEST_F(TouchPanelTest, AKeyOfTheRowIsPressedOnce) {
  RepeatNotes keys;
  Program()->setFocus();
  Program()->installEventFilter(&keys);
  for (const RowKey key : {RowKey::kInsert, RowKey::kEnter, RowKey::kClose}) Press(key);
  EXPECT_EQ(keys.notes, (QStringList{QString("%1 0 ''").arg(Qt::Key_Insert), QString("%1 0 '\r'").arg(Qt::Key_Return),
                                     QString("%1 0 '\x1b'").arg(Qt::Key_Escape)}));
}

}  // namespace
}  // namespace panel
