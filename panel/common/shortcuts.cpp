// SPDX-License-Identifier: MIT
#include "common/shortcuts.h"

namespace panel {

const QList<ShortcutRow>& ShortcutTable() {
  static const QList<ShortcutRow> table = {
      {Action::kCycleStart, Word::kCycleStart, "F9; Ctrl+Return; Ctrl+Enter"},
      {Action::kFeedHold, Word::kHold, "F10; Ctrl+Space"},
      {Action::kSingleBlock, Word::kSingleBlock, "F11"},
      {Action::kCancel, Word::kCancel, "Shift+F9"},
      {Action::kReset, Word::kReset, "F12"},
      {Action::kOverrideDown, Word::kOverrideDown, "Ctrl+-"},
      {Action::kOverrideUp, Word::kOverrideUp, "Ctrl++; Ctrl+="},
      {Action::kInspect, Word::kInspect, "Shift+F10"},
      {Action::kOpenMdi, Word::kMdi, "Ctrl+M"},
      {Action::kSwitchRole, Word::kMdiMda, "Ctrl+Shift+M"},
      {Action::kOpenCalculator, Word::kCalculator, "Ctrl+K"},
      {Action::kOpenMachining, Word::kMachiningCalculator, "Ctrl+D"},
      {Action::kHelp, Word::kHelp, "Ctrl+F1"},
      {Action::kClearError, Word::kClear, "Shift+Esc"},
      {Action::kErrorList, Word::kErrorList, "Ctrl+L"},
      {Action::kFocusTool, Word::kFocusTool, "Ctrl+T"},
      {Action::kOpenProgram, Word::kOpen, "Ctrl+O"},
      {Action::kSaveProgram, Word::kSave, "Ctrl+S"},
      {Action::kSaveProgramAs, Word::kSaveAs, "Ctrl+Shift+S"},
      {Action::kNewProgram, Word::kNew, "Ctrl+N"},
      {Action::kCoordinates, Word::kCoordinates, "Ctrl+W"},
      {Action::kOverrideFull, Word::kOverrideFull, "Ctrl+0"},
      {Action::kUndoRemoval, Word::kUndoRemoval, "Alt+Z"},
      {Action::kUndo, Word::kUndo, "Ctrl+Z"},
      {Action::kRedo, Word::kRedo, "Ctrl+Y; Ctrl+Shift+Z"},
      {Action::kFind, Word::kFind, "Ctrl+F"},
      {Action::kReplace, Word::kReplace, "Ctrl+H"},
      {Action::kGoToLine, Word::kGoToLine, "Ctrl+G"},
      {Action::kMainMore, Word::kMore, "F8"},
      {Action::kMainBack, Word::kBack, "Alt+Left"},
      {Action::kSideMore, Word::kMore, "Shift+F8"},
      {Action::kSideBack, Word::kBack, "Shift+F7"},
  };
  return table;
}

QList<QKeySequence> KeysOf(Action action) {
  const ShortcutRow& row = ShortcutTable().at(static_cast<int>(action));
  // The list is separated by "; ", so that a key may itself be a comma or a semicolon.
  QList<QKeySequence> keys;
  for (const QString& name : QString::fromLatin1(row.keys).split(QStringLiteral("; "))) {
    keys << QKeySequence(name, QKeySequence::PortableText);
  }
  return keys;
}

Word WordOf(Action action) { return ShortcutTable().at(static_cast<int>(action)).what; }

bool IsOfEditor(Action action) { return action >= Action::kUndo && action <= Action::kGoToLine; }

bool Repeats(Action action) { return action == Action::kOverrideDown || action == Action::kOverrideUp; }

QString TooltipOf(Action action) {
  return QStringLiteral("%1 (%2)").arg(Say(WordOf(action)), KeysOf(action).first().toString());
}

QKeySequence MainKey(int index) { return {Qt::Key_F1 + index}; }

QKeySequence SideKey(int index) { return {QKeyCombination(Qt::SHIFT, static_cast<Qt::Key>(Qt::Key_F1 + index))}; }

QString ShortcutPage() {
  QString page = QStringLiteral("| keys | what |\n| --- | --- |\n");
  page +=
      QStringLiteral("| %1 … %2 | soft keys below |\n").arg(MainKey(0).toString(), MainKey(kMainKeys - 1).toString());
  page += QStringLiteral("| %1 … %2 | soft keys at the side |\n")
              .arg(SideKey(0).toString(), SideKey(kSideKeys - 1).toString());
  // The error tool registers this hot key with the panel, so it has no row in the table.
  page += QStringLiteral("| Alt+W | %1 |\n").arg(Say(Word::kToggleErrors));
  for (const ShortcutRow& row : ShortcutTable()) {
    QStringList names;
    for (const QKeySequence& key : KeysOf(row.action)) names << key.toString();
    page += QStringLiteral("| %1 | %2 |\n").arg(names.join(QStringLiteral(", ")), Say(row.what));
  }
  return page;
}

}  // namespace panel
