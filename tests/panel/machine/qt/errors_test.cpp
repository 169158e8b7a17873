// SPDX-License-Identifier: MIT
// The panel around the error tool: a fault opens its window, the indicator brings it back, and the operator can see the
// help, the list and the questions.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "panel/machine/qt/demo_machine.h"
#include "support/event_wait.h"
#include "ui/error_list.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/panel_window.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

constexpr int kHelpPicture = 1042;
// Of the PLC message view.
constexpr int kHelpText = 1005;
constexpr int kHelpTitle = 1006;

class ErrorsTest : public ::testing::Test {
 protected:
  ErrorsTest() : rig_(DemoMachine()) {
    UseWords("en");
    rig_.Machine()->Reset();
    rig_.Advance(1000);
    rig_.Cnc().ClearErrors();
    session_.OfferAll();
    op_ = std::make_unique<Operator>(session_, &rig_);
    window_ = std::make_unique<PanelWindow>(session_, *op_, [this](const QString& path) {
      const auto host = rig_.Files().HostPath(path.toStdU16String());
      return host ? QString::fromStdString(*host) : QString();
    });
    window_->show();
    window_->activateWindow();
    Settle();
    op_->Desk().StartTools();
    Settle();
  }
  ~ErrorsTest() override {
    window_.reset();
    op_.reset();
    rig_.Machine()->EmergencyStop(false);
    rig_.Machine()->Reset();
    rig_.Cnc().ClearErrors();
    rig_.Advance(1000);
  }

  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  void Raise(Fault fault) {
    rig_.Machine()->Raise(fault);
    Settle();
  }
  void Push(int number, int severity) {
    pnl::rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{number}}, {"severity", std::int64_t{severity}}};
    std::string problem;
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem)) << problem;
    Settle();
  }
  void Do(Action action) {
    window_->Trigger(action);
    Settle();
  }
  void Key(int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QWidget* focus = QApplication::focusWidget();
    QCoreApplication::sendEvent(focus == nullptr ? window_.get() : focus, &event);
    Settle();
  }
  void Send(const char* message, intptr_t first, intptr_t second = 0) {
    PnlPostMessage(session_.MainWindow(), PnlRegisterMessage(message), first, second);
    Settle();
  }
  [[nodiscard]] QWidget* Tool() const {
    return static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  }
  [[nodiscard]] bool Shown() const { return Tool() != nullptr && Tool()->isVisible(); }
  [[nodiscard]] std::size_t Queue() const { return rig_.Cnc().ErrorQueue().size(); }
  [[nodiscard]] ErrorIndicator& Sign() const { return window_->Status().Indicator(); }
  /// Puts the window away, as its double click does.
  void PutAway() {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
      QMouseEvent press(type, QPointF(3, 3), Tool()->mapToGlobal(QPointF(3, 3)), Qt::LeftButton, Qt::LeftButton,
                        Qt::NoModifier);
      QCoreApplication::sendEvent(Tool(), &press);
    }
    Settle();
  }
  [[nodiscard]] QWidget* View() const {
    return static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES)));
  }
  [[nodiscard]] bool HelpShown() const { return View() != nullptr && View()->isVisible(); }
  /// The text of a control of the PLC message view.
  [[nodiscard]] QString TextIn(int id) const {
    for (const QWidget* child : View()->findChildren<QWidget*>()) {
      if (child->property("pnlId") == QVariant(id)) return child->property("pnlText").toString();
    }
    return {};
  }
  void OpenHelp() {
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), PNL_MSG_HELP_KEY, 0, 0);
    Settle();
  }

  pnl::rig::Rig& rig_;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
};

TEST_F(ErrorsTest, TheToolIsMadeHiddenAndOnce) {
  const PnlWindow tool = session_.ToolWindow(PNL_TOOL_ERRORS);
  EXPECT_NE(tool, 0);
  EXPECT_FALSE(Shown());
  op_->Desk().StartTools();
  EXPECT_EQ(session_.ToolWindow(PNL_TOOL_ERRORS), tool);
}

TEST_F(ErrorsTest, ARefusedBlockOpensTheWindowAndTheZoneStaysFree) {
  Do(Action::kOpenMdi);
  auto* mdi = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_MDI)));
  mdi->findChild<QLineEdit*>()->setText("G999");
  Do(Action::kCycleStart);
  EXPECT_TRUE(Shown());
  EXPECT_TRUE(Tool()->hasFocus());
  EXPECT_TRUE(window_->Zone().Lines().empty()) << "the window says it";
  EXPECT_EQ(window_->Status().ErrorCount(), 1);
  EXPECT_TRUE(window_->ToolAreaWidget()->rect().contains(Tool()->geometry()));
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Shown());
  EXPECT_EQ(Queue(), 0u);
  EXPECT_EQ(window_->Status().ErrorCount(), 0);
  EXPECT_TRUE(mdi->findChild<QLineEdit*>()->hasFocus()) << "the operator goes on where he was";
}

