// SPDX-License-Identifier: MIT
// The host's side of the library: the state after each callback, and which slots are offered. The calls come from a
// tool that the library has made.
#include "host/host_session.h"

#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <cstring>
#include <memory>
#include <set>

#include "panel/machine/qt/demo_machine.h"

namespace panel {
namespace {

constexpr int kOpen = 2;
constexpr int kClose = 5;
constexpr int kSwitchRole = 8;

class HostSessionTest : public ::testing::Test {
 protected:
  HostSessionTest() {
    DemoMachine();
    area_.resize(800, 600);
    area_.show();
    session_.SetToolArea(&area_);
    session_.SetMainWindow(&main_);
    QObject::connect(&session_, &HostSession::Called, &session_, [this](const HostCall& call) {
      calls_.emplace_back(kSlotNames.at(static_cast<std::size_t>(call.slot)));
    });
    session_.OfferAll();
  }
  PnlWindow Mdi() { return session_.LoadTool(PNL_TOOL_MDI, session_.ToolArea()); }
  intptr_t Command(PnlWindow window, int code) { return PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, code, 1); }
  [[nodiscard]] bool Heard(const std::string& name) const {
    return std::find(calls_.begin(), calls_.end(), name) != calls_.end();
  }

  QWidget area_;
  QWidget main_;
  // Before the session, which closes its tools as it ends.
  std::vector<std::string> calls_;
  HostSession session_;
};

TEST_F(HostSessionTest, ParentAndMainWindowAreTwoWindows) {
  EXPECT_NE(session_.ToolArea(), 0);
  EXPECT_NE(session_.MainWindow(), 0);
  EXPECT_NE(session_.ToolArea(), session_.MainWindow());
  EXPECT_EQ(HostSession::Current(), &session_);
}

TEST_F(HostSessionTest, ToolsThatDoNotExistAreZeroAndNotKept) {
  for (const int tool : {-1, 7, 1000000}) EXPECT_EQ(session_.LoadTool(tool, session_.ToolArea()), 0) << tool;
  EXPECT_TRUE(session_.ToolWindows().empty());
  EXPECT_EQ(session_.ToolWindow(PNL_TOOL_MDI), 0);
}

TEST_F(HostSessionTest, TwoToolsOfOneNumberAreTwoWindowsAndTheLastOneCounts) {
  const PnlWindow first = Mdi();
  const PnlWindow second = Mdi();
  ASSERT_NE(first, 0);
  EXPECT_NE(first, second);
  EXPECT_EQ(session_.ToolWindow(PNL_TOOL_MDI), second);
  EXPECT_EQ(session_.ToolWindows(), (std::vector<PnlWindow>{first, second}));
  session_.DestroyTool(second);
  EXPECT_FALSE(PnlIsAlive(second));
  EXPECT_EQ(session_.ToolWindow(PNL_TOOL_MDI), first);
  session_.CloseAll();
  EXPECT_TRUE(session_.ToolWindows().empty());
}

TEST_F(HostSessionTest, AnOpenedToolIsInFrontUntilItCloses) {
  const PnlWindow mdi = Mdi();
  EXPECT_EQ(session_.FrontTool(), -1);
  ASSERT_EQ(Command(mdi, kOpen), 0);
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  EXPECT_TRUE(Heard("HostToolOpening"));
  EXPECT_NE(session_.SideMenu(), 0u);
  EXPECT_EQ(session_.SideMenuTool(), PNL_TOOL_MDI);
  EXPECT_EQ(session_.MainMenu(), 0u);
  Command(mdi, kSwitchRole);
  EXPECT_GT(PnlMenuItemCount(session_.MainMenu()), 0);
  EXPECT_EQ(session_.SideMenu(), 0u);
  Command(mdi, kClose);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_TRUE(Heard("HostToolClosed"));
}

TEST_F(HostSessionTest, AWindowThatDiesByAnotherHandIsNoToolWindowAnyMore) {
  const PnlWindow first = Mdi();
  const PnlWindow second = Mdi();
  PnlDestroyWindow(second);
  EXPECT_EQ(session_.ToolWindow(PNL_TOOL_MDI), first);
  EXPECT_EQ(session_.ToolWindows(), std::vector<PnlWindow>{first});
}

TEST_F(HostSessionTest, AToolIsOpenUntilTheLastOfItsWindowsGoes) {
  const PnlWindow first = Mdi();
  ASSERT_EQ(Command(first, kOpen), 0);
  session_.DestroyTool(Mdi());
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
  session_.DestroyTool(first);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(HostSessionTest, AWindowThatWasLoadedByAnotherHandGoesAlone) {
  const PnlWindow own = Mdi();
  ASSERT_EQ(Command(own, kOpen), 0);
  const PnlWindow foreign = LoadPNLTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  session_.DestroyTool(foreign);
  EXPECT_EQ(PnlIsAlive(foreign), 0);
  EXPECT_EQ(session_.ToolWindows(), std::vector<PnlWindow>{own});
  EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_MDI));
}

