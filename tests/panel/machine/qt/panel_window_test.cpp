// SPDX-License-Identifier: MIT
// The panel with the real library behind it: keys, callbacks, refusals, the chooser and the shortcuts.
#include "ui/panel_window.h"

#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "panel/machine/qt/demo_machine.h"
#include "ui/file_chooser.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

// How key presses reach the shortcuts of a window, as the platform sends them.
extern Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                                      Qt::KeyboardModifiers modifiers, const QString& text,
                                                      bool repeats, ushort count);

namespace panel {
namespace {

constexpr int kSaveAsProgram = 32775;

class PanelWindowTest : public ::testing::Test {
 protected:
  PanelWindowTest() : rig_(DemoMachine()) {
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
  }
  ~PanelWindowTest() override {
    window_.reset();
    op_.reset();
    rig_.Machine()->FeedOverride(100);
    rig_.Machine()->SingleBlock(false);
    rig_.Machine()->Reset();
    rig_.Advance(1000);
  }

  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  void Do(Action action) {
    window_->Trigger(action);
    Settle();
  }
  void Advance(int milliseconds) {
    rig_.Advance(milliseconds);
    Settle();
  }
  [[nodiscard]] QLineEdit* MdiEdit() const {
    auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_MDI)));
    return tool == nullptr ? nullptr : tool->findChild<QLineEdit*>();
  }
  void Type(const QString& text) {
    for (const QChar c : text) {
      QKeyEvent event(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier, QString(c));
      QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    Settle();
  }
  bool Shortcut(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QObject* focus = QApplication::focusWidget();
    const bool taken =
        qt_sendShortcutOverrideEvent(focus == nullptr ? window_.get() : focus, 0, key, modifiers, {}, false, 1);
    Settle();
    return taken;
  }
  [[nodiscard]] QString ZoneText() const {
    QStringList lines;
    for (const auto& line : window_->Zone().Lines()) lines << line.text;
    return lines.join('|');
  }
  void PressItem(int id) {
    SoftKeyBar& bar = window_->MainBar();
    for (int slot = 0; slot < kMainKeys; ++slot) {
      if (bar.Items().at(static_cast<std::size_t>(slot)).id == id) return window_->PressMain(slot);
    }
    ADD_FAILURE() << "no key for " << id;
  }

  pnl::rig::Rig& rig_;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
};

TEST_F(PanelWindowTest, WithoutAToolThePanelsOwnKeysShow) {
  EXPECT_EQ(window_->MainBar().Menu(), 0u);
  EXPECT_EQ(window_->MainBar().Key(0)->text(), "MDI");
  EXPECT_TRUE(window_->MainBar().Key(0)->isEnabled());
  EXPECT_TRUE(window_->MainBar().Key(2)->isEnabled());
  EXPECT_FALSE(window_->MainBar().Key(3)->isEnabled()) << "a tool that doesn't exist can't be called";
  EXPECT_EQ(window_->Status().StateText(), "READY");
}

TEST_F(PanelWindowTest, StartWithoutACommandLineSaysThatThereIsNothingToStart) {
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kNothingToStart));
  EXPECT_EQ(window_->Zone().Lines().at(0).back, QColor(theme::kAmber));
  Do(Action::kSingleBlock);
  EXPECT_EQ(ZoneText(), "") << "the next thing done takes the hint away";
}

TEST_F(PanelWindowTest, TheCommandLineOpensAndTheModeSaysSo) {
  window_->PressMain(0);
  Settle();
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_EQ(window_->Status().Mode(), "MDI");
  EXPECT_TRUE(window_->MainBar().Key(0)->isChecked());
  EXPECT_NE(window_->SideBar().Menu(), 0u) << "its position menu stands at the side";
  const auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_MDI)));
  EXPECT_FALSE(window_->Editor().geometry().intersects(tool->geometry())) << "the program stays readable";
}

TEST_F(PanelWindowTest, ABlockRunsByStartAndShowsOnTheWay) {
  Do(Action::kOpenMdi);
  Type("G1 X20 F1000");
  Do(Action::kCycleStart);
  Advance(300);
  EXPECT_EQ(window_->Status().StateText(), "RUNNING");
  Do(Action::kFeedHold);
  Advance(300);
  EXPECT_EQ(window_->Status().StateText(), "FEED HOLD");
  const double held = op_->Machine().axes.at(0).position;
  Do(Action::kFeedHold);
  Advance(500);
  EXPECT_EQ(op_->Machine().axes.at(0).position, held) << "a second press on hold moves nothing";
  Do(Action::kCycleStart);
  Advance(5000);
  EXPECT_EQ(window_->Status().StateText(), "READY");
  EXPECT_NEAR(op_->Machine().axes.at(0).position, 20, 0.001);
}