TEST_F(ErrorsTest, TheIndicatorFlashesInTheClassColourWhileTheWindowIsAway) {
  Raise(Fault::kDriveWarning);
  ASSERT_TRUE(Shown());
  EXPECT_FALSE(Sign().Flashes()) << "the window says it";
  EXPECT_EQ(Sign().ErrorCount(), 1);
  PutAway();
  EXPECT_FALSE(Shown());
  EXPECT_TRUE(Sign().Flashes());
  EXPECT_EQ(Sign().Fill(), theme::FromColorRef(0x648064));
  EXPECT_EQ(Sign().accessibleName(), "Errors: 1, warning");
  Sign().click();
  Settle();
  EXPECT_TRUE(Shown());
  EXPECT_FALSE(Sign().Flashes());
  EXPECT_TRUE(Tool()->hasFocus());
}

TEST_F(ErrorsTest, WithoutAnErrorTheIndicatorOpensTheList) {
  EXPECT_EQ(Sign().accessibleName(), "no errors");
  Sign().click();
  EXPECT_TRUE(window_->ErrorsShown().IsOpen());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
  EXPECT_TRUE(window_->Editor().Edit().hasFocus());
}

TEST_F(ErrorsTest, TheClearKeyAcknowledgesOnlyWhatIsSeen) {
  Raise(Fault::kDriveFault);
  PutAway();
  Do(Action::kClearError);
  EXPECT_TRUE(Shown()) << "first it comes back";
  EXPECT_EQ(op_->CurrentHint().text, "") << "and nothing is said of staying";
  EXPECT_EQ(Queue(), 1u);
  Do(Action::kClearError);
  EXPECT_FALSE(Shown());
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(ErrorsTest, TheClearKeyBringsTheErrorsThatStayInFront) {
  Raise(Fault::kDriveFault);
  Raise(Fault::kDriveWarning);
  ASSERT_TRUE(Shown());
  Do(Action::kOpenMdi);
  session_.BringToFront(PNL_TOOL_MDI);
  Settle();
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  Do(Action::kClearError);
  EXPECT_EQ(Queue(), 1u);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_ERRORS);
}

TEST_F(ErrorsTest, AWindowThatIsCalledWhileItIsShownComesInFrontAndEndsTheHelp) {
  Raise(Fault::kDriveFault);
  Do(Action::kOpenMdi);
  session_.BringToFront(PNL_TOOL_MDI);
  Settle();
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  ASSERT_TRUE(Shown());
  op_->Desk().OnShowError({{"header", "ERROR 7"}});
  EXPECT_TRUE(op_->Desk().BringBack());
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_ERRORS);
  EXPECT_TRUE(Tool()->hasFocus());
  EXPECT_FALSE(op_->Desk().ShowsHelp());
}

TEST_F(ErrorsTest, WithoutAnErrorThereIsNoWindowToCall) {
  EXPECT_FALSE(op_->Desk().BringBack());
  EXPECT_FALSE(Shown());
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(Shown());
  rig_.Cnc().ClearErrors();
  EXPECT_FALSE(op_->Desk().BringBack()) << "its window is about to go";
}

TEST_F(ErrorsTest, AWindowOfWhichTheHostIsNotToldIsNotBroughtBack) {
  session_.Offer({});
  Raise(Fault::kDriveFault);
  op_->Desk().OnShowError({{"header", "ERROR 7"}});
  EXPECT_FALSE(op_->Desk().BringBack());
}

TEST_F(ErrorsTest, TheClearKeyLeavesAScriptsOwnToolAloneAndEmptiesTheQueue) {
  Raise(Fault::kDriveFault);
  Raise(Fault::kDriveWarning);
  ASSERT_EQ(Queue(), 2u);
  session_.SetReacting(false);
  Do(Action::kClearError);
  EXPECT_EQ(Queue(), 0u);
}

TEST_F(ErrorsTest, AnErrorThatIsAcknowledgedBeforeAnotherSaysNothingAboutStaying) {
  Raise(Fault::kDriveWarning);
  Raise(Fault::kDriveFault);
  Do(Action::kClearError);
  EXPECT_EQ(Queue(), 1u);
  EXPECT_TRUE(Shown());
  EXPECT_TRUE(window_->Zone().Lines().empty());
}