TEST_F(HostSessionTest, AMessageOfAToolIsAnsweredWithNothing) {
  EXPECT_EQ(PnlSendMessage(session_.ToolArea(), 1000, 1, 2), 0);
  EXPECT_EQ(PnlSendMessage(session_.MainWindow(), 1000, 1, 2), 0);
}

TEST_F(HostSessionTest, ATurnedToToolLiesAboveTheOthers) {
  Command(Mdi(), kOpen);
  session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  area_.activateWindow();
  QCoreApplication::processEvents();
  area_.setFocus();
  session_.BringToFront(PNL_TOOL_MDI);
  const auto* mdi = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_MDI)));
  EXPECT_EQ(area_.children().last(), mdi);
  const QWidget* focus = QApplication::focusWidget();
  EXPECT_TRUE(focus == mdi || mdi->isAncestorOf(focus)) << "and has the keyboard";
}

TEST_F(HostSessionTest, AToolThatIsNotOpenIsNotTurnedTo) {
  Mdi();
  session_.BringToFront(PNL_TOOL_MDI);
  EXPECT_EQ(session_.FrontTool(), -1);
  EXPECT_EQ(session_.WorkingTool(), -1);
}

TEST_F(HostSessionTest, AToolThatHasNoMenusLeavesTheBarsToTheToolBehind) {
  Command(Mdi(), kOpen);
  const HostSession::ToolMenu side = session_.SideBar();
  session_.LoadTool(PNL_TOOL_ERRORS, session_.ToolArea());
  DemoMachine().Machine()->Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  QCoreApplication::processEvents();
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_ERRORS);
  EXPECT_EQ(session_.SideBar(), side);
  DemoMachine().Cnc().ClearErrors();
  QCoreApplication::processEvents();
}

TEST_F(HostSessionTest, EachSlotIsOfferedByItself) {
  std::set<std::string> heard;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    calls_.clear();
    session_.Offer({slot});
    const PnlWindow mdi = Mdi();
    Command(mdi, kOpen);
    Command(mdi, kSwitchRole);
    session_.LoadTool(PNL_TOOL_ERRORS, session_.ToolArea());
    DemoMachine().Machine()->Raise(pnl::rig::MachineControl::Fault::kDriveFault);
    QCoreApplication::processEvents();
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), PNL_MSG_HELP_KEY, 0, 0);
    DemoMachine().Cnc().ClearErrors();
    QCoreApplication::processEvents();
    const PnlWindow calculator = session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
    auto* line = static_cast<QWidget*>(PnlWidgetOf(calculator))->findChild<QLineEdit*>();
    line->setText("1");
    QKeyEvent accept(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
    QCoreApplication::sendEvent(line, &accept);
    Command(mdi, kClose);
    for (const std::string& name : calls_) EXPECT_EQ(name, kSlotNames[static_cast<std::size_t>(slot)]) << slot;
    heard.insert(calls_.begin(), calls_.end());
    session_.CloseAll();
  }
  for (const int slot : {1, 2, 3, 4, 5, 6, 7, 9, 13, 14}) {
    EXPECT_TRUE(heard.count(kSlotNames[static_cast<std::size_t>(slot)])) << slot;
  }
}

TEST_F(HostSessionTest, ADestroyedToolIsNotOpenAnyMore) {
  const PnlWindow mdi = Mdi();
  Command(mdi, kOpen);
  session_.DestroyTool(mdi);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_EQ(session_.FrontTool(), -1);
}

TEST_F(HostSessionTest, SlotsThatAreNotOfferedAreNotHeard) {
  session_.Offer({1});
  const PnlWindow mdi = Mdi();
  EXPECT_EQ(Command(mdi, kOpen), 0);
  EXPECT_EQ(calls_, std::vector<std::string>{"HostToolOpening"});
  calls_.clear();
  session_.Offer({});
  Command(mdi, kClose);
  Command(mdi, kOpen);
  EXPECT_TRUE(calls_.empty());
}

