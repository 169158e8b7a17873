// SPDX-License-Identifier: MIT
// The editor's own actions: undo and redo, and the bars for finding, replacing and going to a line.
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "common/words.h"
#include "ui/edit_history.h"
#include "ui/find_bar.h"
#include "ui/program_editor.h"
#include "ui/program_search.h"

namespace panel {

void ProgramEditor::ConnectBars() {
  connect(findBar_, &FindBar::LeaveWanted, this, &ProgramEditor::CloseBar);
  connect(lineBar_, &LineBar::LeaveWanted, this, &ProgramEditor::CloseBar);
  connect(lineBar_, &LineBar::LineWanted, this, [this](int line) {
    CloseBar();
    GoToLine(line);
  });
  connect(openingBar_, &OpeningBar::CancelWanted, this, &ProgramEditor::CancelWanted);
  connect(search_, &ProgramSearch::ReplacingChanged, this, &ProgramEditor::OnChangingChanged);
  connect(search_, &ProgramSearch::WentOn, this,
          [this](bool atStart) { emit Said(Say(atStart ? Word::kWentOnAtStart : Word::kWentOnAtEnd), false); });
  connect(search_, &ProgramSearch::ReplacedAll, this, [this](int count) {
    emit Said(count > 0 ? Say(Word::kReplaced, QString::number(count)) : Say(Word::kNotFound), count == 0);
  });
}

bool ProgramEditor::Can(Action action) const {
  if (Opening() || Changing()) return false;
  switch (action) {
    case Action::kUndo:
      return edit_->document()->isUndoAvailable();
    case Action::kRedo:
      return edit_->document()->isRedoAvailable();
    default:
      return IsOfEditor(action);
  }
}

void ProgramEditor::Do(Action action) {
  if (!Can(action)) return;
  switch (action) {
    case Action::kUndo:
      return history_->Undo();
    case Action::kRedo:
      return history_->Redo();
    case Action::kFind:
      return Find(false);
    case Action::kReplace:
      return Find(true);
    case Action::kGoToLine:
      OpenBar(Bar::kLine);
      return lineBar_->Begin();
    default:
      return;
  }
}

void ProgramEditor::Find(bool replace) {
  OpenBar(Bar::kFind);
  const QString marked = edit_->textCursor().selectedText();
  findBar_->Begin(replace, marked.contains(QChar(QChar::ParagraphSeparator)) ? QString() : marked);
  Place();
}

void ProgramEditor::OpenBar(Bar bar) {
  if (bar != Bar::kFind) findBar_->Leave();
  bar_ = bar;
  findBar_->setVisible(bar == Bar::kFind);
  lineBar_->setVisible(bar == Bar::kLine);
  Place();
}

void ProgramEditor::CloseBar() {
  // The text takes the keyboard first: a field that hides with it would pass it on elsewhere.
  Seen()->setFocus();
  OpenBar(Bar::kNone);
}

void ProgramEditor::GoToLine(int line) {
  const int lines = edit_->blockCount();
  if (line > lines) emit Said(Say(Word::kNoSuchLine, QString::number(lines)), false);
  MarkInLine(std::clamp(line, 1, lines) - 1, 0, 0);
}

void ProgramEditor::MarkInLine(int line, int column, int length) {
  const QTextBlock block = edit_->document()->findBlockByNumber(std::clamp(line, 0, edit_->blockCount() - 1));
  const int most = block.length() - 1;
  const int begin = std::clamp(column, 0, most);
  edit_->Mark(block.position() + begin, std::clamp(length, 0, most - begin));
  edit_->setFocus();
}

void ProgramEditor::MarkWord(int line, int column) {
  const QString text = edit_->document()->findBlockByNumber(line).text();
  const qsizetype begin = std::clamp<qsizetype>(column, 0, text.size());
  qsizetype end = std::min(begin + 1, text.size());
  if (begin < text.size() && text.at(begin) == u'(') {
    const qsizetype close = text.indexOf(u')', begin);
    end = close < 0 ? text.size() : close + 1;
  }
  // Letters belong together only when they begin the word, as in a name.
  bool name = begin < text.size() && text.at(begin).isLetter();
  while (end < text.size() && text.at(begin) != u'(' && !text.at(end).isSpace()) {
    if (text.at(end).isLetter() && !name) break;
    name = name && text.at(end).isLetter();
    ++end;
  }
  MarkInLine(line, static_cast<int>(begin), static_cast<int>(end - begin));
}

void ProgramEditor::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && Opening()) return emit CancelWanted();
  if (event->key() == Qt::Key_Escape && bar_ != Bar::kNone) return CloseBar();
  const QKeySequence pressed(
      QKeyCombination(event->modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event->key())));
  for (const Action action : {Action::kFind, Action::kReplace, Action::kGoToLine}) {
    if (KeysOf(action).contains(pressed)) return Do(action);
  }
  QWidget::keyPressEvent(event);
}

}  // namespace panel
