// SPDX-License-Identifier: MIT
// What is in front has the keyboard: the error window, covers, tools behind one another, the program; and no key that
// was on its way elsewhere acts on an error that has just come.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPlainTextEdit>
#include <algorithm>

#include "panel/machine/qt/panel_fixture.h"
#include "ui/error_list.h"
#include "ui/keyboard.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

class KeyboardTest : public PanelFixture {
 protected:
  static constexpr int kAcknowledge = 1043;
  KeyboardTest() {
    window_->KeyboardOwner().SetClock([this] { return clock_; });
  }
  [[nodiscard]] QWidget* PictureOf(int id) const {
    for (QWidget* child : Errors()->findChildren<QWidget*>()) {
      if (child->property("pnlId").toInt() == id) return child;
    }
    return nullptr;
  }
  qint64 clock_ = 0;
};

TEST_F(KeyboardTest, ABlockThatEndsUnderTheErrorWindowLeavesItTheKeyboard) {
  // The command line took the focus back as its block ended: Escape closed it, and what came next was typed into the
  // program.
  Do(Action::kOpenMdi);
  Type("G91 G1 X5 F1000");
  Do(Action::kCycleStart);
  Advance(50);
  Raise(Fault::kDriveWarning);
  ASSERT_TRUE(Has(Errors()));
  Advance(5000);
  ASSERT_EQ(op_->Machine().channelStatus, 1);
  EXPECT_TRUE(Has(Errors()));
  Key(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 0u) << "the error was acknowledged";
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
}

TEST_F(KeyboardTest, ABlockThatEndsLeavesTheCalculatorInFrontTheKeyboard) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X5 F1000");
  Do(Action::kCycleStart);
  Advance(50);
  Do(Action::kOpenCalculator);
  Advance(5000);
  ASSERT_EQ(op_->Machine().channelStatus, 1);
  EXPECT_TRUE(Has(Tool(PNL_TOOL_CALCULATOR)));
}

TEST_F(KeyboardTest, ABlockThatEndsLeavesTheProgramTheKeyboardWhenTheOperatorTypesThere) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X5 F1000");
  Do(Action::kCycleStart);
  Advance(50);
  Program()->setFocus(Qt::MouseFocusReason);
  Type("G0");
  Advance(5000);
  ASSERT_EQ(op_->Machine().channelStatus, 1);
  Type("X7");
  EXPECT_EQ(window_->ProgramText(), "G0X7");
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "");
}

TEST_F(KeyboardTest, TheErrorWindowKeepsTheKeyboardWhenTheProgramIsTouched) {
  Raise(Fault::kDriveFault);
  Program()->setFocus(Qt::MouseFocusReason);
  Settle();
  EXPECT_TRUE(Has(Errors()));
  Key(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 0u);
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, AToolThatIsTouchedComesToTheFrontWithItsKeys) {
  Do(Action::kOpenMdi);
  const auto side = session_.SideBar();
  Do(Action::kOpenCalculator);
  ASSERT_NE(session_.SideBar(), side);
  Line(PNL_TOOL_MDI)->setFocus(Qt::MouseFocusReason);
  Settle();
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  EXPECT_EQ(session_.SideBar(), side) << "the soft keys belong to what has the keyboard";
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
  Touch(Tool(PNL_TOOL_CALCULATOR), QPoint(2, 2));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR) << "where nothing takes the focus, too";
  EXPECT_TRUE(Has(Tool(PNL_TOOL_CALCULATOR)));
}

TEST_F(KeyboardTest, ATouchBesideTheErrorWindowLaysNothingOverIt) {
  OpenListAtSecond();
  Raise(Fault::kDriveFault);
  clock_ += 1000;
  MdaList()->setFocus(Qt::MouseFocusReason);
  Touch(Tool(PNL_TOOL_MDI), QPoint(2, Tool(PNL_TOOL_MDI)->height() - 2));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_ERRORS);
  EXPECT_TRUE(Has(Errors()));
}

TEST_F(KeyboardTest, TheMdiKeyLeadsFromTheProgramToTheCommandLine) {
  Do(Action::kOpenMdi);
  Program()->setFocus(Qt::MouseFocusReason);
  Do(Action::kSwitchRole);
  EXPECT_TRUE(Has(MdaList()));
  Do(Action::kSwitchRole);
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
  Program()->setFocus(Qt::MouseFocusReason);
  Settle();
  ASSERT_TRUE(Has(Program()));
  Do(Action::kSwitchRole);
  Do(Action::kSwitchRole);
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
}

