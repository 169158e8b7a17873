// SPDX-License-Identifier: MIT
// Who has the keyboard: the start, a manual that comes by a message, keys that are handed on, and the viewer's end.
#include "help_stage.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class HelpFocus : public HelpStage {
 protected:
  void MakeUnstarted() { Use(tool = new ZCHelpHTML(context, std::make_unique<FakeShelf>(world, log), area)); }
  std::intptr_t GoTo(const char16_t* manual) {
    const std::intptr_t answer = Send(RegisterMessage("HELPHTML_GOTOMANUAL"), reinterpret_cast<std::intptr_t>(manual));
    Settle();
    return answer;
  }
};

/// A control of the panel that notes each key it gets.
class KeyNotes final : public QWidget {
 public:
  explicit KeyNotes(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }
  std::vector<std::pair<int, Qt::KeyboardModifiers>> keys;
  std::function<void()> onKey;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QWidget::event(event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    keys.emplace_back(key.key(), key.modifiers());
    if (onKey) onKey();
    return true;
  }
};

TEST_F(HelpFocus, StartingGivesTheFocusToWhoHadItBefore) {
  QLineEdit neighbour(&panel);
  neighbour.show();
  other->setFocus();
  MakeUnstarted();
  neighbour.setFocus();
  tool->Start();
  EXPECT_EQ(Focus(), other);
}

TEST_F(HelpFocus, StartingMakesTheWindowActiveThatHadTheFocusBefore) {
  other->setFocus();
  MakeUnstarted();
  QWidget second;
  Activate(second);
  ASSERT_EQ(QApplication::activeWindow(), &second);
  tool->Start();
  Settle();
  EXPECT_EQ(QApplication::activeWindow(), &panel);
  EXPECT_EQ(Focus(), other);
}

TEST_F(HelpFocus, AManualThatComesByAMessageLeavesTheFocusWhereItIs) {
  Make();
  OpenAt();
  other->setFocus();
  EXPECT_EQ(GoTo(u"prog.chm"), 0);
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
  EXPECT_THAT(PageText(), HasSubstr("Welcome"));
  EXPECT_EQ(Focus(), other);
}

TEST_F(HelpFocus, OnlyCommandsToTheToolHaveAnAnswer) {
  Make();
  EXPECT_EQ(Send(PNL_MSG_COMMAND, 2000), 0);
  EXPECT_EQ(Send(0x7FFF, 1, 1), 0);
  EXPECT_EQ(GoTo(u"no such.chm"), 0);
}

TEST_F(HelpFocus, AKeyIsHandedOnToWhoHasTheFocusAsItWasPressed) {
  Make();
  OpenAt();
  KeyNotes notes(&panel);
  notes.show();
  notes.setFocus();
  ASSERT_EQ(Focus(), &notes);
  const std::pair<int, Qt::KeyboardModifiers> pressed[] = {{Qt::Key_Tab, Qt::NoModifier},
                                                           {Qt::Key_Backtab, Qt::ShiftModifier},
                                                           {Qt::Key_Up, Qt::ShiftModifier},
                                                           {Qt::Key_Down, Qt::ControlModifier},
                                                           {Qt::Key_Return, Qt::NoModifier}};
  for (const auto& [key, modifiers] : pressed) {
    EXPECT_TRUE(PressKey(tool, key, {}, modifiers)) << key;
    EXPECT_THAT(std::exchange(notes.keys, {}), ElementsAre(std::pair(key, modifiers)));
  }
}

TEST_F(HelpFocus, AControlMayEndTheViewerWithTheKeyThatItIsHanded) {
  Make();
  OpenAt();
  KeyNotes notes(&panel);
  notes.onKey = [this] { delete area; };
  notes.show();
  notes.setFocus();
  EXPECT_TRUE(PressKey(tool, Qt::Key_Return));
  EXPECT_EQ(tool, nullptr);
  EXPECT_EQ(notes.keys.size(), 1u);
  EXPECT_EQ(Focus(), &notes) << "it is given to nobody else";
}

TEST_F(HelpFocus, AKeyForNobodyIsConsumed) {
  Make();
  OpenAt();
  Focus()->clearFocus();
  ASSERT_EQ(Focus(), nullptr);
  for (const int key : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Return}) EXPECT_TRUE(PressKey(tool, key)) << key;
  EXPECT_EQ(Focus(), nullptr);
}