TEST_F(ErrorsTest, TheWordThatAnErrorStaysGoesWithTheError) {
  Raise(Fault::kConfirm);
  Do(Action::kClearError);
  ASSERT_EQ(op_->CurrentHint().text, Say(Word::kErrorStays));
  EXPECT_TRUE(op_->CurrentHint().warning);
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_EQ(op_->CurrentHint().text, "");
}

TEST_F(ErrorsTest, TheClearKeyConfirmsNothing) {
  Raise(Fault::kConfirm);
  ASSERT_TRUE(Shown());
  Do(Action::kClearError);
  EXPECT_EQ(Queue(), 1u);
  ASSERT_EQ(window_->Zone().Lines().size(), 1u);
  EXPECT_EQ(window_->Zone().Lines()[0].text, Say(Word::kErrorStays));
  Key(Qt::Key_Return);
  EXPECT_EQ(Queue(), 0u) << "Enter in its window does";
}

TEST_F(ErrorsTest, ResetTakesEveryErrorAway) {
  Raise(Fault::kDriveFault);
  Raise(Fault::kBusFault);
  Do(Action::kReset);
  EXPECT_EQ(Queue(), 0u);
  EXPECT_FALSE(Shown());
}

TEST_F(ErrorsTest, HelpShowsTheDescriptionInTheWindowsPlaceAndLeadsBack) {
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(Shown());
  OpenHelp();
  ASSERT_TRUE(HelpShown());
  EXPECT_FALSE(Shown());
  EXPECT_FALSE(TextIn(kHelpTitle).isEmpty());
  EXPECT_FALSE(TextIn(kHelpText).isEmpty());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(HelpShown());
  EXPECT_TRUE(Shown());
  EXPECT_TRUE(Tool()->hasFocus());
  EXPECT_EQ(Queue(), 1u) << "the key has left the help and nothing else";
  OpenHelp();
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), PnlRegisterMessage("ZM_END_ERRORHELP"), 0, 0);
  Settle();
  EXPECT_TRUE(Shown());
  EXPECT_FALSE(HelpShown()) << "it is shown in place of the window, never beside it";
}

TEST_F(ErrorsTest, TheHelpGoesWithItsError) {
  Raise(Fault::kDriveFault);
  OpenHelp();
  ASSERT_TRUE(op_->Desk().ShowsHelp());
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_FALSE(op_->Desk().ShowsHelp());
  EXPECT_TRUE(window_->Editor().Edit().hasFocus());
}

TEST_F(ErrorsTest, AHelpsHeaderStaysPlainAndADocumentThatIsNotThereIsNamed) {
  op_->Desk().OnShowError(QVariantMap{
      {"back", 0x0000A0u}, {"fore", 0xFFFFFFu}, {"helpRef", "C:\\none.txt#7"}, {"header", "ERROR 7 : <b>bold</b>"}});
  Settle();
  ASSERT_TRUE(HelpShown());
  EXPECT_EQ(TextIn(kHelpTitle), "ERROR 7 : <b>bold</b>");
}

TEST_F(ErrorsTest, WithoutTheMessageViewTheErrorComesBackAtOnce) {
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES));
  Raise(Fault::kDriveFault);
  OpenHelp();
  EXPECT_FALSE(op_->Desk().ShowsHelp());
  EXPECT_TRUE(Shown());
}

TEST_F(ErrorsTest, TheQuestionToCloseComesOnceAndARefusalIsKept) {
  Send("ZM_CLOSE7340", 1);
  ASSERT_TRUE(window_->Asking().IsOpen());
  EXPECT_EQ(window_->Asking().Text(), Say(Word::kCloseAsked));
  Send("ZM_CLOSE7340", 1);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_->Asking().IsOpen());
  EXPECT_TRUE(window_->isVisible());
  Send("ZM_CLOSE7340", 1);
  EXPECT_FALSE(window_->Asking().IsOpen()) << "it was refused";
  Push(5, 1);
  Send("ZM_CLOSE7340", 1);
  EXPECT_FALSE(window_->Asking().IsOpen()) << "an ordinary error is no new reason";
  Push(201, 1);
  Send("ZM_CLOSE7340", 1);
  EXPECT_TRUE(window_->Asking().IsOpen());
  EXPECT_TRUE(window_->Asking().isVisible()) << "over the error window";
  window_->Asking().Answer(0);
  Settle();
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(ErrorsTest, OtherValuesOfTheCloseMessageAskNothing) {
  Send("ZM_CLOSE7340", 0);
  EXPECT_FALSE(window_->Asking().IsOpen());
}