TEST_F(KeyboardTest, ASoftKeyLeadsFromTheListBackToTheCommandLine) {
  // The keys of the list took the place of the panel's MDI/MDA, and a finger had no way back but to close the list.
  Do(Action::kOpenMdi);
  Do(Action::kSwitchRole);
  ASSERT_TRUE(Has(MdaList()));
  SoftKeyBar& bar = window_->MainBar();
  const auto& items = bar.Items();
  const auto back = std::find_if(items.begin(), items.end(), [](const SoftKeyItem& item) {
    return item.id == static_cast<int>(Action::kSwitchRole);
  });
  ASSERT_NE(back, items.end());
  const int place = static_cast<int>(back - items.begin());
  while (bar.Page() < place / kMainKeys) bar.NextPage();
  window_->PressMain(place % kMainKeys);
  Settle();
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
}

TEST_F(KeyboardTest, ASoftKeyOfATopToolLeadsToIt) {
  Do(Action::kOpenCalculator);
  Program()->setFocus(Qt::MouseFocusReason);
  Settle();
  window_->PressMain(1);
  window_->PressMain(0);
  Settle();
  EXPECT_EQ(Line(PNL_TOOL_CALCULATOR)->text(), "Sin");
  EXPECT_TRUE(Has(Tool(PNL_TOOL_CALCULATOR)));
}

TEST_F(KeyboardTest, ACalculatorThatClosesGivesTheKeyboardToTheCommandLineBehindIt) {
  Do(Action::kOpenMdi);
  Type("G0 X");
  Do(Action::kOpenCalculator);
  Key(Qt::Key_Escape);
  ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  Type("5");
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0 X5");
}

TEST_F(KeyboardTest, ACalculatorThatClosesGivesTheKeyboardToTheListBehindItAsItWas) {
  OpenListAtSecond();
  Do(Action::kOpenCalculator);
  Key(Qt::Key_Escape);
  ASSERT_TRUE(Has(MdaList()));
  EXPECT_EQ(SelectedInList(), 1);
  Key(Qt::Key_Down);
  EXPECT_EQ(SelectedInList(), 2);
}

TEST_F(KeyboardTest, ACalculatorThatClosesGivesTheKeyboardToTheProgramWhenNothingElseIsOpen) {
  Do(Action::kOpenCalculator);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, ATypistInTheProgramStaysThereWhenAToolCloses) {
  Do(Action::kOpenMdi);
  Program()->setFocus(Qt::MouseFocusReason);
  Settle();
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, AnErrorThatGoesGivesTheKeyboardToWhereTheOperatorWas) {
  Do(Action::kOpenMdi);
  Program()->setFocus(Qt::MouseFocusReason);
  Settle();
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(Has(Errors()));
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Has(Program())) << "he typed there, though the command line is open";
}

TEST_F(KeyboardTest, AProgramUnderTheListGetsNoKeys) {
  // The shortcut for a new program led into the editor, which the list covers whole.
  OpenListAtSecond();
  Do(Action::kNewProgram);
  ASSERT_TRUE(ExplorerShown());
  AcceptName("NO_KEYS.NC");
  EXPECT_TRUE(Has(MdaList()));
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, TheTopmostCoverHasTheKeyboard) {
  window_->Editor().Insert("changed");
  Do(Action::kNewProgram);
  ASSERT_TRUE(window_->Asking().IsOpen());
  Program()->setFocus(Qt::OtherFocusReason);
  Settle();
  EXPECT_TRUE(Has(&window_->Asking()));
  window_->Asking().Answer(1);
  Settle();
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, AListOfErrorsThatClosesGivesTheKeyboardBack) {
  Do(Action::kOpenCalculator);
  Do(Action::kErrorList);
  ASSERT_TRUE(Has(&window_->ErrorsShown()));
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Has(Tool(PNL_TOOL_CALCULATOR)));
}

TEST_F(KeyboardTest, AKeyThatIsDisabledUnderTheKeyboardLeavesItToTheWorkInHand) {
  Raise(Fault::kDriveFault);
  Key(Qt::Key_Escape);
  Do(Action::kOpenMdi);
  Type("G999");
  QWidget* key = window_->Keys().Key(Action::kInspect);
  key->setEnabled(true);
  key->setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(key->hasFocus());
  key->setEnabled(false);
  Settle();
  EXPECT_TRUE(Has(Tool(PNL_TOOL_MDI)));
}