TEST_F(PanelWindowTest, ARefusalShowsInRedUntilItIsCleared) {
  Do(Action::kOpenMdi);
  Type("G999");
  Do(Action::kCycleStart);
  ASSERT_EQ(window_->Zone().Lines().size(), 1u);
  EXPECT_TRUE(ZoneText().contains("Unknown G code")) << ZoneText().toStdString();
  EXPECT_TRUE(ZoneText().startsWith("Error "));
  EXPECT_EQ(window_->Zone().Lines()[0].back, QColor(theme::kRed));
  EXPECT_EQ(window_->Zone().Lines()[0].fore, QColor(Qt::white));
  EXPECT_EQ(window_->Status().Errors(), 1);
  EXPECT_TRUE(window_->Keys().Key(Action::kClearError)->isEnabled());
  window_->Keys().Key(Action::kClearError)->click();
  Settle();
  EXPECT_EQ(ZoneText(), "");
  EXPECT_EQ(window_->Status().Errors(), 0);
  EXPECT_FALSE(window_->Keys().Key(Action::kClearError)->isEnabled());
}

TEST_F(PanelWindowTest, ResetTakesTheErrorsAway) {
  Do(Action::kOpenMdi);
  Type("G999");
  Do(Action::kCycleStart);
  Do(Action::kReset);
  EXPECT_TRUE(rig_.Cnc().ErrorQueue().empty());
}

