// SPDX-License-Identifier: MIT
// The panel with the real library: keys, callbacks, refusals, requests and shortcuts.
#include "ui/panel_window.h"

#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <cmath>

#include "panel/machine/qt/demo_machine.h"
#include "remote/settle.h"
#include "support/text_catcher.h"
#include "ui/axis_display.h"
#include "ui/error_list.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

// How key presses reach the shortcuts of a window, as the platform sends them.
extern Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                                      Qt::KeyboardModifiers modifiers, const QString& text,
                                                      bool repeats, ushort count);

namespace panel {
namespace {

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
    ASSERT_TRUE(WaitWhile([] { return PnlRig()->IsWorking(); }, 60'000));
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
  [[nodiscard]] bool ExplorerIsOpen() const { return session_.IsToolOpen(PNL_TOOL_EXPLORER); }
  /// What the open request asks for.
  [[nodiscard]] QString Asked() const {
    const XPLRDATA_ST* record = op_->Files().Record();
    return record == nullptr ? QStringLiteral("nothing") : QString::fromUtf16(record->Title);
  }
  void LeaveExplorer() {
    op_->Files().Leave();
    Settle();
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
  EXPECT_TRUE(window_->MainBar().Key(3)->isEnabled());
  EXPECT_TRUE(window_->MainBar().Key(5)->isEnabled());
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
  // Wherever an earlier test has left the machine.
  const double start = op_->Machine().axes.at(0).position;
  Type("G91 G1 X20 F1000");
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
  EXPECT_NEAR(op_->Machine().axes.at(0).position, start + 20, 0.001);
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
  EXPECT_EQ(window_->Status().ErrorCount(), 1);
  EXPECT_TRUE(window_->Keys().Key(Action::kClearError)->isEnabled());
  window_->Keys().Key(Action::kClearError)->click();
  Settle();
  EXPECT_EQ(ZoneText(), "");
  EXPECT_EQ(window_->Status().ErrorCount(), 0);
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
  EXPECT_FALSE(op_->OpenTool(99));
  Settle();
  EXPECT_EQ(ZoneText(), Say(Word::kToolMissing));
}

TEST_F(PanelWindowTest, TheLatchedKeysFollowTheMachine) {
  Do(Action::kSingleBlock);
  EXPECT_TRUE(window_->Keys().Key(Action::kSingleBlock)->isChecked());
  EXPECT_FALSE(window_->Keys().Key(Action::kInspect)->isChecked());
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

TEST_F(PanelWindowTest, AnEditKeepsTheKeysThatAreNotThePanelsOwn) {
  Do(Action::kOpenMdi);
  QLineEdit* edit = MdiEdit();
  ASSERT_TRUE(edit->hasFocus());
  const auto keeps = [edit](int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, text);
    event.ignore();
    QCoreApplication::sendEvent(edit, &event);
    return event.isAccepted();
  };
  EXPECT_TRUE(keeps(Qt::Key_G, Qt::NoModifier, "g"));
  EXPECT_TRUE(keeps(Qt::Key_7, Qt::KeypadModifier, "7"));
  EXPECT_FALSE(keeps(Qt::Key_Return, Qt::ControlModifier, "\r")) << "the start key";
  EXPECT_FALSE(keeps(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier, "\r"));
}

TEST_F(PanelWindowTest, NoEditKeepsAKeyOfThePanel) {
  Do(Action::kOpenMdi);
  for (const ShortcutRow& row : ShortcutTable()) {
    if (IsOfEditor(row.action)) continue;
    for (const QKeySequence& keys : KeysOf(row.action)) {
      QKeyEvent event(QEvent::ShortcutOverride, keys[0].key(), keys[0].keyboardModifiers());
      // As an edit would have answered it that takes every key.
      event.accept();
      QCoreApplication::sendEvent(MdiEdit(), &event);
      EXPECT_FALSE(event.isAccepted()) << keys.toString().toStdString();
    }
  }
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

TEST_F(PanelWindowTest, AKeyThatNobodyTakesDoesNothingAndIsLeftForOthers) {
  rig_.Machine()->Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  Settle();
  const auto errors = rig_.Cnc().ErrorQueue();
  ASSERT_FALSE(errors.empty());
  QKeyEvent key(QEvent::KeyPress, Qt::Key_F20, Qt::NoModifier);
  QCoreApplication::sendEvent(window_.get(), &key);
  Settle();
  EXPECT_FALSE(key.isAccepted());
  EXPECT_EQ(rig_.Cnc().ErrorQueue(), errors);
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
  ASSERT_TRUE(window_->Asking().IsOpen());
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
      // The keys of the row that act on what has the focus can't have it themselves: the keyboard has them all.
      const auto act = {RowKey::kEnter, RowKey::kInsert, RowKey::kClose, RowKey::kKeyboard};
      const bool acts = std::any_of(act.begin(), act.end(), [&](RowKey row) { return window_->Row().Key(row) == key; });
      EXPECT_EQ((key->focusPolicy() & Qt::TabFocus) != 0, !acts) << key->text().toStdString();
      EXPECT_EQ(key->focusPolicy() & Qt::ClickFocus, 0) << "a press must leave the focus in the tool";
    }
  }
}

TEST_F(PanelWindowTest, EveryItemOfThePanelsOwnMenuMeansOneThing) {
  auto items = PanelMainItems(session_, *op_);
  for (const auto& item : PanelSideItems([](Action) { return true; })) items.push_back(item);
  for (const auto& item : PanelFaultItems(*op_)) items.push_back(item);
  const auto messages = PanelPlcItems(*op_);
  EXPECT_EQ(messages.size(), 8u);
  items.insert(items.end(), messages.begin(), messages.end());
  for (const auto& item : items) {
    const int meanings =
        static_cast<int>(ActionOfItem(item.id).has_value()) + static_cast<int>(ToolOfItem(item.id) >= 0) +
        static_cast<int>(FaultOfItem(item.id) != nullptr) + static_cast<int>(item.id == kFaultsItem) +
        static_cast<int>(item.id == kPlcItem) + static_cast<int>(PlcMessageOfItem(*op_, item.id).has_value());
    EXPECT_EQ(meanings, 1) << item.id;
  }
  EXPECT_FALSE(ActionOfItem(-1).has_value());
}

TEST_F(PanelWindowTest, AMessageAndAManualAreLeftByTouch) {
  const auto press = [this](Word word) {
    const auto& items = window_->MainBar().Items();
    const auto found =
        std::find_if(items.begin(), items.end(), [word](const SoftKeyItem& item) { return item.text == Say(word); });
    ASSERT_NE(found, items.end()) << Say(word).toStdString();
    window_->PressMain(static_cast<int>(found - items.begin()));
    Settle();
  };
  op_->Desk().StartTools();
  Do(Action::kOpenMdi);
  rig_.Machine()->RaisePlcMessage(1);
  Settle();
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_PLC_MESSAGES);
  ASSERT_EQ(window_->MainBar().Items().size(), 4u) << "and no key of the tool under it";
  press(Word::kPlayVideo);
  press(Word::kStopVideo);
  press(Word::kRewindVideo);
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES)) << "a page isn't played";
  press(Word::kClose);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES));
  Do(Action::kHelp);
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_HELP);
  press(Word::kClose);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_HELP));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
}