TEST_F(HostSessionTest, TheChannelIsTakenAndLetGoByNotice) {
  std::vector<std::pair<qint64, int>> notices;
  QObject::connect(&session_, &HostSession::MessageArrived, &session_,
                   [&notices](std::uint32_t message, qint64 first, qint64 second) {
                     if (message != PNL_MSG_TOOL_NOTIFY) return;
                     notices.emplace_back(
                         first, reinterpret_cast<const PnlToolNotify*>(static_cast<intptr_t>(second))->channel);
                   });
  const PnlWindow mdi = Mdi();
  Command(mdi, kOpen);
  Command(mdi, kClose);
  EXPECT_EQ(notices, (std::vector<std::pair<qint64, int>>{{41, 1}, {42, 1}}));
}

TEST_F(HostSessionTest, ClosingEverythingGivesTheChannelOfEachCommandLineBack) {
  int given = 0;
  QObject::connect(&session_, &HostSession::MessageArrived, &session_,
                   [&given](std::uint32_t message, qint64 first, qint64) {
                     if (message == PNL_MSG_TOOL_NOTIFY && first == 42) ++given;
                   });
  Command(Mdi(), kOpen);
  session_.CloseAll();
  EXPECT_EQ(given, 1);
  EXPECT_TRUE(session_.ToolWindows().empty());
  // The first of two has the channel, the second is the one that counts for everything else.
  Command(Mdi(), kOpen);
  Mdi();
  session_.CloseAll();
  EXPECT_EQ(given, 2);
}

TEST_F(HostSessionTest, AClearedBarIsThePanelsAndNotTheToolsBehind) {
  session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  ASSERT_NE(session_.MainBar().second, 0u);
  const PnlWindow mdi = Mdi();
  Command(mdi, kOpen);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  EXPECT_EQ(session_.MainBar(), HostSession::ToolMenu(-1, 0)) << "in this role the command line has none there";
  EXPECT_EQ(session_.SideBar().first, PNL_TOOL_MDI);
}

TEST_F(HostSessionTest, ASlotNameStandsForEverySlot) {
  EXPECT_STREQ(kSlotNames[0], "HostMayOpenTool");
  EXPECT_STREQ(kSlotNames[7], "HostShowMessage");
  EXPECT_STREQ(kSlotNames[18], "HostOpenMachiningCalculator");
}

/// A session whose room is wiped when it ends: who goes on in it then falls.
class WipedSession {
 public:
  WipedSession() : session_(new (room_) HostSession) {}
  WipedSession(const WipedSession&) = delete;
  WipedSession& operator=(const WipedSession&) = delete;
  ~WipedSession() { reset(); }
  HostSession* operator->() const { return session_; }
  [[nodiscard]] HostSession* get() const { return session_; }
  void reset() {
    if (session_ == nullptr) return;
    std::exchange(session_, nullptr)->~HostSession();
    std::memset(room_, 0, sizeof(room_));
  }

 private:
  alignas(HostSession) unsigned char room_[sizeof(HostSession)];
  HostSession* session_;
};

/// A session that a listener ends while a tool is still in its callback.
void EndSessionInside(const char* slot) {
  DemoMachine();
  QWidget area;
  area.show();
  WipedSession session;
  session->SetToolArea(&area);
  session->OfferAll();
  const PnlWindow mdi = session->LoadTool(PNL_TOOL_MDI, session->ToolArea());
  bool ended = false;
  QObject::connect(session.get(), &HostSession::Called, &area, [&](const HostCall& call) {
    if (ended || std::string(kSlotNames.at(static_cast<std::size_t>(call.slot))) != slot) return;
    ended = true;
    session.reset();
  });
  PnlSendMessage(mdi, PNL_MSG_TOOL_COMMAND, kOpen, 1);
  EXPECT_TRUE(ended) << slot;
  EXPECT_EQ(HostSession::Current(), nullptr);
}

TEST(HostSessionEnd, ASessionMayEndInsideACallback) {
  for (const char* slot : {"HostToolOpening", "HostShowMessage", "HostSetSideMenu", "HostSetMainMenu"}) {
    EndSessionInside(slot);
  }
}