TEST_F(PanelWindowTest, ARefusedCommandLineSaysSo) {
  rig_.Cnc().Define(u"DM.MDI.ENABLEC1", pnl::rig::VariableType::kInt, std::int64_t{0}, true, true);
  Do(Action::kOpenMdi);
  rig_.Cnc().Undefine(u"DM.MDI.ENABLEC1");
  EXPECT_EQ(ZoneText(), Say(Word::kMdiRefused));
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(PanelWindowTest, AToolThatDoesNotExistSaysSo) {
  EXPECT_FALSE(op_->OpenTool(PNL_TOOL_PLC_MESSAGES));
  Settle();
  EXPECT_EQ(ZoneText(), Say(Word::kToolMissing));
}

TEST_F(PanelWindowTest, TheLatchedKeysFollowTheMachine) {
  Do(Action::kSingleBlock);
  EXPECT_TRUE(window_->Keys().Key(Action::kSingleBlock)->isChecked());
  rig_.Machine()->SingleBlock(false);
  Settle();
  EXPECT_FALSE(window_->Keys().Key(Action::kSingleBlock)->isChecked());
  EXPECT_FALSE(window_->Keys().Key(Action::kCancel)->isEnabled()) << "nothing is interrupted";
}

TEST_F(PanelWindowTest, TheWholeFeedIsOfferedWhenTheFeedIsAnother) {
  EXPECT_EQ(op_->Machine().feedOverride, 100);
  EXPECT_FALSE(op_->Can(Action::kOverrideFull));
  Do(Action::kOverrideUp);
  EXPECT_TRUE(op_->Can(Action::kOverrideFull));
  Do(Action::kOverrideFull);
  EXPECT_EQ(op_->Machine().feedOverride, 100);
  EXPECT_FALSE(op_->Can(Action::kOverrideFull));
}

TEST_F(PanelWindowTest, TheOverrideStaysWithinItsLimits) {
  for (int i = 0; i < 15; ++i) Do(Action::kOverrideUp);
  EXPECT_EQ(op_->Machine().feedOverride, 200);
  EXPECT_FALSE(window_->Keys().Key(Action::kOverrideUp)->isEnabled());
  for (int i = 0; i < 25; ++i) Do(Action::kOverrideDown);
  EXPECT_EQ(op_->Machine().feedOverride, 0);
  Do(Action::kOverrideFull);
  EXPECT_EQ(op_->Machine().feedOverride, 100);
}

TEST_F(PanelWindowTest, ASoftKeyCommandsTheToolWhoseMenuItIs) {
  Do(Action::kSwitchRole);
  ASSERT_NE(window_->MainBar().Menu(), 0u);
  EXPECT_EQ(session_.MainMenuTool(), PNL_TOOL_MDI);
  EXPECT_EQ(window_->MainBar().Key(0)->KeyName(), "F1");
  EXPECT_TRUE(window_->MainBar().Key(0)->HasPicture());
  PressItem(32773);
  Settle();
  EXPECT_TRUE(MdiEdit()->hasFocus()) << "a new item is being typed";
}

class PanelRequestTest : public PanelWindowTest {
 protected:
  void Ask() {
    Do(Action::kOpenMdi);
    Type("G0 X1");
    Do(Action::kCycleStart);
    Advance(5000);
    Do(Action::kSwitchRole);
    PressItem(kSaveAsProgram);
    Settle();
  }
};

TEST_F(PanelRequestTest, ANameGoesIntoTheRecordAndTheProgramIsWritten) {
  Ask();
  ASSERT_TRUE(window_->Chooser().Stands());
  ASSERT_NE(op_->Request(), nullptr);
  const QString folder = window_->Chooser().Folder();
  window_->Chooser().NameEdit().setText("LIST.NC");
  window_->Chooser().Accept();
  Settle();
  EXPECT_FALSE(window_->Chooser().Stands());
  const XPLRDATA_ST* record = op_->Request();
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(QString::fromUtf16(record->File), "LIST.NC");
  EXPECT_EQ(JoinPath(QString::fromUtf16(record->Path), "LIST.NC"), JoinPath(folder, "LIST.NC"));
  const auto path = rig_.Files().HostPath(JoinPath(folder, "LIST.NC").toStdU16String());
  QFile file(QString::fromStdString(path.value_or("")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("G0 X1"));
}

TEST_F(PanelRequestTest, LeavingTheChooserFreesTheStartKey) {
  Ask();
  window_->Chooser().Leave();
  Settle();
  EXPECT_FALSE(window_->Chooser().Stands());
  Do(Action::kCycleStart);
  EXPECT_EQ(op_->Machine().channelStatus, 2) << "the tool waits for no file any more";
}

TEST_F(PanelRequestTest, TheChooserGoesWhenItsAskerGoes) {
  Ask();
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  window_->Chooser().NameEdit().setText("LOST.NC");
  window_->Chooser().Accept();
  Settle();
  EXPECT_FALSE(window_->Chooser().Stands());
  EXPECT_EQ(ZoneText(), Say(Word::kNoRequest));
}

TEST_F(PanelRequestTest, WhileTheChooserStandsOnlyTheMachinesKeysWork) {
  Ask();
  Do(Action::kNewProgram);
  EXPECT_FALSE(window_->Asking().Stands());
  window_->PressMain(0);
  EXPECT_TRUE(window_->Chooser().Stands());
  EXPECT_FALSE(window_->MainBar().isEnabled());
  Do(Action::kSingleBlock);
  EXPECT_TRUE(op_->Machine().singleBlock);
  window_->Chooser().Leave();
  EXPECT_TRUE(window_->MainBar().isEnabled());
}

TEST_F(PanelWindowTest, TheShortcutsWorkWhileTheCommandLineHasTheFocus) {
  EXPECT_TRUE(Shortcut(Qt::Key_M, Qt::ControlModifier));
  ASSERT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  ASSERT_TRUE(MdiEdit()->hasFocus());
  Type("G4 P1");
  EXPECT_TRUE(Shortcut(Qt::Key_Return, Qt::ControlModifier));
  EXPECT_NE(op_->Machine().channelStatus, 1) << "the block left";
  EXPECT_TRUE(Shortcut(Qt::Key_F12));
  EXPECT_TRUE(Shortcut(Qt::Key_F11));
  EXPECT_TRUE(op_->Machine().singleBlock);
  EXPECT_TRUE(Shortcut(Qt::Key_Plus, Qt::ControlModifier));
  EXPECT_EQ(op_->Machine().feedOverride, 110);
  EXPECT_FALSE(Shortcut(Qt::Key_A)) << "letters are the tool's";
}

TEST_F(PanelWindowTest, EscapeLeadsToTheToolFirstAndClearsAnErrorWithoutOne) {
  Do(Action::kOpenMdi);
  Type("G999");
  Do(Action::kCycleStart);
  window_->Keys().Key(Action::kReset)->setFocus();
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(window_.get(), &escape);
  Settle();
  EXPECT_TRUE(MdiEdit()->hasFocus());
  EXPECT_EQ(op_->Errors().size(), 1u);
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  QCoreApplication::sendEvent(window_.get(), &escape);
  EXPECT_TRUE(op_->Errors().empty());
}

TEST_F(PanelWindowTest, TheHelpKeyShowsTheToolsMark) {
  Do(Action::kOpenMdi);
  Do(Action::kHelp);
  EXPECT_TRUE(ZoneText().startsWith("Help mark: ")) << ZoneText().toStdString();
}

TEST_F(PanelWindowTest, ClosingGivesTheFocusBackToTheProgram) {
  Do(Action::kOpenMdi);
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  EXPECT_TRUE(window_->Editor().Edit().hasFocus());
  EXPECT_EQ(window_->SideBar().Menu(), 0u);
}

TEST_F(PanelWindowTest, ClosingTheWindowClosesTheTools) {
  Do(Action::kOpenMdi);
  const PnlWindow tool = session_.ToolWindow(PNL_TOOL_MDI);
  window_->close();
  EXPECT_FALSE(PnlIsAlive(tool));
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(PanelWindowTest, ClosingAsksForChangesThatNoFileHas) {
  window_->SetAsksBeforeClosing(true);
  window_->Editor().Insert("G0");
  EXPECT_FALSE(window_->close());
  ASSERT_TRUE(window_->Asking().Stands());
  window_->Asking().Answer(1);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_FALSE(window_->close());
  window_->Asking().Answer(0);
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(PanelWindowTest, TheToolAreaGetsExactlyTheSizeAskedFor) {
  for (const QSize size : {QSize(800, 600), QSize(320, 240), QSize(1920, 1080)}) {
    window_->ResizeToolArea(size);
    Settle();
    EXPECT_EQ(window_->ToolAreaWidget()->size(), size);
  }
  window_->resize(1000, 700);
  EXPECT_NE(window_->ToolAreaWidget()->size(), QSize(1920, 1080)) << "another size of the window lets it go";
}

TEST_F(PanelWindowTest, EveryKeyIsBigEnoughForAFingerAndReachableByTab) {
  const int touch = theme::TouchPixels(*window_);
  for (const QSize size : {QSize(800, 600), QSize(1280, 800), QSize(1920, 1080)}) {
    window_->resize(size);
    Settle();
    for (const PanelKey* key : window_->findChildren<PanelKey*>()) {
      if (!key->isVisible()) continue;
      EXPECT_GE(std::min(key->width(), key->height()), touch) << key->text().toStdString() << " at " << size.width();
      EXPECT_NE(key->focusPolicy() & Qt::TabFocus, 0);
      EXPECT_EQ(key->focusPolicy() & Qt::ClickFocus, 0) << "a press must leave the focus in the tool";
    }
  }
}

TEST_F(PanelWindowTest, EveryItemOfThePanelsOwnMenuMeansOneThing) {
  auto items = PanelMainItems(session_, *op_);
  for (const auto& item : PanelSideItems(session_, *op_)) items.push_back(item);
  for (const auto& item : PanelFaultItems(*op_)) items.push_back(item);
  for (const auto& item : items) {
    const int meanings = static_cast<int>(ActionOfItem(item.id).has_value()) +
                         static_cast<int>(ToolOfItem(item.id) >= 0) +
                         static_cast<int>(FaultOfItem(item.id) != nullptr) + static_cast<int>(item.id == kFaultsItem);
    EXPECT_EQ(meanings, 1) << item.id;
  }
  EXPECT_FALSE(ActionOfItem(-1).has_value());
}

TEST_F(PanelWindowTest, AMessageOfAToolShowsInItsColours) {
  rig_.Cnc().Set(u"[1].E.INSPECSTATUS", std::int64_t{0});
  Do(Action::kOpenMdi);
  rig_.Cnc().Set(u"[1].E.INSPECSTATUS", std::int64_t{1});
  Advance(0);
  ASSERT_FALSE(session_.Messages().empty()) << "the command line tells that inspection is on";
  EXPECT_EQ(window_->Zone().Lines().at(0).back, QColor(100, 128, 44));
  EXPECT_EQ(window_->Zone().Lines().at(0).fore, QColor(Qt::black));
  rig_.Cnc().Set(u"[1].E.INSPECSTATUS", std::int64_t{0});
}

}  // namespace
}  // namespace panel