// The key typed Escape, which only closed the line.
TEST_F(PanelWindowTest, AManualIsLeftByTouchEvenWhileAWordOfItsPageIsLookedFor) {
  Do(Action::kHelp);
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_HELP);
  constexpr int kFindInPage = 40002;
  op_->SendCommand(PNL_TOOL_HELP, kFindInPage);
  Settle();
  const auto& items = window_->MainBar().Items();
  ASSERT_EQ(items.back().text, Say(Word::kClose));
  window_->PressMain(static_cast<int>(items.size()) - 1);
  Settle();
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_HELP));
}

// They could be pressed for every document, and did nothing.
TEST_F(PanelWindowTest, TheKeysOfTheVideoAreDimForEveryOtherDocument) {
  op_->Desk().StartTools();
  const auto enabled = [this] {
    std::vector<bool> all;
    for (const SoftKeyItem& item : window_->MainBar().Items()) all.push_back(item.enabled);
    return all;
  };
  const auto leave = [this] {
    session_.TypeInto(PNL_TOOL_PLC_MESSAGES, Qt::Key_Escape);
    Settle();
  };
  const std::vector<bool> dim{false, false, false, true};
  const std::vector<bool> lit{true, true, true, true};
  for (const auto& message : op_->PlcMessages()) {
    SCOPED_TRACE(message.code);
    op_->RaisePlcMessage(message.code);
    Settle();
    ASSERT_EQ(session_.FrontTool(), PNL_TOOL_PLC_MESSAGES);
    EXPECT_EQ(enabled(), message.code == 3 ? lit : dim);
    leave();
  }
  for (const std::uint32_t code : {3u, 1u}) {
    op_->RaisePlcMessage(code);
    Settle();
  }
  EXPECT_EQ(enabled(), dim) << "another message lies over the video";
  leave();
  EXPECT_EQ(enabled(), lit) << "the video is back, without a call of the tool";
  leave();
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES));
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