TEST_F(ErrorsTest, AQuestionStepsBackForAnErrorAndComesAgain) {
  window_->Editor().Insert("changed");
  Do(Action::kNewProgram);
  ASSERT_TRUE(window_->Asking().IsOpen());
  Raise(Fault::kDriveFault);
  EXPECT_TRUE(Shown());
  EXPECT_FALSE(window_->Asking().isVisible());
  EXPECT_TRUE(Tool()->hasFocus());
  window_->ToolAreaWidget()->raise();
  Key(Qt::Key_Escape);
  EXPECT_EQ(Queue(), 0u);
  EXPECT_TRUE(window_->Asking().isVisible());
  const QPoint middle = window_->Asking().geometry().center();
  EXPECT_FALSE(window_->ToolAreaWidget()->isAncestorOf(window_->childAt(middle))) << "it is above the tools again";
  EXPECT_TRUE(window_->Asking().IsOpen());
  EXPECT_TRUE(window_->Asking().Key(1)->hasFocus());
}

TEST_F(ErrorsTest, TheListGoesWhenAnErrorOpensItsWindow) {
  Do(Action::kErrorList);
  ASSERT_TRUE(window_->ErrorsShown().IsOpen());
  Raise(Fault::kDriveFault);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
  EXPECT_TRUE(Tool()->hasFocus());
}

TEST_F(ErrorsTest, TheListShowsHowAnErrorLeftWhileItIsOpen) {
  Raise(Fault::kDriveFault);
  PutAway();
  Do(Action::kErrorList);
  const QAbstractItemModel& model = *window_->ErrorsShown().List().model();
  ASSERT_GE(model.rowCount(), 1);
  EXPECT_TRUE(model.index(0, 0).data(ErrorListModel::kDetailsRole).toString().contains("standing"));
  EXPECT_TRUE(window_->ErrorsShown().Details().startsWith("error "));
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_TRUE(model.index(0, 0).data(ErrorListModel::kDetailsRole).toString().contains("cleared"));
  Do(Action::kErrorList);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen()) << "its key closes it";
}

TEST_F(ErrorsTest, TheListKeepsTheRowThatIsReadWhileOthersComeAbove) {
  for (int i = 0; i < 200; ++i) Push(3000 + i, 0);
  PutAway();
  Do(Action::kErrorList);
  QListView& list = window_->ErrorsShown().List();
  ASSERT_EQ(list.model()->rowCount(), 200);
  EXPECT_EQ(window_->ErrorsShown().Notes().size(), 1) << "a flood";
  for (int i = 0; i < 3; ++i) Key(Qt::Key_Down);
  EXPECT_EQ(list.currentIndex().row(), 3);
  const QString name = list.currentIndex().data(ErrorListModel::kNameRole).toString();
  EXPECT_EQ(name, "warning 3196");
  op_->Desk().BringBack();
  Settle();
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
  PutAway();
  Do(Action::kErrorList);
  list.setCurrentIndex(list.model()->index(3, 0));
  // Else the next error would open its window, and the list would go.
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), PNL_MSG_TOOL_NOTIFY, 1, 1);
  Push(5000, 0);
  EXPECT_TRUE(window_->ErrorsShown().IsOpen());
  EXPECT_EQ(window_->ErrorsShown().Notes().size(), 2) << "the 201st leaves a line";
  EXPECT_EQ(list.currentIndex().row(), 4);
  EXPECT_EQ(list.currentIndex().data(ErrorListModel::kNameRole).toString(), name);
  Key(Qt::Key_End);
  EXPECT_EQ(list.currentIndex().row(), 199);
}