TEST(HostSessionEnd, ASessionMayEndWhenToolsChange) {
  DemoMachine();
  QWidget area;
  WipedSession session;
  session->SetToolArea(&area);
  session->OfferAll();
  const PnlWindow mdi = session->LoadTool(PNL_TOOL_MDI, session->ToolArea());
  QObject::connect(session.get(), &HostSession::ToolsChanged, &area, [&session] { session.reset(); });
  PnlSendMessage(mdi, PNL_MSG_TOOL_COMMAND, kOpen, 1);
  EXPECT_EQ(session.get(), nullptr);
  EXPECT_EQ(HostSession::Current(), nullptr);
}

TEST(HostSessionEnd, ACallForASessionThatHasGoneIsLost) {
  DemoMachine();
  QWidget area;
  HostSession first;
  first.SetToolArea(&area);
  { const HostSession second; }
  ASSERT_EQ(HostSession::Current(), nullptr);
  first.OfferAll();
  const PnlWindow mdi = first.LoadTool(PNL_TOOL_MDI, first.ToolArea());
  EXPECT_EQ(PnlSendMessage(mdi, PNL_MSG_TOOL_COMMAND, kOpen, 1), 0);
  EXPECT_EQ(first.FrontTool(), -1);
}

TEST(HostSessionEnd, AnEarlierSessionLeavesTheLaterOneItsCallbacks) {
  auto first = std::make_unique<HostSession>();
  const HostSession second;
  first.reset();
  EXPECT_EQ(HostSession::Current(), &second);
}

TEST_F(HostSessionTest, OnlySlotsThatExistAreGivenAnAnswer) {
  EXPECT_EQ(session_.ReturnOf(0), 1);
  for (int slot = 1; slot < kSlotCount; ++slot) EXPECT_EQ(session_.ReturnOf(slot), 0) << slot;
  session_.SetReturn(-1, 7);
  session_.SetReturn(kSlotCount, 7);
  session_.SetReturn(0, 5);
  session_.SetReturn(kSlotCount - 1, 6);
  EXPECT_EQ(session_.ReturnOf(0), 5);
  EXPECT_EQ(session_.ReturnOf(1), 0);
  EXPECT_EQ(session_.ReturnOf(kSlotCount - 1), 6);
  EXPECT_EQ(session_.MainMenu(), 0u) << "nothing beside them was written";
  EXPECT_NE(session_.MainWindow(), 7u);
}

TEST_F(HostSessionTest, EveryCallAboutAMenuIsFollowedByTheChangeOfItsBar) {
  const QObject here;  // who listens during the test
  constexpr int kNewItem = 32773;
  QStringList heard;
  QObject::connect(&session_, &HostSession::Called, &here, [&heard](const HostCall& call) {
    if (call.slot >= 3 && call.slot <= 6) heard << QString::number(call.slot);
  });
  QObject::connect(&session_, &HostSession::MainMenuChanged, &here, [&heard] { heard << "main"; });
  QObject::connect(&session_, &HostSession::SideMenuChanged, &here, [&heard] { heard << "side"; });
  const PnlWindow mdi = Mdi();
  Command(mdi, kOpen);
  Command(mdi, kSwitchRole);
  PnlSendMessage(mdi, PNL_MSG_COMMAND, kNewItem, 0);
  ASSERT_TRUE(heard.contains("3") && heard.contains("4")) << heard.join(' ').toStdString();
  ASSERT_EQ(heard.size() % 2, 0);
  for (qsizetype i = 0; i < heard.size(); i += 2) {
    EXPECT_EQ(heard[i + 1], heard[i] == "3" || heard[i] == "5" ? "main" : "side") << heard[i].toStdString();
  }
  EXPECT_EQ(session_.MainMenuTool(), PNL_TOOL_MDI);
  EXPECT_EQ(session_.SideMenuTool(), PNL_TOOL_MDI);
  EXPECT_EQ(session_.MainBar(), HostSession::ToolMenu(PNL_TOOL_MDI, session_.MainMenu()));
  EXPECT_EQ(session_.SideBar(), HostSession::ToolMenu(-1, 0));
}

TEST_F(HostSessionTest, ABarIsThatOfTheOpenToolNearestToTheFront) {
  const PnlWindow mdi = Mdi();
  Command(mdi, kOpen);
  const HostSession::ToolMenu side = session_.SideBar();
  EXPECT_EQ(side, HostSession::ToolMenu(PNL_TOOL_MDI, session_.SideMenu()));
  session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  EXPECT_EQ(session_.MainBar().first, PNL_TOOL_CALCULATOR);
  EXPECT_EQ(session_.SideBar().first, PNL_TOOL_CALCULATOR);
  session_.BringToFront(PNL_TOOL_MDI);
  EXPECT_EQ(session_.SideBar(), side);
  session_.DestroyTool(mdi);
  EXPECT_EQ(session_.MainBar().first, PNL_TOOL_CALCULATOR);
}

