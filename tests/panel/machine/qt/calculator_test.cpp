// SPDX-License-Identifier: MIT
// What the panel does around the calculator: keys, bars, room for the program, its result, its ways out.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <cstdio>
#include <memory>

#include "host/host_session.h"
#include "host/operator.h"
#include "panel/machine/qt/demo_machine.h"
#include "ui/message_zone.h"
#include "ui/panel_key.h"
#include "ui/panel_layout.h"
#include "ui/panel_window.h"
#include "ui/program_editor.h"
#include "ui/soft_key_bar.h"

// How key presses reach the shortcuts of a window, as the platform sends them.
extern Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                                      Qt::KeyboardModifiers modifiers, const QString& text,
                                                      bool repeats, ushort count);

namespace panel {
namespace {

class CalculatorInPanel : public ::testing::Test {
 protected:
  CalculatorInPanel() : rig_(DemoMachine()) {
    UseWords("en");
    rig_.Machine()->Reset();
    rig_.Advance(1000);
    rig_.Cnc().ClearErrors();
    // A calculator remembers where it stood.
    const auto settings = rig_.Files().HostPath(u"C:\\CNC\\USER\\Calc7340.ini");
    if (settings) std::remove(settings->c_str());
    session_.OfferAll();
    op_ = std::make_unique<Operator>(session_, &rig_);
    window_ = std::make_unique<PanelWindow>(session_, *op_, [](const QString&) { return QString(); });
    window_->SetAsksBeforeClosing(false);
    window_->show();
    window_->activateWindow();
    Settle();
  }
  ~CalculatorInPanel() override {
    window_.reset();
    op_.reset();
    rig_.Machine()->Reset();
    rig_.Advance(1000);
  }
  static void Settle() {
    for (int i = 0; i < 5; ++i) {
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCoreApplication::processEvents();
    }
  }
  void Do(Action action) {
    window_->Trigger(action);
    Settle();
  }
  void Open() {
    Do(Action::kOpenCalculator);
    ASSERT_NE(Calculator(), nullptr);
  }
  [[nodiscard]] QWidget* Tool(int tool) const { return static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(tool))); }
  [[nodiscard]] QWidget* Calculator() const { return Tool(PNL_TOOL_CALCULATOR); }
  [[nodiscard]] QLineEdit* Line(int tool) const { return Tool(tool)->findChild<QLineEdit*>(); }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    Settle();
  }
  void Type(const QString& text) {
    for (const QChar c : text) Key(c.toUpper().unicode(), {}, QString(c));
  }
  /// Through the panel's shortcuts, as a keyboard's key goes.
  static bool Shortcut(int key, Qt::KeyboardModifiers modifiers) {
    const bool taken = qt_sendShortcutOverrideEvent(QApplication::focusWidget(), 0, key, modifiers, {}, false, 1);
    Settle();
    return taken;
  }
  [[nodiscard]] QString ZoneText() const {
    QStringList lines;
    for (const auto& line : window_->Zone().Lines()) lines << line.text;
    return lines.join('|');
  }

  pnl::rig::Rig& rig_;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
};

TEST_F(CalculatorInPanel, ItsKeyOpensItAndItsMenusStand) {
  Open();
  EXPECT_EQ(QApplication::focusWidget(), Line(PNL_TOOL_CALCULATOR));
  EXPECT_EQ(window_->MainBar().Items().size(), 7u);
  EXPECT_TRUE(window_->SideBar().Key(3)->isEnabled());
}

TEST_F(CalculatorInPanel, ItsShortcutOpensItAndGivesItTheKeyboard) {
  EXPECT_TRUE(Shortcut(Qt::Key_K, Qt::ControlModifier));
  ASSERT_NE(Calculator(), nullptr);
  window_->Editor().Edit().setFocus();
  EXPECT_TRUE(Shortcut(Qt::Key_K, Qt::ControlModifier));
  EXPECT_EQ(QApplication::focusWidget(), Line(PNL_TOOL_CALCULATOR));
  EXPECT_EQ(session_.ToolWindows().size(), 1u) << "one is enough";
}

TEST_F(CalculatorInPanel, AnItemOfASubMenuWritesIntoTheLine) {
  Open();
  window_->PressMain(1);
  EXPECT_TRUE(window_->MainBar().InSubMenu());
  window_->PressMain(0);
  Settle();
  EXPECT_EQ(Line(PNL_TOOL_CALCULATOR)->text(), "Sin");
}