/// Goes by Tab as far as a panel with every key has places; fails when the keyboard goes nowhere on the way.
void TabAround(QWidget* home, int key) {
  bool cameHome = false;
  for (int i = 0; i < 60; ++i) {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr) << "after " << i;
    ASSERT_TRUE(focus->isVisible()) << "after " << i;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Tab ? "\t" : "");
    QCoreApplication::sendEvent(focus, &event);
    QCoreApplication::processEvents();
    cameHome = cameHome || home->hasFocus() || home->isAncestorOf(QApplication::focusWidget());
  }
  EXPECT_TRUE(cameHome);
}

TEST_F(KeyboardTest, TabNeverLeadsOutOfEverything) {
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    Program()->setFocus();
    TabAround(Program(), key);
  }
  Do(Action::kOpenCalculator);
  TabAround(Tool(PNL_TOOL_CALCULATOR), Qt::Key_Tab);
  Key(Qt::Key_Escape);
  Do(Action::kOpenMdi);
  TabAround(Tool(PNL_TOOL_MDI), Qt::Key_Tab);
  Program()->setFocus(Qt::MouseFocusReason);
  TabAround(Tool(PNL_TOOL_MDI), Qt::Key_Tab);
  Do(Action::kErrorList);
  TabAround(&window_->ErrorsShown(), Qt::Key_Tab);
  Do(Action::kErrorList);
  Raise(Fault::kDriveFault);
  TabAround(Errors(), Qt::Key_Backtab);
}

TEST_F(KeyboardTest, TheSoftKeysLiveAfterAQuestionWasAnswered) {
  // The question still counted as standing while its cover went.
  window_->Editor().Insert("changed");
  Do(Action::kNewProgram);
  ASSERT_TRUE(window_->Asking().IsOpen());
  EXPECT_FALSE(window_->MainBar().isEnabled());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_->MainBar().isEnabled());
  EXPECT_TRUE(window_->SideBar().isEnabled());
  Do(Action::kNewProgram);
  window_->Asking().Key(0)->click();
  Settle();
  EXPECT_TRUE(window_->MainBar().isEnabled());
  EXPECT_TRUE(window_->SideBar().isEnabled());
}

TEST_F(KeyboardTest, TheSoftKeysLiveAfterAnExplorerThatWentUnseen) {
  Do(Action::kOpenProgram);
  ASSERT_TRUE(ExplorerShown());
  Raise(Fault::kDriveFault);
  op_->Files().Leave();
  Settle();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_->MainBar().isEnabled());
}

TEST_F(KeyboardTest, TheExplorerHasTheKeyboardFromTheFirstAndGivesItBack) {
  for (const bool typedInProgram : {false, true}) {
    Do(Action::kOpenMdi);
    if (typedInProgram) Program()->setFocus(Qt::MouseFocusReason);
    Settle();
    Do(Action::kOpenProgram);
    EXPECT_TRUE(Has(Tool(PNL_TOOL_EXPLORER)));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Has(Program()), typedInProgram);
    EXPECT_EQ(Has(Tool(PNL_TOOL_MDI)), !typedInProgram);
  }
}

TEST_F(KeyboardTest, TheCaretKeysLeaveTheSelectionOfTheListAsItIs) {
  // The code that puts the caret back chose the first item, which start would have run.
  OpenListAtSecond();
  Do(Action::kFocusTool);
  EXPECT_EQ(SelectedInList(), 1);
  Do(Action::kOpenMdi);
  EXPECT_EQ(SelectedInList(), 1);
  Do(Action::kOpenCalculator);
  Type("7");
  Key(Qt::Key_Insert);
  EXPECT_EQ(SelectedInList(), 1);
  EXPECT_TRUE(Has(MdaList()));
  window_->Keys().Key(Action::kReset)->setFocus();
  Key(Qt::Key_Escape);
  EXPECT_EQ(SelectedInList(), 1);
  EXPECT_TRUE(Has(MdaList()));
}

TEST_F(KeyboardTest, TheCaretKeysPutTheCaretOfTheCommandLineBehindItsText) {
  Do(Action::kOpenMdi);
  Type("G0 X1");
  Line(PNL_TOOL_MDI)->setCursorPosition(2);
  Program()->setFocus(Qt::MouseFocusReason);
  Do(Action::kFocusTool);
  EXPECT_TRUE(Has(Line(PNL_TOOL_MDI)));
  EXPECT_EQ(Line(PNL_TOOL_MDI)->cursorPosition(), 5);
}