TEST_F(PanelWindowTest, EveryPartStandsWhereTheLayoutSaysInLettersOfItsScale) {
  const int touch = theme::TouchPixels(*window_);
  for (const QSize size : {QSize(800, 600), QSize(1000, 740), QSize(1600, 900)}) {
    window_->resize(size);
    Settle();
    const PanelLayout layout = LayOutWithin(size, touch);
    EXPECT_EQ(window_->Status().geometry(), layout.status);
    EXPECT_EQ(window_->ReadingsShown().geometry(), layout.readings);
    EXPECT_EQ(window_->Axes().geometry(), layout.axes);
    EXPECT_EQ(window_->ToolAreaWidget()->geometry(), layout.toolArea);
    EXPECT_EQ(window_->SideBar().geometry(), layout.sideBar);
    EXPECT_EQ(window_->Zone().geometry(), layout.messages);
    EXPECT_EQ(window_->MainBar().geometry(), layout.mainBar);
    EXPECT_EQ(window_->Row().geometry(), layout.reservedRow);
    EXPECT_EQ(window_->Keys().geometry(), layout.operatorKeys);
    EXPECT_EQ(window_->Layout().scale, layout.scale);
    const auto pixels = [&layout](int at800) { return static_cast<int>(std::lround(at800 * layout.scale)); };
    EXPECT_EQ(window_->Editor().Edit().font().pixelSize(), pixels(16));
    EXPECT_EQ(window_->Password().Edit().font().pixelSize(), pixels(16) * 3 / 2);
    EXPECT_EQ(window_->ErrorsShown().findChild<QPlainTextEdit*>()->font().pixelSize(), pixels(16));
    const auto letters = [](QWidget& widget, int height) {
      const std::string expected = " " + std::to_string(height) + " px";
      EXPECT_THAT(pnl::test::StrokesOf(widget), ::testing::Contains(::testing::HasSubstr(expected)));
    };
    // In the low rows of a wide panel the numbers go before the texts around them.
    if (!layout.wide) letters(window_->Axes(), pixels(14));
    letters(*window_->MainBar().Key(0), pixels(14));
    letters(*window_->Row().Key(RowKey::kHelp), pixels(14));
    letters(*window_->Keys().Key(Action::kReset), pixels(14));
    letters(window_->Status(), layout.wide ? pixels(14) * 7 / 4 : pixels(14) * 5 / 4);
    window_->Zone().Show({{"text", Qt::blue, Qt::white}});
    letters(window_->Zone(), pixels(17));
    window_->Asking().Ask("Really?", {"Yes"}, [](int) {});
    letters(*window_->Asking().Key(0), pixels(16));
    window_->Asking().Answer(0);
  }
}

TEST_F(PanelWindowTest, ACoverLeavesTheMachinesKeysAndItsAxesFree) {
  for (const QSize size : {QSize(800, 600), QSize(1600, 900)}) {
    window_->resize(size);
    Settle();
    const PanelLayout& layout = window_->Layout();
    const QRect cover = layout.wide
                            ? QRect(layout.toolArea.topLeft(), QPoint(layout.sideBar.right(), layout.sideBar.bottom()))
                            : QRect(layout.toolArea.topLeft(), layout.mainBar.bottomRight());
    for (QWidget* widget :
         std::initializer_list<QWidget*>{&window_->Password(), &window_->Asking(), &window_->ErrorsShown()}) {
      EXPECT_EQ(widget->geometry(), QRect(QPoint(cover.left(), layout.wide ? layout.sideBar.top() : cover.top()),
                                          QPoint(layout.sideBar.right(), cover.bottom())));
    }
    Do(Action::kErrorList);
    EXPECT_EQ(window_->SideBar().isVisible(), layout.wide);
    Do(Action::kErrorList);
    EXPECT_TRUE(window_->SideBar().isVisible());
  }
}