TEST_F(ErrorsTest, TheFaultKeysStandBehindOneKeyAndLeadBack) {
  SoftKeyBar& bar = window_->MainBar();
  const auto press = [this, &bar](int id) {
    for (int page = 0; page < bar.PageCount(); ++page) {
      for (int slot = 0; slot < kMainKeys; ++slot) {
        const auto index = static_cast<std::size_t>(bar.Page() * kMainKeys + slot);
        if (index >= bar.Items().size() || bar.Items()[index].id != id) continue;
        window_->PressMain(slot);
        return Settle();
      }
      bar.NextPage();
    }
    FAIL() << "no key " << id;
  };
  press(kFaultsItem);
  EXPECT_EQ(bar.Items().size(), DemoFaults().size());
  press(bar.Items()[0].id);
  EXPECT_TRUE(op_->EmergencyStop());
  EXPECT_TRUE(bar.Items()[0].checked);
  press(bar.Items()[0].id);
  EXPECT_FALSE(op_->EmergencyStop());
  rig_.Cnc().ClearErrors();
  for (std::size_t i = 1; i < DemoFaults().size(); ++i) {
    if (DemoFaults()[i].fault == Fault::kProgramLine) continue;
    press(bar.Items()[i].id);
    EXPECT_EQ(Queue(), 1u) << i;
    EXPECT_EQ(bar.Items()[i].checked, DemoFaults()[i].stands) << i;
    rig_.Cnc().ClearErrors();
    Settle();
    if (!DemoFaults()[i].stands) continue;
    EXPECT_TRUE(bar.Items()[i].checked) << "its error has gone, its cause has not";
    press(bar.Items()[i].id);
    EXPECT_FALSE(bar.Items()[i].checked) << i;
    EXPECT_EQ(Queue(), 0u) << i;
  }
  bar.Back();
  bar.Back();
  Settle();
  EXPECT_GT(bar.Items().size(), DemoFaults().size());
}

TEST_F(ErrorsTest, AFaultOfAProgramNeedsItsFile) {
  const DemoFault line{Word::kFaultProgramLine, Fault::kProgramLine};
  op_->RaiseFault(line, window_->Desk().CaretSpot());
  Settle();
  EXPECT_EQ(Queue(), 0u);
  EXPECT_EQ(window_->Zone().Lines().at(0).text, Say(Word::kFaultNeedsProgram));
  window_->Editor().Edit().setPlainText("G0 X1\nG1 Y2 F100\n");
  window_->Desk().Store("C:\\FAULT.NC");
  while (window_->Working()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  ASSERT_EQ(window_->Desk().Path(), "C:\\FAULT.NC");
  QTextCursor caret = window_->Editor().Edit().textCursor();
  caret.setPosition(10);
  window_->Editor().Edit().setTextCursor(caret);
  const auto spot = window_->Desk().CaretSpot();
  ASSERT_TRUE(spot);
  EXPECT_EQ(spot->file, u"FAULT.NC");
  EXPECT_EQ(spot->position, 7) << "in bytes, its line ended by two";
  EXPECT_EQ(spot->span, 3) << "the word in which the caret stands";
  op_->RaiseFault(line, spot);
  Settle();
  EXPECT_TRUE(Shown());
}

// Accents take two bytes in the file, one place in the line.
TEST_F(ErrorsTest, AFaultOfALongProgramMarksTheWordInWhichTheCaretStands) {
  QString program;
  for (int line = 1; line <= 500; ++line) program += QString::fromUtf8("G1 X%1 (\u00D8 10) F9\n").arg(line);
  window_->Editor().Edit().setPlainText(program);
  window_->Desk().Store("C:\\LONG.NC");
  while (window_->Working()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QTextCursor caret = window_->Editor().Edit().textCursor();
  caret.setPosition(caret.document()->findBlockByNumber(320).position() + 15);
  window_->Editor().Edit().setTextCursor(caret);
  op_->RaiseFault({Word::kFaultProgramLine, Fault::kProgramLine}, window_->Desk().CaretSpot());
  Settle();
  const auto description = [this] {
    for (const QWidget* control : Tool()->findChildren<QWidget*>()) {
      if (control->property("pnlId").toInt() == 1002) return control->property("pnlText").toString();
    }
    return QString();
  };
  const QString marked = QString::fromUtf8("G1 X321 (\u00D8 10) <F>9");
  ASSERT_TRUE(pnl::test::RunUntil([&] { return description().contains(marked); })) << description().toStdString();
}

TEST_F(ErrorsTest, TenThousandErrorsAtOnceLeaveCountAndListRight) {
  pnl::rig::ErrorSpec spec;
  std::string problem;
  for (int i = 0; i < 10000; ++i) {
    spec.fields = {{"number", std::int64_t{1000 + i % 300}}, {"severity", std::int64_t{1}}};
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem));
  }
  Settle();
  EXPECT_EQ(window_->Status().ErrorCount(), 10000);
  PutAway();
  EXPECT_EQ(Sign().ErrorCount(), 10000);
  EXPECT_TRUE(op_->Desk().History().IsConsistent());
  EXPECT_EQ(op_->Desk().History().Rows().size(), ErrorHistory::kMostRows);
}

}  // namespace
}  // namespace panel
