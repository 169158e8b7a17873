// SPDX-License-Identifier: MIT
#include "controls/zwc_edit.h"

#include "paint_counter.h"
#include "support/fake_window_system.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ZWCEditTest : public testing::Test {
 protected:
  ZWCEditTest() {
    edit->resize(150, 30);
    other.move(0, 40);
    panel.resize(200, 100);
    Activate(panel);
    other.setFocus();
    windows.sent.clear();
  }
  [[nodiscard]] std::vector<std::string> Told() {
    std::vector<std::string> told;
    for (const SentMessage& sent : windows.sent) {
      told.push_back(std::string(RegisteredMessageName(sent.message.number)) + " " +
                     std::to_string(sent.message.first) + "," + std::to_string(sent.message.second) +
                     (sent.posted ? " posted" : ""));
    }
    windows.sent.clear();
    return told;
  }
  FakeWindowSystem windows;
  const WindowHandle parent = windows.Open();
  QWidget panel;
  QPointer<ZWCEdit> edit = new ZWCEdit(225, windows, parent, &panel);
  QLineEdit other{&panel};
};

TEST_F(ZWCEditTest, RefusesForbiddenCharactersWhenTyped) {
  edit->SetForbidden("\\/");
  Type(edit, "a\\b/c");
  EXPECT_EQ(edit->text(), "abc");
  EXPECT_TRUE(PressKey(edit, Qt::Key_Slash, "/")) << "consumed, not handed on";
}

TEST_F(ZWCEditTest, AcceptsForbiddenCharactersFromTheClipboard) {
  edit->SetForbidden("\\/");
  QApplication::clipboard()->setText("a\\b/c");
  edit->paste();
  EXPECT_EQ(edit->text(), "a\\b/c");
}

TEST_F(ZWCEditTest, ForbidsNothingWithAnEmptySet) {
  edit->SetForbidden("\\/");
  edit->SetForbidden(QString());
  Type(edit, "a\\b/c");
  EXPECT_EQ(edit->text(), "a\\b/c");
}

TEST_F(ZWCEditTest, AnInputMethodTypesToo) {
  edit->SetForbidden("/");
  QInputMethodEvent composed;
  composed.setCommitString("n/a");
  QApplication::sendEvent(edit, &composed);
  EXPECT_EQ(edit->text(), "na");
}

TEST_F(ZWCEditTest, TellsTheParentOnceWhenTheFocusComesAndGoes) {
  edit->setFocus();
  EXPECT_EQ(Told(), std::vector<std::string>{"ZWCEDIT_SETFOCUS 225,0"});
  other.setFocus();
  EXPECT_EQ(Told(), std::vector<std::string>{"ZWCEDIT_KILLFOCUS 225,0"});
}

TEST_F(ZWCEditTest, TheParentHandlesItBeforeTheFocusChangeGoesOn) {
  bool asked = false;
  windows.onSend = [&](WindowHandle, const Message&) {
    asked = true;
    // What the control itself does on the focus, such as to select all, is still to come.
    EXPECT_FALSE(edit->hasSelectedText());
    return 0;
  };
  edit->setText("abc");
  edit->setFocus(Qt::TabFocusReason);
  windows.onSend = nullptr;
  EXPECT_TRUE(asked);
  EXPECT_TRUE(edit->hasSelectedText());
}

TEST_F(ZWCEditTest, AMenuOverItIsNoLossOfFocus) {
  edit->setFocus();
  windows.sent.clear();
  QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
  QApplication::sendEvent(edit, &out);
  QFocusEvent in(QEvent::FocusIn, Qt::PopupFocusReason);
  QApplication::sendEvent(edit, &in);
  EXPECT_TRUE(windows.sent.empty());
}

TEST_F(ZWCEditTest, TheColoursFollowTheFocus) {
  edit->SetNormalColors(0x804020, 0xFFFFFF, true);
  edit->SetFocusColors(0x20FF20, 0x000001, true);
  const QPoint middle(75, 15);
  EXPECT_EQ(ColorAt(Paint(*edit), middle.x(), middle.y()), 0x804020u);
  EXPECT_EQ(edit->property("pnlBack").toUInt(), 0x804020u);
  edit->setFocus();
  EXPECT_EQ(ColorAt(Paint(*edit), middle.x(), middle.y()), 0x20FF20u);
  EXPECT_EQ(edit->property("pnlBack").toUInt(), 0x20FF20u);
  EXPECT_EQ(edit->property("pnlFore").toUInt(), 0x000001u);
  other.setFocus();
  EXPECT_EQ(ColorAt(Paint(*edit), middle.x(), middle.y()), 0x804020u);
}