TEST_F(PanelWindowTest, EachActionOfThePanelDoesItsOwn) {
  Do(Action::kCoordinates);
  EXPECT_TRUE(window_->Axes().MachinePositions());
  Do(Action::kCoordinates);
  EXPECT_FALSE(window_->Axes().MachinePositions());
  Do(Action::kMainMore);
  EXPECT_EQ(window_->MainBar().Page(), 1);
  Do(Action::kMainBack);
  EXPECT_EQ(window_->MainBar().Page(), 0);
  Do(Action::kErrorList);
  EXPECT_TRUE(window_->ErrorsShown().IsOpen());
  Do(Action::kErrorList);
  EXPECT_FALSE(window_->ErrorsShown().IsOpen());
  for (const Action action : {Action::kOpenProgram, Action::kSaveProgram, Action::kSaveProgramAs}) {
    Do(action);
    EXPECT_TRUE(ExplorerIsOpen());
    EXPECT_EQ(Asked(), Say(action == Action::kOpenProgram ? Word::kOpen : Word::kSaveAs));
    LeaveExplorer();
  }
  window_->Editor().Insert("G0");
  Do(Action::kNewProgram);
  EXPECT_TRUE(window_->Asking().IsOpen());
  EXPECT_FALSE(ExplorerIsOpen());
  window_->Asking().Answer(0);
  EXPECT_TRUE(ExplorerIsOpen());
  EXPECT_EQ(Asked(), Say(Word::kNew));
  LeaveExplorer();
  EXPECT_EQ(Asked(), "nothing");
  PressItem(1000 + PNL_TOOL_EXPLORER);
  Settle();
  EXPECT_TRUE(ExplorerIsOpen());
  EXPECT_EQ(Asked(), "") << "the explorer's own title";
  LeaveExplorer();
}

TEST_F(PanelWindowTest, TheSideKeysArePagedByTheirOwnKeys) {
  window_->SideBar().ShowItems(std::vector<SoftKeyItem>(9, SoftKeyItem{1, "A", ""}));
  window_->Trigger(Action::kSideMore);
  EXPECT_EQ(window_->SideBar().Page(), 1);
  window_->Trigger(Action::kSideBack);
  EXPECT_EQ(window_->SideBar().Page(), 0);
  EXPECT_EQ(window_->MainBar().Page(), 0);
}

TEST_F(PanelWindowTest, AnyCoverKeepsTheSoftKeysAtRest) {
  const auto expectRest = [this](bool rest) {
    EXPECT_EQ(window_->MainBar().isEnabled(), !rest);
    EXPECT_EQ(window_->SideBar().isEnabled(), !rest);
    window_->PressMain(0);
    window_->PressSide(0);
    Settle();
    EXPECT_EQ(session_.IsToolOpen(PNL_TOOL_MDI), !rest);
  };
  window_->Asking().Ask("Really?", {"Yes", "No"}, [](int) {});
  expectRest(true);
  EXPECT_FALSE(ExplorerIsOpen());
  window_->Asking().Answer(1);
  Do(Action::kErrorList);
  expectRest(true);
  Do(Action::kOpenMdi);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI)) << "nor does a key of the keyboard";
  Do(Action::kErrorList);
  window_->Asking().Ask("Really?", {"Yes", "No"}, [](int) {});
  window_->Asking().Answer(1);
  EXPECT_TRUE(window_->MainBar().isEnabled());
  window_->PressMain(0);
  Settle();
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(PanelWindowTest, ThePanelsOwnKeysAreTheseInThisOrder) {
  const auto texts = [](const std::vector<SoftKeyItem>& items) {
    QStringList list;
    for (const auto& item : items) list << item.text;
    return list;
  };
  const auto words = [](std::initializer_list<Word> said) {
    QStringList list;
    for (const Word word : said) list << Say(word);
    return list;
  };
  EXPECT_EQ(texts(PanelMainItems(session_, *op_)),
            words({Word::kMdi, Word::kMdiMda, Word::kCalculator, Word::kMachiningCalculator, Word::kFiles, Word::kHelp,
                   Word::kErrorList, Word::kOpen, Word::kSave, Word::kSaveAs, Word::kNew, Word::kCoordinates,
                   Word::kOverrideFull, Word::kPlcMessages, Word::kDemoFaults}));
  EXPECT_EQ(texts(PanelSideItems([](Action) { return true; })),
            words({Word::kUndo, Word::kRedo, Word::kFind, Word::kReplace, Word::kGoToLine, Word::kSave}));
  const auto main = PanelMainItems(session_, *op_);
  for (const auto& item : main) {
    const auto action = ActionOfItem(item.id);
    const bool made = ToolOfItem(item.id) < 0 || ToolOfItem(item.id) == PNL_TOOL_EXPLORER;
    EXPECT_EQ(item.enabled, action ? op_->Can(*action) : made) << item.text.toStdString();
    EXPECT_FALSE(item.checked) << item.text.toStdString();
  }
  EXPECT_EQ(ActionOfItem(main[3].id), Action::kOpenMachining);
  EXPECT_EQ(ToolOfItem(main[4].id), PNL_TOOL_EXPLORER);
  EXPECT_EQ(main[13].id, kPlcItem);
  EXPECT_EQ(main[14].id, kFaultsItem);
  Do(Action::kOpenMdi);
  Do(Action::kOpenCalculator);
  const auto open = PanelMainItems(session_, *op_);
  for (std::size_t i = 0; i < open.size(); ++i) EXPECT_EQ(open[i].checked, i == 0 || i == 2) << i;
}

