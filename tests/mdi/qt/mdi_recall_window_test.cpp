// SPDX-License-Identifier: MIT
// Calling blocks back in the window: typing into the open drop list, its two keys, and the word at fault in the edit.
#include "mdi/qt/mdi_list_window.h"
#include "mdi_stage.h"

namespace pnl::test {
namespace {

class MdiRecallFlow : public MdiStage {
 protected:
  void OpenWithHistory(int blocks = 3) {
    History(blocks);
    Open();
  }
};

TEST_F(MdiRecallFlow, ItsKeysLieBesideItWithoutTakingItsFocus) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  QWidget* arrange = FindControl(&panel, ZCMDIList::kArrangeId);
  QWidget* pin = FindControl(&panel, ZCMDIList::kPinId);
  ASSERT_NE(arrange, nullptr);
  ASSERT_NE(pin, nullptr);
  EXPECT_EQ(arrange->geometry().bottom() + 1, Drop()->y()) << "above a list that is above the edit";
  EXPECT_EQ(arrange->geometry().united(pin->geometry()).width(), Drop()->width());
  EXPECT_GE(arrange->height(), 34);
  EXPECT_EQ(arrange->property("pnlOwner").toInt(), Drop()->property("pnlWindow").toInt());
  Touch(arrange);
  ASSERT_NE(Drop(), nullptr) << "a press on a key doesn't close the list";
  EXPECT_EQ(Focus(), DropItems());
  EXPECT_EQ(DropItems()->Selection(), -1);
  EXPECT_FALSE(pin->isEnabled());
}

TEST_F(MdiRecallFlow, ItsKeysAreBelowAListThatIsBelowTheEdit) {
  OpenWithHistory();
  Send(PNL_MSG_COMMAND, 40005);
  Key(Qt::Key_Down);
  EXPECT_EQ(FindControl(&panel, ZCMDIList::kPinId)->y(), Drop()->geometry().bottom() + 1);
}

TEST_F(MdiRecallFlow, ItsKeysGoWithIt) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  const QPointer<QWidget> arrange = FindControl(&panel, ZCMDIList::kArrangeId);
  ASSERT_TRUE(arrange->isVisible());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(arrange && arrange->isVisible());
  Settle();
  EXPECT_TRUE(arrange.isNull());
}

TEST_F(MdiRecallFlow, TypingInTheListGoesIntoTheEditAndNarrowsIt) {
  OpenWithHistory(12);
  Key(Qt::Key_Down);
  for (const char* key : {"g", "1", "x", "1"}) Key(Qt::Key_A, key);
  EXPECT_EQ(Edit()->text(), "g1x1");
  EXPECT_EQ(DropItems()->Count(), 3) << "X1, X10 and X11";
  EXPECT_EQ(DropItems()->Selection(), -1);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(DropItems()->Count(), 12);
  Key(Qt::Key_Down);
  Key(Qt::Key_Return, "\r");
  EXPECT_EQ(Edit()->text(), "G1 X0");
  EXPECT_EQ(Focus(), Edit());
}

TEST_F(MdiRecallFlow, EscapeAfterTypingKeepsTheTypedTextWithTheCaretAtItsEnd) {
  OpenWithHistory();
  Type(Edit(), "G0");
  Key(Qt::Key_Down);
  Key(Qt::Key_A, "Y");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Edit()->text(), "G0Y");
  EXPECT_EQ(Edit()->cursorPosition(), 3);
  EXPECT_EQ(Focus(), Edit());
}

TEST_F(MdiRecallFlow, AFingerPinsTheSelectedBlock) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  Touch(FindControl(&panel, ZCMDIList::kPinId));
  EXPECT_EQ(OnDisc("C:\\P108\\MDIP1.DAT"), "G1 X1\r\n");
  EXPECT_EQ(DropItems()->Note(1).sign, ListSign::kPin);
  EXPECT_EQ(DropItems()->Selection(), 1);
  Touch(FindControl(&panel, ZCMDIList::kArrangeId));
  EXPECT_EQ(DropItems()->Item(0), u"G1 X1") << "pinned blocks come first";
}

TEST_F(MdiRecallFlow, TheWordAtFaultStaysSelectedWithoutTheFocus) {
  Open();
  Type(Edit(), "G1 X5 Q7");
  Edit()->Select({6, 8});
  other->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(Edit()->selectedText(), "Q7");
  Edit()->setCursorPosition(0);
  Edit()->setFocus();
  Edit()->setSelection(0, 2);
  other->setFocus(Qt::MouseFocusReason);
  EXPECT_FALSE(Edit()->hasSelectedText()) << "what the operator marks goes with the focus";
}

}  // namespace
}  // namespace pnl::test