TEST_F(HelpFocus, APlainArrowMovesInALine) {
  Make();
  OpenAt();
  Menu(2003);
  Type(Line(help_id::kIndexLine), "st");
  Key(Qt::Key_Left);
  EXPECT_EQ(Line(help_id::kIndexLine)->cursorPosition(), 1);
  Key(Qt::Key_Right);
  EXPECT_EQ(Line(help_id::kIndexLine)->cursorPosition(), 2);
}

TEST_F(HelpFocus, ItsKeysComeBeforeThePanelsShortcutsInEachOfItsControls) {
  Make();
  OpenAt();
  Menu(40002);
  struct Row {
    int key;
    Qt::KeyboardModifiers modifiers;
    bool taken;
  };
  for (const int id : {help_id::kContents, help_id::kIndexLine, help_id::kIndexList, help_id::kSearchLine,
                       help_id::kResults, help_id::kPage, help_id::kFindLine}) {
    for (const Row& row : {Row{Qt::Key_Escape, {}, true}, Row{Qt::Key_Tab, {}, true},
                           Row{Qt::Key_Backtab, Qt::ShiftModifier, true}, Row{Qt::Key_Return, {}, true},
                           Row{Qt::Key_Enter, {}, true}, Row{Qt::Key_Up, {}, true}, Row{Qt::Key_Down, {}, true},
                           Row{Qt::Key_F, Qt::ControlModifier, true}, Row{Qt::Key_Left, Qt::AltModifier, true},
                           Row{Qt::Key_Right, Qt::AltModifier, true}, Row{Qt::Key_F5, {}, false}}) {
      QWidget* const control = Control(id);
      QKeyEvent asked(QEvent::ShortcutOverride, row.key, row.modifiers);
      QApplication::sendEvent(control->focusProxy() == nullptr ? control : control->focusProxy(), &asked);
      EXPECT_EQ(asked.isAccepted(), row.taken) << id << ": " << row.key;
    }
  }
}

TEST_F(HelpFocus, ToAskWhoseKeyItIsPressesNothing) {
  Make();
  OpenAt();
  KeyNotes notes(&panel);
  notes.show();
  notes.setFocus();
  TakeHostCalls();
  for (const int key : {Qt::Key_Tab, Qt::Key_Up, Qt::Key_Escape}) {
    QKeyEvent asked(QEvent::ShortcutOverride, key, Qt::NoModifier);
    QApplication::sendEvent(tool, &asked);
    EXPECT_TRUE(asked.isAccepted()) << key;
  }
  EXPECT_TRUE(notes.keys.empty());
  EXPECT_THAT(TakeHostCalls(), IsEmpty());
}

TEST_F(HelpFocus, TheHostLearnsOfItsWidgetsNewSizeToo) {
  class Sizes final : public QObject {
   public:
    std::vector<QSize> seen;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Resize) seen.push_back(static_cast<QResizeEvent&>(*event).size());
      return false;
    }
  } sizes;
  area->installEventFilter(&sizes);
  Make();
  OpenAt();
  area->resize(640, 480);
  EXPECT_THAT(sizes.seen, ElementsAre(QSize(640, 480)));
}

/// A shelf that calls a function when it is dropped.
class PartingShelf final : public HelpShelf {
 public:
  explicit PartingShelf(std::function<void()> dropped) : dropped_(std::move(dropped)) {}
  bool Open(TextView /*manual*/, std::function<void(const OpenedBook&)> /*done*/) override { return false; }
  void Drop() override { dropped_(); }

 private:
  std::function<void()> dropped_;
};

TEST_F(HelpFocus, AtItsEndTheViewerGetsNoMessageAnyMore) {
  int drops = 0;
  Use(tool = new ZCHelpHTML(context, std::make_unique<PartingShelf>([&] {
                              ++drops;
                              EXPECT_FALSE(windows.IsAlive(handle));
                            }),
                            area));
  tool->Start();
  ASSERT_TRUE(windows.IsAlive(handle));
  delete tool;
  EXPECT_EQ(drops, 1);
}

}  // namespace
}  // namespace pnl::test