TEST_F(CalculatorInPanel, TheProgramStaysReadableBesideIt) {
  Open();
  EXPECT_FALSE(window_->Editor().geometry().intersects(Calculator()->geometry()));
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_FALSE(window_->Editor().geometry().intersects(Calculator()->geometry())) << "wherever it goes";
}

TEST_F(CalculatorInPanel, EscapeClosesItAndThePanelIsAsBefore) {
  Open();
  Key(Qt::Key_Escape);
  EXPECT_EQ(Calculator(), nullptr);
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  EXPECT_EQ(window_->MainBar().Menu(), 0u);
  EXPECT_EQ(QApplication::focusWidget(), &window_->Editor().Edit());
  EXPECT_EQ(window_->Editor().geometry(), window_->Editor().parentWidget()->rect());
}

TEST_F(CalculatorInPanel, TheMenusOfTheToolBehindComeBack) {
  Do(Action::kOpenMdi);
  const auto side = window_->SideBar().Menu();
  ASSERT_NE(side, 0u);
  Open();
  EXPECT_NE(window_->SideBar().Menu(), side);
  Key(Qt::Key_Escape);
  EXPECT_EQ(window_->SideBar().Menu(), side);
}

TEST_F(CalculatorInPanel, TheToolBehindComesToTheFrontByItsKey) {
  Open();
  Do(Action::kOpenMdi);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
  Do(Action::kOpenCalculator);
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR);
  EXPECT_EQ(QApplication::focusWidget(), Line(PNL_TOOL_CALCULATOR));
  EXPECT_EQ(session_.MainBar().first, PNL_TOOL_CALCULATOR);
}

TEST_F(CalculatorInPanel, TheValueGoesToTheCaretOfTheCommandLine) {
  Do(Action::kOpenMdi);
  Type("G1 X F500");
  Line(PNL_TOOL_MDI)->setCursorPosition(4);
  Open();
  Type("10/4");
  Key(Qt::Key_Insert);
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G1 X2.5 F500");
  EXPECT_EQ(QApplication::focusWidget(), Line(PNL_TOOL_MDI));
}

TEST_F(CalculatorInPanel, TheValueGoesToTheCaretInTheProgram) {
  window_->Editor().SetProgram("G1 X\n", {});
  auto cursor = window_->Editor().Edit().textCursor();
  cursor.setPosition(4);
  window_->Editor().Edit().setTextCursor(cursor);
  Open();
  Type("0.1+0.2");
  Key(Qt::Key_Insert);
  EXPECT_EQ(window_->ProgramText(), "G1 X0.3\n");
  EXPECT_EQ(QApplication::focusWidget(), &window_->Editor().Edit());
  EXPECT_EQ(ZoneText(), Say(Word::kResultInProgram, "0.3"));
}

TEST_F(CalculatorInPanel, CtrlEnterInItStartsNothing) {
  Do(Action::kOpenMdi);
  Type("G1 X5 F1000");
  Open();
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_FALSE(Shortcut(Qt::Key_Return, Qt::ControlModifier)) << "the key is the calculator's";
  EXPECT_EQ(op_->Machine().channelStatus, 1);
  Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Calculator()->pos(), QPoint(0, 0));
}

TEST_F(CalculatorInPanel, StartStartsAllTheSame) {
  Open();
  EXPECT_TRUE(Shortcut(Qt::Key_F9, {}));
  EXPECT_EQ(ZoneText(), Say(Word::kNothingToStart));
}

struct RoomRow {
  const char* what;
  QRect tool;
  QRect room;
};

TEST(RoomBesideTest, IsTheLargestFreePart) {
  const QRect area(0, 0, 800, 600);
  const RoomRow rows[] = {
      {"a line below", {0, 571, 800, 29}, QRect(QPoint(0, 0), QPoint(799, 568))},
      {"a line above", {0, 0, 800, 29}, QRect(QPoint(0, 31), QPoint(799, 599))},
      {"a corner", {0, 0, 282, 221}, QRect(QPoint(284, 0), QPoint(799, 599))},
      {"the right", {518, 100, 282, 221}, QRect(QPoint(0, 0), QPoint(515, 599))},
      {"everything", {0, 0, 800, 600}, area},
      {"the middle", {100, 100, 600, 400}, area},
      {"outside", {900, 0, 100, 100}, area},
  };
  for (const RoomRow& row : rows) EXPECT_EQ(RoomBeside(area, row.tool), row.room) << row.what;
}

}  // namespace
}  // namespace panel