TEST_F(HostSessionTest, TheOperatorWorksInTheToolThatHeOpenedOrTurnedToLast) {
  EXPECT_EQ(session_.WorkingTool(), -1);
  const PnlWindow mdi = Mdi();
  EXPECT_EQ(session_.WorkingTool(), -1) << "it is not open";
  Command(mdi, kOpen);
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_MDI);
  const PnlWindow calculator = session_.LoadTool(PNL_TOOL_CALCULATOR, session_.ToolArea());
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_CALCULATOR);
  session_.BringToFront(PNL_TOOL_MDI);
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_MDI);
  session_.BringToFront(PNL_TOOL_CALCULATOR);
  session_.DestroyTool(calculator);
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_MDI) << "the one behind";
  session_.WorkInProgram();
  EXPECT_EQ(session_.WorkingTool(), -1);
  session_.BringToFront(PNL_TOOL_CALCULATOR);
  EXPECT_EQ(session_.WorkingTool(), -1) << "it isn't open";
  session_.BringToFront(PNL_TOOL_MDI);
  session_.DestroyTool(mdi);
  EXPECT_EQ(session_.WorkingTool(), -1);
}

TEST_F(HostSessionTest, TheErrorWindowIsNeverWorkedIn) {
  const PnlWindow mdi = Mdi();
  session_.LoadTool(PNL_TOOL_ERRORS, session_.ToolArea());
  DemoMachine().Machine()->Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  QCoreApplication::processEvents();
  ASSERT_TRUE(session_.IsToolOpen(PNL_TOOL_ERRORS));
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_ERRORS);
  EXPECT_EQ(session_.WorkingTool(), -1);
  Command(mdi, kOpen);
  session_.BringToFront(PNL_TOOL_ERRORS);
  EXPECT_EQ(session_.WorkingTool(), PNL_TOOL_MDI);
  session_.DestroyTool(mdi);
  EXPECT_EQ(session_.WorkingTool(), -1) << "behind it is the program";
  DemoMachine().Cnc().ClearErrors();
  QCoreApplication::processEvents();
}

TEST_F(HostSessionTest, ToolsChangeWhenOneIsMadeOpensTurnsOrCloses) {
  const QObject here;  // who listens during the test
  int changes = 0;
  QObject::connect(&session_, &HostSession::ToolsChanged, &here, [&changes] { ++changes; });
  const auto told = [&changes] { return std::exchange(changes, 0); };
  const PnlWindow mdi = Mdi();
  EXPECT_EQ(told(), 1);
  Command(mdi, kOpen);
  EXPECT_EQ(told(), 1);
  session_.BringToFront(PNL_TOOL_MDI);
  EXPECT_EQ(told(), 0) << "it is in front";
  session_.LoadTool(99, session_.ToolArea());
  EXPECT_EQ(told(), 0);
  session_.DestroyTool(mdi);
  EXPECT_EQ(told(), 1);
}

class FocusInHost : public HostSessionTest {
 protected:
  FocusInHost() {
    tool_ = new QWidget(&area_);
    window_ = PnlAttachWidget(tool_, nullptr, nullptr);
    line_ = new QLineEdit("abcdef", tool_);
    other_ = new QLineEdit(&area_);
    tool_->setFocusPolicy(Qt::StrongFocus);
    for (QWidget* widget : {tool_, static_cast<QWidget*>(line_), static_cast<QWidget*>(other_)}) widget->show();
    area_.activateWindow();
    QCoreApplication::processEvents();
  }
  ~FocusInHost() override { delete tool_; }
  QWidget* tool_ = nullptr;
  PnlWindow window_ = 0;
  QLineEdit* line_ = nullptr;
  QLineEdit* other_ = nullptr;
};