TEST_F(PanelWindowTest, AnItemMeansNothingBeyondItsRange) {
  EXPECT_EQ(ActionOfItem(0), Action::kCycleStart);
  EXPECT_EQ(ActionOfItem(static_cast<int>(Action::kCount) - 1), Action::kSideBack);
  EXPECT_FALSE(ActionOfItem(static_cast<int>(Action::kCount)));
  const auto faults = PanelFaultItems(*op_);
  ASSERT_EQ(faults.size(), DemoFaults().size());
  const int first = faults.front().id;
  EXPECT_EQ(ToolOfItem(first), -1);
  EXPECT_GE(ToolOfItem(first - 1), 0);
  EXPECT_EQ(FaultOfItem(first - 1), nullptr);
  for (std::size_t i = 0; i < faults.size(); ++i) {
    EXPECT_EQ(FaultOfItem(faults[i].id), &DemoFaults()[i]);
    EXPECT_EQ(faults[i].text, Say(DemoFaults()[i].word));
    EXPECT_FALSE(faults[i].checked);
    EXPECT_TRUE(faults[i].enabled);
  }
  EXPECT_EQ(FaultOfItem(faults.back().id + 1), nullptr);
  EXPECT_EQ(ToolOfItem(1000), 0);
  EXPECT_EQ(ToolOfItem(999), -1);
}

TEST_F(PanelWindowTest, TheZoneHasThreeLinesAndTheNewestWordIsOneOfThem) {
  Do(Action::kOpenMdi);
  Type("G999");
  Do(Action::kCycleStart);
  op_->SetHint("hint", true);
  Settle();
  ASSERT_EQ(window_->Zone().Lines().size(), 2u);
  const ZoneLine error = window_->Zone().Lines()[0];
  EXPECT_TRUE(error.strong);
  const ZoneLine hint = window_->Zone().Lines()[1];
  EXPECT_EQ(hint.text, "hint");
  EXPECT_EQ(hint.back, QColor(theme::kAmber));
  EXPECT_EQ(hint.fore, QColor(theme::kDark));
  EXPECT_FALSE(hint.strong);
  op_->SetHint("told");
  Settle();
  EXPECT_EQ(window_->Zone().Lines()[1].back, QColor(theme::kSteel));
  EXPECT_EQ(window_->Zone().Lines()[1].fore, QColor(theme::kText));
}

TEST_F(PanelWindowTest, TheErrorToSeeIsTheNewest) {
  for (const int number : {5, 6}) {
    pnl::rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{number}},
                   {"severity", std::int64_t{1}},
                   {"source", std::int64_t{12}},
                   {"messageText", std::u16string(u" text ")}};
    std::string problem;
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem)) << problem;
  }
  Settle();
  EXPECT_TRUE(ZoneText().startsWith("Error 6: ")) << ZoneText().toStdString();
  EXPECT_EQ(ZoneText(), ZoneText().trimmed());
  EXPECT_EQ(window_->Status().ErrorCount(), 2);
}

