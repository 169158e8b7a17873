// SPDX-License-Identifier: MIT
// Which keys are the machining calculator's, and which ones somebody types.
#include "zmc/qt/zmc_key_events.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

struct KeyRow {
  int key;
  Qt::KeyboardModifiers modifiers;
  std::optional<ZmcKey> means;
};

const KeyRow kKeyRows[] = {
    {Qt::Key_Tab, Qt::NoModifier, ZmcKey::kTab},
    {Qt::Key_Tab, Qt::ShiftModifier, ZmcKey::kBackTab},
    {Qt::Key_Backtab, Qt::ShiftModifier, ZmcKey::kBackTab},
    {Qt::Key_Backtab, Qt::NoModifier, ZmcKey::kBackTab},
    {Qt::Key_Up, Qt::NoModifier, ZmcKey::kUp},
    {Qt::Key_Down, Qt::NoModifier, ZmcKey::kDown},
    {Qt::Key_Left, Qt::NoModifier, ZmcKey::kLeft},
    {Qt::Key_Right, Qt::NoModifier, ZmcKey::kRight},
    {Qt::Key_Right, Qt::KeypadModifier, ZmcKey::kRight},
    {Qt::Key_Home, Qt::NoModifier, ZmcKey::kHome},
    {Qt::Key_End, Qt::NoModifier, ZmcKey::kEnd},
    {Qt::Key_Return, Qt::NoModifier, ZmcKey::kEnter},
    {Qt::Key_Enter, Qt::KeypadModifier, ZmcKey::kEnter},
    {Qt::Key_Space, Qt::NoModifier, ZmcKey::kSpace},
    {Qt::Key_Insert, Qt::NoModifier, ZmcKey::kInsert},
    {Qt::Key_Escape, Qt::NoModifier, ZmcKey::kEscape},
    {Qt::Key_A, Qt::NoModifier, std::nullopt},
    {Qt::Key_PageUp, Qt::NoModifier, std::nullopt},
    {Qt::Key_Delete, Qt::NoModifier, std::nullopt},
    {Qt::Key_F1, Qt::NoModifier, std::nullopt},
};

TEST(ZmcKeyEvents, EachKeyHasItsMeaningUnlessItIsPressedWithCtrlAltOrMeta) {
  for (const KeyRow& row : kKeyRows) {
    EXPECT_EQ(KeyOf(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers)), row.means) << row.key;
    for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
      EXPECT_EQ(KeyOf(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers | held)), std::nullopt) << row.key;
    }
  }
}

struct TypedRow {
  int key;
  Qt::KeyboardModifiers modifiers;
  const char16_t* text;
  bool typed;
};

const TypedRow kTypedRows[] = {
    {Qt::Key_A, Qt::NoModifier, u"a", true},           {Qt::Key_A, Qt::ShiftModifier, u"A", true},
    {Qt::Key_Period, Qt::KeypadModifier, u".", true},  {Qt::Key_Space, Qt::NoModifier, u" ", true},
    {Qt::Key_Backspace, Qt::NoModifier, u"\b", true},  {Qt::Key_Delete, Qt::NoModifier, u"\x7F", true},
    {Qt::Key_PageUp, Qt::NoModifier, u"", true},       {Qt::Key_PageDown, Qt::NoModifier, u"", true},
    {Qt::Key_Return, Qt::NoModifier, u"\r", false},    {Qt::Key_Escape, Qt::NoModifier, u"\x1B", false},
    {Qt::Key_F1, Qt::NoModifier, u"", false},          {Qt::Key_A, Qt::ControlModifier, u"a", false},
    {Qt::Key_A, Qt::AltModifier, u"a", false},         {Qt::Key_A, Qt::MetaModifier, u"a", false},
    {Qt::Key_Delete, Qt::ControlModifier, u"", false},
};

TEST(ZmcKeyEvents, WhatSomebodyTypesIsPrintedOrMovesOrDeletes) {
  for (const TypedRow& row : kTypedRows) {
    const QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, QString::fromUtf16(row.text));
    EXPECT_EQ(IsTyped(event), row.typed) << row.key << " with " << row.modifiers;
  }
}

}  // namespace
}  // namespace pnl::test