TEST_F(FocusInHost, ALineGetsTheKeyboardBackWithItsCaretAndItsSelection) {
  // A tool may put the caret at the end as its line gets the focus.
  struct ToTheEnd : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::FocusIn) static_cast<QLineEdit*>(watched)->end(false);
      return false;
    }
  } toTheEnd;
  line_->setFocus();
  line_->setCursorPosition(2);
  line_->installEventFilter(&toTheEnd);
  other_->setFocus();
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(line_->hasFocus());
  EXPECT_EQ(line_->cursorPosition(), 2);
  line_->setSelection(1, 3);
  // A line that loses the keyboard to a menu keeps what is selected.
  other_->setFocus(Qt::PopupFocusReason);
  HostSession::FocusWithin(window_);
  EXPECT_EQ(line_->selectedText(), "bcd");
  line_->setSelection(4, -3);
  other_->setFocus(Qt::PopupFocusReason);
  HostSession::FocusWithin(window_);
  EXPECT_EQ(line_->selectedText(), "bcd");
  EXPECT_EQ(line_->cursorPosition(), 1) << "marked from its end";
  line_->deselect();
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(line_->hasFocus()) << "it has it already";
  line_->removeEventFilter(&toTheEnd);
}

TEST_F(FocusInHost, AControlThatCantTakeTheKeyboardLeavesItToItsWindow) {
  line_->setFocus();
  other_->setFocus();
  line_->setEnabled(false);
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(tool_->hasFocus());
  HostSession::FocusWithin(0);
  EXPECT_TRUE(tool_->hasFocus()) << "no window, nothing happens";
}

TEST_F(FocusInHost, ASelectionFromTheBeginningComesBackToo) {
  line_->setFocus();
  line_->setSelection(0, 2);
  other_->setFocus(Qt::PopupFocusReason);
  HostSession::FocusWithin(window_);
  EXPECT_EQ(line_->selectedText(), "ab");
}

TEST_F(FocusInHost, ALineThatHasTheKeyboardIsLeftAsItIs) {
  line_->setFocus();
  line_->setSelection(4, -3);
  ASSERT_EQ(line_->cursorPosition(), 1);
  HostSession::FocusWithin(window_);
  EXPECT_EQ(line_->cursorPosition(), 1) << "marked from its end";
  EXPECT_EQ(line_->selectedText(), "bcd");
}

TEST_F(FocusInHost, AControlThatTakesNoTextGetsTheKeyboardBack) {
  QPushButton button(tool_);
  button.show();
  button.setFocus();
  other_->setFocus();
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(button.hasFocus());
}

TEST_F(FocusInHost, AControlThatIsHiddenLeavesTheKeyboardToItsWindow) {
  line_->setFocus();
  other_->setFocus();
  line_->hide();
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(tool_->hasFocus());
}

TEST_F(FocusInHost, AWindowThatHasTheKeyboardItselfKeepsIt) {
  line_->setFocus();
  tool_->setFocus();
  HostSession::FocusWithin(window_);
  EXPECT_TRUE(tool_->hasFocus());
}

TEST_F(FocusInHost, OnlyALineThatTakesTextIsTypedIn) {
  line_->setFocus();
  EXPECT_TRUE(HostSession::IsTypedIn(window_));
  line_->setReadOnly(true);
  EXPECT_FALSE(HostSession::IsTypedIn(window_));
  line_->setReadOnly(false);
  other_->setFocus();
  EXPECT_TRUE(HostSession::IsTypedIn(window_)) << "it has it when the tool is turned to";
  line_->setEnabled(false);
  EXPECT_FALSE(HostSession::IsTypedIn(window_));
  line_->setEnabled(true);
  tool_->setFocus();
  EXPECT_FALSE(HostSession::IsTypedIn(window_));
  EXPECT_FALSE(HostSession::IsTypedIn(0));
}

TEST(HostSessionEnd, ItsToolsGoAndItsWindowsAreOnlyWindowsAgain) {
  DemoMachine();
  QWidget area;
  QWidget main;
  PnlWindow tool = 0;
  PnlWindow windows[2] = {};
  int heard = 0;
  {
    HostSession session;
    session.SetToolArea(&area);
    session.SetMainWindow(&main);
    session.OfferAll();
    windows[0] = session.ToolArea();
    windows[1] = session.MainWindow();
    QObject::connect(&session, &HostSession::MessageArrived, [&heard] { ++heard; });
    tool = session.LoadTool(PNL_TOOL_CALCULATOR, session.ToolArea());
    for (const PnlWindow window : windows) PnlSendMessage(window, 1000, 0, 0);
    EXPECT_EQ(heard, 2);
    ASSERT_NE(PnlIsAlive(tool), 0);
  }
  EXPECT_EQ(PnlIsAlive(tool), 0);
  for (const PnlWindow window : windows) PnlSendMessage(window, 1000, 0, 0);
  EXPECT_EQ(heard, 2);
  EXPECT_EQ(HostSession::Current(), nullptr);
}

}  // namespace
}  // namespace panel