TEST_F(PanelWindowTest, TheMachineIsShownAsItIs) {
  Do(Action::kOpenMdi);
  Type(QStringLiteral("G1 X%1 F1000").arg(op_->Machine().axes.at(0).position + 20));
  Do(Action::kCycleStart);
  Advance(300);
  window_->UpdateDisplay();
  const auto state = op_->Machine();
  EXPECT_EQ(window_->ReadingsShown().Shown(), ReadingsOf(state));
  QStringList spoken;
  for (const auto& axis : state.axes) {
    spoken << QString::fromStdU16String(axis.name) + " " + FormatPosition(axis.position);
  }
  EXPECT_EQ(window_->Axes().accessibleName(), spoken.join(", "));
  const auto strokes = pnl::test::StrokesOf(window_->Axes());
  const QString way = Say(Word::kToGo) + " " + FormatPosition(state.axes[0].toGo);
  EXPECT_THAT(strokes,
              ::testing::Contains(::testing::AllOf(::testing::HasSubstr("'" + way.toStdString() + "'"),
                                                   ::testing::EndsWith(QColor(theme::kAmber).name().toStdString()))));
  const QString machine = Say(Word::kMachinePosition) + " " + FormatPosition(state.axes[0].machine);
  EXPECT_THAT(strokes, ::testing::Contains(::testing::HasSubstr("'" + machine.toStdString() + "'")));
  Advance(10'000);
}

TEST_F(PanelWindowTest, AWindowOfOneToolAreaKeepsItUntilItGetsAnotherSize) {
  const int touch = theme::TouchPixels(*window_);
  window_->ResizeToolArea(QSize(0, 0));
  Settle();
  EXPECT_EQ(window_->ToolAreaWidget()->size(), QSize(1, 1)) << "no less than a pixel";
  window_->ResizeToolArea(QSize(900, 650));
  Settle();
  EXPECT_EQ(window_->size(), LayOutAround(QSize(900, 650), touch).window);
  EXPECT_EQ(window_->Layout().toolArea, LayOutAround(QSize(900, 650), touch).toolArea);
  const QSize around = window_->size();
  window_->resize(1000, 700);
  Settle();
  EXPECT_EQ(window_->Layout().toolArea, LayOutWithin(QSize(1000, 700), touch).toolArea);
  window_->resize(around);
  Settle();
  EXPECT_EQ(window_->Layout().toolArea, LayOutWithin(around, touch).toolArea) << "it was let go";
}

TEST_F(PanelWindowTest, AFreshWindowHasRoomForAToolAreaOfTheUsualSize) {
  EXPECT_EQ(window_->size(), LayOutAround(QSize(800, 600), theme::TouchPixels(*window_)).window);
  EXPECT_EQ(window_->minimumSize(), kLeastWindow);
  EXPECT_EQ(window_->windowTitle(), "pnlpanel");
  EXPECT_TRUE(window_->testAttribute(Qt::WA_OpaquePaintEvent));
  EXPECT_EQ(window_->property("pnlPanelArea").value<QWidget*>(), window_->ToolAreaWidget());
  EXPECT_TRUE(window_->Editor().Edit().hasFocus());
  EXPECT_EQ(window_->Editor().geometry(), window_->ToolAreaWidget()->rect());
  const auto strokes = pnl::test::StrokesOf(*window_);
  ASSERT_EQ(strokes.size(), 1u);
  EXPECT_THAT(strokes[0], ::testing::HasSubstr(QColor(theme::kBackground).name(QColor::HexArgb).toStdString()));
}

TEST_F(PanelWindowTest, ASoftKeyOfTheKeyboardIsThatOfTheBar) {
  EXPECT_TRUE(Shortcut(Qt::Key_F1));
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  EXPECT_TRUE(Shortcut(Qt::Key_F6, Qt::ShiftModifier));
  EXPECT_TRUE(ExplorerIsOpen()) << "the sixth at the side saves the program, which has no name yet";
  LeaveExplorer();
  EXPECT_TRUE(Shortcut(Qt::Key_F7));
  EXPECT_TRUE(Shortcut(Qt::Key_F1, Qt::ShiftModifier));
}

TEST_F(PanelWindowTest, AValueForTheProgramGoesToTheCaretAndLeadsThere) {
  window_->Keys().Key(Action::kReset)->setFocus();
  emit op_->InsertValueWanted("12.5");
  EXPECT_EQ(window_->ProgramText(), "12.5");
  EXPECT_TRUE(window_->Editor().Edit().hasFocus());
  emit op_->InsertBlockWanted("G0\n");
  EXPECT_EQ(window_->ProgramText(), "12.5G0\n");
}

TEST_F(PanelWindowTest, AForwardedEscapeCountsAndNoOtherKey) {
  Do(Action::kOpenMdi);
  Type("G999");
  Do(Action::kCycleStart);
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  ASSERT_EQ(op_->Errors().size(), 1u);
  emit op_->KeyForwarded(26);
  emit op_->KeyForwarded(28);
  EXPECT_EQ(op_->Errors().size(), 1u);
  emit op_->KeyForwarded(27);
  EXPECT_TRUE(op_->Errors().empty());
}

TEST_F(PanelWindowTest, TabLeadsThroughThePanelInOneOrder) {
  std::vector<QWidget*> order{&window_->Editor().Edit(), &window_->Status().Indicator()};
  for (int slot = 0; slot < kSideKeys; ++slot) order.push_back(window_->SideBar().Key(slot));
  order.insert(order.end(), {window_->SideBar().BackKey(), window_->SideBar().MoreKey(), window_->MainBar().BackKey()});
  for (int slot = 0; slot < kMainKeys; ++slot) order.push_back(window_->MainBar().Key(slot));
  order.push_back(window_->MainBar().MoreKey());
  for (const RowKey key : {RowKey::kErrors, RowKey::kCalculator, RowKey::kHelp, RowKey::kLanguage}) {
    order.push_back(window_->Row().Key(key));
  }
  for (const auto& [action, key] : window_->Keys().Keys()) order.push_back(key);
  std::vector<QWidget*> met{order[0]};
  for (QWidget* at = order[0]->nextInFocusChain(); at != order[0]; at = at->nextInFocusChain()) {
    if (std::find(order.begin(), order.end(), at) != order.end()) met.push_back(at);
  }
  EXPECT_EQ(met, order);
}

TEST_F(PanelWindowTest, ClosingAsksNothingWhileAnotherQuestionIsOpen) {
  window_->SetAsksBeforeClosing(true);
  window_->Editor().Insert("G0");
  int answer = -1;
  window_->Asking().Ask("Really?", {"Yes", "No"}, [&answer](int index) { answer = index; });
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(window_->Asking().Text(), "Really?");
  EXPECT_EQ(answer, -1) << "it waits for the operator's own answer";
  window_->Asking().Answer(0);
  EXPECT_EQ(answer, 0);
}

TEST_F(PanelWindowTest, ClosingEndsTheQuestionForAPassword) {
  bool ended = true;
  QMetaObject::invokeMethod(
      window_.get(),
      [&] {
        EXPECT_TRUE(window_->close());
        // Only where closing didn't end it.
        QTimer::singleShot(10'000, &window_->Password(), [&] {
          ended = false;
          window_->Password().Leave();
        });
      },
      Qt::QueuedConnection);
  EXPECT_FALSE(window_->Password().Ask());
  EXPECT_TRUE(ended);
}

TEST_F(PanelWindowTest, ClosingLeavesTheExplorerAndAsksOnce) {
  window_->SetAsksBeforeClosing(true);
  window_->Editor().Insert("G0");
  EXPECT_FALSE(window_->close());
  const QString asked = window_->Asking().Text();
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(window_->Asking().Text(), asked);
  EXPECT_TRUE(window_->Asking().IsOpen()) << "the question wasn't asked anew, which would have answered it";
  window_->Asking().Answer(1);
  window_->Editor().SetSaved();
  Do(Action::kOpenProgram);
  ASSERT_TRUE(ExplorerIsOpen());
  EXPECT_TRUE(window_->close());
  EXPECT_FALSE(ExplorerIsOpen());
  EXPECT_FALSE(op_->Files().IsWaiting());
}

}  // namespace
}  // namespace panel
