// SPDX-License-Identifier: MIT
// The shift begins with a program: open, find in it, change it, save it.
#include <QAbstractItemView>
#include <QTextBlock>

#include "panel/shift/qt/shift_steps.h"
#include "ui/code_edit.h"
#include "ui/editor_bars.h"
#include "ui/find_bar.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/touch_keyboard.h"

namespace panel::shift {
namespace {

const QString kPocket = QStringLiteral("D:\\PARTS\\BRACKET\\OP20 POCKET.NC");

QString LineOfCaret(Hands& hands) { return hands.Window().Editor().Edit().textCursor().block().text(); }

void Open(Hands& hands) {
  hands.Main(Action::kOpenProgram);
  hands.Expect(hands.IsSeen(PNL_TOOL_EXPLORER), QStringLiteral("the explorer doesn't open"));
  hands.TreePath(hands.Control<QAbstractItemView>(PNL_TOOL_EXPLORER, kExplorerTree),
                 {QStringLiteral("D:  (DEMO)"), QStringLiteral("PARTS"), QStringLiteral("BRACKET")});
  hands.Item(hands.Control<QAbstractItemView>(PNL_TOOL_EXPLORER, kExplorerList), QStringLiteral("OP20 POCKET.NC"));
  hands.Capture(QStringLiteral("open"));
  hands.Main(kExplorerOk);
  hands.Expect(!hands.IsSeen(PNL_TOOL_EXPLORER), QStringLiteral("the explorer stays"));
  hands.ExpectText(hands.Window().Editor().Name(), kPocket, QStringLiteral("the open program"));
  hands.Expect(hands.Program().startsWith(QStringLiteral("(BRACKET OP20 POCKET)\nG90 G17 G21 G54\n")),
               QStringLiteral("the program's text"));
}

void Find(Hands& hands) {
  ProgramEditor& editor = hands.Window().Editor();
  hands.Side(Action::kFind);
  hands.Expect(editor.Finding().isVisible(), QStringLiteral("the bar for finding doesn't open"));
  hands.Raise(&editor.Finding().What(), QStringLiteral("what to find"));
  hands.Type(QStringLiteral("Z-4"));
  hands.ExpectText(editor.Finding().What().text(), QStringLiteral("Z-4"), QStringLiteral("what to find"));
  hands.ExpectText(editor.Edit().textCursor().selectedText(), QStringLiteral("Z-4"), QStringLiteral("what is marked"));
  hands.ExpectText(LineOfCaret(hands), QStringLiteral("G1 Z-4 F200"), QStringLiteral("where it is found"));
  hands.Capture(QStringLiteral("find"));
  hands.Touch(editor.Finding().CloseKey(), QStringLiteral("the key that closes the bar"));
  hands.Expect(!editor.Finding().isVisible(), QStringLiteral("the bar stays"));
}

/// Touches the end of the line with the caret.
void TouchEndOfLine(Hands& hands) {
  QPlainTextEdit& edit = hands.Window().Editor().Edit();
  QTextCursor end = edit.textCursor();
  end.movePosition(QTextCursor::EndOfBlock);
  hands.TouchAt(edit.viewport(), edit.cursorRect(end).center() + QPoint(8, 0), QStringLiteral("the end of the line"));
  hands.Expect(hands.Window().TouchKeys().isVisible(), QStringLiteral("no touch keyboard for the program"));
}

void Edit(Hands& hands) {
  ProgramEditor& editor = hands.Window().Editor();
  TouchEndOfLine(hands);
  hands.Tap(TouchAct::kBack, 3);
  // A slip, and back.
  hands.Type(QStringLiteral("9"));
  hands.Side(Action::kUndo);
  hands.ExpectText(LineOfCaret(hands), QStringLiteral("G1 Z-4 F"), QStringLiteral("the line after a step back"));
  TouchEndOfLine(hands);
  hands.Type(QStringLiteral("150 M8"));
  hands.ExpectText(LineOfCaret(hands), QStringLiteral("G1 Z-4 F150 M8"), QStringLiteral("the changed line"));
  hands.Expect(editor.IsModified(), QStringLiteral("the program counts as saved"));
  hands.Capture(QStringLiteral("edit"));
}

void Save(Hands& hands) {
  hands.Side(Action::kSaveProgram);
  hands.Expect(!hands.Window().Editor().IsModified(), QStringLiteral("the program doesn't count as saved"));
  const QByteArray bytes = hands.Stage().FileAt(kPocket);
  hands.Expect(bytes.contains("\r\nG1 Z-4 F150 M8\r\n"), QStringLiteral("the file has the old line"));
  hands.ExpectText(QString::fromUtf8(bytes).remove(u'\r'), hands.Program(), QStringLiteral("the file"));
  hands.PutKeyboardAway();
}

}  // namespace

std::vector<ShiftStep> ProgramSteps() {
  return {{"open a program", &Open}, {"find in it", &Find}, {"change it", &Edit}, {"save it", &Save}};
}

}  // namespace panel::shift