TEST_F(ZWCEditTest, ColoursSetWithoutRedrawPaintNothing) {
  Settle();
  PaintCounter paints(*edit);
  edit->SetNormalColors(1, 2, false);
  edit->SetFocusColors(3, 4, false);
  Settle();
  EXPECT_EQ(paints.Count(), 0);
  edit->SetNormalColors(5, 6, true);
  EXPECT_EQ(paints.Count(), 1) << "at once";
  edit->SetFocusColors(7, 8, true);
  EXPECT_EQ(paints.Count(), 2) << "at once";
}

TEST_F(ZWCEditTest, StartsWithTheSystemsColoursInBothStates) {
  EXPECT_EQ(edit->BackColor(), 0xFFFFFFu);
  EXPECT_EQ(edit->TextColor(), 0u);
  edit->setFocus();
  EXPECT_EQ(edit->BackColor(), 0xFFFFFFu);
  EXPECT_EQ(edit->TextColor(), 0u);
}

TEST_F(ZWCEditTest, NewColoursShowWithTheNextPaint) {
  Paint(*edit);
  edit->SetNormalColors(0x804020, 0xFFFFFF, false);
  EXPECT_EQ(ColorAt(Paint(*edit), 75, 15), 0x804020u);
}

TEST_F(ZWCEditTest, AFontThatCannotBeMadeLeavesNone) {
  edit->SetFont("Arial", 18, 600);
  EXPECT_EQ(edit->font().pixelSize(), 16);
  edit->SetFont("", 18, 600);
  EXPECT_EQ(edit->font(), panel.font());
}

TEST_F(ZWCEditTest, AParentMayDestroyItOnTheMessage) {
  windows.onSend = [&](WindowHandle, const Message&) {
    edit->deleteLater();
    return 0;
  };
  edit->setFocus();
  Settle();
  EXPECT_TRUE(edit.isNull());
}

TEST_F(ZWCEditTest, ANewTextColourAloneIsShownToo) {
  const auto text = [this] {
    Paint(*edit);
    return edit->palette().color(QPalette::Text);
  };
  edit->SetNormalColors(0x804020, 0xFFFFFF, false);
  EXPECT_EQ(text(), QColor(Qt::white));
  edit->SetNormalColors(0x804020, 0x0000FF, false);
  EXPECT_EQ(text(), QColor(Qt::red));
  edit->setFocus();
  edit->SetFocusColors(0x20FF20, 0x000000, false);
  EXPECT_EQ(text(), QColor(Qt::black));
  edit->SetFocusColors(0x20FF20, 0xFF0000, false);
  EXPECT_EQ(text(), QColor(Qt::blue));
  edit->SetFocusColors(0x0000FF, 0xFF0000, false);
  EXPECT_EQ(ColorAt(Paint(*edit), 75, 15), 0x0000FFu) << "the ground alone too";
}

TEST_F(ZWCEditTest, WhatAnInputMethodReplacesIsReplacedWithoutForbiddenCharacters) {
  edit->SetForbidden("/");
  edit->setText("abc");
  QInputMethodEvent composed("pre", {});
  composed.setCommitString("n/o", -1, 1);
  QApplication::sendEvent(edit, &composed);
  EXPECT_EQ(edit->text(), "abno");
  EXPECT_TRUE(composed.isAccepted());
}

TEST_F(ZWCEditTest, AFontIsTheEditsOwnAndSoIsItsMark) {
  edit->SetFont("Arial", 20, 700);
  EXPECT_EQ(edit->font().weight(), 700);
  EXPECT_EQ(edit->property("pnlId").toInt(), 225);
  EXPECT_EQ(edit->property("pnlKind").toString(), "edit");
}

}  // namespace
}  // namespace pnl::test