TEST_F(KeyboardTest, AnEnterTypedIntoTheProgramConfirmsNoErrorThatHasJustComeAndEditsNothing) {
  // It confirmed the error; later it broke the program's line at a caret that nobody was looking at.
  Type("G0 X1");
  Raise(Fault::kConfirm);
  ASSERT_TRUE(Has(Errors()));
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 1u);
  EXPECT_TRUE(ErrorsShown());
  EXPECT_EQ(window_->ProgramText(), "G0 X1");
}

TEST_F(KeyboardTest, AnEscapeOnItsWayAcknowledgesNoErrorThatHasJustCome) {
  Type("G0 X1");
  Raise(Fault::kDriveFault);
  RealKey(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 1u);
  EXPECT_TRUE(Has(Errors()));
  EXPECT_EQ(window_->ProgramText(), "G0 X1");
}

TEST_F(KeyboardTest, ATouchOnItsWayDoesNothingToAnErrorThatHasJustCome) {
  Raise(Fault::kDriveFault);
  Touch(Errors(), Errors()->rect().center());
  Touch(Errors(), PictureOf(kAcknowledge)->geometry().center());
  EXPECT_EQ(Queue(), 1u);
  clock_ += 699;
  Touch(Errors(), PictureOf(kAcknowledge)->geometry().center());
  EXPECT_EQ(Queue(), 1u);
  clock_ += 1;
  Touch(Errors(), PictureOf(kAcknowledge)->geometry().center());
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(KeyboardTest, AnErrorThatWasReadIsAnsweredByTheKeyboard) {
  Type("G0 X1");
  Raise(Fault::kConfirm);
  clock_ += 699;
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 1u);
  clock_ += 699;
  RealKey(Qt::Key_G);
  clock_ += 699;
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 1u) << "the typing hasn't paused";
  clock_ += 700;
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 0u);
  EXPECT_EQ(window_->ProgramText(), "G0 X1");
  Raise(Fault::kDriveFault);
  clock_ += 700;
  RealKey(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(KeyboardTest, AnErrorThatTheOperatorCalledBackIsAnsweredAtOnce) {
  Raise(Fault::kDriveFault);
  clock_ += 1000;
  Do(Action::kHelp);
  ASSERT_TRUE(op_->Desk().ShowsHelp());
  RealKey(Qt::Key_Escape);
  ASSERT_TRUE(ErrorsShown());
  RealKey(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(KeyboardTest, AKeyThatIsHeldSinceBeforeTheErrorCameNeverActsOnIt) {
  RealKey(Qt::Key_Return);
  ASSERT_EQ(window_->ProgramText(), "\n");
  Raise(Fault::kConfirm);
  clock_ += 5000;
  RealKey(Qt::Key_Return, true);
  RealKey(Qt::Key_Return, true);
  EXPECT_EQ(Queue(), 1u);
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 0u) << "pressed anew";
}

TEST_F(KeyboardTest, AnEnterOnItsWayToAKeyOfThePanelIsNotTypedIntoTheProgram) {
  window_->Keys().Key(Action::kSingleBlock)->setFocus(Qt::TabFocusReason);
  Raise(Fault::kConfirm);
  RealKey(Qt::Key_Return);
  EXPECT_EQ(Queue(), 1u);
  EXPECT_EQ(window_->ProgramText(), "");
}

TEST_F(KeyboardTest, AKeyOfAScriptActsAtOnce) {
  Raise(Fault::kConfirm);
  Key(Qt::Key_Return);
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(KeyboardTest, OfTwoCoversTheOneOnTopHasTheKeyboard) {
  Do(Action::kErrorList);
  window_->Asking().Ask("Really?", {"Yes", "No"}, [](int) {});
  for (QWidget* other : {Program(), static_cast<QWidget*>(&window_->ErrorsShown().List())}) {
    other->setFocus(Qt::OtherFocusReason);
    Settle();
    EXPECT_TRUE(Has(&window_->Asking()));
  }
  window_->Asking().Answer(1);
  Settle();
  EXPECT_TRUE(Has(&window_->ErrorsShown()));
  window_->Asking().Ask("Really?", {"Yes", "No"}, [](int) {});
  window_->ErrorsShown().raise();
  window_->KeyboardOwner().Restore();
  EXPECT_TRUE(Has(&window_->ErrorsShown()));
  window_->Asking().Answer(1);
  Do(Action::kErrorList);
  EXPECT_TRUE(Has(Program()));
}

TEST_F(KeyboardTest, ATouchUnderACoverTurnsToNoTool) {
  Do(Action::kOpenMdi);
  Do(Action::kOpenCalculator);
  Do(Action::kErrorList);
  Line(PNL_TOOL_MDI)->setFocus(Qt::MouseFocusReason);
  Settle();
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR);
  EXPECT_TRUE(Has(&window_->ErrorsShown()));
  Do(Action::kErrorList);
}

TEST_F(KeyboardTest, AKeyOfThePanelKeepsTheKeyboardThatTabGaveIt) {
  Do(Action::kOpenCalculator);
  QWidget* key = window_->Keys().Key(Action::kReset);
  key->setFocus(Qt::TabFocusReason);
  window_->KeyboardOwner().Restore();
  EXPECT_TRUE(key->hasFocus());
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_CALCULATOR);
}

TEST_F(KeyboardTest, TheMachinesKeysActAtOnceUnderAnErrorThatHasJustCome) {
  Raise(Fault::kConfirm);
  RealKey(Qt::Key_Enter);
  EXPECT_EQ(Queue(), 1u) << "just come";
  RealKey(Qt::Key_F11);
  EXPECT_TRUE(op_->Machine().singleBlock);
  RealKey(Qt::Key_F12);
  EXPECT_EQ(Queue(), 0u) << "a reset";
}

TEST_F(KeyboardTest, AQuestionThatHasJustComeIsAnsweredOnlyOnceItCouldBeRead) {
  for (const int key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
    std::optional<int> answered;
    window_->Asking().Ask("Really?", {"Yes", "No"}, [&answered](int index) { answered = index; });
    Settle();
    RealKey(key);
    clock_ += 699;
    RealKey(key);
    Touch(&window_->Asking(), window_->Asking().Key(0)->geometry().center());
    EXPECT_FALSE(answered) << key;
    EXPECT_TRUE(window_->Asking().IsOpen());
    clock_ += 700;
    RealKey(Qt::Key_Escape);
    EXPECT_EQ(answered, 1) << key;
  }
  EXPECT_EQ(window_->ProgramText(), "");
}

TEST_F(KeyboardTest, AQuestionThatComesBackAfterAnErrorIsNotAnsweredByTheKeyThatClosedTheError) {
  std::optional<int> answered;
  window_->Asking().Ask("Really?", {"Yes", "No"}, [&answered](int index) { answered = index; });
  clock_ += 1000;
  Raise(Fault::kDriveFault);
  clock_ += 700;
  RealKey(Qt::Key_Escape);
  ASSERT_EQ(Queue(), 0u);
  ASSERT_TRUE(window_->Asking().isVisible());
  RealKey(Qt::Key_Escape);
  EXPECT_FALSE(answered);
  clock_ += 700;
  RealKey(Qt::Key_Escape);
  EXPECT_EQ(answered, 1);
}

TEST_F(KeyboardTest, AKeyTouchedOnTheScreenIsHeldBackLikeOneOfTheKeyboard) {
  EXPECT_TRUE(window_->KeyboardOwner().MayAct(Qt::Key_Return));
  Raise(Fault::kConfirm);
  EXPECT_FALSE(window_->KeyboardOwner().MayAct(Qt::Key_Return));
  clock_ += 699;
  EXPECT_FALSE(window_->KeyboardOwner().MayAct(Qt::Key_Escape));
  clock_ += 699;
  EXPECT_FALSE(window_->KeyboardOwner().MayAct(Qt::Key_Return)) << "the typing goes on";
  clock_ += 700;
  EXPECT_TRUE(window_->KeyboardOwner().MayAct(Qt::Key_Return));
}

TEST_F(KeyboardTest, AMessageBoxThatHasJustComeTakesNoKeyYet) {
  QMessageBox box(QMessageBox::Question, "Title", "Really?", QMessageBox::Yes | QMessageBox::No, window_.get());
  box.open();
  Settle();
  const auto press = [&box] {
    pnl::test::PressPlatformKey(box, Qt::Key_Escape);
    Settle();
  };
  press();
  EXPECT_TRUE(box.isVisible());
  clock_ += 700;
  press();
  EXPECT_FALSE(box.isVisible());
}

TEST_F(KeyboardTest, AScriptAnswersAQuestionAtOnce) {
  std::optional<int> answered;
  window_->Asking().Ask("Really?", {"Yes", "No"}, [&answered](int index) { answered = index; });
  Key(Qt::Key_Return);
  EXPECT_EQ(answered, 1);
}

TEST_F(KeyboardTest, ALineThatIsTypedTakesEveryKeyAtOnce) {
  Do(Action::kOpenMdi);
  RealKey(Qt::Key_Escape);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
}

}  // namespace
}  // namespace panel
